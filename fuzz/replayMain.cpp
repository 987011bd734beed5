// Takes libFuzzer's place in builds without it: runs a target with each input as it is, then changed in many ways, the
// same ones every time. Usage: fuzz_TARGET [-changes=COUNT] FILE|FOLDER...
// An input that ends the program is left in fuzz_TARGET.finding.
#include <algorithm>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" __attribute__((weak)) void __sanitizer_set_death_callback(void (*callback)());

namespace {

using std::filesystem::path;
using _inputs = std::vector<std::string>;

constexpr std::size_t mostChanges = 8;    ///< of one input
constexpr std::size_t longestPiece = 24;  ///< bytes
constexpr std::string_view countOption{"-changes="};

/// @param from  a file, or a folder whose files count in the order of their names
void addInputs(const path& from, _inputs& inputs) {
    std::vector<path> files{from};
    if (is_directory(from)) files.assign(std::filesystem::directory_iterator(from), {});
    std::sort(files.begin(), files.end());
    for (const path& file : files) {
        std::ifstream stream(file, std::ios::binary);
        inputs.emplace_back(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
        if (stream.fail() || inputs.back().empty()) throw std::runtime_error("no input in " + file.string());
    }
}

/// Changes inputs by bytes, and by pieces and lines of all inputs.
class _changer {
 public:
    explicit _changer(const _inputs& all) : inputs(all) {}

    std::string changed(std::string text) {
        for (auto left = 1 + below(mostChanges); left > 0; --left) change(text);
        return text;
    }

 private:
    std::size_t below(std::size_t count) { return random() % count; }
    const std::string& anyInput() { return inputs[below(inputs.size())]; }

    std::size_t lineStart(const std::string& text) { return text.rfind('\n', below(text.size() + 1)) + 1; }
    std::string anyLine() {
        const std::string& text = anyInput();
        const auto start = std::min(lineStart(text), text.size());
        return text.substr(start, text.find('\n', start) - start + 1);
    }
    std::string anyPiece() {
        const std::string& text = anyInput();
        return text.substr(below(text.size() + 1), below(longestPiece));
    }

    void change(std::string& text) {
        const auto at = below(text.size() + 1);
        const auto line = lineStart(text);
        switch (below(6)) {
            case 0:
                text.insert(line, anyLine());
                break;
            case 1:
                text.erase(line, text.find('\n', line) - line + 1);
                break;
            case 2:
                text.insert(at, anyPiece());
                break;
            case 3:
                text.replace(at, below(longestPiece), anyPiece());
                break;
            case 4:
                text.replace(at, 1, 1, static_cast<char>(random()));
                break;
            default:
                text.erase(at, below(longestPiece));
        }
    }

    const _inputs& inputs;
    std::mt19937 random{1};
};

std::string inputAtHand;
path finding;

void keepFinding() {
    std::ofstream(finding, std::ios::binary) << inputAtHand;
    std::cerr << "the input stands in " << absolute(finding) << std::endl;
}

void keepFindings(const path& where) {
    finding = where;
    if (__sanitizer_set_death_callback != nullptr) __sanitizer_set_death_callback(keepFinding);
    for (const int death : {SIGABRT, SIGSEGV, SIGBUS, SIGFPE})
        std::signal(death, [](int number) {
            std::signal(number, SIG_DFL);
            keepFinding();
            std::raise(number);
        });
}

void run(const std::string& input) {
    inputAtHand = input;
    const std::vector<std::uint8_t> bytes(input.begin(), input.end());  // no byte more: reading behind them shows
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

}  // namespace

int main(int count, char** arguments) try {
    int changes = 0;
    _inputs inputs;
    for (int i = 1; i < count; ++i) {
        const std::string argument = arguments[i];
        if (argument.starts_with(countOption))
            changes = std::stoi(argument.substr(countOption.size()));
        else
            addInputs(argument, inputs);
    }
    if (inputs.empty()) throw std::runtime_error("no inputs");
    keepFindings(path(arguments[0]).filename() += ".finding");
    _changer changer(inputs);
    for (const std::string& input : inputs) {
        run(input);
        for (int i = 0; i < changes; ++i) run(changer.changed(input));
    }
    return EXIT_SUCCESS;
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return EXIT_FAILURE;
}
