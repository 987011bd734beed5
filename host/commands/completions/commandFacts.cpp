#include "host/commands/completions/commandFacts.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <stdexcept>

#include "host/commands/command.h"
#include "host/commands/commandLine.h"

namespace vxC {
namespace {

struct _label {
    const char* label;
    _values values;
};

/// The labels of values, as commands give them to their options.
constexpr std::array labels{
    _label{"SCENE", _values::scenes}, _label{"FILE", _values::files}, _label{"FOLDER", _values::folders},
    _label{"OLD", _values::scenes},   _label{"NEW", _values::scenes}, _label{"N", _values::none},
    _label{"SECONDS", _values::none}, _label{"TEXT", _values::none},
};

void findValues(_argument& argument, const std::string& owner) {
    if (argument.label.find(vxH::choiceMark) != std::string::npos) {
        argument.values = _values::words;
        argument.words = CLI::detail::split(argument.label, *vxH::choiceMark);
        return;
    }
    const auto known =
        std::find_if(labels.begin(), labels.end(), [&](const auto& row) { return argument.label == row.label; });
    if (known == labels.end()) {
        throw std::runtime_error(owner + ": no completion is known for a value called \"" + argument.label +
                                 "\": use addChoice, or add it to the labels in " __FILE__);
    }
    argument.values = known->values;
}

_argument argumentOf(const CLI::Option& option, const std::string& command) {
    _argument argument;
    for (const auto& name : option.get_snames()) argument.names.push_back('-' + name);
    for (const auto& name : option.get_lnames()) argument.names.push_back("--" + name);
    argument.description = option.get_description();
    argument.repeats = option.get_expected_max() > 1;
    const bool takesValue = option.get_positional() || option.get_expected_min() > 0;
    if (!takesValue) return argument;
    // an argument is called by its label, or has a name and a label
    argument.label = option.get_type_name().empty() ? option.get_name(option.get_positional()) : option.get_type_name();
    findValues(argument, command + ' ' + option.get_name(option.get_positional()));
    return argument;
}

_commandFacts factsOf(const CLI::App& command, const std::string& name) {
    _commandFacts facts{name, command.get_description(), {}, {}};
    for (const auto* option : command.get_options()) {
        auto& list = option->get_positional() ? facts.arguments : facts.options;
        list.push_back(argumentOf(*option, name));
    }
    return facts;
}

}  // namespace

std::vector<_commandFacts> commandFacts() {
    CLI::App program;
    const auto commands = vxH::setUpCommandLine(program);
    std::vector<_commandFacts> facts{factsOf(program, {})};
    for (const auto& command : commands) facts.push_back(factsOf(*command.line, command.line->get_name()));
    return facts;
}

}  // namespace vxC
