#include "reference/Evaluator.h"

#include <utility>

#include "reference/Commands.h"
#include "reference/Operations.h"

namespace macroengine::reference {

namespace {

constexpr std::size_t kCredit = 200000;
constexpr std::size_t kStatementCost = 20;
constexpr std::size_t kErrorCost = 40;
constexpr std::uint32_t kIndexLimit = 134217728;

}  // namespace

Evaluator::Evaluator(bool stopOnError) : stopOnError_(stopOnError), credit_(kCredit) {}

void Evaluator::Load(Block statements, std::string path) {
    if (statements.empty()) return;
    program_.push_back({std::move(statements), std::move(path)});
    aborted_ = false;
}

void Evaluator::Charge(std::size_t cost) const {
    if (cost > credit_) throw TooExpensive("the program takes too long or too much");
    credit_ -= cost;
}

void Evaluator::Report(const std::string& text) {
    Charge(kErrorCost);
    errors_.push_back(path_ + "(" + std::to_string(line_) + "): error : " + text);
}

/// Deals with the outcome of a step or a statement.
void Evaluator::Check(bool succeeded, int line, const std::string& error) {
    Charge(kStatementCost);
    line_ = line;
    if (!succeeded) {
        failed_ = true;
        if (!error.empty()) Report(error);
        Report("run time error !");
        if (stopOnError_) throw RunEnded();
    }
    if (aborted_) {
        Report("Macro aborted.");
        throw RunEnded();
    }
}

bool Evaluator::Run() {
    if (aborted_) {
        errors_.push_back("error : internal error. Recieve run-request during aborting.");
        return false;
    }
    if (program_.empty()) {
        errors_.push_back("error : Nothing macro sequence.");
        return false;
    }
    failed_ = false;
    isOutOfRange_ = false;
    try {
        for (File& file : program_) {
            path_ = file.path;
            RunBlock(file.statements);
        }
    } catch (const RunEnded&) {
        return false;
    }
    return !failed_;
}

void Evaluator::RunBlock(Block& block) {
    for (Statement& statement : block)
        RunStatement(statement);
}

void Evaluator::RunStatement(Statement& statement) {
    line_ = statement.line;
    std::string error;
    switch (statement.kind) {
        case Statement::Kind::Assign: {
            RunSteps(statement.source);
            const bool assigned = Assign(statement.destination, statement.source, error);
            Check(assigned, statement.line, error);
            return;
        }
        case Statement::Kind::Call:
            RunSteps(statement.source);
            return;
        case Statement::Kind::If:
            for (Branch& branch : statement.branches) {
                if (Decide(branch)) {
                    RunBlock(branch.body);
                    return;
                }
            }
            RunBlock(statement.otherwise);
            return;
        case Statement::Kind::Loop:
            while (Decide(statement.branches[0]))
                RunBlock(statement.branches[0].body);
            return;
    }
}

bool Evaluator::Decide(Branch& branch) {
    line_ = branch.line;
    RunSteps(branch.condition);
    Value condition;
    std::string error;
    const bool known = Resolve(branch.condition, condition, error);
    // A condition is a comparison, so what is known is a boolean.
    if (known) branch.decision = condition.Boolean();
    Check(known, branch.line, error);
    return branch.decision;
}

/// Runs the steps that an operand is the result of, innermost first.
void Evaluator::RunSteps(Operand& operand) {
    if (operand.kind != Operand::Kind::Result) return;
    Step& step = *operand.step;
    for (Operand& inner : step.operands)
        RunSteps(inner);
    if (step.assigned != nullptr) RunSteps(*step.assigned);
    const int line = line_;
    std::string error;
    const bool succeeded = RunStep(step, error);
    Check(succeeded, line, error);
}

bool Evaluator::RunStep(Step& step, std::string& error) {
    if (step.kind == Step::Kind::Call) return Call(step, error);
    Value left;
    Value right;
    if (!Resolve(step.operands[0], left, error) || !Resolve(step.operands[1], right, error)) return false;
    const bool succeeded = step.kind == Step::Kind::Operate
                               ? Operate(step.operation, left, right, step.result, error)
                               : Compare(step.operation, left, right, step.result, error);
    Charge(SizeOf(step.result));
    return succeeded;
}

bool Evaluator::Call(Step& step, std::string& error) {
    CommandCall call;
    call.name = step.operation;
    call.isOutOfRange = isOutOfRange_;
    for (const Operand& operand : step.operands) {
        call.arguments.emplace_back();
        if (!Resolve(operand, call.arguments.back(), error)) return false;
    }
    if (step.assigned != nullptr) {
        call.isAssignedTo = true;
        if (!Resolve(*step.assigned, call.assigned, error)) return false;
    }
    const bool succeeded = RunCommand(call);
    if (!call.shown.empty()) shown_.push_back(call.shown);
    aborted_ = call.aborts;
    isOutOfRange_ = call.isOutOfRange;
    step.result = succeeded ? call.result : Value{false};
    Charge(SizeOf(step.result));
    if (!succeeded) {
        for (const std::string& text : call.errors)
            Report(text);
    }
    return succeeded;
}

bool Evaluator::Assign(const Operand& destination, const Operand& source, std::string& error) {
    Value value;
    if (!Resolve(source, value, error)) return false;
    if (destination.kind == Operand::Kind::Variable) {
        variables_[destination.name] = value;
        return true;
    }
    if (Store(destination, value)) return true;
    error = "failed to update array variable";
    return false;
}

/// Stores into an element, and makes the arrays and elements that are missing on the way. When a subscript
/// can't be an index nothing changes.
bool Evaluator::Store(const Operand& element, const Value& source) {
    std::vector<std::uint32_t> indexes;
    for (const Operand& subscript : element.subscripts) {
        Value index;
        std::string ignored;
        if (!Resolve(subscript, index, ignored) || !index.IsInteger()) return false;
        indexes.push_back(static_cast<std::uint32_t>(index.Integer()));
        if (indexes.back() >= kIndexLimit) return false;
    }
    for (const std::uint32_t index : indexes)
        Charge(index);
    Value* value = &variables_[element.name];
    for (const std::uint32_t index : indexes) {
        if (!value->IsArray()) value->content = Value::Array();
        Value::Array& elements = value->Elements();
        while (elements.size() <= index)
            elements.push_back(Value{0});
        value = &elements[index];
    }
    *value = source;
    return true;
}

bool Evaluator::Resolve(const Operand& operand, Value& value, std::string& error) const {
    switch (operand.kind) {
        case Operand::Kind::Literal:
            value = operand.literal;
            break;
        case Operand::Kind::Variable: {
            const auto found = variables_.find(operand.name);
            if (found == variables_.end()) {
                error = "Didn't define valiable name[" + operand.name + "]";
                return false;
            }
            value = found->second;
            break;
        }
        case Operand::Kind::Element:
            if (!ResolveElement(operand, value, error)) return false;
            break;
        case Operand::Kind::Result:
            value = operand.step->result;
            break;
    }
    if (value.IsNone()) {
        error = "invalied destination value in assign statement.";
        return false;
    }
    Charge(SizeOf(value));
    return true;
}

bool Evaluator::ResolveElement(const Operand& element, Value& value, std::string& error) const {
    const auto found = variables_.find(element.name);
    if (found == variables_.end()) {
        error = "Didn't define valiable name[" + element.name + "]";
        return false;
    }
    const Value* current = &found->second;
    std::string shown = element.name;
    for (const Operand& subscript : element.subscripts) {
        Value index;
        if (!Resolve(subscript, index, error)) return false;
        if (!index.IsInteger()) {
            error = "Array subscript isn't integer.";
            return false;
        }
        shown += "[" + std::to_string(index.Integer()) + "]";
        if (!current->IsArray()) {
            error = "Valiable name(" + shown + ") isn't array, or not exist elements.";
            return false;
        }
        const Value::Array& elements = current->Elements();
        const auto position = static_cast<std::uint32_t>(index.Integer());
        if (position >= elements.size()) {
            error = "Valiable name(" + shown + ") isn't exist elements.";
            return false;
        }
        current = &elements[position];
    }
    value = *current;
    return true;
}

}  // namespace macroengine::reference
