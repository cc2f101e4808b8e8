#include "DiffTexts.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <random>
#include <span>
#include <string>
#include <vector>

namespace korvane::bench {

namespace {

using DiffEngine::DiffTexts;
using Lines = std::vector<std::string>;

/// A line of a typical length; equal numbers give equal lines.
std::string line(std::size_t number) {
    return fmt::format("    harbour.assign(ship_{}, berth {:>5}); // {}", number, number * 7919 % 10'007,
                       number % 2 == 0 ? "arrives at night" : "pilot on board");
}

std::string joined(std::span<const std::string> lines) {
    std::string text;
    for (const auto& one : lines)
        text.append(one).append("\n");
    return text;
}

/// `size` lines with `kinds` distinct ones, and the same with one line in `share` replaced, by a new line or
/// by another of the lines.
DiffTexts edited(std::size_t size, std::size_t kinds, std::size_t share, bool byNewLines) {
    std::mt19937 random(20261121);
    Lines left;
    for (std::size_t number = 0; number < size; ++number)
        left.push_back(line(kinds == size ? number : random() % kinds));
    auto right = left;
    for (std::size_t number = 0; number < size; ++number) {
        if (random() % share == 0)
            right[number] = line(byNewLines ? size + number : random() % kinds);
    }
    return {joined(left), joined(right)};
}

DiffTexts different(std::size_t size) {
    Lines left;
    Lines right;
    for (std::size_t number = 0; number < size; ++number) {
        left.push_back(line(number));
        right.push_back(line(size + number));
    }
    return {joined(left), joined(right)};
}

DiffTexts reordered(std::size_t size) {
    std::mt19937 random(20261121);
    Lines left;
    for (std::size_t number = 0; number < size; ++number)
        left.push_back(line(number));
    auto right = left;
    std::ranges::shuffle(right, random);
    return {joined(left), joined(right)};
}

DiffTexts unrelated(std::size_t size, std::size_t kinds) {
    std::mt19937 random(20261121);
    Lines left;
    Lines right;
    for (std::size_t number = 0; number < size; ++number) {
        left.push_back(line(random() % kinds));
        right.push_back(line(random() % kinds));
    }
    return {joined(left), joined(right)};
}

} // namespace

const std::array<DiffTextsKind, 7> diffTexts = {{
    {"fifth-new", [] { return edited(20'000, 20'000, 5, true); }},
    {"fifth-repeated", [] { return edited(20'000, 2'000, 5, false); }},
    {"hundredth-new", [] { return edited(200'000, 200'000, 100, true); }},
    {"hundredth-repeated", [] { return edited(200'000, 20'000, 100, false); }},
    {"different", [] { return different(50'000); }},
    {"reordered", [] { return reordered(50'000); }},
    {"unrelated", [] { return unrelated(50'000, 10); }},
}};

} // namespace korvane::bench
