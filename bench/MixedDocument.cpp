#include "MixedDocument.h"

#include <fmt/format.h>

#include <array>
#include <cstdint>
#include <iterator>
#include <string_view>

namespace korvane::bench {

namespace {

/// Portable pseudo-random numbers; the standard library's distributions differ between implementations.
class Numbers {
public:
    std::uint64_t below(std::uint64_t end) {
        m_state ^= m_state << 13;
        m_state ^= m_state >> 7;
        m_state ^= m_state << 17;
        return m_state % end;
    }

    template <std::size_t size>
    std::string_view pick(const std::array<std::string_view, size>& choices) {
        return choices[below(size)];
    }

private:
    std::uint64_t m_state = 0x9E3779B97F4A7C15;
};

constexpr std::array<std::string_view, 8> names = {"Ada Lovelace",  "Jürgen Groß", "María-José Núñez",
                                                   "Søren Ålesund", "佐藤 花子",   "Ольга Иванова",
                                                   "Νίκος Παππάς",  "John Smith"};

constexpr std::array<std::string_view, 8> sentences = {
    "The quick brown fox jumps over the lazy dog, and the dog does not mind.",
    "Zwölf Boxkämpfer jagen Viktor quer über den großen Sylter Deich.",
    "いろはにほへと ちりぬるを わかよたれそ つねならむ",
    "Съешь же ещё этих мягких французских булок, да выпей чаю.",
    R"(He said \"never again\", then did it again.\nTwice.)",
    "Portez ce vieux whisky au juge blond qui fume 🚬 sur son île.",
    "Nothing to see here; the build is green and the tests pass on all machines.",
    "C:\\\\Users\\\\build\\\\artifacts and /var/lib/build/artifacts are the same place.",
};

constexpr std::array<std::string_view, 8> tags = {"red",   "grün", "blue",    "urgent",
                                                  "later", "重要", "wontfix", "ok"};

void appendRecord(std::string& text, std::uint64_t index, Numbers& numbers) {
    const auto append = [&]<typename... Arguments>(fmt::format_string<Arguments...> format,
                                                   Arguments&&... arguments) {
        fmt::format_to(std::back_inserter(text), format, std::forward<Arguments>(arguments)...);
    };
    append(R"({{"id": {}, "name": "{}", "active": {}, )", index, numbers.pick(names),
           numbers.below(2) == 0 ? "true" : "false");
    append(R"("email": "user{}@example.org", "score": {}.{:02}, )", index, numbers.below(1000),
           numbers.below(100));
    append(R"("created": "20{:02}-{:02}-{:02}T{:02}:{:02}:00Z", )", numbers.below(30), numbers.below(12) + 1,
           numbers.below(28) + 1, numbers.below(24), numbers.below(60));
    append(R"("url": "https://example.org/items/{}?page={}", )", index, numbers.below(50));
    append(R"("address": {{"street": "{} Main Street", "city": "{}", "zip": "{:05}", )",
           numbers.below(900) + 1,
           numbers.pick(std::array<std::string_view, 4>{"Zürich", "Oslo", "京都", "Łódź"}),
           numbers.below(100'000));
    append(R"("location": {{"lat": {}.{:06}, "lon": -{}.{:06}}}}}, )", numbers.below(90),
           numbers.below(1'000'000), numbers.below(180), numbers.below(1'000'000));
    append(R"("tags": ["{}", "{}"], )", numbers.pick(tags), numbers.pick(tags));
    append(R"("history": [{}, {}, {}, {}], )", numbers.below(100), numbers.below(10'000),
           numbers.below(1'000'000), numbers.below(100));
    append(R"("note": "{}", "parent": null, "flags": {{}}}})", numbers.pick(sentences));
}

} // namespace

std::string mixedDocument(std::size_t size) {
    Numbers numbers;
    std::string text = "[\n";
    for (std::uint64_t index = 0; text.size() < size; ++index) {
        if (index > 0)
            text += ",\n";
        appendRecord(text, index, numbers);
    }
    return text + "\n]\n";
}

} // namespace korvane::bench
