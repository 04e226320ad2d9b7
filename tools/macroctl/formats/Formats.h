#pragma once

#include <vector>

#include "io/Output.h"
#include "registers/RegisterFile.h"

namespace macroctl {

/// Writes all registers of all files in one form.
using RegisterWriter = void (*)(std::vector<RegisterFile>& files, Output& out);

void WriteTable(std::vector<RegisterFile>& files, Output& out);     ///< For a person at a terminal.
void WriteListing(std::vector<RegisterFile>& files, Output& out);   ///< The engine's own listings.
void WriteCsv(std::vector<RegisterFile>& files, Output& out);       ///< RFC 4180, one table.
void WriteJson(std::vector<RegisterFile>& files, Output& out);      ///< One object.
void WriteMarkdown(std::vector<RegisterFile>& files, Output& out);  ///< A table for each file.
void WriteHtml(std::vector<RegisterFile>& files, Output& out);      ///< One page that needs no other file.
void WriteCHeader(std::vector<RegisterFile>& files, Output& out);   ///< Macros for C and C++.
void WriteSvd(std::vector<RegisterFile>& files, Output& out);       ///< A CMSIS-SVD device.

}  // namespace macroctl
