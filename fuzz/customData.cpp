// The custom-data store over an arbitrary block.
#include "fuzz/fuzzRecords.h"

namespace {

using vxFuzz::expect;
using vxJ::_JobSettingsScene;

constexpr int mostChanges = 8;
constexpr int longestPart = 100;  ///< characters of a value; it is repeated up to 255 times

int entriesOf(const _JobSettingsScene& settings) {
    vxJ::_varValList list;
    settings.customData_All(list);
    return static_cast<int>(list.size());
}

void readAll(const _JobSettingsScene& settings, int id, const QString& name) {
    QStringList names;
    QStringList values;
    vxJ::_varValList list;
    settings.customData_All(names, values);
    settings.customData_All(list);
    expect(names.size() == values.size() && names.size() == list.size(), "every name has a value");
    expect(names.size() <= std::max(settings.customData_maxIDs(), 0), "there are no more entries than counted");
    expect(names.value(id) == settings.customData_NameByID(id), "an entry has one name");
    expect(values.value(id) == settings.customData_StrByID(id), "an entry has one value");
    expect(names.contains(name, Qt::CaseInsensitive) == settings.customData_Contains(name), "a name is found");
    settings.customData_Str(name);
    settings.customData_UserInfo();
    settings.customData_CommentInfo();
    settings.customData_AllAsString();
    vxFuzz::expectSound(settings.customData_allValuesAsBlock_Uppercase());
    expect(settings.customData_isEqual(&settings), "a block equals itself");
}

void expectSoundStore(const _JobSettingsScene& settings) {
    expect(settings.customDataNamesEnd >= 0 && settings.customDataNamesEnd <= settings.customDataValuesEnd &&
               settings.customDataValuesEnd <= vxJ::customDataBlockCapacity,
           "what is written lies inside the block");
    expect(entriesOf(settings) == settings.customDataCount, "what is written can be read");
}

QString lowBytes(QString text) {
    for (QChar& character : text) character = QChar(char16_t{character.cell()});
    return text;
}

void setAll(_JobSettingsScene& settings, const QString& text, int times) {
    QStringList names = text.split(u'|');
    for (int i = 0; i < times; ++i) names.append(QString::number(i));
    const QStringList values = names + QStringList(text);
    settings.customDataSet_All(names, values);
    vxJ::_varValList stored;
    settings.customData_All(stored);
    for (vxJ::_size id = 0; id < stored.size(); ++id) {
        const QString name = lowBytes(names.at(id));
        expect(stored.at(id).name == name.left(name.indexOf(QChar())), "a name is kept");
        expect(stored.at(id).value == lowBytes(values.at(id)), "a value is kept");
    }
}

/// Input of one change: kind, entry, how often the value is repeated (1 byte each), lines: name, value.
void change(_JobSettingsScene& settings, vxFuzz::_input& input) {
    const auto kind = input.number<quint8>();
    const int id = input.number<qint8>();
    const int times = input.number<quint8>();
    const QString name = input.line();
    const QString value = input.line().left(longestPart).repeated(times);
    if (kind % 5 == 1 && (id < 0 || id >= entriesOf(settings))) return settings.customDataSet_StrByID(id, value);
    switch (kind % 5) {
        case 0:
            settings.customDataSet_Str(name, value);
            break;
        case 1:
            settings.customDataSet_StrByID(id, value);
            break;
        case 2:
            settings.customDataAppend_Str(name, value);
            break;
        case 3:
            setAll(settings, value, times);
            break;
        default:
            settings.customData_ClearAll();
    }
    expectSoundStore(settings);
    readAll(settings, id, name);
}

}  // namespace

/// Input: places to overwrite in a zeroed record, then changes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static auto& settings = *new _JobSettingsScene;
    static auto& before = *new _JobSettingsScene;
    const auto bytes = vxFuzz::bytesOf(settings);
    std::fill(bytes.begin(), bytes.end(), quint8{0});
    vxFuzz::_input input(data, size);
    input.patch(bytes);
    std::memcpy(static_cast<void*>(&before), &settings, sizeof before);
    readAll(settings, 0, QStringLiteral("UserInfo"));
    for (int changes = 0; changes < mostChanges && !input.isEmpty(); ++changes) change(settings, input);

    constexpr std::size_t start = offsetof(_JobSettingsScene, customDataCount);
    constexpr std::size_t end = offsetof(_JobSettingsScene, customDataBlock) + vxJ::customDataBlockCapacity;
    const auto old = vxFuzz::bytesOf(before);
    expect(std::equal(bytes.begin(), bytes.begin() + start, old.begin()) &&
               std::equal(bytes.begin() + end, bytes.end(), old.begin() + end),
           "nothing is written beside the store");
    return 0;
}
