#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "common/ByteSource.h"

namespace macroengine::fuzz {

/// Writes macro texts that are always well formed and mostly make sense, as a sequence of bytes decides.
///
/// Each kind of value has variables of its own, which now and then get or give a value of another kind; loops
/// count with variables of their own and so come to an end, save where a condition is mixed in. Arrays grow
/// in loops, elements are read through other elements, values are handed on and then changed.
class MacroGenerator {
public:
    explicit MacroGenerator(ByteSource& source) : source_(source) {}

    std::string Generate();

    /// @return the names of all variables that a generated text can have.
    static const std::vector<std::string>& Names();

private:
    enum class Kind { Integer, Floating, Text, Array, Boolean };

    void Line(std::initializer_list<std::string> parts);
    void Setup();
    void Block(unsigned maxLength);
    void Statement();

    void AssignScalar();
    void AssignElement();
    void AssignArray();
    void AppendText();
    void Alias();
    void ChangeKind();
    void AssignFromCommand();
    void Show();
    void If();
    void Loop();

    std::string Name(Kind kind);
    std::string Element();
    std::string Subscript();
    std::string Operand(Kind kind);
    std::string Literal(Kind kind);
    std::string Expression(Kind kind, unsigned depth);
    std::string Condition(unsigned depth);
    std::string Comparison();
    std::string Counter();
    Kind AnyKind();
    bool Strays(unsigned count);

    ByteSource& source_;
    std::string text_;
    bool isTidy_ = false;  ///< keeps to the kinds of the variables
    unsigned depth_ = 0;   ///< of blocks
    unsigned loopDepth_ = 0;
};

}  // namespace macroengine::fuzz
