#include "Utilities/LoremIpsumGenerator.h"

#include "Utilities/Random.h"
#include "Utilities/Text/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <vector>

namespace korvane::LoremIpsumGenerator {

namespace {

constexpr auto words = std::to_array<std::string_view>({
    "lorem",        "ipsum",        "dolor",
    "sit",          "amet",         "consectetur",
    "adipiscing",   "elit",         "sed",
    "do",           "eiusmod",      "tempor",
    "incididunt",   "ut",           "labore",
    "et",           "dolore",       "magna",
    "aliqua",       "enim",         "ad",
    "minim",        "veniam",       "quis",
    "nostrud",      "exercitation", "ullamco",
    "laboris",      "nisi",         "aliquip",
    "ex",           "ea",           "commodo",
    "consequat",    "duis",         "aute",
    "irure",        "in",           "reprehenderit",
    "voluptate",    "velit",        "esse",
    "cillum",       "fugiat",       "nulla",
    "pariatur",     "excepteur",    "sint",
    "occaecat",     "cupidatat",    "non",
    "proident",     "sunt",         "culpa",
    "qui",          "officia",      "deserunt",
    "mollit",       "anim",         "id",
    "est",          "laborum",      "at",
    "vero",         "eos",          "accusamus",
    "iusto",        "odio",         "dignissimos",
    "ducimus",      "blanditiis",   "praesentium",
    "voluptatum",   "deleniti",     "atque",
    "corrupti",     "quos",         "dolores",
    "quas",         "molestias",    "excepturi",
    "obcaecati",    "cupiditate",   "provident",
    "similique",    "mollitia",     "animi",
    "earum",        "rerum",        "hic",
    "tenetur",      "sapiente",     "delectus",
    "aut",          "reiciendis",   "voluptatibus",
    "maiores",      "alias",        "perferendis",
    "doloribus",    "asperiores",   "repellat",
    "temporibus",   "autem",        "quibusdam",
    "officiis",     "debitis",      "necessitatibus",
    "saepe",        "eveniet",      "voluptates",
    "repudiandae",  "recusandae",   "itaque",
    "perspiciatis", "unde",         "omnis",
    "iste",         "natus",        "error",
    "voluptatem",   "accusantium",  "doloremque",
    "laudantium",   "totam",        "rem",
    "aperiam",      "eaque",        "ipsa",
    "quae",         "ab",           "illo",
    "inventore",    "veritatis",    "quasi",
    "architecto",   "beatae",       "vitae",
    "dicta",        "explicabo",    "nemo",
    "ipsam",        "quia",         "voluptas",
    "aspernatur",   "odit",         "fugit",
    "consequuntur", "magni",        "ratione",
    "sequi",        "nesciunt",     "neque",
    "porro",        "quisquam",     "dolorem",
    "adipisci",     "numquam",      "eius",
    "modi",
});
static_assert(words.size() == 160);

constexpr std::array<std::string_view, 5> openingWords = {"Lorem", "ipsum", "dolor", "sit", "amet"};
constexpr std::string_view openingSentence = "Lorem ipsum dolor sit amet, consectetur adipiscing elit.";

/// Capitalises a lower-case word of ASCII letters.
std::string capitalized(std::string word) {
    word.at(0) = static_cast<char>(word.at(0) - 'a' + 'A');
    return word;
}

std::vector<std::string> randomWords(int count) {
    std::vector<std::string> result;
    for (int i = 0; i < count; ++i)
        result.emplace_back(words.at(uniformBelow(words.size())));
    return result;
}

std::string generateSentence(bool startWithLorem) {
    if (startWithLorem)
        return std::string(openingSentence);
    const auto count = uniformBetween(8, 16);
    auto chosen = randomWords(count);
    chosen.front() = capitalized(chosen.front());
    chosen.at(static_cast<std::size_t>(uniformBetween(3, count - 3))) += ',';
    return fmt::format("{}.", fmt::join(chosen, " "));
}

} // namespace

std::string generateWords(int count, bool startWithLorem) {
    if (count < 1)
        return {};
    const auto opening = startWithLorem ? std::min(count, static_cast<int>(openingWords.size())) : 0;
    std::vector<std::string> chosen(openingWords.begin(), openingWords.begin() + opening);
    std::ranges::move(randomWords(count - opening), std::back_inserter(chosen));
    if (!startWithLorem)
        chosen.front() = capitalized(chosen.front());
    return fmt::format("{}", fmt::join(chosen, " "));
}

std::string generateSentences(int count, bool startWithLorem) {
    std::vector<std::string> sentences;
    for (int i = 0; i < count; ++i)
        sentences.push_back(generateSentence(startWithLorem && i == 0));
    return fmt::format("{}", fmt::join(sentences, " "));
}

std::string generateParagraphs(int count, bool startWithLorem) {
    std::vector<std::string> paragraphs;
    for (int i = 0; i < count; ++i)
        paragraphs.push_back(generateSentences(uniformBetween(3, 7), startWithLorem && i == 0));
    return fmt::format("{}", fmt::join(paragraphs, "\n\n"));
}

int wordCount(std::string_view text) {
    return static_cast<int>(korvane::wordCount(text));
}

int sentenceCount(std::string_view text) {
    constexpr std::string_view marks = ".!?";
    int count = 0;
    for (auto mark = text.find_first_of(marks); mark != std::string_view::npos;
         mark = text.find_first_of(marks, text.find_first_not_of(marks, mark)))
        ++count;
    return count;
}

int paragraphCount(std::string_view text) {
    constexpr std::string_view separator = "\n\n";
    int count = 0;
    while (true) {
        const auto end = text.find(separator);
        if (!trimmingWhitespaces(text.substr(0, end)).empty())
            ++count;
        if (end == std::string_view::npos)
            return count;
        text.remove_prefix(end + separator.size());
    }
}

} // namespace korvane::LoremIpsumGenerator
