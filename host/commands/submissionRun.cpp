#include "host/commands/submissionRun.h"

#include <QDataStream>
#include <QIODevice>
#include <algorithm>

#include "host/access/sceneExplanation.h"
#include "host/access/sceneLoad.h"
#include "host/base/displayText.h"
#include "host/base/terminal.h"
#include "host/commands/sceneRun.h"
#include "host/engines/commandTable.h"
#include "host/engines/frameSelection.h"
#include "host/engines/planText.h"
#include "host/files/framesLeft.h"

namespace vxH {
namespace {

constexpr int mostChunk = 1000000;

/// An option with ranges of whole numbers.
_option rangesOption(const char* name, std::vector<_frameRange>& ranges, const char* description) {
    const auto take = [&ranges](const std::string& value) {
        const auto given = readRanges(QString::fromStdString(value));
        if (!given) return value + " is no list of ranges such as 1001-1010,1020-1100x5";
        ranges = *given;
        return std::string{};
    };
    return {{name}, description, "RANGES", _offered::nothing, {}, false, take};
}

bool holds(const _frameRange& range, int number) {
    return number >= range.first && number <= range.last && (number - range.first) % range.step == 0;
}

std::vector<_frameRange> everyFrame() {
    return {{-mostFrame, mostFrame, 1}};
}

_selection selectionOf(const _submissionOptions& options) {
    _selection selection;
    selection.framesPerTask = options.framesPerTask;
    if (options.frames.empty() && options.jobs.empty()) return selection;
    selection.framesOf = [&options](int job) -> std::vector<_frameRange> {
        const auto& jobs = options.jobs;
        const auto holdsJob = [job](const _frameRange& range) { return holds(range, job); };
        const bool isWanted = jobs.empty() || std::any_of(jobs.begin(), jobs.end(), holdsJob);
        if (!isWanted) return {};
        return options.frames.empty() ? everyFrame() : options.frames;
    };
    return selection;
}

/// The wanted frames of which files are missing. All wanted ones of a job that has some left and writes one file, or
/// needs each frame for the next, and of one of which it is not known.
_selection missingOf(const _selection& selection, const _sceneResult& scene, std::vector<_framesLeft> left) {
    _selection missing = selection;
    missing.framesOf = [&selection, &scene, left = std::move(left)](int number) -> std::vector<_frameRange> {
        const auto at = static_cast<std::size_t>(number) - 1;
        const auto& job = scene.jobs[at];
        const auto wanted = selection.framesOf ? selection.framesOf(number) : everyFrame();
        const bool isWhole = job.imageSingleOutputFile || runsOnOneMachine(job);
        if (!left[at].unknown.isEmpty() || (isWhole && !left[at].frames.empty())) return wanted;
        return commonFrames(left[at].frames, wanted);
    };
    return missing;
}

/// Of the wanted jobs.
QStringList notesOf(const std::vector<_framesLeft>& left, const _selection& selection) {
    QStringList notes;
    for (std::size_t i = 0; i < left.size(); ++i) {
        const int number = static_cast<int>(i) + 1;
        const bool isWanted = !selection.framesOf || !selection.framesOf(number).empty();
        if (isWanted && !left[i].unknown.isEmpty())
            notes += QStringLiteral("job %1: all frames, as what is missing is not known: %2")
                         .arg(number)
                         .arg(printable(left[i].unknown));
    }
    return notes;
}

_exportedScene exported(const _plannedScene& plan, const _engine& engine) {
    _exportedScene scene;
    scene.name = plan.submission.name;
    for (const auto& job : plan.refused)
        scene.refused +=
            QStringLiteral("job %1 (%2): %3").arg(job.job).arg(printable(job.driver), printable(job.reason));
    if (plan.submission.steps.empty()) return scene;
    const QString fault = engine.faultOfSubmission(plan.submission);
    if (!fault.isEmpty()) {
        scene.refused += fault;
        return scene;
    }
    scene.plan = planLines(plan.submission);
    scene.text = engine.write(plan.submission);
    return scene;
}

// ---- from the child process that plans a scene to this one

QByteArray pack(const _exportedScene& scene) {
    QByteArray bytes;
    QDataStream stream{&bytes, QIODevice::WriteOnly};
    stream << scene.scene << scene.code << scene.name << scene.text << scene.plan << scene.notes << scene.refused;
    return bytes;
}

_exportedScene unpacked(const QByteArray& bytes) {
    _exportedScene scene;
    QDataStream stream{bytes};
    stream >> scene.scene >> scene.code >> scene.name >> scene.text >> scene.plan >> scene.notes >> scene.refused;
    return scene;
}

// ---- a run

/// What all scenes of a run are planned with.
struct _planning {
    const _submissionOptions& options;
    const _engine& engine;
    const _submitterArguments& submitter;
    _commandTable table{};
    _selection selection{};
};

_exportedScene planScene(const _planning& planning, const QString& path) {
    const auto& submitter = planning.submitter;
    _exportedScene scene;
    const auto plan = [&planning, &scene](const auto& result, const auto& records, const _selection& wanted) {
        scene = exported(planSubmission(result, records, planning.table, planning.engine, wanted), planning.engine);
    };
    const auto planAll = [&](const _sceneResult& result, const vxJ::_JobBasicsArray& records) {
        plan(result, records, planning.selection);
    };
    const auto planMissing = [&](const _explainedScene& result, const vxJ::_JobBasicsArray& records) {
        const auto left = framesLeft(result, {true, changeTime(path)});
        plan(result, records, missingOf(planning.selection, result, left));
        scene.notes = notesOf(left, planning.selection);
    };
    static_cast<_sceneHead&>(scene) = planning.options.onlyMissing
                                          ? _sceneHead{explainScene(path, submitter, planMissing)}
                                          : _sceneHead{loadScene(builtInLoader(), path, submitter, planAll)};
    tellWhyThereAreNoJobs(scene, submitter);
    return scene;
}

void tell(const _exportedScene& scene, const QString& problem) {
    writeError(scene.scene + QLatin1String{": "} + problem);
}

/// Why nothing of the scene is taken; empty: it is.
QString refusalOf(const _exportedScene& scene, bool skipsInvalid) {
    if (scene.refused.isEmpty()) return {};
    if (!skipsInvalid) return QStringLiteral("refused (--skip-invalid leaves such jobs out)");
    return scene.text.isEmpty() ? QStringLiteral("nothing is left to run") : QString{};
}

}  // namespace

void addSubmissionOptions(_command& command, _submissionOptions& options) {
    const _option added[] = {
        rangesOption("--frames", options.frames, "Only these frames: 1001-1010,1020-1100x5"),
        rangesOption("--jobs", options.jobs, "Only these jobs, numbered as \"jobs\" does: 1-4,7"),
        numberOption("--chunk", options.framesPerTask, {1, mostChunk},
                     "Frames a task, where its command takes several"),
        fileOption("--commands", options.commands, "Table of commands that counts before all others"),
        flag("--missing", options.onlyMissing, "Only frames of which files are missing on the disk, as \"files\" says"),
        flag("--skip-invalid", options.skipsInvalid, "Leave out jobs that the engine cannot run"),
    };
    command.options.insert(command.options.end(), std::begin(added), std::end(added));
    addSceneOptions(command, options.scenes);
}

int exportScenes(const _submissionOptions& options, const _engine& engine, const _submitterArguments& submitter,
                 const std::function<bool(const _exportedScene&)>& take) {
    _planning planning{options, engine, submitter};
    if (const auto problem = readCommands(options.commands, planning.table); !problem.isEmpty()) {
        writeError(problem);
        return exitUsage;
    }
    planning.selection = selectionOf(options);
    int refused = exitSuccess;
    const auto receive = [&](const QByteArray& packed) {
        const _exportedScene scene = unpacked(packed);
        for (const QString& line : scene.notes + scene.refused) tell(scene, line);
        if (const auto refusal = refusalOf(scene, options.skipsInvalid); !refusal.isEmpty()) {
            tell(scene, refusal);
            refused = exitFailed;
            return true;
        }
        if (!scene.knowsItsJobs()) return true;
        if (scene.text.isEmpty()) tell(scene, QStringLiteral("there is nothing to run"));
        return scene.text.isEmpty() || take(scene);
    };
    const auto plan = [&](const QString& path) { return planScene(planning, path); };
    const int status =
        runScenes(options.scenes, loadAndPack(sceneFileFilter(), plan, pack), {receive, [] { return true; }});
    return worseOf(status, refused);
}

}  // namespace vxH
