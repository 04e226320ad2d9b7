#pragma once

#include "macroengine/Export.h"

/// @file
/// The encoded form of source files, one line at a time, for tools that write and read such files.
///
/// In an encoded file each line stands for one line of text: the complement of its bytes in a Base64 form
/// with "-" as the last letter of the alphabet and "*" as the pad. Line ends are not encoded.

/// The longest line that has an encoded form, in bytes.
const unsigned int kLongestEncodableLine = 4095;

/// Encodes one line of text, without its line end.
///
/// @param line      may hold any byte but 0 and 255, which have no encoded form.
/// @param length    of the line, in bytes; 0 to kLongestEncodableLine.
/// @param encoded   receives (length + 2) / 3 * 4 characters; no NUL follows them.
/// @param capacity  the room at `encoded`.
/// @return the number of characters written, or -1 when the line has no encoded form or there is no room.
MACROENGINE_API int EncodeSourceLine(const char* line, unsigned int length, char* encoded,
                                     unsigned int capacity);

/// Decodes one line of an encoded file as a load does. What does not belong to the encoded form is skipped.
///
/// @param encoded   the line, with or without its line end.
/// @param length    of `encoded`, in bytes.
/// @param line      receives the bytes of the line of text; no NUL follows them.
/// @param capacity  the room at `line`; kLongestEncodableLine is always enough.
/// @return the number of bytes written, or -1 when the line is too long or there is no room.
MACROENGINE_API int DecodeSourceLine(const char* encoded, unsigned int length, char* line,
                                     unsigned int capacity);
