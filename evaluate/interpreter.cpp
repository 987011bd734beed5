// Walks the tree of an expression.
#include "evaluate/interpreter.h"

#include <array>
#include <map>
#include <optional>

#include "scan/scanBudget.h"

namespace vxV {

namespace {

/// Bytes of a text that count as a step.
constexpr std::size_t bytesPerStep = 64;

class _walk {
 public:
    explicit _walk(_surroundings& around) : surroundings(around) {}

    _valueOutcome valueOf(const _syntax& node);
    /// What a statement returns; none: the next statement goes on.
    std::optional<_valueOutcome> run(const _syntax& statement);

 private:
    std::optional<_unknown> step(const _syntax& node);
    _valueOutcome valueOfForm(const _syntax& node);
    _valueOutcome word(const _syntax& node);
    _valueOutcome unary(const _syntax& node);
    _valueOutcome binary(const _syntax& node);
    _valueOutcome logical(const _syntax& node);
    _valueOutcome call(const _syntax& node);
    _valueOutcome choice(const _syntax& node);
    _valueOutcome argument(const _syntax& node, char kind);
    std::optional<_valueOutcome> runForm(const _syntax& statement);
    std::optional<_valueOutcome> runBlock(const _syntax& statement);
    std::optional<_valueOutcome> runBranch(const _syntax& statement);
    std::optional<_valueOutcome> runLoop(const _syntax& statement);
    _outcome<bool> isMet(const _syntax& condition);

    _surroundings& surroundings;
    std::map<std::string, _value, std::less<>> variables;
};

std::optional<_unknown> _walk::step(const _syntax& node) {
    _effort& effort = surroundings.effort();
    vxP::spendWork(vxP::evaluationStepCost);
    effort.isCut |= ++effort.steps > mostSteps || effort.depth >= deepestEvaluation;
    if (effort.steps > mostSteps) return unknown(_reason::tooMuchWork, node.text);
    if (effort.depth >= deepestEvaluation) return unknown(_reason::tooDeep, node.text);
    return {};
}

_valueOutcome _walk::valueOf(const _syntax& node) {
    if (const auto stop = step(node)) return *stop;
    ++surroundings.effort().depth;
    _valueOutcome value = valueOfForm(node);
    --surroundings.effort().depth;
    const auto* const text = value ? std::get_if<std::string>(&*value) : nullptr;
    if (text == nullptr) return value;
    const auto steps = static_cast<int>(text->size() / bytesPerStep);
    surroundings.effort().steps += steps;
    vxP::spendWork({vxP::evaluationStepCost.once * steps});
    return text->size() > longestText ? unknown(_reason::tooLong, node.text) : value;
}

_valueOutcome _walk::valueOfForm(const _syntax& node) {
    switch (node.form) {
        case _form::number:
            return _value(node.number);
        case _form::plainText:
            return _value(node.text);
        case _form::variableText:
            return asValue(surroundings.expanded(node.text));
        case _form::word:
            return word(node);
        case _form::variable:
            return surroundings.variable(node.text);
        case _form::contextOption:
            return surroundings.contextOption(std::string_view(node.text).substr(1));
        case _form::unary:
            return unary(node);
        case _form::binary:
            return node.binary->operands == _operands::values ? binary(node) : logical(node);
        case _form::call:
            return call(node);
        case _form::block:
        case _form::branch:
        case _form::loop:
        case _form::assignment:
        case _form::giveBack:
            break;
    }
    const auto result = run(node);
    return result ? *result : _valueOutcome(unknown(_reason::noResult));
}

_valueOutcome _walk::word(const _syntax& node) {
    const auto variable = variables.find(node.text);
    if (variable != variables.end()) return variable->second;
    return unknown(_reason::syntax, node.text);
}

_valueOutcome _walk::unary(const _syntax& node) {
    const _valueOutcome operand = valueOf(node.parts[0]);
    return operand ? applyUnary(node.text, *operand) : operand;
}

_valueOutcome _walk::binary(const _syntax& node) {
    const _valueOutcome left = valueOf(node.parts[0]);
    if (!left) return left;
    const _valueOutcome right = valueOf(node.parts[1]);
    return right ? node.binary->apply(*left, *right) : right;
}

_outcome<bool> _walk::isMet(const _syntax& condition) {
    const _valueOutcome value = valueOf(condition);
    return value ? isTrue(*value) : _outcome<bool>(value.why());
}

_valueOutcome _walk::logical(const _syntax& node) {
    const bool deciding = node.binary->operands == _operands::logicalOr;
    const _outcome<bool> left = isMet(node.parts[0]);
    if (left && *left == deciding) return _value(deciding ? 1.0 : 0.0);
    const _outcome<bool> right = isMet(node.parts[1]);
    if (right && *right == deciding) return _value(deciding ? 1.0 : 0.0);
    if (!left) return left.why();
    if (!right) return right.why();
    return _value(deciding ? 0.0 : 1.0);
}

_valueOutcome _walk::call(const _syntax& node) {
    if (node.function == nullptr) return unknown(reasonAgainst(node.text), node.text);
    if (node.function->evaluate == nullptr) return choice(node);
    std::vector<_value> arguments;
    arguments.reserve(node.parts.size());
    for (std::size_t place = 0; place < node.parts.size(); ++place) {
        _valueOutcome value = argument(node.parts[place], kindOf(*node.function, place));
        if (!value) return value;
        arguments.push_back(*value);
    }
    return node.function->evaluate({arguments, surroundings});
}

_valueOutcome _walk::choice(const _syntax& node) {
    const _outcome<bool> first = isMet(node.parts[0]);
    if (!first) return first.why();
    const std::size_t chosen = *first ? 1 : 2;
    return argument(node.parts[chosen], kindOf(*node.function, chosen));
}

/// A word without quotes counts as a text where it is a whole argument.
_valueOutcome _walk::argument(const _syntax& node, char kind) {
    const bool isText = node.form == _form::word && kind != 'n' && !variables.contains(node.text);
    const _valueOutcome value = isText ? _valueOutcome(_value(node.text)) : valueOf(node);
    if (!value || kind == 'v') return value;
    return kind == 'n' ? asValue(numberOf(*value)) : asValue(textOf(*value));
}

std::optional<_valueOutcome> _walk::run(const _syntax& statement) {
    if (const auto stop = step(statement)) return _valueOutcome(*stop);
    ++surroundings.effort().depth;
    std::optional<_valueOutcome> result = runForm(statement);
    --surroundings.effort().depth;
    return result;
}

std::optional<_valueOutcome> _walk::runForm(const _syntax& statement) {
    switch (statement.form) {
        case _form::block:
            return runBlock(statement);
        case _form::branch:
            return runBranch(statement);
        case _form::loop:
            return runLoop(statement);
        case _form::giveBack:
            return valueOf(statement.parts[0]);
        case _form::assignment: {
            const _valueOutcome value = valueOf(statement.parts[0]);
            if (!value) return value;
            variables.insert_or_assign(statement.text, *value);
            return {};
        }
        case _form::number:
        case _form::plainText:
        case _form::variableText:
        case _form::word:
        case _form::variable:
        case _form::contextOption:
        case _form::unary:
        case _form::binary:
        case _form::call:
            break;
    }
    return valueOf(statement);
}

std::optional<_valueOutcome> _walk::runBlock(const _syntax& statement) {
    for (const _syntax& part : statement.parts) {
        if (auto result = run(part)) return result;
    }
    return {};
}

std::optional<_valueOutcome> _walk::runBranch(const _syntax& statement) {
    const _outcome<bool> met = isMet(statement.parts[0]);
    if (!met) return _valueOutcome(met.why());
    const std::size_t chosen = *met ? 1 : 2;
    if (chosen >= statement.parts.size()) return {};
    return run(statement.parts[chosen]);
}

std::optional<_valueOutcome> _walk::runLoop(const _syntax& statement) {
    for (;;) {
        const _outcome<bool> met = isMet(statement.parts[0]);
        if (!met) return _valueOutcome(met.why());
        if (!*met) return {};
        for (std::size_t place = 1; place < statement.parts.size(); ++place) {
            if (auto result = run(statement.parts[place])) return result;
        }
    }
}

}  // namespace

_valueOutcome evaluateExpression(const _syntax& expression, _surroundings& surroundings) {
    return _walk(surroundings).valueOf(expression);
}

}  // namespace vxV
