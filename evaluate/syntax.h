// An expression as a tree.
#pragma once

#include <QtGlobal>
#include <memory>
#include <string>
#include <vector>

#include "evaluate/functions.h"
#include "evaluate/operators.h"
#include "evaluate/value.h"

namespace vxV {

enum class _form : quint8 {
    // what has a value; parts: the operands or arguments
    number,
    plainText,
    variableText,  ///< text in which variables are to be replaced
    word,          ///< text without quotes, or a variable of the block
    variable,      ///< of the scene
    contextOption,
    unary,
    binary,
    call,
    // what is done in a block
    block,       ///< parts: statements
    branch,      ///< parts: condition, statement, and maybe the other one
    loop,        ///< parts: condition, statement, and maybe what follows each round
    assignment,  ///< text: the variable; parts: its new value
    giveBack,    ///< parts: the value of the whole expression
};

struct _syntax {
    _form form = _form::block;
    std::string text;  ///< of a text what it says; else the name or sign
    double number = 0;
    const _operator* binary = nullptr;
    const _function* function = nullptr;  ///< null: unknown
    std::vector<_syntax> parts;
    int height = 0;  ///< of the tree below it
};

/// A tree that nobody changes any more, shared by all channels with the same expression.
using _tree = std::shared_ptr<const _syntax>;

/// Longest expression that is read, in bytes; nodes of its tree below one another. `tooLong` and `tooDeep` beyond.
constexpr std::size_t longestExpression = 65536;
constexpr int deepestTree = 200;

/// Reads an expression: one value, or a block `{ ... }` of statements that returns one.
_outcome<_tree> readExpression(std::string_view expression);

}  // namespace vxV
