// The words of the reasons.
#include "evaluate/reasons.h"

#include <algorithm>
#include <array>

namespace vxV {

namespace {

constexpr std::size_t longestCulprit = 200;

constexpr std::array words{
    _reasonWords{_reason::geometry, QLatin1String("geometry"),
                 QLatin1String("needs geometry, which only cooking makes")},
    _reasonWords{_reason::simulation, QLatin1String("simulation"), QLatin1String("needs the data of a simulation")},
    _reasonWords{_reason::stage, QLatin1String("stage"), QLatin1String("needs a composed USD stage")},
    _reasonWords{_reason::cooking, QLatin1String("cooking"), QLatin1String("needs data that only cooking makes")},
    _reasonWords{_reason::session, QLatin1String("session"), QLatin1String("asks the running program")},
    _reasonWords{_reason::random, QLatin1String("random"), QLatin1String("is a random or noise value")},
    _reasonWords{_reason::python, QLatin1String("python"), QLatin1String("is Python")},
    _reasonWords{_reason::contextOption, QLatin1String("contextOption"),
                 QLatin1String("is an attribute or context option, set while the node cooks")},
    _reasonWords{_reason::cookingVariable, QLatin1String("cookingVariable"),
                 QLatin1String("is a variable that is set while the node cooks")},
    _reasonWords{_reason::unsetVariable, QLatin1String("unsetVariable"),
                 QLatin1String("is a variable that neither the scene nor the given environment sets")},
    _reasonWords{_reason::scenePlace, QLatin1String("scenePlace"),
                 QLatin1String("depends on where the scene file lies, which is not told")},
    _reasonWords{_reason::missingNode, QLatin1String("missingNode"), QLatin1String("names a node that is not there")},
    _reasonWords{_reason::lockedContents, QLatin1String("lockedContents"),
                 QLatin1String("names a node inside a locked asset, whose contents the scene does not hold")},
    _reasonWords{_reason::missingParameter, QLatin1String("missingParameter"),
                 QLatin1String("names a parameter that the node does not have")},
    _reasonWords{_reason::menuOrder, QLatin1String("menuOrder"),
                 QLatin1String("is a menu whose numbers the scene does not tell")},
    _reasonWords{_reason::subnetInput, QLatin1String("subnetInput"),
                 QLatin1String("is wired to an input of the enclosing network")},
    _reasonWords{_reason::syntax, QLatin1String("syntax"), QLatin1String("cannot be read as an expression")},
    _reasonWords{_reason::unknownFunction, QLatin1String("unknownFunction"), QLatin1String("is no known function")},
    _reasonWords{_reason::wrongArguments, QLatin1String("wrongArguments"),
                 QLatin1String("is called with arguments that it does not take")},
    _reasonWords{_reason::notANumber, QLatin1String("notANumber"), QLatin1String("is a text where a number is needed")},
    _reasonWords{_reason::numberAsText, QLatin1String("numberAsText"),
                 QLatin1String("is a number whose digits in a text are not certain")},
    _reasonWords{_reason::undefinedResult, QLatin1String("undefinedResult"),
                 QLatin1String("has no result: a division by zero, or a number outside the function's domain")},
    _reasonWords{_reason::noResult, QLatin1String("noResult"), QLatin1String("ends without a return")},
    _reasonWords{_reason::interpolation, QLatin1String("interpolation"),
                 QLatin1String("joins keys in a way that is not known")},
    _reasonWords{_reason::uncertain, QLatin1String("uncertain"), QLatin1String("has a meaning that is not certain")},
    _reasonWords{_reason::cycle, QLatin1String("cycle"), QLatin1String("refers to itself")},
    _reasonWords{_reason::tooDeep, QLatin1String("tooDeep"), QLatin1String("is nested too deeply")},
    _reasonWords{_reason::tooLong, QLatin1String("tooLong"), QLatin1String("is too long")},
    _reasonWords{_reason::tooMuchWork, QLatin1String("tooMuchWork"), QLatin1String("takes too many steps")},
};

constexpr bool inOrder() {
    for (std::size_t place = 0; place < words.size(); ++place) {
        if (static_cast<std::size_t>(words[place].reason) != place) return false;
    }
    return words.size() == static_cast<std::size_t>(_reason::tooMuchWork) + 1;
}
static_assert(inOrder(), "a reason has no words, or they are in another order");

}  // namespace

const _reasonWords* reasonTable(int& count) {
    count = static_cast<int>(words.size());
    return words.data();
}

const _reasonWords& wordsOf(_reason reason) {
    return words[static_cast<std::size_t>(reason)];
}

QString sentenceOf(const _unknown& why) {
    QString text = wordsOf(why.reason).text;
    if (!why.culprit.empty()) text += QLatin1String(" (") + QString::fromStdString(why.culprit) + QLatin1Char(')');
    return text;
}

_unknown unknown(_reason reason, std::string culprit) {
    culprit.resize(std::min(culprit.size(), longestCulprit));
    return {reason, std::move(culprit)};
}

}  // namespace vxV
