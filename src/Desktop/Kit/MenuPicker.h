/// A choice of one among a few, which drop down as a menu.
#pragma once

#include "Desktop/Kit/View.h"
#include "Models/Enumeration.h"

#include <cstddef>
#include <functional>
#include <string>
#include <type_traits>
#include <vector>

class QWidget;

namespace korvane {

struct MenuPickerParts {
    std::string name; ///< the accessible name
    std::vector<std::string> titles;
    std::function<std::size_t()> chosen;
    std::function<void(std::size_t)> choose;
    int width = 0; ///< in pixels at a 13-pixel body text
    /// Why a choice cannot be made at the moment, shown beside it; empty where it can. None: all can always.
    std::function<std::string(std::size_t)> obstacle{};
};

QWidget* menuPicker(ViewCore& view, MenuPickerParts parts);

/// A picker over all cases of the enumeration that `reader` reads, with their titles. `obstacle`, where there
/// is one, is an operation of the state that takes a case.
template <typename State, typename Reader, typename Setter, typename Obstacle = std::nullptr_t>
QWidget* menuPicker(View<State>& view, std::string name, Reader reader, Setter setter, int width,
                    Obstacle obstacle = nullptr) {
    using E = std::remove_cvref_t<std::invoke_result_t<Reader, const State&>>;
    std::vector<std::string> titles;
    for (const auto value : allCases<E>)
        titles.emplace_back(title(value));
    auto read = view.template reading<E>(reader);
    auto set = view.template setting<E>(setter);
    MenuPickerParts parts{.name = std::move(name),
                          .titles = std::move(titles),
                          .chosen = [read] { return static_cast<std::size_t>(read()); },
                          .choose = [set](std::size_t index) { set(allCases<E>[index]); },
                          .width = width};
    if constexpr (!std::is_null_pointer_v<Obstacle>)
        parts.obstacle = [&view, obstacle](std::size_t index) {
            return std::invoke(obstacle, view.state(), allCases<E>[index]);
        };
    return menuPicker(view, std::move(parts));
}

} // namespace korvane
