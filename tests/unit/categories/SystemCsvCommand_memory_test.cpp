#include <gtest/gtest.h>
#include <new>
#include <string>

#include "categories/CMacroCategoryCmdList.h"
#include "runtime/SourceUnit.h"
#include "support/FailingAllocation.h"
#include "support/TemporaryFolder.h"
#include "support/ValueDescription.h"

namespace macroengine::test {
namespace {

// What is lost on the way is for the leak check of the address sanitizer to find.
TEST(CsvfileReadMemory, EveryAllocationMayFail) {
    const TemporaryFolder folder;
    const std::string path = folder.Write(
        "a.csv",
        "1,2,3\nname,a text that is longer than most,0x1F,2.5\n\"quoted \"\"text\"\"\",x\n\n4\n5\n6\n7\n");
    CMacroCategoryCmdList list("");
    CommandEntry* const entry = list.FindEntry("system", "csvfile_read");
    ASSERT_NE(entry, nullptr);
    const std::vector<CMacroCommonValue> arguments{Text(path), Integer(1)};
    const std::vector<ValueView> views = test::ViewsOf(arguments);

    bool succeeded = false;
    long allowed = 0;
    for (; !succeeded && allowed < 10000; ++allowed) {
        SourceUnit unit;
        CMacroCommonValue result;
        try {
            const FailingAllocation failing(allowed);
            succeeded = list.Execute(*entry, unit, 1, {views, nullptr}, result);
        } catch (const std::bad_alloc&) {
            // There was no memory even for the message: the runner reports it.
        }
        if (succeeded) {
            EXPECT_EQ(result.View().array->GetSize(), 8U);
        } else {
            EXPECT_EQ(Describe(result), "none") << allowed;
        }
    }
    EXPECT_TRUE(succeeded);
    EXPECT_GT(allowed, 20);
}

}  // namespace
}  // namespace macroengine::test
