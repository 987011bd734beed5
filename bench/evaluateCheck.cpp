// How far computed values agree with those that real scenes stored. Usage: evaluateCheck [--all] SCENE...
// Prints a row for each scene with the processor time of its values, the reasons for what has no value, and all
// channels that differ; with --all every channel with its verdict.
#include <QFile>
#include <cstdio>
#include <cstring>
#include <ctime>

#include "evaluate/storedCheck.h"
#include "scan/scanBudget.h"

namespace {

using namespace vxV;

std::string shown(const _valueOutcome& outcome) {
    if (!outcome) return wordsOf(outcome.why().reason).code.latin1() + (": " + outcome.why().culprit);
    if (const auto* const text = std::get_if<std::string>(&*outcome)) return *text;
    return QByteArray::number(std::get<double>(*outcome), 'g', 15).toStdString();
}

/// Milliseconds of processor time that the values of all channels take, each asked for once.
double timeOfValues(const vxN::_scene& scene, const vxN::_byteSource& source) {
    const std::clock_t begin = std::clock();
    _options options;
    options.source = &source;
    _evaluator evaluator(scene, options);
    for (qint32 index = 0; index < scene.nodeCount(); ++index) {
        const auto channels = scene.node(index).channels();
        for (const vxN::_channel& channel : channels->all()) evaluator.channelValue(scene.node(index), channel.name);
    }
    return 1000.0 * double(std::clock() - begin) / CLOCKS_PER_SEC;
}

void print(const _checkedChannel& checked) {
    std::printf("%s\t%s/%.*s\t%.*s\tstored %.*s\tcomputed %s\n", nameOf(checked.verdict).latin1(),
                checked.node.path().c_str(), int(checked.channel.size()), checked.channel.data(),
                int(checked.expression.size()), checked.expression.data(), int(checked.stored.size()),
                checked.stored.data(), shown(checked.computed).c_str());
}

void printRow(const char* scene, const _storedCounts& counts, double milliseconds) {
    std::printf("%7lld %9lld", static_cast<long long>(counts.pairs), static_cast<long long>(counts.evaluated()));
    for (const qint64 count : counts.verdicts) std::printf(" %9lld", static_cast<long long>(count));
    std::printf(" %8.1f  %s\n", milliseconds, scene);
}

void printSums(const _storedCounts& counts) {
    const auto share = [](qint64 part, qint64 of) { return of == 0 ? 0.0 : 100.0 * double(part) / double(of); };
    std::printf("evaluated %.2f %%, agree %.2f %% of those that can be judged\n",
                share(counts.evaluated(), counts.pairs), share(counts.of(_verdict::agrees), counts.judged()));
    for (const auto& [reason, count] : counts.reasons) {
        std::printf("%7lld  %s\n", static_cast<long long>(count), wordsOf(reason).code.latin1());
    }
}

}  // namespace

int main(int count, char** words) {
    const bool all = count > 1 && std::strcmp(words[1], "--all") == 0;
    std::printf("%7s %9s", "pairs", "evaluated");
    for (std::size_t verdict = 0; verdict < verdictCount; ++verdict) {
        std::printf(" %9.9s", nameOf(static_cast<_verdict>(verdict)).latin1());
    }
    std::printf(" %8s  scene\n", "ms");
    _storedCounts sum;
    double time = 0;
    for (int word = all ? 2 : 1; word < count; ++word) {
        QFile file(QString::fromLocal8Bit(words[word]));
        if (!file.open(QIODevice::ReadOnly)) continue;
        const QByteArray bytes = file.readAll();
        vxP::beginBudget();
        vxP::allowWorkFor(bytes.size());
        const vxN::_memorySource source({bytes.constData(), static_cast<std::size_t>(bytes.size())});
        const vxN::_scene scene(source);
        const double milliseconds = timeOfValues(scene, source);
        const _storedCounts counts = checkStoredValues(scene, source, [&](const _checkedChannel& checked) {
            if (all || checked.verdict == _verdict::differs) print(checked);
        });
        printRow(words[word], counts, milliseconds);
        sum += counts;
        time += milliseconds;
    }
    printRow("all", sum, time);
    printSums(sum);
    return 0;
}
