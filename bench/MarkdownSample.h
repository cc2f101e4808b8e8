/// A realistic Markdown text of any size.
#pragma once

#include <cstddef>
#include <string>

namespace korvane::bench {

/// At least `size` bytes, in whole chapters: headers, paragraphs, lists, quotes, code and links.
inline std::string ordinaryMarkdown(std::size_t size) {
    std::string text;
    for (int chapter = 1; text.size() < size; ++chapter) {
        const auto number = std::to_string(chapter);
        text +=
            "## Chapter " + number +
            "\n\nThe *quick* brown fox jumps over the **lazy** dog, and `fox.jump()` says so. It was\n"
            "a fine day in the valley, and nobody minded; see [the map](https://example.org/map/" +
            number +
            ") for the way.\nThe second sentence goes on for a while, so that lines have a length as lines "
            "have.\n\n- one thing\n- another with ~~no~~ some text\n- a third, `code` and __bold__\n\n"
            "1. first\n2. second\n\n> Whoever quotes\n> quotes twice.\n\n```cpp\nint answer(int question) {\n"
            "    return question * 6 + " +
            number + ";\n}\n```\n\n---\n\n![A picture](picture-" + number + ".png)\n\n";
    }
    return text;
}

} // namespace korvane::bench
