// The operators of expressions, and how they bind.
#pragma once

#include <string_view>

#include "evaluate/value.h"

namespace vxV {

/// How an operator treats what stands at its sides.
enum class _operands : quint8 {
    values,     ///< both are evaluated first
    logicalOr,  ///< the right one only where the left one leaves the result open
    logicalAnd,
};

struct _operator {
    std::string_view sign;
    int binding;  ///< a higher number binds more tightly; all but power group from the left
    _operands operands;
    _valueOutcome (*apply)(const _value& left, const _value& right);  ///< null for the logical ones
};

/// The binary operator of that sign; null: none.
const _operator* binaryOperator(std::string_view sign);

constexpr int loosestBinding = 1;
/// Binds more tightly than a sign in front of a number and groups neither way: how an unbracketed -a ^ b and
/// a ^ b ^ c are meant is not certain.
constexpr int powerBinding = 7;

/// Signs that stand in front of an operand: - + !
bool isUnary(std::string_view sign);
_valueOutcome applyUnary(std::string_view sign, const _value& operand);

/// True for a number other than 0.
_outcome<bool> isTrue(const _value& value);

}  // namespace vxV
