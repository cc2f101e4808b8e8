#include "Utilities/LoremIpsumGenerator.h"

#include "support/ChiSquare.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>
#include <map>
#include <ranges>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {
namespace {

using namespace LoremIpsumGenerator;

constexpr std::string_view allWords =
    "lorem ipsum dolor sit amet consectetur adipiscing elit sed do eiusmod tempor incididunt ut "
    "labore et dolore magna aliqua enim ad minim veniam quis nostrud exercitation ullamco laboris "
    "nisi aliquip ex ea commodo consequat duis aute irure in reprehenderit voluptate velit esse "
    "cillum fugiat nulla pariatur excepteur sint occaecat cupidatat non proident sunt culpa qui "
    "officia deserunt mollit anim id est laborum at vero eos accusamus iusto odio dignissimos "
    "ducimus blanditiis praesentium voluptatum deleniti atque corrupti quos dolores quas molestias "
    "excepturi obcaecati cupiditate provident similique mollitia animi earum rerum hic tenetur "
    "sapiente delectus aut reiciendis voluptatibus maiores alias perferendis doloribus asperiores "
    "repellat temporibus autem quibusdam officiis debitis necessitatibus saepe eveniet voluptates "
    "repudiandae recusandae itaque perspiciatis unde omnis iste natus error voluptatem accusantium "
    "doloremque laudantium totam rem aperiam eaque ipsa quae ab illo inventore veritatis quasi "
    "architecto beatae vitae dicta explicabo nemo ipsam quia voluptas aspernatur odit fugit "
    "consequuntur magni ratione sequi nesciunt neque porro quisquam dolorem adipisci numquam eius "
    "modi ";

constexpr std::string_view openingSentence = "Lorem ipsum dolor sit amet, consectetur adipiscing elit.";

std::vector<std::string> split(std::string_view text, std::string_view separator) {
    std::vector<std::string> pieces;
    while (true) {
        const auto end = text.find(separator);
        pieces.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos)
            return pieces;
        text.remove_prefix(end + separator.size());
    }
}

const std::vector<std::string>& wordList() {
    static const auto list = [] {
        auto words = split(allWords, " ");
        words.pop_back(); // the empty piece after the last space
        return words;
    }();
    return list;
}

bool isListed(const std::string& word) {
    return std::ranges::find(wordList(), word) != wordList().end();
}

std::string lowercased(std::string text) {
    text.at(0) = static_cast<char>(std::tolower(static_cast<unsigned char>(text.at(0))));
    return text;
}

bool isCapitalized(const std::string& word) {
    return word.at(0) >= 'A' && word.at(0) <= 'Z';
}

/// The parts of a random sentence.
struct Sentence {
    std::vector<std::string> words{}; ///< in lower case, without comma and full stop
    std::size_t comma = 0;            ///< index of the word before it
};

/// Parses a random sentence; fails the test where it breaks a rule.
Sentence parsed(const std::string& text) {
    Sentence sentence;
    EXPECT_EQ(std::ranges::count(text, ','), 1) << text;
    EXPECT_EQ(text.find('.'), text.size() - 1) << text;
    sentence.words = split(std::string_view(text).substr(0, text.size() - 1), " ");
    EXPECT_TRUE(isCapitalized(sentence.words.front())) << text;
    sentence.words.front() = lowercased(sentence.words.front());
    for (std::size_t i = 0; i < sentence.words.size(); ++i) {
        auto& word = sentence.words[i];
        if (word.ends_with(',')) {
            word.pop_back();
            sentence.comma = i;
        }
        EXPECT_TRUE(isListed(word)) << text;
    }
    EXPECT_GE(sentence.words.size(), 8U) << text;
    EXPECT_LE(sentence.words.size(), 16U) << text;
    EXPECT_GE(sentence.comma, 3U) << text;
    EXPECT_LE(sentence.comma, sentence.words.size() - 3) << text;
    return sentence;
}

/// The sentences of a text, each with its full stop.
std::vector<std::string> sentencesOf(const std::string& text) {
    auto sentences = split(text, ". ");
    for (auto& sentence : sentences | std::views::take(sentences.size() - 1))
        sentence += '.';
    return sentences;
}

TEST(LoremIpsumGenerator, DrawsWordsUniformly) {
    ASSERT_EQ(wordList().size(), 160U);
    constexpr int draws = 400'000;
    std::map<std::string, std::uint64_t> counts;
    for (const auto& word : split(generateWords(draws, true), " ") | std::views::drop(5))
        ++counts[word];
    EXPECT_EQ(counts.size(), 160U);
    std::vector<std::uint64_t> inOrder;
    for (const auto& word : wordList())
        inOrder.push_back(counts[word]);
    EXPECT_TRUE(fitsUniform(inOrder));
}

TEST(LoremIpsumGenerator, DrawsLengthsAndCommaPositionsUniformly) {
    std::vector<std::uint64_t> lengths(9);
    std::map<std::size_t, std::vector<std::uint64_t>> commas; // by the number of words
    for (const auto& text : sentencesOf(generateSentences(120'000, false))) {
        const auto sentence = parsed(text);
        ++lengths.at(sentence.words.size() - 8);
        auto& places = commas[sentence.words.size()];
        places.resize(sentence.words.size() - 5);
        ++places.at(sentence.comma - 3);
    }
    EXPECT_TRUE(fitsUniform(lengths));
    for (const auto& [length, places] : commas)
        EXPECT_TRUE(fitsUniform(places)) << length << " words";
}

TEST(LoremIpsumGenerator, DrawsThreeToSevenSentencesAParagraphUniformly) {
    std::vector<std::uint64_t> counts(5);
    for (const auto& paragraph : split(generateParagraphs(20'000, false), "\n\n"))
        ++counts.at(sentencesOf(paragraph).size() - 3);
    EXPECT_TRUE(fitsUniform(counts));
}

TEST(LoremIpsumGenerator, BeginsWithTheOpeningWords) {
    EXPECT_EQ(generateWords(1, true), "Lorem");
    EXPECT_EQ(generateWords(3, true), "Lorem ipsum dolor");
    EXPECT_EQ(generateWords(5, true), "Lorem ipsum dolor sit amet");
    for (int round = 0; round < 1000; ++round) {
        const auto words = split(generateWords(7, true), " ");
        ASSERT_EQ(words.size(), 7U);
        EXPECT_EQ((std::vector(words.begin(), words.begin() + 5)),
                  (std::vector<std::string>{"Lorem", "ipsum", "dolor", "sit", "amet"}));
        EXPECT_TRUE(isListed(words[5]) && isListed(words[6])) << "in lower case";
    }
}

TEST(LoremIpsumGenerator, CapitalizesTheFirstOfRandomWords) {
    for (int round = 0; round < 1000; ++round) {
        auto words = split(generateWords(3, false), " ");
        ASSERT_EQ(words.size(), 3U);
        EXPECT_TRUE(isCapitalized(words[0]) && isListed(lowercased(words[0])));
        EXPECT_TRUE(isListed(words[1]) && isListed(words[2])) << "without a full stop";
    }
}

TEST(LoremIpsumGenerator, BeginsWithTheOpeningSentenceOnce) {
    EXPECT_EQ(generateSentences(1, true), openingSentence);
    for (int round = 0; round < 200; ++round) {
        const auto sentences = sentencesOf(generateSentences(4, true));
        ASSERT_EQ(sentences.size(), 4U);
        EXPECT_EQ(sentences[0], openingSentence);
        for (const auto& sentence : sentences | std::views::drop(1))
            parsed(sentence);
    }
}

TEST(LoremIpsumGenerator, OnlyTheFirstParagraphBeginsWithTheOpeningSentence) {
    for (int round = 0; round < 200; ++round) {
        const auto paragraphs = split(generateParagraphs(3, true), "\n\n");
        ASSERT_EQ(paragraphs.size(), 3U);
        for (std::size_t i = 0; i < paragraphs.size(); ++i) {
            const auto sentences = sentencesOf(paragraphs[i]);
            EXPECT_GE(sentences.size(), 3U);
            EXPECT_LE(sentences.size(), 7U);
            EXPECT_EQ(sentences[0] == openingSentence, i == 0);
            for (const auto& sentence : sentences | std::views::drop(i == 0 ? 1 : 0))
                parsed(sentence);
        }
    }
    EXPECT_EQ(generateParagraphs(1, false).find('\n'), std::string::npos);
}

TEST(LoremIpsumGenerator, ReturnsAnEmptyTextForACountBelowOne) {
    for (const int count : {0, -1, -100}) {
        for (const bool startWithLorem : {false, true}) {
            EXPECT_EQ(generateWords(count, startWithLorem), "");
            EXPECT_EQ(generateSentences(count, startWithLorem), "");
            EXPECT_EQ(generateParagraphs(count, startWithLorem), "");
        }
    }
}

TEST(LoremIpsumGenerator, CountsWordsSentencesAndParagraphs) {
    struct Row {
        std::string_view name;
        std::string_view text;
        int words;
        int sentences;
        int paragraphs;
    };

    constexpr Row rows[] = {
        {"nothing", "", 0, 0, 0},
        {"two words", "Lorem ipsum", 2, 0, 1},
        {"the opening sentence", openingSentence, 8, 1, 1},
        {"runs of marks", "What?! Well... Yes.", 3, 3, 1},
        {"separate marks", ". ! ?", 3, 3, 1},
        {"marks inside", "3.14 e.g. this", 3, 3, 1},
        {"only marks", "...", 1, 1, 1},
        {"full stops of other scripts do not count", "漢字。おわり。", 1, 0, 1},
        {"two paragraphs", "a\n\nb", 2, 0, 2},
        {"one line break", "a\nb", 2, 0, 1},
        {"a piece with spaces and tabs", "a\n\n \t\u00A0\n\nb", 2, 0, 2},
        {"a piece with only a line break", "a\n\n\n", 1, 0, 2},
        {"separators alone", "\n\n\n\n", 0, 0, 0},
        {"a lone line break", "\n", 0, 0, 1},
        {"CR LF is no separator", "a\r\n\r\nb", 2, 0, 1},
        {"every kind of space", " a\tb\u2003c\u3000d\u2028e\u0085f\v ", 6, 0, 1},
        {"a zero-width space joins", "a\u200Bb", 1, 0, 1},
        {"not UTF-8", "a\xff b", 2, 0, 1},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(LoremIpsumGenerator::wordCount(row.text), row.words) << row.name;
        EXPECT_EQ(sentenceCount(row.text), row.sentences) << row.name;
        EXPECT_EQ(paragraphCount(row.text), row.paragraphs) << row.name;
    }
}

RC_GTEST_PROP(LoremIpsumGenerator, CountsWhatItGenerates, (bool startWithLorem)) {
    const auto count = *rc::gen::inRange(1, 101);
    RC_ASSERT(LoremIpsumGenerator::wordCount(generateWords(count, startWithLorem)) == count);
    RC_ASSERT(sentenceCount(generateSentences(count, startWithLorem)) == count);
    const auto paragraphs = generateParagraphs(count, startWithLorem);
    RC_ASSERT(paragraphCount(paragraphs) == count);
    RC_ASSERT(sentenceCount(paragraphs) >= 3 * count);
    RC_ASSERT(sentenceCount(paragraphs) <= 7 * count);
}

TEST(LoremIpsumGenerator, TypesHaveTheirNamesAndIcons) {
    using enum GenerationType;
    EXPECT_EQ(allCases<GenerationType>, (std::array{words, sentences, paragraphs}));
    EXPECT_EQ(rawValue(words), "Words");
    EXPECT_EQ(rawValue(sentences), "Sentences");
    EXPECT_EQ(rawValue(paragraphs), "Paragraphs");
    EXPECT_EQ(icon(words), "text.word.spacing");
    EXPECT_EQ(icon(sentences), "text.bubble");
    EXPECT_EQ(icon(paragraphs), "paragraphsign");
}

} // namespace
} // namespace korvane
