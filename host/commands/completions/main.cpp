// Makes the completions of vxscene for a shell: vxCompletions bash|zsh|fish TEMPLATE >FILE
// The line "@completions@" of the template is replaced by what the program's own command line says.
#include <cstdio>
#include <exception>
#include <fstream>
#include <iostream>
#include <string>

#include "host/commands/commandLine.h"
#include "host/commands/completions/shells.h"

namespace {

struct _shell {
    std::string_view name;
    void (*write)(std::ostream&, const std::vector<vxH::_command>&);
};
constexpr _shell shells[] = {{"bash", vxC::writeBash}, {"zsh", vxC::writeZsh}, {"fish", vxC::writeFish}};

void fillTemplate(std::istream& text, const _shell& shell) {
    for (std::string line; std::getline(text, line);) {
        if (line == "@completions@") {
            shell.write(std::cout, vxH::commandLineParts());
        } else {
            std::cout << line << '\n';
        }
    }
}

int run(int argc, char** argv) {
    for (const auto& shell : shells) {
        if (argc != 3 || shell.name != argv[1]) continue;
        std::ifstream text{argv[2]};
        fillTemplate(text, shell);
        return text.eof() && std::cout.flush() ? 0 : 1;
    }
    std::fputs("usage: vxCompletions bash|zsh|fish TEMPLATE\n", stderr);
    return 2;
}

}  // namespace

int main(int argc, char** argv) try { return run(argc, argv); } catch (const std::exception& failure) {
    std::fprintf(stderr, "vxCompletions: %s\n", failure.what());
    return 1;
}
