#include "host/commands/command.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <memory>
#include <stdexcept>

#include "host/access/pluginLibrary.h"
#include "host/base/descriptorWrite.h"
#include "host/base/systemReason.h"

namespace vxH {
namespace {

constexpr double longestTimeout = 1e9;  // seconds

/// "-o,--output" -> "-o", "--output"
std::vector<std::string> namesIn(const std::string& list) {
    const auto comma = list.find(',');
    if (comma == std::string::npos) return {list};
    return {list.substr(0, comma), list.substr(comma + 1)};
}

QString lostOutput(int error) {
    return QLatin1String{"the output could not be written: "} + reasonOf(error);
}

std::string joined(const std::vector<std::string>& words, const char* between) {
    std::string text;
    for (const auto& word : words) text += (text.empty() ? "" : between) + word;
    return text;
}

/// @return false where the text is anything but a number
template <class _number>
bool readNumber(const std::string& text, _number& number) {
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    return error == std::errc{} && rest == end;
}

std::function<std::string(const std::string&)> keptIn(std::string& text) {
    return [&text](const std::string& value) {
        text = value;
        return std::string{};
    };
}

}  // namespace

_option pluginOption(std::string& plugin) {
    plugin = defaultPlugin().toStdString();
    return fileOption("--plugin", plugin, "Plug-in file instead of the program's own");
}

_command resolving(_command command) {
    const auto isGiven = std::make_shared<bool>(false);
    command.options.push_back(
        flag("--resolve", *isGiven, "Compute expressions, and know drivers by their nodes' types"));
    command.run = [isGiven, run = command.run](const _submitterArguments& submitter) {
        return run(*isGiven ? withResolving(submitter) : submitter);
    };
    return command;
}

_option flag(const char* names, bool& isGiven, const char* description) {
    return {namesIn(names), description, {}, _offered::nothing, {}, false, [&isGiven](const std::string&) {
                isGiven = true;
                return std::string{};
            }};
}

_option fileOption(const char* names, std::string& file, const char* description) {
    return {namesIn(names), description, "FILE", _offered::files, {}, false, keptIn(file)};
}

_option numberOption(const char* names, int& number, std::pair<int, int> leastAndMost, const char* description) {
    const auto take = [&number, leastAndMost](const std::string& value) {
        const auto& [least, most] = leastAndMost;
        int given = 0;
        if (!readNumber(value, given) || given < least || given > most)
            return value + " is no whole number from " + std::to_string(least) + " to " + std::to_string(most);
        number = given;
        return std::string{};
    };
    return {namesIn(names), description, "N", _offered::nothing, {}, false, take};
}

_option wordOption(const char* names, const std::vector<std::string>& words, std::function<void(std::size_t)> choose,
                   const char* description) {
    const auto label = joined(words, "|");
    const auto take = [label, words, choose = std::move(choose)](const std::string& value) {
        const auto found = std::find(words.begin(), words.end(), value);
        if (found == words.end()) return value + " is not one of " + label;
        choose(static_cast<std::size_t>(found - words.begin()));
        return std::string{};
    };
    return {namesIn(names), description, label, _offered::words, words, false, take};
}

_option timeoutOption(std::chrono::milliseconds& timeout, const char* description) {
    const auto take = [&timeout](const std::string& value) {
        double seconds = 0;
        const bool isGood =
            readNumber(value, seconds) && seconds > 0 && seconds <= longestTimeout;  // which "nan" is not
        if (!isGood) return value + " is no number of seconds above 0";
        timeout = std::chrono::ceil<std::chrono::milliseconds>(std::chrono::duration<double>{seconds});
        return std::string{};
    };
    return {namesIn("-t,--timeout"), description, "SECONDS", _offered::nothing, {}, false, take};
}

_option colourOption(_colour& choice) {
    const auto choose = [&choice](std::size_t place) { choice = static_cast<_colour>(place); };
    return wordOption("--color", {"auto", "always", "never"}, choose, "Colours; auto: on a terminal that takes them");
}

_option textOrJson(bool& asJson) {
    const auto choose = [&asJson](std::size_t place) { asJson = place == 1; };
    return wordOption("-f,--format", {"text", "json"}, choose, "How to print it");
}

_option sceneArgument(const char* label, std::string& scene, const char* description) {
    return {{}, description, label, _offered::scenes, {}, false, keptIn(scene)};
}

_option scenesArgument(const char* label, std::vector<std::string>& scenes, const char* description) {
    return {{}, description, label, _offered::scenes, {}, true, [&scenes](const std::string& value) {
                scenes.push_back(value);
                return std::string{};
            }};
}

int noPlugin(const QString& problem) {
    writeError(QLatin1String{"the plug-in cannot be loaded: "} + problem);
    return exitNoPlugin;
}

int tellOf(const _sceneHead& scene) {
    const QString problem = scene.problem();
    if (problem.isEmpty()) return exitSuccess;
    const QString code = scene.isLoaded() ? QString() : QStringLiteral(" (code %1)").arg(scene.code);
    writeError(scene.scene + QLatin1String{": "} + problem + code);
    if (scene.knowsItsJobs()) return exitSuccess;
    return scene.code == hostNoScene ? exitNoScene : exitFailed;
}

int outputLost(int error) {
    writeError(lostOutput(error));
    return exitFailed;
}

void print(const QString& text) {
    if (!writeAll(STDOUT_FILENO, text.toUtf8() + '\n')) throw std::runtime_error(lostOutput(errno).toStdString());
}

void print(const QStringList& lines) {
    if (!lines.isEmpty()) print(lines.join(QLatin1Char('\n')));
}

}  // namespace vxH
