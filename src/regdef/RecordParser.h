#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "regdef/RegisterContents.h"
#include "regdef/RegisterTokens.h"

namespace macroengine {

/// Reads the record lines of a [REGISTER] section, whose columns are known.
class RecordParser {
public:
    /// @param path  names the file in messages.
    RecordParser(RegisterTokens& tokens, const std::string& path, RegisterContents& contents);

    /// Reads every line from the next token to the end of the file. A line with a mistake gives no record and
    /// does not stop the reading.
    /// @return whether every line gave its record.
    bool ParseRecords();

private:
    /// What stands between two commas.
    struct Value {
        Token first;               ///< the first token, of the separator when there is none
        std::uint32_t tokenCount;  ///< 0 for an empty value
        std::uint32_t secondLine;  ///< of the second token
        std::string_view text;     ///< all tokens, joined without blanks
    };

    bool ParseRecord();
    bool ReadValues();
    bool ReadValue();
    bool StoreValue(RegisterColumn column);
    bool StoreName();
    bool StoreNumber(std::uint32_t& field, std::uint32_t largest, std::string_view message);
    bool StoreAccess();
    bool StoreText(std::string& field);
    bool CheckRequiredFields();
    bool CheckByteOrder();
    bool FindByteOrder(RegisterColumn column, std::uint32_t address, bool& isBigEndian);

    bool IsGiven(RegisterColumn column) const;
    bool Report(std::uint32_t line, std::string_view text);
    bool ReportUnreadable();

    RegisterTokens& tokens_;
    const std::string& path_;
    RegisterContents& contents_;

    CRegFields record_;
    std::string name_;  ///< of the record, as the two others
    std::string description_;
    std::string function_;
    std::uint32_t line_ = 0;   ///< where the record begins
    std::uint32_t given_ = 0;  ///< a bit for each column that the record has a value for
    Value value_{};
    std::string joined_;
};

}  // namespace macroengine
