/// A choice of one of a few values in a drop-down menu.
#pragma once

#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"
#include "Models/Enumeration.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class QWidget;

namespace korvane {

/// For each choice, the reason why it is unavailable, shown beside it; empty if it is available.
using Obstacles = std::vector<std::string>;

/// `name` is the accessible name, `width` in pixels at a 13-pixel body text. Without `obstacles`, all choices
/// are always available.
QWidget* menuPicker(Store& store, std::string_view name, const std::vector<std::string>& titles,
                    const Reader<std::size_t>& chosen, const Action<std::size_t>& choose, int width,
                    const std::optional<Reader<Obstacles>>& obstacles);

/// A picker over all cases of the enumeration that `read` reads, with their titles. The optional `obstacle`
/// returns the reason why a case is unavailable.
template <typename State, typename E, typename Set>
QWidget* menuPicker(Store& store, std::string_view name, E State::* read, const Set& set, int width,
                    std::string (State::*obstacle)(E) const = nullptr) {
    std::vector<std::string> titles;
    for (const auto value : allCases<E>)
        titles.emplace_back(title(value));
    const auto chosen = [read](const State& state) { return static_cast<std::size_t>(state.*read); };
    const auto choose = [set = Action<E>(set).on(store)](std::size_t index) { set(allCases<E>[index]); };
    std::optional<Reader<Obstacles>> obstacles;
    if (obstacle)
        obstacles = [obstacle](const State& state) {
            Obstacles all;
            for (const auto value : allCases<E>)
                all.push_back((state.*obstacle)(value));
            return all;
        };
    return menuPicker(store, name, titles, chosen, choose, width, obstacles);
}

} // namespace korvane
