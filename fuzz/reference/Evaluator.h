#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

#include "reference/Program.h"

namespace macroengine::reference {

/// What a program costs is more than the evaluator is allowed to spend.
class TooExpensive : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Runs programs by walking their statements. It is what the engine is compared with, so it does everything in
/// the plainest way: values are copied, nothing is shared, nothing is remembered but what the language says.
class Evaluator {
public:
    explicit Evaluator(bool stopOnError);

    /// Adds the statements of a file at the end of the program. An aborted program may then run again.
    /// @param path  of the file, for the error lines.
    void Load(Block statements, std::string path);

    /// Runs the program from its first statement.
    /// @return false when a statement failed or the program was aborted; GetErrors tells why.
    /// @throws TooExpensive
    bool Run();

    const std::vector<std::string>& GetErrors() const { return errors_; }
    const Variables& GetVariables() const { return variables_; }

    /// @return what the program has shown with fuzz.show and fuzz.take.
    const std::vector<std::string>& GetShown() const { return shown_; }

private:
    class RunEnded {};

    void RunBlock(Block& block);
    void RunStatement(Statement& statement);
    bool Decide(Branch& branch);
    void RunSteps(Operand& operand);
    bool RunStep(Step& step, std::string& error);
    bool Assign(const Operand& destination, const Operand& source, std::string& error);
    bool Store(const Operand& element, const Value& source);
    bool Call(Step& step, std::string& error);

    bool Resolve(const Operand& operand, Value& value, std::string& error) const;
    bool ResolveElement(const Operand& element, Value& value, std::string& error) const;

    void Check(bool succeeded, int line, const std::string& error);
    void Report(const std::string& text);
    void Charge(std::size_t cost) const;

    struct File {
        Block statements;
        std::string path;
    };

    std::vector<File> program_;
    std::string path_;  ///< of the file whose statements are running
    bool stopOnError_;
    bool failed_ = false;
    bool aborted_ = false;
    bool isOutOfRange_ = false;  ///< a conversion of this run has met a number out of range
    int line_ = 0;
    mutable std::size_t credit_;
    Variables variables_;
    std::vector<std::string> errors_;
    std::vector<std::string> shown_;
};

}  // namespace macroengine::reference
