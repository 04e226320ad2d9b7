#pragma once

#include <cstdint>
#include <string>

#include "macroengine/CRegDefFileIF.h"
#include "macroengine/CRegFieldsIF.h"

namespace macroengine::test {

inline constexpr const char* kSectionedFile =
    "Sensor \"a board with a long name, for a text of some length\" 2\n"
    "[ENDIAN]\nB:0..0x1F\nL:32..255\n"
    "[REGISTER]\nREGISTER_NAME,ADDRESS_2WIRE,ADDRESS_3WIRE,LSB,LENGTH,RW,DESCRIPTION,FUNCTION\n"
    "GAIN,0x10,0x20,0,8,RW,\"Gain, in dB, of the amplifier in front\",\"input\" // note\n"
    "BROKEN,1,2,3\nUNKNOWN,0x999,0x999,0,8,RW\nNO_NUMBER,x,0,8,RW\n"
    "OFFSET,0x11,0x21,4,4,RO,\"an \\\"escaped\\\" text of some length\",several words in a row\n";

inline constexpr const char* kLineBasedFile =
    "HiAddress 12 // upper\nHiAddress wrong\nGAIN_WITH_A_NAME_OF_SOME_LENGTH h1Fr 34 0 8 // 5 % of all that "
    "there is\n"
    "//. a note that belongs to the register above, and is long\n//.and another\n\n"
    "VAL u12*(0.5)+3 10034 0 8 33 0 4\nBAD value 1 2 3\nNEG -5 10 0 4\nNEG2 3 10 4 4\n";

/// Describes the last `count` records of a reader.
inline std::string LastRecords(CRegDefFileIF* file, std::uint32_t count) {
    std::string text;
    for (std::uint32_t i = file->GetRegisterCount() - count; i < file->GetRegisterCount(); ++i) {
        const CRegFieldsIF& record = *file->GetRegister(i);
        text.append(record.GetName()).append("|").append(record.GetDescription()).append("|");
        text.append(record.GetFunction()).append("|").append(std::to_string(record.GetLsb())).append("|");
        text.append(std::to_string(record.GetAddress2Wire())).append("|");
        text.append(std::to_string(record.GetLength())).append("\n");
    }
    return text;
}

/// A kind of reader, and a file for it with everything that it reads and reports.
struct ReaderCase {
    const char* name;
    const char* text;
    CRegDefFileIF* (*create)();
    std::uint32_t records;
};

inline const ReaderCase kReaders[] = {
    {"a.rgi", kSectionedFile, CreateRegDefFile, 2},
    {"a.txt", kLineBasedFile, CreatePSCRegDefFile, 5},
};

}  // namespace macroengine::test
