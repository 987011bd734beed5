// A wrong entry makes the table useless as a whole: half of a table runs jobs with the wrong command.
#include "host/engines/commandTable.h"

#define TOML_EXCEPTIONS 0
#include <toml++/toml.h>

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <algorithm>
#include <array>

#include "host/engines/defaultCommands.h"
#include "host/engines/jobTexts.h"

namespace vxH {
namespace {

constexpr const char* listOfRows = "task";
constexpr QLatin1String userFile{"vxscene/commands.toml"};
constexpr QLatin1String ownTable{"the program's table of commands"};
constexpr const char* allFrames = "all";
constexpr qint64 mostCores = 4096;
constexpr qint64 mostMemoryMB = 1LL << 30;
constexpr qint64 mostMinutes = 525600;  // a year
constexpr qint64 mostFrames = 1LL << 31;

QString textOf(const std::string& bytes) {
    return QString::fromUtf8(bytes.data(), static_cast<vxS::_size>(bytes.size()));
}

// ---- values of keys: each takes its value, or says what it has to be

QString readText(const toml::node& node, QString& text) {
    const auto value = node.value_exact<std::string>();
    if (!value) return QStringLiteral("has to be a text");
    text = textOf(*value);
    return text.contains(QChar::Null) ? QStringLiteral("holds a NUL") : QString{};
}

template <class _number>
QString readNumber(const toml::node& node, qint64 least, qint64 most, _number& number) {
    const auto value = node.value_exact<std::int64_t>();
    if (!value || *value < least || *value > most)
        return QStringLiteral("has to be a whole number from %1 to %2").arg(least).arg(most);
    number = static_cast<_number>(*value);
    return {};
}

QString readWord(const toml::node& node, _wordPattern& pattern) {
    QString text;
    QString problem = readText(node, text);
    if (problem.isEmpty()) pattern = readPattern(text, isJobText, problem);
    return problem;
}

QString readCommand(const toml::node& node, _commandRow& row) {
    const auto* const words = node.as_array();
    if (words == nullptr || words->empty()) return QStringLiteral("has to be a list of words");
    for (const auto& word : *words) {
        auto& pattern = row.command.emplace_back();
        if (const auto problem = readWord(word, pattern); !problem.isEmpty()) return problem;
    }
    return {};
}

bool isVariableName(const QString& name) {
    const auto fits = [](QChar character) {
        return character.unicode() < 128 && (character.isLetterOrNumber() || character == QLatin1Char('_'));
    };
    return !name.isEmpty() && !name.at(0).isDigit() && std::all_of(name.begin(), name.end(), fits);
}

QString readEnvironment(const toml::node& node, _commandRow& row) {
    const auto* const variables = node.as_table();
    if (variables == nullptr) return QStringLiteral("has to be a table of texts");
    for (auto&& [key, value] : *variables) {
        const QString name = textOf(std::string{key.str()});
        if (!isVariableName(name)) return QStringLiteral("\"%1\" is no name of a variable").arg(name);
        auto& variable = row.environment.emplace_back(name, _wordPattern{});
        if (const auto problem = readWord(value, variable.second); !problem.isEmpty())
            return QStringLiteral("%1: %2").arg(name, problem);
    }
    return {};
}

QString readFramesPerTask(const toml::node& node, _commandRow& row) {
    const bool isAll = node.value_exact<std::string>() == allFrames;
    if (isAll) row.framesPerTask = 0;
    const bool isFine = isAll || readNumber(node, 1, mostFrames, row.framesPerTask).isEmpty();
    return isFine ? QString{} : QStringLiteral("has to be a whole number above 0, or \"all\"");
}

QString readCondition(const toml::node& node, std::optional<bool>& condition) {
    condition = node.value_exact<bool>();
    return condition ? QString{} : QStringLiteral("has to be true or false");
}

struct _key {
    std::string_view name;
    QString (*read)(const toml::node& node, _commandRow& row);
    bool isNeeded = false;
};
constexpr std::array keys{
    _key{"app", [](const auto& node, auto& row) { return readText(node, row.app); }, true},
    _key{"renderer", [](const auto& node, auto& row) { return readText(node, row.renderer); }},
    _key{"one-file", [](const auto& node, auto& row) { return readCondition(node, row.isOneFile); }},
    _key{"variant", [](const auto& node, auto& row) { return readCondition(node, row.isVariant); }},
    _key{"frames-per-task", readFramesPerTask},
    _key{"command", readCommand, true},
    _key{"environment", readEnvironment},
    _key{"cores", [](const auto& node, auto& row) { return readNumber(node, 1, mostCores, row.cores); }},
    _key{"memory-mb", [](const auto& node, auto& row) { return readNumber(node, 0, mostMemoryMB, row.memoryMB); }},
    _key{"minutes", [](const auto& node, auto& row) { return readNumber(node, 0, mostMinutes, row.minutes); }},
    _key{"licence", [](const auto& node, auto& row) { return readText(node, row.licence); }},
};

// ---- rows and tables

/// What is wrong, and in which line.
struct _fault {
    QString text;
    toml::source_index line = 0;

    explicit operator bool() const { return !text.isEmpty(); }
};

_fault readRow(const toml::table& entries, _commandRow& row) {
    row.renderer = QLatin1Char('*');
    for (auto&& [name, node] : entries) {
        const std::string_view wanted = name.str();
        const auto* const key =
            std::find_if(keys.begin(), keys.end(), [&](const auto& one) { return one.name == wanted; });
        const QString shown = textOf(std::string{wanted});
        if (key == keys.end())
            return {QStringLiteral("\"%1\" is no key of a task").arg(shown), name.source().begin.line};
        const QString problem = key->read(node, row);
        if (!problem.isEmpty()) return {QStringLiteral("%1: %2").arg(shown, problem), name.source().begin.line};
    }
    for (const auto& key : keys)
        if (key.isNeeded && entries.get(key.name) == nullptr)
            return {QStringLiteral("the task has no \"%1\"").arg(textOf(std::string{key.name})),
                    entries.source().begin.line};
    return {};
}

_fault readTable(const toml::table& document, _commandTable& table) {
    for (auto&& [name, node] : document) {
        const auto line = name.source().begin.line;
        if (name.str() != listOfRows)
            return {
                QStringLiteral("\"%1\" is not known here: tasks are in [[task]]").arg(textOf(std::string{name.str()})),
                line};
        if (!node.is_array_of_tables()) return {QStringLiteral("a task begins with [[task]]"), line};
        for (const auto& entries : *node.as_array()) {
            const _fault fault = readRow(*entries.as_table(), table.rows.emplace_back());
            if (fault) return fault;
        }
    }
    return {};
}

/// "Mantra*" fits what begins so.
bool fits(const QString& pattern, const QString& text) {
    return pattern.endsWith(QLatin1Char('*')) ? text.startsWith(pattern.left(pattern.size() - 1)) : text == pattern;
}

QString addFile(const QString& path, _commandTable& table) {
    QFile file{path};
    if (!QFileInfo{path}.isFile()) return QStringLiteral("%1: no such file").arg(path);
    if (!file.open(QIODevice::ReadOnly)) return QStringLiteral("%1: %2").arg(path, file.errorString());
    return addCommands(file.readAll(), path, table);
}

}  // namespace

const _commandRow* _commandTable::rowFor(const _job& job, bool isVariant) const {
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const _commandRow& row) {
        return fits(row.app, job.app) && fits(row.renderer, job.appRenderer) &&
               row.isOneFile.value_or(job.imageSingleOutputFile) == job.imageSingleOutputFile &&
               row.isVariant.value_or(isVariant) == isVariant;
    });
    return found == rows.end() ? nullptr : &*found;
}

QString addCommands(const QByteArray& text, const QString& name, _commandTable& table) {
    const std::string_view bytes{text.constData(), static_cast<std::size_t>(text.size())};
    const auto parsed = toml::parse(bytes);
    _fault fault;
    if (!parsed) {
        fault = {textOf(std::string{parsed.error().description()}), parsed.error().source().begin.line};
    } else {
        fault = readTable(parsed.table(), table);
    }
    return fault ? QStringLiteral("%1:%2: %3").arg(name).arg(fault.line).arg(fault.text) : QString{};
}

QString readCommands(const std::string& file, _commandTable& table) {
    QStringList files = QStandardPaths::locateAll(QStandardPaths::GenericConfigLocation, userFile);
    if (!file.empty()) files.prepend(QString::fromStdString(file));
    for (const QString& path : files)
        if (const auto problem = addFile(path, table); !problem.isEmpty()) return problem;
    return addCommands(QByteArray{defaultCommands.data(), static_cast<vxS::_size>(defaultCommands.size())}, ownTable,
                       table);
}

}  // namespace vxH
