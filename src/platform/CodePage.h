#pragma once

#include <atomic>
#include <cstddef>
#include <string_view>

/// @file
/// The code page that texts, files and paths are in, as far as it matters to the engine: which bytes begin a
/// character of two bytes.
///
/// The active code page is one of the whole process. The environment variable `MACROENGINE_CODEPAGE` names
/// it; while that is unset or empty the system decides. All functions may be called from any thread.

namespace macroengine::platform {

/// Looks up the active code page again. Called whenever a macro file object is made, so that a host may set
/// the environment after it has loaded the library. Texts that are being scanned meanwhile may be cut by
/// either code page.
void RefreshCodePage();

/// Returns 932, 936, 949 or 950, or 0 when every character is one byte. The first call looks the code page
/// up.
int ActiveCodePage();

/// Returns the number of bytes of the character at text: 2 when its first byte is a lead byte of the active
/// code page and the next one, which must stand before end, is a trail byte; 1 otherwise. Requires text <
/// end.
std::size_t CharacterLength(const char* text, const char* end);

/// Returns the code page that a value of `MACROENGINE_CODEPAGE` selects: 932, 936, 949 or 950 when it is
/// exactly that number, otherwise 0.
int CodePageOfNumber(std::string_view number);

/// Returns the code page of a character set as a POSIX system names it (`nl_langinfo(CODESET)`), in upper or
/// lower case: 932 for Shift_JIS, 936 for GBK and GB2312, 949 for EUC-KR and UHC, 950 for Big5; 0 for any
/// other.
int CodePageOfCharacterSet(std::string_view name);

/// Returns the system's own code page, 0 when it has no double-byte characters. It is up to the platform.
int SystemCodePage();

namespace detail {

constexpr int kUnknownCodePage = -1;
extern std::atomic<int> activeCodePage;
std::size_t DoubleByteCharacterLength(const char* text, const char* end);

}  // namespace detail

/// Returns whether the active code page has double-byte characters. Costs next to nothing, so that scanners
/// may ask for every character.
inline bool HasDoubleByteCharacters() {
    const int page = detail::activeCodePage.load(std::memory_order_relaxed);
    return page != 0 && (page != detail::kUnknownCodePage || ActiveCodePage() != 0);
}

inline std::size_t CharacterLength(const char* text, const char* end) {
    // No table has a lead byte in the ASCII range.
    if (static_cast<unsigned char>(*text) < 0x80 || !HasDoubleByteCharacters()) return 1;
    return detail::DoubleByteCharacterLength(text, end);
}

}  // namespace macroengine::platform
