/// The list of matches: a count, then a card for each match with a row for it and for each of its groups.
#pragma once

#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"
#include "Desktop/Layout/Stack.h"
#include "Views/Tools/RegexMatches.h"

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>

class QWidget;

namespace korvane {

/// The list in its panel. It grows with the room there is. Every row has a button that copies its text, and
/// so do Return, Space and the keys for Copy. `selected` is a line, which the list shows; `select` is called
/// with the row that the user goes to.
QWidget* matchList(Store& store, const Reader<RegexMatches>& matches, const Reader<std::string>& count,
                   const Reader<std::optional<std::size_t>>& selected, const Action<std::size_t>& select);

/// The panel in the place of a list without matches, around what it says. It grows like the list.
QWidget* matchPrompt(std::initializer_list<Item> prompts);

} // namespace korvane
