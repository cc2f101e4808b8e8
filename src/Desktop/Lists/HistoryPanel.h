/// The values that a screen has generated, newest on top, under a title with buttons for all of them. Each
/// row shows the whole of a value, which can be selected, and the time of day, and has a button that copies
/// it. The rows are items of a real list; the buttons are real ones too, of which only those of the visible
/// rows exist.
#pragma once

#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"
#include "Models/PaletteColor.h"
#include "Utilities/UUID.h"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

class QWidget;

namespace korvane {

struct HistoryRow {
    UUID id{};          ///< of the entry, independent of its position
    std::string text{}; ///< shown and copied
    std::chrono::system_clock::time_point time{};
    std::optional<PaletteColor> dot{}; ///< a dot before the text
    std::string note{};                ///< what the dot says

    bool operator==(const HistoryRow&) const = default;
};

struct HistoryPanelParts {
    Reader<std::string> title;
    Reader<std::vector<HistoryRow>> rows;
    Action<> copyAll;
    Action<> clear;
    std::string prompt;    ///< shown while the history is empty
    bool isSecret = false; ///< whether values are copied as secrets
};

/// In the list, Return and Space press the button of the current row, and so do the keys for Copy unless a
/// part of the values is selected.
QWidget* historyPanel(Store& store, const HistoryPanelParts& parts);

} // namespace korvane
