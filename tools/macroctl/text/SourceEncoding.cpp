#include "text/SourceEncoding.h"

#include <algorithm>
#include <string_view>

#include <macroengine/LineEncoding.h>

namespace macroctl {

namespace {

/// Cuts a text into lines, each with its end apart.
class LineCutter {
public:
    explicit LineCutter(std::string_view text) : rest_(text) {}

    bool Next() {
        if (rest_.empty()) return false;
        const std::size_t feed = rest_.find('\n');
        const std::size_t size = feed == std::string_view::npos ? rest_.size() : feed + 1;
        line_ = rest_.substr(0, std::min(feed, size));
        if (feed != std::string_view::npos && !line_.empty() && line_.back() == '\r') line_.remove_suffix(1);
        end_ = rest_.substr(line_.size(), size - line_.size());
        rest_.remove_prefix(size);
        ++number_;
        return true;
    }

    std::string_view Line() const { return line_; }
    std::string_view End() const { return end_; }
    std::size_t Number() const { return number_; }

private:
    std::string_view rest_;
    std::string_view line_;
    std::string_view end_;
    std::size_t number_ = 0;
};

/// Converts one line and appends the result.
/// @return why that isn't possible, or null.
using LineConversion = const char* (*)(std::string_view line, std::string& result);

bool ConvertLines(std::string_view text, LineConversion convert, std::string& result,
                  ConversionError& error) {
    result.clear();
    for (LineCutter cutter(text); cutter.Next();) {
        if (const char* const reason = convert(cutter.Line(), result)) {
            error = {cutter.Number(), reason};
            return false;
        }
        result += cutter.End();
    }
    return true;
}

bool AppendEncoded(std::string_view line, std::string& result) {
    char encoded[(kLongestEncodableLine + 2) / 3 * 4];
    const int size =
        EncodeSourceLine(line.data(), static_cast<unsigned int>(line.size()), encoded, sizeof encoded);
    if (size < 0) return false;
    result.append(encoded, static_cast<std::size_t>(size));
    return true;
}

const char* EncodeLine(std::string_view line, std::string& result) {
    if (line.size() > kLongestEncodableLine) return "the line is longer than 4095 bytes.";
    if (line.find('\0') != std::string_view::npos) return "the line has a byte 0.";
    if (line.find('\xFF') != std::string_view::npos) return "the line has a byte 255.";
    return AppendEncoded(line, result) ? nullptr : "the line has no encoded form.";
}

const char* DecodeLine(std::string_view line, std::string& result) {
    char text[kLongestEncodableLine];
    const int size = DecodeSourceLine(line.data(), static_cast<unsigned int>(line.size()), text, sizeof text);
    if (size < 0) return "the line is longer than 4095 bytes.";
    const std::string_view decoded(text, static_cast<std::size_t>(size));
    std::string again;
    if (!AppendEncoded(decoded, again) || again != line) return "the line isn't encoded.";
    result += decoded;
    return nullptr;
}

}  // namespace

bool EncodeText(const std::string& text, std::string& encoded, ConversionError& error) {
    return ConvertLines(text, EncodeLine, encoded, error);
}

bool DecodeText(const std::string& encoded, std::string& text, ConversionError& error) {
    return ConvertLines(encoded, DecodeLine, text, error);
}

bool IsEncodedSource(std::string_view path, std::string_view bytes) {
    std::string extension(path.substr(std::min(path.rfind('.'), path.size())));
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    if (extension == ".iod" || extension == ".dat") return true;
    return extension == ".rgi" && bytes.find("[REGISTER]") == std::string_view::npos;
}

}  // namespace macroctl
