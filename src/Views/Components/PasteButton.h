/// The button that replaces a text by the clipboard's, and the button that empties it.
#pragma once

#include "Views/Services.h"

#include <functional>
#include <string_view>

namespace korvane {

struct PasteButton {
    static constexpr std::string_view icon = "doc.on.clipboard";

    /// Passes the clipboard's plain text to `setText`; does nothing without one.
    static void paste(const Clipboard& clipboard, const std::function<void(Rope)>& setText) {
        if (auto text = clipboard.text())
            setText(std::move(*text));
    }
};

struct ClearButton {
    static constexpr std::string_view icon = "trash";

    static void clear(const std::function<void(Rope)>& setText) { setText({}); }
};

} // namespace korvane
