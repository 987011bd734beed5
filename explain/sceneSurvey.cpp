#include "explain/sceneSurvey.h"

#include <QRegularExpression>
#include <cstring>

#include "drivers/outNodeRules.h"
#include "input/sceneFile.h"

namespace vxE {

namespace {

constexpr qint64 blockBytes = qint64{1} << 20;
constexpr const char* wedgeParameter = "wedgemethod\t";
constexpr QLatin1String readerType{"file"};
constexpr int longestLine = 4096;  ///< bytes of a line that are kept: its last ones, where a header stands

/// The lines of a file, one after the other, whatever their length.
class _surveyedLines {
 public:
    explicit _surveyedLines(QIODevice& bytesOfScene) : source(bytesOfScene) {}

    QByteArray line;    ///< its last bytes, without its end
    qint64 byte = 0;    ///< position of its begin
    qint64 number = 0;  ///< from 1

    /// Goes to the next line. @return false at the end
    bool next();

 private:
    bool refill();
    void keep(int count);

    QIODevice& source;
    QByteArray block;
    int position = 0;
    qint64 bytesRead = 0;
};

bool _surveyedLines::refill() {
    block = source.read(blockBytes);
    position = 0;
    bytesRead += block.size();
    return !block.isEmpty();
}

/// Takes bytes of the block to the line's end.
void _surveyedLines::keep(int count) {
    const int kept = std::min(count, longestLine);
    if (line.size() + kept > longestLine) line.remove(0, static_cast<int>(line.size()) + kept - longestLine);
    line.append(block.constData() + position + count - kept, kept);
    position += count;
}

bool _surveyedLines::next() {
    line.resize(0);
    if (position >= block.size() && !refill()) return false;
    byte = bytesRead - block.size() + position;
    ++number;
    for (;;) {
        const char* const begin = block.constData() + position;
        const int rest = static_cast<int>(block.size()) - position;
        const void* const end = std::memchr(begin, '\n', static_cast<std::size_t>(rest));
        keep(end == nullptr ? rest : static_cast<int>(static_cast<const char*>(end) - begin));
        if (end != nullptr) {
            ++position;
            return true;
        }
        if (!refill()) return true;
    }
}

/// With NULs and all: Qt 5 alone would end the text at the first.
QString textOf(const QByteArray& bytes) {
    return QString::fromUtf8(bytes.constData(), bytes.size());
}

enum class _entry { none, parameters, channels, type };

/// What an entry's header tells.
struct _header {
    _entry entry = _entry::none;
    QString node;
    QString type;  ///< of the node; only where the entry tells it
};

/// What the archive writes in front of a node's path: a magic text and digits.
constexpr const char* archiveHeader = "^.*(?:070707[0-7]{70}|Hou.{2}\\x1a[0-9a-f]{28})";
constexpr const char* nodeAndEntry = "([^\\s\\x00]+)\\.(?:(parm|chn)[\\s\\x00]*\\{|init\\x00type = (\\S+))$";

QRegularExpression headerForm(const char* before) {
    return QRegularExpression(QString::fromLatin1(before) + QString::fromLatin1(nodeAndEntry),
                              QRegularExpression::DotMatchesEverythingOption);
}

_header headerOf(const QByteArray& line) {
    static const QRegularExpression inArchive = headerForm(archiveHeader);
    static const QRegularExpression byItself = headerForm("");
    const QString text = textOf(line);
    auto match = inArchive.match(text);
    if (!match.hasMatch()) match = byItself.match(text);
    if (!match.hasMatch()) return {};
    const QString node = QLatin1Char('/') + match.captured(1);
    if (match.captured(2).isEmpty()) return {_entry::type, node, match.captured(3)};
    return {match.captured(2) == QLatin1String("chn") ? _entry::channels : _entry::parameters, node, {}};
}

QByteArray behind(const QByteArray& line, const char* text) {
    const auto at = line.indexOf(text);
    return at < 0 ? QByteArray() : line.mid(at + static_cast<int>(std::strlen(text))).trimmed();
}

/// Reads entry after entry.
class _surveyor {
 public:
    void read(const _surveyedLines& lines);
    _sceneSurvey survey;

 private:
    void readParameter(const QByteArray& line);
    void readChannel(const QByteArray& line);

    _header now;
    int depth = 0;  ///< of braces in the entry of channels
    QString channel;
};

void _surveyor::readParameter(const QByteArray& line) {
    if (line.startsWith('}')) now.entry = _entry::none;
    const auto role = vxP::roleOf(textOf(line));
    survey.sections.last().hasFrames |= role == vxP::_parameterRole::frameRange;
    survey.sections.last().namesOutput |= role == vxP::_parameterRole::output;
    survey.sections.last().variesChannels |= line.startsWith(wedgeParameter);
}

/// Most lines of a scene are not looked at any further.
bool mayBeHeader(const QByteArray& line) {
    return line.endsWith('{') || line.contains(".init");
}

/// `channel f1 {`, and further down `segment { length = 0 value = 1 1 expr = $FSTART }`
void _surveyor::readChannel(const QByteArray& line) {
    if (line.endsWith('{')) ++depth;
    if (line == "}" && --depth == 0) now.entry = _entry::none;
    if (line.startsWith("channel ")) {
        channel = textOf(line.mid(8, line.indexOf('{') - 8).trimmed());
        return;
    }
    QByteArray expression = behind(line, "expr = ");
    if (expression.endsWith('}')) expression.chop(1);
    if (!expression.trimmed().isEmpty()) survey.expressionsOf[now.node].insert(channel, textOf(expression.trimmed()));
}

void _surveyor::read(const _surveyedLines& lines) {
    const QByteArray line = lines.line.trimmed();
    const _header header = mayBeHeader(line) ? headerOf(line) : _header();
    if (header.entry != _entry::none) {
        now = header;
        depth = 0;
    }
    if (header.entry == _entry::parameters) {
        survey.sections.append({now.node, textOf(line), lines.byte, lines.number});
        return;
    }
    if (header.entry == _entry::type) survey.typeOf.insert(now.node, now.type);
    if (now.entry == _entry::parameters) readParameter(line);
    if (now.entry == _entry::channels) readChannel(line);
}

}  // namespace

bool _sceneSurvey::isReader(const QString& node) const {
    return typeOf.value(node) == readerType;
}

_sceneSurvey surveyScene(const QString& path) {
    vxP::_sceneFile file(path);
    if (!file.isOpen()) return {};
    _surveyedLines lines(file);
    _surveyor surveyor;
    while (lines.next()) surveyor.read(lines);
    return surveyor.survey;
}

}  // namespace vxE
