#include "regdef/PSCRegFields.h"

#include <algorithm>

#include "regdef/DisplayTemplate.h"
#include "regdef/RegisterNumbers.h"

namespace macroengine {

namespace {

/// What a number that cannot be read counts as: all ones, in a field of any width.
constexpr std::uint32_t kUnreadable = 0xFFFFFFFF;

/// An address word of fewer digits lacks its upper half.
constexpr std::size_t kWholeAddressLength = 5;

/// Takes the next word off the text, with the blanks before it.
std::string_view TakeWord(std::string_view& text) {
    const std::size_t begin = std::min(text.find_first_not_of(' '), text.size());
    const std::size_t end = std::min(text.find(' ', begin), text.size());
    const std::string_view word = text.substr(begin, end - begin);
    text.remove_prefix(end);
    return word;
}

bool RemoveLetter(std::string& word, char letter) {
    const std::size_t place = word.find(letter);
    if (place == std::string::npos) return false;
    word.erase(place, 1);
    return true;
}

std::uint32_t MaskOf(std::uint32_t width) {
    return width < 32 ? (1U << width) - 1U : 0xFFFFFFFF;
}

}  // namespace

bool PSCRegFields::ParseLine(std::string_view line, std::int32_t lineNumber, std::uint32_t highAddress,
                             TextPool& pool) {
    std::string_view rest = line;
    name = TakeWord(rest);
    const std::string_view word = TakeWord(rest);
    const auto wordStart = static_cast<std::size_t>(word.data() - line.data());
    const bool isValueGood = ParseValue(word);
    ParsePieces(rest, highAddress);
    WriteDisplayTemplate(line, wordStart, word.size(), WriteDirective(), displayTemplate);

    static_cast<CRegFields&>(*this) = CRegFields();
    recordValue = lineNumber;
    recordValue2 = initialValue & MaskOf(totalWidth);
    texts = pool.Add({name, displayTemplate});
    isDescribedByName = true;
    lsb = pieces[0].bitPosition;
    length = totalWidth;
    access = Access::ReadWrite;
    flag1 = flag2 = true;
    SetAddresses();
    return isValueGood;
}

/// @return false when the word holds an expression that cannot be worked out.
bool PSCRegFields::ParseValue(std::string_view word) {
    value_ = word;
    typeFlags = 0;
    initialValue = 0;
    isScaled = false;
    if (RemoveLetter(value_, 's')) typeFlags |= kSigned;
    RemoveLetter(value_, 'u');
    if (RemoveLetter(value_, 'h')) typeFlags |= kHexadecimal;
    if (RemoveLetter(value_, 'w')) typeFlags |= kWrite;
    if (RemoveLetter(value_, 'r')) typeFlags |= kRead;
    if (value_.find('*') == std::string::npos) {
        initialValue = ParsePlainValue(value_);
        return true;
    }
    const std::optional<std::uint32_t> scaled = ParseScaledValue(value_);
    if (!scaled) return false;
    initialValue = *scaled;
    isScaled = true;
    return true;
}

std::uint32_t PSCRegFields::ParsePlainValue(std::string_view text) {
    if ((typeFlags & kHexadecimal) != 0) return ParseHexadecimal(text).value_or(kUnreadable);
    if (text.empty()) return 0;
    if (text.front() != '-') return ParseDecimal(text).value_or(kUnreadable);
    typeFlags |= kSigned;
    const std::optional<std::uint32_t> magnitude = ParseDecimal(text.substr(1));
    return magnitude ? 0U - *magnitude : kUnreadable;
}

void PSCRegFields::ParsePieces(std::string_view text, std::uint32_t highAddress) {
    pieceCount = 0;
    totalWidth = 0;
    pieces[0] = pieces[1] = AddressPiece();
    while (pieceCount < kPieceLimit) {
        const std::string_view word = TakeWord(text);
        if (word.empty() || word.substr(0, 2) == "//") return;
        AddressPiece& piece = pieces[pieceCount++];
        piece.address = ParseHexadecimal(word).value_or(kUnreadable);
        if (word.size() < kWholeAddressLength) piece.address |= highAddress << 16;
        piece.bitPosition = static_cast<std::uint8_t>(ParseDecimal(TakeWord(text)).value_or(kUnreadable));
        piece.bitWidth = static_cast<std::uint8_t>(ParseDecimal(TakeWord(text)).value_or(kUnreadable));
        totalWidth = static_cast<std::uint8_t>(totalWidth + piece.bitWidth);
    }
}

std::string_view PSCRegFields::WriteDirective() {
    if (isScaled) {
        directive_ = "%s";
    } else if ((typeFlags & kHexadecimal) != 0) {
        directive_ = "%Xh";
    } else {
        directive_ = (typeFlags & kSigned) != 0 ? "%ds" : "%d";
    }
    if ((typeFlags & kRead) != 0) {
        directive_ += 'r';
    } else if ((typeFlags & kWrite) != 0) {
        directive_ += 'w';
    }
    return directive_;
}

/// Pieces that do not ascend stand for a big-endian register, which is addressed by the lowest of them.
void PSCRegFields::SetAddresses() {
    std::uint32_t address = pieces[0].address;
    const bool isBigEndian = pieces[1].bitWidth != 0 && address >= pieces[1].address;
    if (isBigEndian) {
        for (std::size_t i = 0; i < pieceCount; ++i) {
            if (pieces[i].bitWidth != 0) address = std::min(address, pieces[i].address);
        }
    }
    address2Wire = address3Wire = address;
    bigEndian2Wire = bigEndian3Wire = isBigEndian;
}

}  // namespace macroengine
