#include "categories/SystemFileCommands.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "categories/ArgumentRange.h"
#include "categories/CommandFailure.h"
#include "categories/WorkFolderPath.h"
#include "macroengine/CMacroPropertyIF.h"
#include "platform/CodePage.h"
#include "platform/File.h"

namespace macroengine {

namespace {

constexpr int kAppend = 1;
constexpr int kFirst = 0;

/// Replaces the escapes that stand for a line end, a tab and a backslash.
std::string Unescape(std::string_view text) {
    std::string unescaped;
    unescaped.reserve(text.size());
    const char* const end = text.data() + text.size();
    for (const char* position = text.data(); position != end;) {
        const char next = *position == '\\' && end - position > 1 ? position[1] : '\0';
        if (next == 'n') {
            unescaped += platform::kLineEnd;
        } else if (next == 't') {
            unescaped += '\t';
        } else if (next == '\\') {
            unescaped += '\\';
        } else {
            const std::size_t length = platform::CharacterLength(position, end);
            unescaped.append(position, length);
            position += length;
            continue;
        }
        position += 2;
    }
    return unescaped;
}

bool WriteFile(CMacroPropertyIF* property) {
    if (property->CheckArgumentCount(3, 3) < 0) return false;
    int mode = 0;
    if (!ReadInRange(property, 0, 0, 1, mode)) return false;
    const char* const name = property->GetArgString(1);
    if (name == nullptr) return false;
    if (*name == '\0') return Fail(property, "filename is null string.");
    const char* const text = property->GetArgString(2);
    if (text == nullptr || !property->CheckNoAssignedValue(false)) return false;

    const std::string path = WorkFolderPath(property, name);
    platform::File file;
    if (!file.OpenForWriting(path,
                             mode == kAppend ? platform::WriteMode::Append : platform::WriteMode::Truncate)) {
        return Fail(property, "File open error. (" + path + ")");
    }
    if (mode == kAppend && !file.SeekToEnd()) return Fail(property, "File seek error. (" + path + ")");
    if (!file.Write(Unescape(text))) return Fail(property, "File write error. (" + path + ")");
    return true;
}

}  // namespace

bool CMacroCategoryCmdSystem_FileWrite::Run(CMacroPropertyIF* property) {
    const bool isWritten = WriteFile(property);
    property->SetResultBoolean(isWritten);
    return isWritten;
}

bool CMacroCategorySystem_MkDir::Run(CMacroPropertyIF* property) {
    if (property->CheckArgumentCount(1, 1) < 0) return false;
    const char* const name = property->GetArgString(0);
    if (name == nullptr) return false;
    if (*name == '\0') return Fail(property, "Error: target directory is null string");
    if (!property->CheckNoAssignedValue(false)) return false;

    const std::string path = WorkFolderPath(property, name);
    switch (platform::KindOfEntry(path)) {
        case platform::EntryKind::PlainDirectory:
            return true;
        case platform::EntryKind::Missing:
            return platform::CreateFolder(path) || Fail(property, "Failed to create directory.");
        default:
            return Fail(property, "Failed to create directory, because same filename is exist.");
    }
}

bool CMacroCategorySystemFindFile::Run(CMacroPropertyIF* property) {
    property->SetResultString("");
    if (property->CheckArgumentCount(2, 2) < 0) return false;
    const char* const pattern = property->GetArgString(0);
    if (pattern == nullptr) return false;
    if (*pattern == '\0') return Fail(property, "filename is null string.");
    int step = kFirst;
    if (!property->GetArgInteger(1, 0, 0, step)) return false;

    const std::optional<std::string> name =
        step == kFirst ? search_.First(WorkFolderPath(property, pattern)) : search_.Next();
    return !name || property->SetResultString(name->c_str());
}

}  // namespace macroengine
