#include "host/engines/sceneSubmission.h"

#include <algorithm>
#include <cmath>

#include "host/engines/frameSelection.h"
#include "host/engines/jobTexts.h"
#include "host/engines/stepNames.h"
#include "host/results/jobCells.h"
#include "host/results/jobFrames.h"
#include "host/results/jobWaits.h"
#include "jobs/renderers.h"
#include "shared/vxPath.h"

namespace vxH {
namespace {

constexpr QLatin1Char slash{'/'};
/// A simulation has it: each frame needs the one before.
constexpr QLatin1String onOneMachine{"\"DistributeStartToEnd=0~1\""};
constexpr QLatin1String mainTake{"Main"};

// ---- what no engine can be told

bool isWholeFrame(double frame) {
    return frame == std::floor(frame) && std::abs(frame) <= static_cast<double>(mostFrame);
}

QString faultOf(const _job& job) {
    if (!job.seqFrameSet.isEmpty()) return QStringLiteral("a set of frames, which is not read");
    if (const auto fault = frameFault(job); !fault.isEmpty()) return fault;
    if (!isWholeFrame(job.seqStart) || !isWholeFrame(job.seqEnd))
        return QStringLiteral("fractional frames, or some beyond %1").arg(mostFrame);
    return job.sceneName.isEmpty() ? QStringLiteral("which file it renders is not known") : QString{};
}

/// The range with a last frame of its own.
_frameRange framesOf(const _job& job) {
    _frameRange range{static_cast<qint64>(job.seqStart), static_cast<qint64>(job.seqEnd), job.seqStep};
    range.last = range.first + (range.count() - 1) * range.step;
    return range;
}

// ---- names

/// "beauty-createIFD-closeup"
QString nameOf(const _job& job) {
    const bool isHoudini = job.app == vxP::appNameHoudini;
    QString name = job.layer.section(slash, -1);
    for (const QString& part :
         {isHoudini ? job.appRenderer : job.app, job.channel == mainTake ? QString{} : job.channel})
        if (!part.isEmpty()) name += QLatin1Char('-') + part;
    return name;
}

// ---- tasks

bool namesAFrameAnywhere(const _farmStep& step) {
    return std::any_of(step.command.begin(), step.command.end(), namesAFrame) ||
           std::any_of(step.environment.begin(), step.environment.end(),
                       [](const _taskSetting& setting) { return namesAFrame(setting.value); });
}

/// A file for all frames is written at once, whatever the table says.
qint64 framesPerTask(const _farmStep& step, const _job& job, const _commandRow& row, const _selection& selection) {
    if (namesAFrameAnywhere(step)) return 1;
    const qint64 all = step.frames.count();
    if (job.imageSingleOutputFile || runsOnOneMachine(job) || row.framesPerTask == 0) return all;
    return std::min(all, selection.framesPerTask > 0 ? selection.framesPerTask : row.framesPerTask);
}

void fillFrom(const _commandRow& row, const _jobTexts& texts, _farmStep& step) {
    const auto textOf = [&](const QString& name) { return texts.of(name); };
    step.command.reserve(row.command.size());
    for (const auto& pattern : row.command) step.command.push_back(fillIn(pattern, textOf));
    step.environment.reserve(row.environment.size());
    for (const auto& [name, pattern] : row.environment) step.environment.push_back({name, fillIn(pattern, textOf)});
    step.cores = row.cores;
    step.memoryMB = row.memoryMB;
    step.minutes = row.minutes;
    step.licence = row.licence;
}

/// Env(1), which engines start commands with, takes such a word for a variable.
QString faultOfProgram(const _farmStep& step) {
    const auto program = plainText(step.command.front());
    const bool isFine = program && !program->isEmpty() && !program->contains(QLatin1Char('='));
    return isFine ? QString{} : QStringLiteral("its command begins with no name of a program");
}

/// Builds the steps of a scene's jobs, one job after the other.
class _planner {
 public:
    _planner(const _sceneResult& sceneResult, const _commandTable& commands, const _engine& wantedEngine,
             const _selection& wanted)
        : scene(sceneResult), table(commands), engine(wantedEngine), selection(wanted), names(wantedEngine.stepNames) {
        stepsOfJob.resize(scene.jobs.size());
        isRefused.resize(scene.jobs.size());
    }

    void add(int index, const vxJ::_JobBasics_largePath& record) {
        const auto& job = scene.jobs[static_cast<std::size_t>(index)];
        const auto variant = variantOf(job);
        if (selection.framesOf && selection.framesOf(index + 1).empty()) return;
        const QString fault = addUnlessFaulty(index, {job, scene.scene, variant, record}, variant.has_value());
        if (fault.isEmpty()) return;
        isRefused[static_cast<std::size_t>(index)] = true;
        plan.refused.push_back({index + 1, job.layer, fault});
    }

    _plannedScene finish() {
        plan.submission.scene = scene.scene;
        plan.submission.name = allowedName(vxS::vxGetFileNameBase(scene.scene, slash), engine.submissionNames);
        return std::move(plan);
    }

 private:
    /// @return why the job cannot be run; empty: its steps are there
    QString addUnlessFaulty(int index, const _jobTexts& texts, bool isVariant) {
        const auto& job = scene.jobs[static_cast<std::size_t>(index)];
        if (const auto fault = faultOf(job); !fault.isEmpty()) return fault;
        if (const auto fault = faultOfWaits(job); !fault.isEmpty()) return fault;
        const auto* const row = table.rowFor(job, isVariant);
        if (row == nullptr) return QStringLiteral("the table has no command for %1").arg(rendererCell(job));
        return addSteps(index, *row, texts);
    }

    QString faultOfWaits(const _job& job) const {
        for (const int other : job.waitsFor) {
            if (other == noJob) return QStringLiteral("which job it waits for is not known");
            if (isRefused[static_cast<std::size_t>(other)]) return QStringLiteral("waits for job %1").arg(other + 1);
        }
        return {};
    }

    /// A resolved load says which variant a copy for a wedge is.
    std::optional<int> variantOf(const _job& job) {
        const auto repeat = repeatOf(job);
        const QString told = job.customText(vxJ::CUSTOMVariant);
        return told.isEmpty() ? repeat : std::optional(told.toInt());
    }

    /// Copies for a wedge follow the job that they are copies of, in the order of its variants, with its driver, take
    /// and renderer: the first copy is variant 0.
    std::optional<int> repeatOf(const _job& job) {
        const auto like = QStringList{job.layer, job.channel, job.app, job.appRenderer}.join(QChar::LineFeed);
        const int before = jobsLike[like]++;
        return before == 0 ? std::optional<int>{} : before - 1;
    }

    std::vector<_frameRange> rangesOf(int index) const {
        const auto all = framesOf(scene.jobs[static_cast<std::size_t>(index)]);
        return selection.framesOf ? commonFrames({all}, selection.framesOf(index + 1)) : std::vector<_frameRange>{all};
    }

    /// @return what the engine cannot run; empty: nothing, and the steps are there
    QString addSteps(int index, const _commandRow& row, const _jobTexts& texts) {
        const auto& job = scene.jobs[static_cast<std::size_t>(index)];
        _farmStep pattern;
        pattern.driver = job.layer;
        pattern.take = job.channel;
        pattern.job = index + 1;
        fillFrom(row, texts, pattern);
        const auto ranges = rangesOf(index);
        std::vector<_farmStep> steps;
        steps.reserve(ranges.size());
        for (const auto& range : ranges) {
            auto& step = steps.emplace_back(pattern);
            step.frames = range;
            step.framesPerTask = framesPerTask(step, job, row, selection);
            QString fault = faultOfProgram(step);
            if (fault.isEmpty()) fault = engine.faultOfStep(step);
            if (!fault.isEmpty()) return fault;
        }
        for (auto& step : steps) append(job, std::move(step));
        return {};
    }

    void append(const _job& job, _farmStep step) {
        step.name = names.next(nameOf(job));
        for (const int other : job.waitsFor) addWaits(job, other, step);
        std::sort(step.waits.begin(), step.waits.end(), [](const auto& a, const auto& b) { return a.step < b.step; });
        const auto isTwice = [](const auto& a, const auto& b) { return a.step == b.step; };
        step.waits.erase(std::unique(step.waits.begin(), step.waits.end(), isTwice), step.waits.end());
        stepsOfJob[static_cast<std::size_t>(step.job - 1)].push_back(static_cast<int>(plan.submission.steps.size()));
        plan.submission.steps.push_back(std::move(step));
    }

    /// Frame by frame where the job renders the file that the other one writes of the same frame; else for all steps
    /// that write such a file.
    void addWaits(const _job& job, int other, _farmStep& step) const {
        const auto& earlier = stepsOfJob[static_cast<std::size_t>(other)];
        const auto& steps = plan.submission.steps;
        const auto partner = std::find_if(earlier.begin(), earlier.end(), [&](int one) {
            return areChunkedAlike(steps[static_cast<std::size_t>(one)], step);
        });
        const bool isFed = rendersWhatIsWritten(job, scene.jobs[static_cast<std::size_t>(other)]);
        if (isFed && partner != earlier.end()) {
            step.waits.push_back({*partner, true});
        } else {
            for (const int one : earlier)
                if (!isFed || commonFrames(step.frames, steps[static_cast<std::size_t>(one)].frames))
                    step.waits.push_back({one, false});
        }
    }

    const _sceneResult& scene;
    const _commandTable& table;
    const _engine& engine;
    const _selection& selection;
    _uniqueNames names;
    std::vector<std::vector<int>> stepsOfJob;
    std::vector<bool> isRefused;
    QHash<QString, int> jobsLike;  ///< how many so far
    _plannedScene plan;
};

}  // namespace

bool runsOnOneMachine(const _job& job) {
    return job.customText(vxJ::CUSTOMSubmitterParameter).contains(onOneMachine);
}

_plannedScene planSubmission(const _sceneResult& scene, const vxJ::_JobBasicsArray& records, const _commandTable& table,
                             const _engine& engine, const _selection& selection) {
    _planner planner{scene, table, engine, selection};
    const int count = static_cast<int>(scene.jobs.size());
    for (int index = 0; index < count; ++index) planner.add(index, *records.at(index));
    return planner.finish();
}

}  // namespace vxH
