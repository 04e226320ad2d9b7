#include "source/SourceLoader.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <new>
#include <stdexcept>

#include "platform/NativePath.h"
#include "source/EncodedText.h"

namespace macroengine {

namespace {

constexpr std::string_view kRegisterMarker = "[REGISTER]";

enum class Form { Plain, Encoded, ByMarker };

/// @return the extension with its point, in lower case.
std::string ExtensionOf(std::string_view path) {
    const std::string_view name = path.substr(platform::FolderLength(path));
    const std::size_t point = name.rfind('.');
    if (point == std::string_view::npos) return {};
    std::string extension(name.substr(point));
    // Only ASCII letters fold, whatever the process's locale says.
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return extension;
}

Form FormOf(std::string_view path) {
    const std::string extension = ExtensionOf(path);
    if (extension == ".iod" || extension == ".dat") return Form::Encoded;
    return extension == ".rgi" ? Form::ByMarker : Form::Plain;
}

/// Decodes a file line by line. Every line, the last one without a line end included, becomes one line of the
/// text, so that line numbers stay in step.
std::string DecodeFile(std::string_view file) {
    std::string text;
    text.reserve(file.size() + 2);
    while (!file.empty()) {
        const std::size_t length = std::min(file.find('\n'), file.size() - 1) + 1;
        DecodeSourceLine(file.substr(0, length), text);
        text += "\r\n";
        file.remove_prefix(length);
    }
    return text;
}

std::string Quoted(std::string_view message, const std::string& path) {
    return std::string(message).append("(").append(path).append(")");
}

/// @return false with the reason in `errors`.
bool ReadWhole(const std::string& path, platform::File& file, CErrorMessageTable& errors,
               std::string& bytes) {
    if (!file.OpenForReading(path)) {
        errors.AddError(Quoted("File open error. ", path));
        return false;
    }
    const std::uint64_t size = file.Size();
    if (size > std::numeric_limits<std::uint32_t>::max() - 1) throw std::bad_alloc();
    bytes.resize(static_cast<std::size_t>(size));
    bytes.resize(file.Read(bytes.data(), bytes.size()));
    const bool hasReadError = file.HasReadError();
    file.Close();
    // Half a macro is no macro: an error in the middle counts like a file that gives nothing.
    if (bytes.empty() || hasReadError) {
        errors.AddError(Quoted("File read error. ", path));
        return false;
    }
    return true;
}

}  // namespace

SourceText::SourceText() = default;

bool LoadSource(const std::string& path, platform::File& file, CErrorMessageTable& errors, SourceText& text) {
    text = SourceText();
    if (file.IsOpen()) {
        errors.AddError("File is alredy opened.");
        return false;
    }
    errors.Clear();
    try {
        std::string bytes;
        if (!ReadWhole(path, file, errors, bytes)) return false;
        const Form form = FormOf(path);
        const bool encoded = form == Form::Encoded ||
                             (form == Form::ByMarker && bytes.find(kRegisterMarker) == std::string::npos);
        text = SourceText(encoded ? DecodeFile(bytes) : std::move(bytes));
        return true;
    } catch (const std::bad_alloc&) {
    } catch (const std::length_error&) {
    }
    file.Close();
    errors.AddError("Memory allocation error");
    return false;
}

}  // namespace macroengine
