// Why an expression has no value that a scene file alone can tell.
#pragma once

#include <QLatin1String>
#include <QString>
#include <QtGlobal>
#include <string>

namespace vxV {

enum class _reason : quint8 {
    // what only a running Houdini knows
    geometry,
    simulation,
    stage,
    cooking,
    session,
    random,
    python,
    contextOption,
    cookingVariable,
    unsetVariable,
    scenePlace,
    // what the scene does not hold
    missingNode,
    lockedContents,
    missingParameter,
    menuOrder,
    subnetInput,
    // what the expression says
    syntax,
    unknownFunction,
    wrongArguments,
    notANumber,
    numberAsText,
    undefinedResult,
    noResult,
    interpolation,
    uncertain,
    // where the evaluation stops
    cycle,
    tooDeep,
    tooLong,
    tooMuchWork,
};

/// How a reason is told.
struct _reasonWords {
    _reason reason;
    QLatin1String code;  ///< a word that stays the same between versions
    QLatin1String text;
};

/// All reasons, in the order of the enumeration.
/// @param[out] count  how many
const _reasonWords* reasonTable(int& count);
const _reasonWords& wordsOf(_reason reason);

/// There is no value, and this is why.
struct _unknown {
    _reason reason;
    std::string culprit;  ///< what in the expression or scene it is: a function, a variable, a path; cut at 200 bytes
};

/// "needs geometry, which only cooking makes (npoints)"
QString sentenceOf(const _unknown& why);

/// A reason with its culprit, cut.
_unknown unknown(_reason reason, std::string culprit = {});

}  // namespace vxV
