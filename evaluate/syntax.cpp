// Reads expressions: operators by how they bind, blocks by their statements.
#include "evaluate/syntax.h"

#include <algorithm>
#include <array>
#include <optional>

#include "evaluate/tokens.h"

namespace vxV {

namespace {

/// Signs that give a variable of a block a new value, and the operator they stand for; none for a plain one.
struct _assigning {
    std::string_view sign;
    std::string_view binary;
    bool byOne = false;  ///< nothing stands behind the sign: the value changes by 1
};
constexpr std::array assigningSigns{
    _assigning{"=", ""},   _assigning{"+=", "+"}, _assigning{"-=", "-"},       _assigning{"*=", "*"},
    _assigning{"/=", "/"}, _assigning{"%=", "%"}, _assigning{"++", "+", true}, _assigning{"--", "-", true},
};

constexpr std::array<std::string_view, 3> typeNames{"float", "int", "string"};

/// How deep trees get is counted while they are read, brackets without a node of their own included.
class _reader {
 public:
    explicit _reader(std::string_view expression) : words(expression) { advance(); }

    _outcome<_tree> read();

 private:
    using _part = std::optional<_syntax>;  ///< none: `failure` says why

    _part value(int loosest);
    _part operand();
    _part call(std::string_view name);
    _part statement();
    _part block();
    _part branch();
    _part whileLoop();
    _part forLoop();
    _part giveBack();
    _part change();
    _part condition();

    void advance() { token = words.next(); }
    bool at(std::string_view sign) const { return token.kind == _tokenKind::sign && token.source == sign; }
    bool atName(std::string_view name) const { return token.kind == _tokenKind::name && token.source == name; }
    bool take(std::string_view sign);
    _part fail(_reason reason, std::string_view culprit);
    _part failHere();
    static _syntax leaf(_form form, std::string text);
    _part node(_form form, std::string text, std::vector<_syntax> parts);

    _tokens words;
    _token token;
    int depth = 0;
    std::optional<_unknown> failure;
};

/// One level deeper while it lives.
class _deeper {
 public:
    explicit _deeper(int& ofDepth) : depth(ofDepth) { ++depth; }
    ~_deeper() { --depth; }
    _deeper(const _deeper&) = delete;
    _deeper& operator=(const _deeper&) = delete;

 private:
    int& depth;
};

bool _reader::take(std::string_view sign) {
    const bool isThere = at(sign);
    if (isThere) advance();
    return isThere;
}

_reader::_part _reader::fail(_reason reason, std::string_view culprit) {
    if (!failure) failure = unknown(reason, std::string(culprit));
    return {};
}

_reader::_part _reader::failHere() {
    if (token.kind == _tokenKind::uncertain) return fail(_reason::uncertain, token.source);
    return fail(_reason::syntax, token.kind == _tokenKind::end ? "its end" : token.source);
}

_syntax _reader::leaf(_form form, std::string text) {
    _syntax made;
    made.form = form;
    made.text = std::move(text);
    return made;
}

_reader::_part _reader::node(_form form, std::string text, std::vector<_syntax> parts) {
    _syntax made = leaf(form, std::move(text));
    for (const _syntax& part : parts) made.height = std::max(made.height, part.height + 1);
    if (made.height > deepestTree) return fail(_reason::tooDeep, made.text);
    made.parts = std::move(parts);
    return made;
}

_outcome<_tree> _reader::read() {
    _part whole = at("{") ? block() : value(loosestBinding);
    if (whole && token.kind != _tokenKind::end) whole = failHere();
    if (!whole) return *failure;
    return std::make_shared<const _syntax>(std::move(*whole));
}

_reader::_part _reader::value(int loosest) {
    const bool signInFront = token.kind == _tokenKind::sign && isUnary(token.source);
    _part left = operand();
    bool powerTaken = false;
    while (left && token.kind == _tokenKind::sign) {
        const _operator* const binary = binaryOperator(token.source);
        if (binary == nullptr || binary->binding < loosest) break;
        const bool isPower = binary->binding == powerBinding;
        if (isPower && (signInFront || powerTaken)) return fail(_reason::uncertain, token.source);
        powerTaken = isPower;
        advance();
        _part right = value(binary->binding + 1);
        if (!right) return {};
        left = node(_form::binary, std::string(binary->sign), {std::move(*left), std::move(*right)});
        if (left) left->binary = binary;
    }
    return left;
}

_reader::_part _reader::operand() {
    const _deeper level(depth);
    if (depth > deepestTree) return fail(_reason::tooDeep, token.source);
    const _token word = token;
    if (word.kind == _tokenKind::sign && isUnary(word.source)) {
        advance();
        _part inner = operand();
        return inner ? node(_form::unary, std::string(word.source), {std::move(*inner)}) : _part();
    }
    if (take("(")) {
        _part inner = value(loosestBinding);
        if (inner && !take(")")) return failHere();
        return inner;
    }
    advance();
    switch (word.kind) {
        case _tokenKind::number: {
            _syntax made = leaf(_form::number, std::string(word.source));
            made.number = word.number;
            return made;
        }
        case _tokenKind::plainText:
            return leaf(_form::plainText, word.text);
        case _tokenKind::variableText:
            return leaf(_form::variableText, word.text);
        case _tokenKind::variable:
            return leaf(_form::variable, std::string(word.source));
        case _tokenKind::contextOption:
            return leaf(_form::contextOption, std::string(word.source));
        case _tokenKind::name:
            return take("(") ? call(word.source) : _part(leaf(_form::word, std::string(word.source)));
        case _tokenKind::uncertain:
            return fail(_reason::uncertain, word.source);
        case _tokenKind::sign:
        case _tokenKind::unreadable:
            return fail(_reason::syntax, word.source);
        case _tokenKind::end:
            return fail(_reason::syntax, "its end");
    }
    return {};
}

_reader::_part _reader::call(std::string_view name) {
    std::vector<_syntax> arguments;
    if (!take(")")) {
        do {
            _part argument = value(loosestBinding);
            if (!argument) return {};
            arguments.push_back(std::move(*argument));
        } while (take(","));
        if (!take(")")) return failHere();
    }
    const _function* const function = functionNamed(name);
    if (function != nullptr) {
        const _arity arity = arityOf(*function);
        if (arguments.size() < arity.least || arguments.size() > arity.most) {
            return fail(_reason::wrongArguments, name);
        }
    }
    _part made = node(_form::call, std::string(name), std::move(arguments));
    if (made) made->function = function;
    return made;
}

_reader::_part _reader::statement() {
    const _deeper level(depth);
    if (depth > deepestTree) return fail(_reason::tooDeep, token.source);
    if (at("{")) return block();
    if (take(";")) return leaf(_form::block, {});
    if (token.kind != _tokenKind::name) return failHere();
    if (atName("if")) return branch();
    if (atName("while")) return whileLoop();
    if (atName("for")) return forLoop();
    _part made = atName("return") ? giveBack() : change();
    if (made && !take(";") && !at("}")) return failHere();
    return made;
}

_reader::_part _reader::block() {
    take("{");
    std::vector<_syntax> statements;
    while (!take("}")) {
        _part next = statement();
        if (!next) return {};
        statements.push_back(std::move(*next));
    }
    return node(_form::block, {}, std::move(statements));
}

_reader::_part _reader::condition() {
    if (!take("(")) return failHere();
    _part made = value(loosestBinding);
    if (made && !take(")")) return failHere();
    return made;
}

_reader::_part _reader::branch() {
    advance();
    std::vector<_syntax> parts;
    for (_part part = condition(); part; part = statement()) {
        parts.push_back(std::move(*part));
        if (parts.size() == 3) break;
        if (parts.size() == 1) continue;
        if (!atName("else")) break;
        advance();
    }
    return failure ? _part() : node(_form::branch, {}, std::move(parts));
}

_reader::_part _reader::whileLoop() {
    advance();
    _part test = condition();
    _part body = test ? statement() : _part();
    return body ? node(_form::loop, {}, {std::move(*test), std::move(*body)}) : _part();
}

_reader::_part _reader::forLoop() {
    advance();
    if (!take("(")) return failHere();
    _part first = change();
    if (first && !take(";")) return failHere();
    _part test = first ? value(loosestBinding) : _part();
    if (test && !take(";")) return failHere();
    _part step = test ? change() : _part();
    if (step && !take(")")) return failHere();
    _part body = step ? statement() : _part();
    if (!body) return {};
    _part loop = node(_form::loop, {}, {std::move(*test), std::move(*body), std::move(*step)});
    return loop ? node(_form::block, {}, {std::move(*first), std::move(*loop)}) : _part();
}

_reader::_part _reader::giveBack() {
    advance();
    _part result = value(loosestBinding);
    return result ? node(_form::giveBack, {}, {std::move(*result)}) : _part();
}

/// A variable of the block gets a value, with or without its type in front.
_reader::_part _reader::change() {
    const bool typed = token.kind == _tokenKind::name &&
                       std::find(typeNames.begin(), typeNames.end(), token.source) != typeNames.end();
    if (typed) advance();
    if (token.kind != _tokenKind::name) return failHere();
    const std::string name(token.source);
    advance();
    const auto assigning = std::find_if(assigningSigns.begin(), assigningSigns.end(),
                                        [this](const _assigning& candidate) { return at(candidate.sign); });
    if (assigning == assigningSigns.end()) return failHere();
    advance();
    _part right;
    if (assigning->byOne) {
        right = leaf(_form::number, "1");
        right->number = 1;
    } else {
        right = value(loosestBinding);
    }
    if (right && !assigning->binary.empty()) {
        right = node(_form::binary, std::string(assigning->binary), {leaf(_form::word, name), std::move(*right)});
        if (right) right->binary = binaryOperator(assigning->binary);
    }
    return right ? node(_form::assignment, name, {std::move(*right)}) : _part();
}

}  // namespace

_outcome<_tree> readExpression(std::string_view expression) {
    if (expression.size() > longestExpression) return unknown(_reason::tooLong);
    return _reader(expression).read();
}

}  // namespace vxV
