#include "host/report/reportData.h"

#include "host/access/sceneExplanation.h"
#include "host/results/jobCells.h"

namespace vxH {
namespace {

constexpr QLatin1String membersAsTheyAre[] = {sceneKey, codeKey, errorKey, factsKey, warningsKey};

/// Where the scene's jobs are found by driver and own number. Own numbers have 8 bits and repeat in a long list: a
/// render job means the nearest job before it, preferably of its own driver.
class _earlierJobs {
 public:
    /// @return number from 1, 0 for none
    int numberOf(const QString& driver, int preID) const {
        const int ofDriver = byDriver.value({driver, preID});
        return ofDriver > 0 ? ofDriver : byID.value(preID);
    }
    void add(const QString& driver, int preID, int number) {
        byDriver.insert({driver, preID}, number);
        byID.insert(preID, number);
    }

 private:
    QMap<std::pair<QString, int>, int> byDriver;
    QMap<int, int> byID;
};

void addWaits(QJsonObject& row, const QJsonObject& job, const _earlierJobs& earlier) {
    QJsonArray numbers;
    QJsonArray unknown;
    const auto preIDs = job[QLatin1String{"waitForPreIDs"}].toArray();
    for (const auto& preID : preIDs) {
        const int number = earlier.numberOf(driverCell(job), preID.toInt());
        if (number > 0) {
            numbers.append(number);
        } else {
            unknown.append(preID);
        }
    }
    if (!numbers.isEmpty()) row.insert(QLatin1String{"waitsFor"}, numbers);
    if (!unknown.isEmpty()) row.insert(QLatin1String{"waitsForIDs"}, unknown);
}

void addRange(QJsonObject& row, const QJsonObject& job) {
    if (!job[QLatin1String{"seqFrameSet"}].toString().isEmpty()) return;
    constexpr std::pair<QLatin1String, QLatin1String> numbers[] = {{QLatin1String{"start"}, QLatin1String{"seqStart"}},
                                                                   {QLatin1String{"end"}, QLatin1String{"seqEnd"}},
                                                                   {QLatin1String{"step"}, QLatin1String{"seqStep"}}};
    for (const auto& [name, field] : numbers) {
        if (job[field].isDouble()) row.insert(name, job[field]);
    }
}

QJsonObject jobRow(const QJsonObject& job, const _cellScene& scene, const _earlierJobs& earlier) {
    const auto output = outputCell(job, scene);
    const auto recorded = recordedOutputCell(job);
    QJsonObject row{{QLatin1String{"driver"}, driverCell(job)},
                    {QLatin1String{"renderer"}, rendererCell(job)},
                    {QLatin1String{"frames"}, framesCell(job)},
                    {QLatin1String{"output"}, output},
                    {QLatin1String{"camera"}, job[QLatin1String{"camera"}].toString()},
                    {QLatin1String{"take"}, job[QLatin1String{"channel"}].toString()},
                    {QLatin1String{"size"}, sizeCell(job)}};
    if (recorded != output) row.insert(QLatin1String{"recorded"}, recorded);
    addRange(row, job);
    addWaits(row, job, earlier);
    return row;
}

QJsonArray jobRows(const QJsonObject& scene) {
    const _cellScene cells{scene};
    _earlierJobs earlier;
    QJsonArray rows;
    const auto jobs = scene[jobsKey].toArray();
    for (const auto& entry : jobs) {
        const auto job = entry.toObject();
        rows.append(jobRow(job, cells, earlier));
        earlier.add(driverCell(job), job[QLatin1String{"preID"}].toInt(), static_cast<int>(rows.size()));
    }
    return rows;
}

QJsonArray skippedSections(const QJsonObject& scene) {
    QJsonArray skipped;
    const auto sections = scene[sectionsKey].toArray();
    for (const auto& section : sections) {
        if (isSkippedDriver(section)) skipped.append(section);
    }
    const auto notRecognised = scene[notRecognisedKey].toArray();
    for (const auto& section : notRecognised) skipped.append(section);
    return skipped;
}

QJsonObject sceneData(const QJsonObject& scene) {
    QJsonObject data;
    for (const auto& name : membersAsTheyAre) {
        if (scene.contains(name)) data.insert(name, scene[name]);
    }
    data.insert(jobsKey, jobRows(scene));
    const bool tellsSkipped = scene.contains(sectionsKey) || scene.contains(notRecognisedKey);
    if (tellsSkipped) data.insert(QLatin1String{"skipped"}, skippedSections(scene));
    return data;
}

}  // namespace

QJsonObject reportData(const QJsonArray& explainedScenes, const QString& program) {
    QJsonArray scenes;
    for (const auto& scene : explainedScenes) scenes.append(sceneData(scene.toObject()));
    return {{QLatin1String{"program"}, program}, {QLatin1String{"scenes"}, scenes}};
}

}  // namespace vxH
