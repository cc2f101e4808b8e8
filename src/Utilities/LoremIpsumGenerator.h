/// Generates pseudo-Latin placeholder text as words, sentences or paragraphs, and counts these in any text.
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

// The result is empty for a count below 1. Random words are drawn uniformly and independently, so a word may
// repeat at once.

/// `count` words separated by single spaces, without a full stop. With `startWithLorem` the first five (or
/// `count`, if fewer) are from "Lorem ipsum dolor sit amet"; otherwise the first is capitalised.
std::string generateWords(int count, bool startWithLorem);

/// `count` sentences separated by single spaces, of 8 to 16 words each, with one comma that has at least four
/// words before it and two after it. With `startWithLorem` the first is the standard opening.
std::string generateSentences(int count, bool startWithLorem);

/// `count` paragraphs of 3 to 7 sentences, separated by empty lines. With `startWithLorem` the first begins
/// with the standard opening.
std::string generateParagraphs(int count, bool startWithLorem);

/// The number of words, delimited by white space and newlines.
int wordCount(std::string_view text);

/// The number of runs of full stops, exclamation and question marks.
int sentenceCount(std::string_view text);

/// The number of pieces between empty lines that contain more than white space. A line feed does not count as
/// white space here, so the second piece of "a\n\n\n" is counted.
int paragraphCount(std::string_view text);

} // namespace LoremIpsumGenerator

} // namespace korvane
