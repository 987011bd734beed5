// vxscene explain
#include "host/access/sceneExplanation.h"
#include "host/commands/allCommands.h"
#include "host/commands/resolvingLook.h"
#include "host/commands/sceneRun.h"
#include "host/results/sceneFilter.h"
#include "host/text/explanationText.h"

namespace vxH {
namespace {

struct _options {
    _sceneOptions scenes;
    _explanationFilter filter;
    bool everySection = false;
    std::vector<_resultFormat> formats{{"text", paragraphs, {}}, jsonFormat(), jsonLinesFormat()};
    const _resultFormat* format = nullptr;
};

/// `--driver`
_option driverOption(std::string& pattern) {
    const auto take = [&pattern](const std::string& value) {
        pattern = value;
        return std::string{};
    };
    return {{"--driver"}, "Only nodes with such a path or name: '/out/*', 'mantra?'",
            "PATTERN",    _offered::nothing,
            {},           false,
            take};
}

/// `--reader`
_option readerOption(QString& reader) {
    const auto names = readerNames();
    const auto choose = [&reader, names](std::size_t place) { reader = QString::fromStdString(names[place]); };
    return wordOption("--reader", names, choose, "Only sections that this reader took");
}

/// `--only`
_option onlyOption(const _explanationPart*& only) {
    std::vector<std::string> names;
    names.reserve(explanationParts.size());
    for (const auto& part : explanationParts) names.emplace_back(part.name);
    return wordOption(
        "--only", names, [&only](std::size_t place) { only = &explanationParts[place]; }, "Only this part");
}

int run(const _options& options, const _submitterArguments& submitter) {
    const bool isText = options.format == options.formats.data();
    const bool looks = isText && options.filter.isEmpty();
    const auto explain = [&](const QString& scene) {
        auto explained = looks ? explainAndLook(scene, submitter, options.scenes) : explainScene(scene, submitter);
        applyFilter(options.filter, explained);
        return explained;
    };
    auto format = *options.format;
    if (isText) {
        const bool everySection = options.everySection || options.filter.asksForNodes();
        format.text = [everySection](const _explainedScene& scene, const _terminal& terminal) {
            return explanationText(scene, everySection, terminal);
        };
    }
    return printScenes(options.scenes, sceneFileFilter(), explain, format);
}

}  // namespace

_command explainCommand() {
    const auto options = std::make_shared<_options>();
    _command command{
        "explain",
        "Tell what became of every node that may render, and why; submitter arguments follow \"--\"",
        "The readers are those of the plug-in that comes with this program.\n"
        "\n"
        "Examples:\n"
        "  vxscene explain shot010.hip\n"
        "  vxscene explain --driver 'mantra*' shot010.hip\n"
        "  vxscene explain --only missing --recursive /projects/kettle\n"
        "  vxscene explain --format json shot010.hip | jq '.[].warnings'\n"
        "  vxscene explain --recursive --format jsonl /projects/kettle",
        {formatOption(options->formats, options->format, "Text, a JSON list, or one JSON object a line"),
         colourOption(options->scenes.colour),
         flag("--all", options->everySection, "Show sections that hardly matter, too"),
         driverOption(options->filter.driver), readerOption(options->filter.reader), onlyOption(options->filter.only)},
        {},
        [options](const _submitterArguments& submitter) { return run(*options, submitter); }};
    addSceneOptions(command, options->scenes);
    return resolving(command);
}

}  // namespace vxH
