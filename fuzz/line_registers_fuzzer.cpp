// Any text as a line-based register file, loaded twice into one object: all that it leaves can be asked for.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "common/RegisterFileVisit.h"
#include "support/TemporaryFolder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const macroengine::test::TemporaryFolder folder;
    const std::string path =
        folder.Write("registers.txt", std::string(reinterpret_cast<const char*>(data), size));
    const std::unique_ptr<CRegDefFileIF, decltype(&DeleteRegDefFile)> file(CreatePSCRegDefFile(),
                                                                           DeleteRegDefFile);
    macroengine::fuzz::LoadAndVisit(*file, path.c_str());
    macroengine::fuzz::LoadAndVisit(*file, path.c_str());
    return 0;
}
