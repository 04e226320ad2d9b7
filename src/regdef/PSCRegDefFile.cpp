#include "regdef/PSCRegDefFile.h"

#include <algorithm>
#include <cstddef>
#include <new>
#include <string>
#include <string_view>

#include "regdef/LineReader.h"
#include "regdef/PSCRegFields.h"
#include "regdef/RegisterNumbers.h"

namespace macroengine {

namespace {

// These texts are part of the interface, spelling included.
constexpr std::string_view kBadHighAddress = "Invalid HiAddress description.";
constexpr std::string_view kBadValue = "Invalid InitiaValue description.";

constexpr std::string_view kHighAddressWord = "HiAddress";
constexpr std::string_view kComment = "//";
constexpr std::string_view kNote = "//.";

bool BeginsWith(std::string_view text, std::string_view beginning) {
    return text.substr(0, beginning.size()) == beginning;
}

std::string_view Trimmed(std::string_view text) {
    const std::size_t begin = std::min(text.find_first_not_of(' '), text.size());
    return text.substr(begin, text.find_last_not_of(' ') + 1 - begin);
}

/// Makes the line a text of words between spaces. As for a text that a NUL ends, nothing counts behind one.
std::string_view Cleaned(const Line& line) {
    char* const end = std::find(line.begin, line.end, '\0');
    std::replace(line.begin, end, '\t', ' ');
    return Trimmed(std::string_view(line.begin, static_cast<std::size_t>(end - line.begin)));
}

/// Reads the lines of one file.
class LineParser {
public:
    LineParser(const std::string& path, RegisterContents& contents) : path_(path), contents_(contents) {}

    std::int32_t GetLine() const { return lineNumber_; }

    void ParseLine(const Line& line) {
        ++lineNumber_;
        const std::string_view text = Cleaned(line);
        if (BeginsWith(text, kComment)) {
            AddNote(text);
            return;
        }
        EndRegister();
        if (text.empty()) return;
        if (BeginsWith(text, kHighAddressWord)) {
            ParseHighAddress(text.substr(kHighAddressWord.size()));
        } else {
            ParseRegister(text);
        }
    }

    /// Ends the register that notes may still be added to. Called at the end of the file too.
    void EndRegister() {
        // The record gets its function once it is whole: a text that grew in the pool would leave all its
        // shorter versions there.
        if (hasNotes_) {
            CRegFields& record = contents_.records.back();
            record.texts = contents_.texts.Add({record.GetName(), function_});
        }
        hasNotes_ = false;
        hasRegister_ = false;
    }

private:
    void AddNote(std::string_view comment) {
        const std::size_t note = comment.find(kNote);
        if (note == std::string_view::npos || !hasRegister_) return;
        if (!hasNotes_) function_ = contents_.records.back().GetFunction();
        hasNotes_ = true;
        function_.append("\r\n").append(comment.substr(note + kNote.size()));
    }

    void ParseHighAddress(std::string_view text) {
        const auto address = ParseHexadecimal(Trimmed(text.substr(0, text.find(kComment))));
        if (address) {
            highAddress_ = *address & 0xFFFF;
        } else {
            Report(kBadHighAddress);
        }
    }

    void ParseRegister(std::string_view text) {
        if (!fields_.ParseLine(text, lineNumber_, highAddress_, contents_.texts)) Report(kBadValue);
        contents_.records.push_back(fields_);
        hasRegister_ = true;
    }

    void Report(std::string_view text) { contents_.errors.AddLocatedError(path_.c_str(), lineNumber_, text); }

    const std::string& path_;
    RegisterContents& contents_;
    std::int32_t lineNumber_ = 0;
    std::uint32_t highAddress_ = 0;

    bool hasRegister_ = false;  ///< the last record is one of this file, and notes belong to it
    bool hasNotes_ = false;
    std::string function_;  ///< of the last record, as long as it has notes

    PSCRegFields fields_;
};

bool ReadLines(const std::string& file, LineParser& parser, CErrorMessageTable& errors) {
    LineReader lines;
    if (!lines.Open(file)) {
        errors.AddError("File open error. (" + file + ")");
        return false;
    }
    for (Line line{}; lines.Next(line);)
        parser.ParseLine(line);
    parser.EndRegister();
    if (!lines.HasReadError()) return true;
    errors.AddError("File read error. (" + file + ")");
    return false;
}

/// @return whether the bits of `second` go on where those of `first` end.
bool Continues(const CRegFields& first, const CRegFields& second) {
    return second.address2Wire == first.address2Wire && second.lsb == first.lsb + first.length;
}

void Join(CRegFields& first, const CRegFields& second) {
    const int shift = second.lsb - first.lsb;
    if (shift < 32) first.recordValue2 += second.recordValue2 << shift;
    first.length = static_cast<std::uint8_t>(first.length + second.length);
    first.flag1 = first.flag2 = true;
}

}  // namespace

PSCRegDefFile::PSCRegDefFile() = default;

PSCRegDefFile::~PSCRegDefFile() = default;

bool PSCRegDefFile::Load(const char* path) {
    const std::string file = path == nullptr ? "" : path;
    LineParser parser(file, contents_);
    try {
        const LoadGuard guard(contents_);
        return ReadLines(file, parser, contents_.errors);
    } catch (const std::bad_alloc&) {
        contents_.errors.AddLocatedError(file.c_str(), parser.GetLine(), "Memory allocation error");
        return false;
    }
}

bool PSCRegDefFile::MergeSplitRegisters() {
    auto& records = contents_.records;
    if (records.empty()) return true;
    auto kept = records.begin();
    for (auto next = records.begin() + 1; next != records.end(); ++next) {
        if (Continues(*kept, *next)) {
            Join(*kept, *next);
        } else if (++kept != next) {
            *kept = *next;
        }
    }
    records.erase(kept + 1, records.end());
    return true;
}

}  // namespace macroengine
