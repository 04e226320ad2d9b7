#include "regdef/CRegDefFile.h"

#include <new>

#include "platform/CodePage.h"
#include "regdef/Listing.h"
#include "regdef/SectionParser.h"
#include "source/CLex.h"

namespace macroengine {

CRegDefFile::CRegDefFile() {
    platform::RefreshCodePage();
}

CRegDefFile::~CRegDefFile() = default;

bool CRegDefFile::Load(const char* path) {
    const std::string file = path == nullptr ? "" : path;
    // The text of the file goes with the lexer at the end: what is kept of it has been copied.
    CLex lexer;
    try {
        const LoadGuard guard(contents_);
        if (lexer.LoadFile(file)) return SectionParser(lexer, file, contents_).ParseFile();
        contents_.errors.TakeErrors(lexer.GetErrors());
    } catch (const std::bad_alloc&) {
        contents_.errors.AddLocatedError(file.c_str(), static_cast<std::int32_t>(lexer.GetLine()),
                                         "Memory allocation error");
    }
    return false;
}

std::uint32_t CRegDefFile::GetErrorCount() const {
    return contents_.errors.GetCount();
}

const char* CRegDefFile::GetErrorMessage(std::uint32_t index) const {
    return contents_.errors.GetMessage(index).c_str();
}

std::uint32_t CRegDefFile::GetRegisterCount() const {
    return static_cast<std::uint32_t>(contents_.records.size());
}

CRegFieldsIF* CRegDefFile::GetRegister(std::uint32_t index) {
    return index < contents_.records.size() ? &contents_.records[index] : nullptr;
}

std::uint32_t CRegDefFile::GetPreambleCount() const {
    return static_cast<std::uint32_t>(contents_.preamble.size());
}

const char* CRegDefFile::GetPreamble(std::int32_t index) const {
    const bool exists = index >= 0 && static_cast<std::size_t>(index) < contents_.preamble.size();
    return exists ? contents_.preamble[static_cast<std::size_t>(index)] : "";
}

const char* CRegDefFile::GetListing() {
    // Freed first: two listings of a large file would be a lot.
    listing_ = std::string();
    listing_ = WriteListing(contents_);
    return listing_.c_str();
}

}  // namespace macroengine
