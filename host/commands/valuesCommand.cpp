// vxscene values
#include <unistd.h>

#include <QJsonDocument>

#include "host/access/sceneCheck.h"
#include "host/access/sceneExplanation.h"
#include "host/access/sceneValues.h"
#include "host/base/descriptorWrite.h"
#include "host/base/terminal.h"
#include "host/commands/allCommands.h"
#include "host/commands/sceneRun.h"
#include "host/results/sceneJson.h"
#include "host/text/checkText.h"
#include "host/text/valuesText.h"

namespace vxH {
namespace {

QString jsonOfValues(const _sceneValues& scene, const _terminal& /*terminal*/) {
    return jsonText(valuesToJson(scene), true);
}

/// A line for each value; the error of a scene that failed says all.
QString linesOfValues(const _sceneValues& scene, const _terminal& /*terminal*/) {
    QString text;
    for (const auto& line : valueLines(scene)) text += jsonText(line, false) + QLatin1Char('\n');
    return text;
}

constexpr _frame ownLines{"", "", "", "", ""};
constexpr int furthestFrame = 1'000'000'000;

QString jsonOfCheck(const _sceneCheck& check, const _terminal& /*terminal*/) {
    return jsonText(checkToJson(check), true);
}

QString lineOfCheck(const _sceneCheck& check, const _terminal& /*terminal*/) {
    return jsonText(checkToJson(check), false);
}

/// Prints rows as scenes come in, and their sum behind them.
class _checkTable {
 public:
    bool print(const QByteArray& packed) {
        const auto check = checkFromJson(QJsonDocument::fromJson(packed).object());
        if (!check.isLoaded()) return true;
        const QString heading = sum.verdicts.empty() ? checkHeading(check.counts) : QString{};
        sum += check.counts;
        return writeAll(STDOUT_FILENO, (heading + checkRow(check)).toUtf8());
    }
    bool finish() const { return sum.verdicts.empty() || writeAll(STDOUT_FILENO, checkSum(sum).toUtf8()); }

 private:
    _checkCounts sum;
};

struct _options {
    std::string scene;
    std::vector<std::string> nodes;  // with `--check` further scenes
    _wantedValues wanted;
    _sceneOptions run;
    std::vector<_formatOf<_sceneValues>> formats{
        {"text", paragraphs, valuesText}, {"json", jsonList, jsonOfValues}, {"jsonl", ownLines, linesOfValues}};
    const _formatOf<_sceneValues>* format = nullptr;
    int frame = 0;
    bool isFrameGiven = false;
    bool checks = false;
};

int runCheckTable(const _options& options) {
    const auto load = [](const QString& scene) { return checkOf(scene, true); };
    const auto pack = [](const _sceneCheck& check) {
        return QJsonDocument(checkToJson(check)).toJson(QJsonDocument::Compact);
    };
    _checkTable table;
    return runScenes(options.run, loadAndPack(sceneFileFilter(), load, pack),
                     {[&](const QByteArray& packed) { return table.print(packed); }, [&] { return table.finish(); },
                      standardOutputTerminal().width > 0});
}

int runCheck(_options& options) {
    if (options.wanted.onlyComputed || options.wanted.onlyDrivers || options.isFrameGiven) {
        writeError(QStringLiteral("values: --check looks at all values: it goes without --driven, --drivers, --frame"));
        return exitUsage;
    }
    options.run.scenes.insert(options.run.scenes.end(), options.nodes.begin(), options.nodes.end());
    const auto place = options.format - options.formats.data();
    if (place == 0) return runCheckTable(options);
    const auto load = [](const QString& scene) { return checkOf(scene, false); };
    const _formatOf<_sceneCheck> asList{"json", jsonList, jsonOfCheck};
    const _formatOf<_sceneCheck> asLines{"jsonl", lines, lineOfCheck};
    return printScenes(options.run, sceneFileFilter(), load, place == 1 ? asList : asLines);
}

int run(_options& options) {
    options.run.scenes = {options.scene};
    if (options.checks) return runCheck(options);
    options.wanted.nodes = options.nodes;
    if (options.isFrameGiven) options.wanted.frame = options.frame;
    const auto load = [&](const QString& scene) { return valuesOf(scene, options.wanted); };
    return printScenes(options.run, sceneFileFilter(), load, *options.format);
}

_option frameOption(_options& options) {
    auto option = numberOption("--frame", options.frame, {-furthestFrame, furthestFrame},
                               "Compute for this frame instead of the scene's current one");
    option.take = [&options, take = option.take](const std::string& value) {
        options.isFrameGiven = true;
        return take(value);
    };
    return option;
}

_option nodesArgument(std::vector<std::string>& nodes) {
    auto argument = scenesArgument("NODE", nodes, "Paths of nodes or patterns, '/out/*', 'cam*'; all nodes without");
    argument.isOptional = true;
    return argument;
}

}  // namespace

_command valuesCommand() {
    const auto options = std::make_shared<_options>();
    _command command{
        "values",
        "Print what parameters of a scene's nodes say, as stored and as computed",
        "Examples:\n  vxscene values shot010.hip /out/mantra1\n"
        "  vxscene values --drivers --driven shot010.hip\n"
        "  vxscene values --format jsonl shot010.hip 'cam*' | jq -r 'select(.channel == \"focal\").value'\n"
        "  vxscene values --check --recursive /projects/kettle",
        {formatOption(options->formats, options->format, "Text, a JSON list, or one JSON object a value"),
         colourOption(options->run.colour),
         flag("--driven", options->wanted.onlyComputed, "Only what a channel, a variable or an expression tells"),
         flag("--drivers", options->wanted.onlyDrivers, "Only output drivers, known by their nodes' types"),
         frameOption(*options),
         flag("--check", options->checks,
              "Compare what is computed with what the scenes store; all arguments are scenes")},
        {sceneArgument("SCENE", options->scene, "Scene file"), nodesArgument(options->nodes)},
        [options](const _submitterArguments& /*submitter*/) { return run(*options); }};
    addRunOptions(command, options->run);
    return command;
}

}  // namespace vxH
