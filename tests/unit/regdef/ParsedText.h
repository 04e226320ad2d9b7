#pragma once

#include <string>
#include <vector>

#include "regdef/RegisterContents.h"
#include "regdef/SectionParser.h"
#include "source/CLex.h"

namespace macroengine::test {

/// A text read as the sectioned file "t.rgi".
class ParsedText {
public:
    explicit ParsedText(const std::string& text) {
        const std::string path = "t.rgi";
        CLex lexer;
        lexer.LoadText(path, text);
        isGood = SectionParser(lexer, path, contents).ParseFile();
    }

    std::vector<std::string> Errors() const {
        std::vector<std::string> errors;
        for (std::uint32_t i = 0; i < contents.errors.GetCount(); ++i)
            errors.push_back(contents.errors.GetMessage(i));
        return errors;
    }

    std::vector<std::string> Preamble() const { return {contents.preamble.begin(), contents.preamble.end()}; }

    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const CRegFields& record : contents.records)
            names.emplace_back(record.GetName());
        return names;
    }

    bool isGood = false;
    RegisterContents contents;
};

}  // namespace macroengine::test
