// The values of variables, in a number and in a text.
#include <algorithm>
#include <array>

#include "evaluate/evaluation.h"
#include "evaluate/tokens.h"

namespace vxV {

namespace {

constexpr std::array<std::string_view, 3> sceneExtensions{".hip", ".hipnc", ".hiplc"};
constexpr std::array<std::string_view, 3> placeVariables{"HIP", "HIPNAME", "HIPFILE"};

template <typename List>
bool holds(const List& list, std::string_view name) {
    return std::find(list.begin(), list.end(), name) != list.end();
}

bool hasSceneExtension(std::string_view name) {
    return std::any_of(sceneExtensions.begin(), sceneExtensions.end(), [&](auto end) { return name.ends_with(end); });
}

/// A name that ends with digits, as paddings are written: "F4". Null digits: it does not.
struct _padding {
    std::string_view name;
    std::string_view digits;
};

_padding paddingOf(std::string_view name) {
    const auto last = name.find_last_not_of("0123456789");
    const std::size_t length = last == std::string_view::npos ? 0 : last + 1;
    return {name.substr(0, length), name.substr(length)};
}

bool isMeant(const std::string& pattern, std::string_view name) {
    const std::string_view beginning(pattern.data(), pattern.size() - (pattern.ends_with('*') ? 1 : 0));
    return pattern.ends_with('*') ? name.starts_with(beginning)
                                  : name == beginning || paddingOf(name).name == beginning;
}

}  // namespace

std::vector<std::string> outputVariables() {
    return {"F", "FF", "SF", "SFPS", "ST", "T", "AOV", "WEDGE*", "ACTIVETAKE", "PDG*", "RENDERID"};
}

bool _evaluation::isKept(std::string_view name) const {
    return std::any_of(options.keptVariables.begin(), options.keptVariables.end(),
                       [&](const std::string& pattern) { return isMeant(pattern, name); });
}

/// Folder, name and path of the scene file. Up to Houdini 13 the name has its extension.
std::optional<std::string> _evaluation::placeVariable(std::string_view name) const {
    const auto stored = scene.variable(name);
    if (options.storedPlace) return stored ? std::optional<std::string>(*stored) : std::nullopt;
    const std::string& file = options.sceneFile;
    if (file.empty()) return {};
    if (name == "HIPFILE") return file;
    if (name == "HIP") return file.find('/') == std::string::npos ? "." : partOfName(file, 'h');
    const bool withExtension = hasSceneExtension(scene.variable("HIPNAME").value_or(std::string_view()));
    const std::string fileName = partOfName(file, 't');
    return withExtension || !hasSceneExtension(fileName) ? fileName : partOfName(fileName, 'r');
}

std::optional<std::string> _evaluation::givenVariable(std::string_view name) const {
    if (const auto saved = scene.variable(name)) return std::string(*saved);
    const auto given = std::find_if(options.environment.rbegin(), options.environment.rend(),
                                    [&](const _variable& variable) { return variable.name == name; });
    if (given == options.environment.rend()) return {};
    return given->value;
}

std::optional<_valueOutcome> _evaluation::timeVariable(std::string_view name, double frame) {
    const _timeVariable* const variable = timeVariableNamed(name);
    if (variable == nullptr) return {};
    current.time |= variable->changes;
    _clock then = clock;
    then.frame = frame;
    const auto number = variable->value(then);
    if (!number) return _valueOutcome(unknown(_reason::unsetVariable, std::string(name)));
    return _valueOutcome(_value(*number));
}

_valueOutcome _evaluation::contextOption(std::string_view name) {
    const auto list = scene.contextOptions();
    const auto saved = std::find_if(list.begin(), list.end(), [&](const auto& one) { return one.name == name; });
    if (saved != list.end()) {
        double number = 0;
        return saved->isNumber && readNumber(saved->value, number) ? _value(number) : _value(saved->value);
    }
    const auto number = timeOption(name, clock);
    return number ? _valueOutcome(_value(*number)) : unknown(_reason::contextOption, '@' + std::string(name));
}

_valueOutcome _evaluation::variable(const vxN::_node& node, std::string_view name, double frame) {
    if (name == "OS") return _value(std::string(node.name()));
    if (auto ofTime = timeVariable(name, frame)) return std::move(*ofTime);
    if (holds(placeVariables, name)) {
        const auto place = placeVariable(name);
        return place ? _valueOutcome(_value(*place)) : _valueOutcome(unknown(_reason::scenePlace, std::string(name)));
    }
    if (const auto given = givenVariable(name)) return _value(*given);
    const auto [unpadded, digits] = paddingOf(name);
    if (unpadded == "F" && !digits.empty() && digits.size() < 3) {
        const _valueOutcome number = *timeVariable("F", frame);
        const _textOutcome written = number ? textOf(*number) : _textOutcome(number.why());
        if (!written) return written.why();
        const auto width = static_cast<std::size_t>(std::stoi(std::string(digits)));
        return _value(std::string(width - std::min(width, written->size()), '0') + *written);
    }
    const _reason reason = isCookingVariable(name) ? _reason::cookingVariable : _reason::unsetVariable;
    return unknown(reason, std::string(name));
}

_textOutcome _evaluation::variableText(const vxN::_node& node, const _variableUse& use, double frame) {
    if (isKept(use.name)) return std::string(use.written);
    const _valueOutcome value = variable(node, use.name, frame);
    const bool isLeft = !value && options.keepsUnsetVariables && value.why().reason == _reason::unsetVariable;
    if (isLeft) return std::string(use.written);
    if (!value) return value.why();
    const _textOutcome text = textOf(*value);
    return text && use.part != 0 ? _textOutcome(partOfName(*text, use.part)) : text;
}

}  // namespace vxV
