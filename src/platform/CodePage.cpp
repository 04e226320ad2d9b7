#include "platform/CodePage.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/Environment.h"

namespace macroengine::platform {

namespace {

constexpr char kOverrideVariable[] = "MACROENGINE_CODEPAGE";

/// What a byte may be, by its value.
constexpr std::uint8_t kLead = 1;
constexpr std::uint8_t kTrail = 2;
using ByteTable = std::array<std::uint8_t, 256>;

constexpr void Mark(ByteTable& table, std::size_t first, std::size_t last, std::uint8_t role) {
    for (std::size_t byte = first; byte <= last; ++byte) {
        table[byte] = static_cast<std::uint8_t>(table[byte] | role);
    }
}

// The tables of the published code pages are part of the library, so that a text means the same on every
// platform, whatever locales are installed there.

constexpr ByteTable MakeTable932() {
    ByteTable table{};
    Mark(table, 0x81, 0x9F, kLead);
    Mark(table, 0xE0, 0xFC, kLead);
    Mark(table, 0x40, 0x7E, kTrail);
    Mark(table, 0x80, 0xFC, kTrail);
    return table;
}

constexpr ByteTable MakeTable936() {
    ByteTable table{};
    Mark(table, 0x81, 0xFE, kLead);
    Mark(table, 0x40, 0x7E, kTrail);
    Mark(table, 0x80, 0xFE, kTrail);
    return table;
}

constexpr ByteTable MakeTable949() {
    ByteTable table{};
    Mark(table, 0x81, 0xFE, kLead);
    Mark(table, 0x41, 0x5A, kTrail);
    Mark(table, 0x61, 0x7A, kTrail);
    Mark(table, 0x81, 0xFE, kTrail);
    return table;
}

constexpr ByteTable MakeTable950() {
    ByteTable table{};
    Mark(table, 0x81, 0xFE, kLead);
    Mark(table, 0x40, 0x7E, kTrail);
    Mark(table, 0xA1, 0xFE, kTrail);
    return table;
}

constexpr ByteTable kTable932 = MakeTable932();
constexpr ByteTable kTable936 = MakeTable936();
constexpr ByteTable kTable949 = MakeTable949();
constexpr ByteTable kTable950 = MakeTable950();

/// Null for a code page without double-byte characters.
const ByteTable* TableOf(int codePage) {
    switch (codePage) {
        case 932:
            return &kTable932;
        case 936:
            return &kTable936;
        case 949:
            return &kTable949;
        case 950:
            return &kTable950;
        default:
            return nullptr;
    }
}

struct CharacterSetName {
    std::string_view name;
    int codePage;
};

/// The names of the character sets in upper case and without "-" and "_", which systems place differently.
constexpr CharacterSetName kCharacterSets[] = {
    {"SHIFTJIS", 932}, {"SJIS", 932},  {"CP932", 932}, {"WINDOWS31J", 932}, {"GBK", 936},
    {"GB2312", 936},   {"EUCCN", 936}, {"CP936", 936}, {"EUCKR", 949},      {"UHC", 949},
    {"CP949", 949},    {"BIG5", 950},  {"CP950", 950},
};

}  // namespace

namespace detail {

std::atomic<int> activeCodePage{kUnknownCodePage};

std::size_t DoubleByteCharacterLength(const char* text, const char* end) {
    const ByteTable* const table = TableOf(activeCodePage.load(std::memory_order_relaxed));
    if (table == nullptr || end - text < 2) return 1;
    const bool isPair = ((*table)[static_cast<unsigned char>(text[0])] & kLead) != 0 &&
                        ((*table)[static_cast<unsigned char>(text[1])] & kTrail) != 0;
    return isPair ? 2 : 1;
}

}  // namespace detail

void RefreshCodePage() {
    const std::optional<std::string> number = GetEnvironmentText(kOverrideVariable);
    const int page = number && !number->empty() ? CodePageOfNumber(*number) : SystemCodePage();
    detail::activeCodePage.store(page, std::memory_order_relaxed);
}

int ActiveCodePage() {
    int page = detail::activeCodePage.load(std::memory_order_relaxed);
    if (page == detail::kUnknownCodePage) {
        RefreshCodePage();
        page = detail::activeCodePage.load(std::memory_order_relaxed);
    }
    return page;
}

int CodePageOfNumber(std::string_view number) {
    if (number == "932") return 932;
    if (number == "936") return 936;
    if (number == "949") return 949;
    if (number == "950") return 950;
    return 0;
}

int CodePageOfCharacterSet(std::string_view name) {
    std::string plain;
    for (const char character : name) {
        if (character == '-' || character == '_') continue;
        const bool isLower = character >= 'a' && character <= 'z';
        plain.push_back(isLower ? static_cast<char>(character - 'a' + 'A') : character);
    }
    for (const CharacterSetName& known : kCharacterSets) {
        if (known.name == plain) return known.codePage;
    }
    return 0;
}

}  // namespace macroengine::platform
