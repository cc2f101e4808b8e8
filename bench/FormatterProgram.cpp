/// The engines as a command, so that whole processes can be compared: `korvane_bench_program OPERATION FILE`
/// writes the result to the standard output. `generate SIZE` writes the benchmark document, and `tree FILE`
/// builds the tree and writes the number of its nodes.

#include "MixedDocument.h"
#include "Utilities/Base64.h"
#include "Utilities/HashGenerator.h"
#include "Utilities/JSON/JSONFormatter.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace korvane::bench {

namespace {

using Result = std::expected<std::string, std::string>;

/// The content of a file, mapped until the process ends.
std::expected<std::string_view, std::string> contents(const char* path) {
    const int file = open(path, O_RDONLY | O_CLOEXEC);
    struct stat facts{};
    if (file < 0 || fstat(file, &facts) != 0)
        return std::unexpected(fmt::format("cannot open {}", path));
    const auto size = static_cast<std::size_t>(facts.st_size);
    if (size == 0)
        return std::string_view();
    void* const bytes = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
    if (bytes == MAP_FAILED)
        return std::unexpected(fmt::format("cannot read {}", path));
    return std::string_view(static_cast<const char*>(bytes), size);
}

bool writeOut(std::string_view text) {
    while (!text.empty()) {
        const auto count = write(STDOUT_FILENO, text.data(), text.size());
        if (count < 0)
            return false;
        text.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

Result ofFormatter(std::expected<std::string, JSONFormatter::JSONError> result) {
    if (!result)
        return std::unexpected(result.error().errorDescription());
    return std::move(*result);
}

std::size_t nodeCount(const JSONNode& node) {
    std::size_t count = 1;
    for (const auto& child : node.children)
        count += nodeCount(child);
    return count;
}

Result tree(std::string_view text) {
    const auto root = JSONFormatter::parseToTree(text);
    if (!root)
        return std::unexpected(root.error().errorDescription());
    return fmt::format("{}\n", nodeCount(*root));
}

Result decoded(std::string_view text) {
    auto bytes = Base64::decode(text);
    if (!bytes)
        return std::unexpected("not Base64");
    return std::move(*bytes);
}

Result hashes(std::string_view text) {
    std::string lines;
    for (const auto& [algorithm, hash] : HashGenerator::allHashes(text))
        lines += fmt::format("{}  {}\n", hash, rawValue(algorithm));
    return lines;
}

struct Operation {
    std::string_view name;
    Result (*perform)(std::string_view text);
};

constexpr std::array<Operation, 6> operations = {{
    {"prettify", [](std::string_view text) { return ofFormatter(JSONFormatter::prettify(text, 2)); }},
    {"minify", [](std::string_view text) { return ofFormatter(JSONFormatter::minify(text)); }},
    {"tree", tree},
    {"encode", [](std::string_view text) -> Result { return Base64::encode(text); }},
    {"decode", decoded},
    {"hashes", hashes},
}};

Result perform(std::string_view name, const char* argument) {
    if (name == "generate") {
        const std::string_view digits = argument;
        std::size_t size = 0;
        std::from_chars(digits.data(), digits.data() + digits.size(), size);
        return mixedDocument(size);
    }
    for (const auto& operation : operations) {
        if (operation.name == name) {
            const auto text = contents(argument);
            return text ? operation.perform(*text) : Result(std::unexpected(text.error()));
        }
    }
    return std::unexpected(fmt::format("unknown operation {}", name));
}

} // namespace

} // namespace korvane::bench

int main(int count, char** arguments) {
    if (count != 3) {
        fmt::print(stderr, "usage: {} prettify|minify|tree|encode|decode|hashes FILE, or generate SIZE\n",
                   arguments[0]);
        return 2;
    }
    const auto result = korvane::bench::perform(arguments[1], arguments[2]);
    if (!result) {
        fmt::print(stderr, "{}: {}\n", arguments[0], result.error());
        return 1;
    }
    return korvane::bench::writeOut(*result) ? 0 : 1;
}
