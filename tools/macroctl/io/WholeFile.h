#pragma once

#include <string>

namespace macroctl {

/// Reads a file byte for byte.
///
/// @return false when it can't be opened or read, as a folder can't.
bool ReadWholeFile(const std::string& path, std::string& bytes);

/// Reads standard input to its end.
///
/// @return false when it can't be read.
bool ReadStandardInput(std::string& bytes);

/// Reads a file that the engine reads too, taking both separators of folders for the system's own as it does.
///
/// @return false also for a pipe or a device: what is read here of one would be missing there.
bool ReadSourceFile(std::string path, std::string& bytes);

/// Writes a file whole or not at all: a file that was there stays as it was until the new one is complete.
///
/// What is no file in a folder, such as a device or a link to what isn't there yet, is written to directly.
///
/// @return false when the bytes can't be written.
bool WriteWholeFile(const std::string& path, const std::string& bytes);

}  // namespace macroctl
