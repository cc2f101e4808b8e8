/// Placeholder text in something like Latin, as words, sentences or paragraphs, and the counts of any text.
#pragma once

#include "Models/Enumeration.h"

#include <array>
#include <string>
#include <string_view>

namespace korvane {

enum class GenerationType { words, sentences, paragraphs };

struct GenerationTypeFacts {
    GenerationType value;
    std::string_view rawValue;
    std::string_view icon;
};

template <>
inline constexpr auto facts<GenerationType> = std::to_array<GenerationTypeFacts>({
    {GenerationType::words, "Words", "text.word.spacing"},
    {GenerationType::sentences, "Sentences", "text.bubble"},
    {GenerationType::paragraphs, "Paragraphs", "paragraphsign"},
});

namespace LoremIpsumGenerator {

// Each of these is empty for a count below 1. Random words are drawn uniformly and independently, so one may
// follow itself.

/// `count` words between single spaces, without a full stop. With `startWithLorem` the first five, as far as
/// there are as many, are "Lorem ipsum dolor sit amet"; otherwise the first is capitalised.
std::string generateWords(int count, bool startWithLorem);

/// `count` sentences between single spaces, of 8 to 16 words each, with one comma that has at least four
/// words before it and two behind it. With `startWithLorem` the first is the classic opening.
std::string generateSentences(int count, bool startWithLorem);

/// `count` paragraphs of 3 to 7 sentences, with an empty line between two. With `startWithLorem` the first
/// begins with the classic opening.
std::string generateParagraphs(int count, bool startWithLorem);

/// How many pieces without white space and newlines there are.
int wordCount(std::string_view text);

/// How many runs of full stops, exclamation and question marks there are.
int sentenceCount(std::string_view text);

/// How many pieces between empty lines hold more than white space. A line feed is more, as in the second
/// piece of "a\n\n\n".
int paragraphCount(std::string_view text);

} // namespace LoremIpsumGenerator

} // namespace korvane
