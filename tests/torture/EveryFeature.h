#pragma once

#include <string>

#include "support/TemporaryFolder.h"

namespace macroengine::test {

/// Writes a macro that uses every feature of the language and every command that does no harm, and the files
/// that it needs. It sets all that it uses, so each of its runs gives the same.
/// @return the path.
inline std::string WriteMacroOfEveryFeature(const TemporaryFolder& folder) {
    folder.Write("table.csv",
                 "name,value\r\n\"a, \"\"b\"\"\",0x1F\r\nlong text of a cell,-2.5\r\n\r\n7,7\r\n");
    folder.Write("definitions.mac",
                 "#define LIMIT 3\n"
                 "#define TWICE_A_LONG_NAME LIMIT + 4\n"
                 "#define NOTHING\n"
                 "#define itself itself + 1\n"
                 "included = \"from the included file, which has a text of some length\"\n");
    return folder.Write("every.mac", R"(
itself = 5

// Directives
#include "definitions.mac"
#if exist string.format
    known = 1
    #if exist nobody
        known = 2
    #endif
#elseif exist array
    known = 3
#else
    known = 4
#endif
/* a comment
   of two lines */
sum = itself * 2
defined = TWICE_A_LONG_NAME NOTHING

// Expressions and kinds
integer = (1 + 2 * 3 - 4 / 2 << 2 >> 1) & 0xFF | 16
real = 2.5 * 4 - 0.25 / 2.0 + integer
text = "a text that is too long to fit anywhere without memory of its own, " + integer + real
quoted = "say \"hello\" and \\ "
minus = integer-1
table[0] = 1
table[2] = "an element with a text that is longer than most texts are"
table[3][1][2] = 4.5
copy = table
copy[3][1][0] = table
copy[1] = copy
index[0] = 3
nested = copy[index[0]][1][0][2]

// Blocks
i = 0
joined = ""
total = 0
loop i < LIMIT
    if i == 0 && (real > 1.5 || text != "x")
        joined = joined + "zero "
    elseif i == 1 || i >= 7
        joined = joined + "one "
    else
        joined = joined + "many "
    endif
    j = 0
    loop j <= i
        total = total + j
        j = j + 1
    endloop
    i = i + 1
endloop
i = 0
grown = ""
loop i < 40
    grown = grown + "seven b"
    i = i + 1
endloop

// Commands
formatted = string.format("%08.3f and so on", real)
decimal = string.int2dec(integer, 20, 0)
hexadecimal = string.int2hex(integer, 20)
number = string.str2dec("123")
number2 = string.hex2dec("7F")
number3 = string.str2float("1.5")
pieces = string.split("one of them, two of them, three of them", ",", 1)
integers = array.init(1, 2, 3)
reals = array.init(1.5, 2.5)
texts = array.init("a", "a longer text than the others are, by far")
count = array.max(texts)
system.mkdir("made")
system.file_write(0, "made/out.txt", "first line\nsecond\t")
system.file_write(1, "made/out.txt", formatted)
rows = system.csvfile_read("table.csv", 1)
cell = rows[1][1]
name = system.find_file("made/*.txt", 0)
name2 = system.find_file("made/*.txt", 1)
system.variable("MACROENGINE_TORTURE_VARIABLE_OF_SOME_LENGTH") = integer
variable = system.variable("MACROENGINE_TORTURE_VARIABLE_OF_SOME_LENGTH")
kind = system.get_variable_type(rows)
seconds = system.get_time_serial()
year = system.get_time_local(0, 86400000)
wait_ms(0)
using.namespace()
test.put(included, known, defined, sum, integer, real, text, quoted, minus)
test.put(table, copy, nested, joined, total, grown)
test.put(formatted, decimal, hexadecimal, number, number2, number3, pieces, integers, reals, texts, count)
test.put(rows, cell, name, name2, variable, kind, year)

// Errors, which the run passes over
broken = undefined_variable + 1
broken = table / 2
broken = table[99]
broken = 1 / 0
text[-1] = 1
broken = string.format("%d", "not a number at all")
system.abort("a reason that is longer than what fits into a short text")
test.fail("a message of the plug-in that is longer than what fits into a short text")
test.put(broken)
)");
}

}  // namespace macroengine::test
