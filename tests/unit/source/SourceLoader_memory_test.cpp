#include <gtest/gtest.h>
#include <new>
#include <string>

#include "platform/File.h"
#include "source/SourceLoader.h"
#include "support/EncodedLine.h"
#include "support/FailingAllocation.h"
#include "support/TemporaryFolder.h"
#include "support/TokenList.h"

namespace macroengine {
namespace {

using test::FailingAllocation;
using test::Lines;

TEST(SourceLoaderMemory, AFileThatDoesNotFitIntoMemoryIsReported) {
    const test::TemporaryFolder folder;
    const std::string bytes(1U << 20, 'A');
    for (const char* name : {"a.mac", "a.iod", "a.rgi"}) {
        SCOPED_TRACE(name);
        const std::string path = folder.Write(name, bytes);
        platform::File file;
        CErrorMessageTable errors;
        SourceText text(std::string("what was there"));
        bool loaded = true;
        {
            const FailingAllocation failing(-1, 1U << 19);
            loaded = LoadSource(path, file, errors, text);
        }
        EXPECT_FALSE(loaded);
        EXPECT_FALSE(file.IsOpen());
        EXPECT_EQ(text.Begin(), text.End());
        EXPECT_EQ(test::TakeLines(errors), Lines{"error : Memory allocation error"});
    }
}

TEST(SourceLoaderMemory, AnyAllocationMayFail) {
    const test::TemporaryFolder folder;
    const std::string line(200, 'x');
    for (const char* name : {"a.mac", "a.iod", "a.rgi", "a.dat"}) {
        SCOPED_TRACE(name);
        const std::string path = folder.Write(name, test::EncodedLine(line));
        for (long allowed = 0;; ++allowed) {
            ASSERT_LT(allowed, 100);
            platform::File file;
            CErrorMessageTable errors;
            SourceText text;
            bool loaded = false;
            bool thrown = false;
            try {
                const FailingAllocation failing(allowed);
                loaded = LoadSource(path, file, errors, text);
            } catch (const std::bad_alloc&) {
                thrown = true;  // there was no memory for the message either
            }
            EXPECT_FALSE(file.IsOpen());
            if (loaded) break;
            EXPECT_EQ(text.Begin(), text.End());
            EXPECT_EQ(test::TakeLines(errors), thrown ? Lines{} : Lines{"error : Memory allocation error"});
        }
    }
}

}  // namespace
}  // namespace macroengine
