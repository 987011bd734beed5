// Scene variables in an output name; the index that finds them, against a look at every variable.
#include "grammar/houdiniVariables.h"

#include "fuzz/fuzzRecords.h"
#include "grammar/nameText.h"
#include "scan/scanBudget.h"

namespace {

using vxFuzz::expect;

bool follows(QStringView text, QStringView name) {
    return text.startsWith(name, Qt::CaseInsensitive) ||
           (text.startsWith(u'{') && text.mid(1).startsWith(name, Qt::CaseInsensitive));
}

void checkIndex(const QString& text, const vxP::_variableList& variables) {
    QList<vxP::_size> marks;
    for (vxP::_size at = 0; (at = text.indexOf(u'$', at)) >= 0; ++at) marks.append(at);
    vxP::_size first = -1;
    for (vxP::_size from = variables.size(); from-- > 0;) {
        const QString name = variables.at(from).name;
        if (std::any_of(marks.begin(), marks.end(),
                        [&](vxP::_size mark) { return follows(QStringView(text).mid(mark + 1), name); }))
            first = from;
        expect(variables.firstNamedIn(text, marks, from) == first, "the next variable in a name is found");
    }
}

void checkReplaced(const QString& text, vxJ::_JobBasics_largePath& job, const vxP::_variableList& variables,
                   const vxS::_vxString<500>& scene) {
    const QString result = vxP::replaceHoudiniVariables(text, &job, variables, scene);
    expect(text.contains(u'$') || result == text.left(vxP::longestName), "a name without a mark stays as it is");
    expect(result.size() <= vxP::longestName, "a name stays bounded");
}

}  // namespace

/// Input: frame range, then lines: name, scene file, folder, layer, and `variable=value` up to the end.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static auto& job = *new vxJ::_JobBasics_largePath;
    vxP::beginBudget();
    vxFuzz::_input input(data, size);
    job.sceneSettings.seqStart = input.number<double>();
    job.sceneSettings.seqEnd = input.number<double>();
    const QString text = input.line();
    const vxS::_vxString<500> scene(input.line());
    job.sceneDatabaseDir = input.line();
    job.layer = input.line();
    vxP::_variableList variables;
    while (!input.isEmpty()) {
        const QString variable = input.line();
        variables.append(variable.section(u'=', 0, 0), variable.section(u'=', 1));
    }
    checkIndex(text, variables);
    try {
        checkReplaced(text, job, variables, scene);
    } catch (const vxP::_budgetExceeded&) {
        return 0;  // a load would end
    }
    return 0;
}
