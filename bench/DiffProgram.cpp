/// The comparison of texts as a command, so that whole processes can be compared:
/// `korvane_diff_program diff LEFT RIGHT` writes the lines that only one side has, as comparison programs do;
/// `korvane_diff_program generate KIND LEFT RIGHT` writes a pair of texts to compare.

#include "DiffTexts.h"
#include "Utilities/Diff/DiffEngine.h"

#include <fmt/format.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace korvane::bench {

namespace {

std::string contents(const char* path) {
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    std::string text(static_cast<std::size_t>(std::max<std::streamoff>(file.tellg(), 0)), '\0');
    file.seekg(0);
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    return text;
}

bool save(const char* path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    file << text;
    return file.good();
}

int compareFiles(const char* left, const char* right) {
    const auto result = DiffEngine::compare(contents(left), contents(right));
    std::string output;
    for (const auto& line : result.unifiedDiff) {
        if (line.type == DiffEngine::DiffLineType::unchanged)
            continue;
        output.append(line.type == DiffEngine::DiffLineType::removed ? "< " : "> ");
        output.append(line.content).append("\n");
    }
    return std::fwrite(output.data(), 1, output.size(), stdout) == output.size() ? 0 : 1;
}

int generate(std::string_view name, const char* left, const char* right) {
    for (const auto& kind : diffTexts) {
        if (kind.name == name) {
            const auto texts = kind.generate();
            return save(left, texts.left) && save(right, texts.right) ? 0 : 1;
        }
    }
    fmt::print(stderr, "unknown kind {}\n", name);
    return 2;
}

} // namespace

} // namespace korvane::bench

int main(int count, char** arguments) {
    const std::vector<std::string_view> words(arguments, arguments + count);
    if (words.size() == 4 && words[1] == "diff")
        return korvane::bench::compareFiles(arguments[2], arguments[3]);
    if (words.size() == 5 && words[1] == "generate")
        return korvane::bench::generate(words[2], arguments[3], arguments[4]);
    fmt::print(stderr, "usage: {0} diff LEFT RIGHT, or {0} generate KIND LEFT RIGHT\n", words.front());
    return 2;
}
