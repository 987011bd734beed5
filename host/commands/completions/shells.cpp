#include "host/commands/completions/shells.h"

#include <array>

namespace vxC {
namespace {

using namespace vxH;

/// Extensions of scene files, without the dot.
constexpr std::array sceneExtensions{"hip", "hipnc", "hiplc"};

/// The text with a backslash before each of the characters.
std::string escaped(const std::string& text, const std::string& characters) {
    std::string result;
    for (const char character : text) {
        if (characters.find(character) != std::string::npos) result += '\\';
        result += character;
    }
    return result;
}

template <class _texts>
std::string joined(const _texts& texts, const char* between = " ") {
    std::string result;
    for (const auto& text : texts) {
        if (!result.empty()) result += between;
        result += text;
    }
    return result;
}

// ---- bash: names of options and values, both by "COMMAND OPTION"

std::string bashValues(const _option& argument) {
    switch (argument.offered) {
        case _offered::words:
            return joined(argument.words);
        case _offered::files:
            return "@files";
        case _offered::folders:
            return "@folders";
        case _offered::scenes:
            return "@scenes";
        case _offered::nothing:
            break;
    }
    return {};
}

void writeBashRow(std::ostream& out, const char* array, const std::string& key, const std::string& value) {
    out << "    " << array << "['" << key << "']='" << value << "'\n";
}

void writeBashCommand(std::ostream& out, const _command& command) {
    std::vector<std::string> names;
    for (const auto& option : command.options) {
        names.insert(names.end(), option.names.begin(), option.names.end());
        if (option.label.empty()) continue;
        for (const auto& name : option.names)
            writeBashRow(out, "values", command.name + ' ' + name, bashValues(option));
    }
    writeBashRow(out, "options", command.name + ' ', joined(names));
    for (const auto& argument : command.arguments)
        writeBashRow(out, "values", command.name + ' ', bashValues(argument));
}

// ---- zsh: specs of _arguments

std::string zshQuoted(const std::string& text) {
    std::string result = "'";
    for (const char character : text) result += character == '\'' ? "'\\''" : std::string(1, character);
    return result + '\'';
}

std::string zshValues(const _option& argument) {
    switch (argument.offered) {
        case _offered::words:
            return '(' + joined(argument.words) + ')';
        case _offered::files:
            return "_files";
        case _offered::folders:
            return "_files -/";
        case _offered::scenes:
            return "_files -g \"*.(" + joined(sceneExtensions, "|") + ")(-.)\"";
        case _offered::nothing:
            break;
    }
    return {};
}

/// `:FORMAT:(table json)`; nothing for a flag.
std::string zshAction(const _option& argument) {
    if (argument.label.empty()) return {};
    const bool isWords = argument.offered == _offered::words;
    return ':' + (isWords ? std::string{"value"} : escaped(argument.label, ":")) + ':' + zshValues(argument);
}

std::string zshOption(const _option& option, const std::string& name) {
    const bool joinsValue = !option.label.empty() && name.compare(0, 2, "--") == 0;
    std::string spec{"*"};
    if (!option.repeats) spec = '(' + joined(option.names) + ')';
    spec += name;
    if (joinsValue) spec += '=';
    return spec + '[' + escaped(option.description, "\\[]:") + ']' + zshAction(option);
}

void writeZshCommand(std::ostream& out, const _command& command) {
    out << "        " << zshQuoted(command.name) << ")\n            specs=(\n";
    for (const auto& option : command.options) {
        for (const auto& name : option.names) out << "                " << zshQuoted(zshOption(option, name)) << '\n';
    }
    for (const auto& argument : command.arguments)
        out << "                " << (argument.repeats ? "\\*" : "") << zshQuoted(zshAction(argument)) << '\n';
    out << "            )\n            ;;\n";
}

// ---- fish: one command "complete" each

std::string fishQuoted(const std::string& text) {
    return '\'' + escaped(text, "\\'") + '\'';
}

std::string fishValues(const _option& argument) {
    switch (argument.offered) {
        case _offered::words:
            return " -x -a " + fishQuoted(joined(argument.words));
        case _offered::files:
            return " -r -F";
        case _offered::folders:
            return " -x -a '(__fish_complete_directories)'";
        case _offered::scenes:
            return " -x -a '(__vxscene_scenes " + joined(sceneExtensions) + ")'";
        case _offered::nothing:
            return " -x";
    }
    return {};
}

void writeFishCommand(std::ostream& out, const _command& command) {
    const std::string start = "complete -c vxscene -n " + fishQuoted("__vxscene_in " + fishQuoted(command.name));
    for (const auto& option : command.options) {
        out << start;
        for (const auto& name : option.names)
            out << (name.compare(0, 2, "--") == 0 ? " -l " + name.substr(2) : " -s " + name.substr(1));
        out << (option.label.empty() ? "" : fishValues(option)) << " -d " << fishQuoted(option.description) << '\n';
    }
    for (const auto& argument : command.arguments) out << start << fishValues(argument) << '\n';
}

std::vector<std::string> commandNames(const std::vector<_command>& program) {
    std::vector<std::string> names;
    for (const auto& command : program) {
        if (!command.name.empty()) names.push_back(command.name);
    }
    return names;
}

}  // namespace

void writeBash(std::ostream& out, const std::vector<_command>& program) {
    for (const auto& command : program) writeBashCommand(out, command);
    writeBashRow(out, "values", " ", joined(commandNames(program)));
    out << "    extensions='" << joined(sceneExtensions) << "'\n";
}

void writeZsh(std::ostream& out, const std::vector<_command>& program) {
    out << "    commands=(\n";
    for (const auto& command : program) {
        if (!command.name.empty())
            out << "        " << zshQuoted(command.name + ':' + escaped(command.description, "\\:")) << '\n';
    }
    out << "    )\n    case $command in\n";
    for (const auto& command : program) writeZshCommand(out, command);
    out << "    esac\n";
}

void writeFish(std::ostream& out, const std::vector<_command>& program) {
    for (const auto& command : program) {
        if (!command.name.empty())
            out << "complete -c vxscene -n \"__vxscene_in ''\" -a " << command.name << " -d "
                << fishQuoted(command.description) << '\n';
    }
    for (const auto& command : program) writeFishCommand(out, command);
}

}  // namespace vxC
