#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "host/CErrorMessageTable.h"
#include "platform/File.h"

namespace macroengine {

/// A source text in memory, closed by a NUL that does not count.
class SourceText {
public:
    SourceText();
    explicit SourceText(std::string text) : text_(std::move(text)) {}

    char* Data() { return text_.data(); }
    const char* Begin() const { return text_.c_str(); }
    const char* End() const { return text_.c_str() + text_.size(); }

private:
    std::string text_;
};

/// Reads a whole source file, plain or encoded.
///
/// The extension chooses, without regard to case: `.iod` and `.dat` are encoded; `.rgi` is plain when some
/// line holds "[REGISTER]" and encoded otherwise; anything else is plain and read as it stands.
///
/// @param file    a closed file, open only while the load is under way.
/// @param errors  emptied first; receives the reason of a failure.
/// @return false when the file can't be opened, is empty or does not fit into memory; `text` is then empty.
bool LoadSource(const std::string& path, platform::File& file, CErrorMessageTable& errors, SourceText& text);

}  // namespace macroengine
