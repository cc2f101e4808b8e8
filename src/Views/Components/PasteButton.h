/// The buttons that replace a text: by the clipboard's, and by nothing.
#pragma once

#include "Views/Services.h"

#include <functional>
#include <string>
#include <string_view>

namespace korvane {

struct PasteButton {
    static constexpr std::string_view icon = "doc.on.clipboard";

    /// Hands the clipboard's plain text to `setText`; without one on the clipboard nothing happens.
    static void paste(const Clipboard& clipboard, const std::function<void(std::string)>& setText) {
        if (auto text = clipboard.text())
            setText(std::move(*text));
    }
};

struct ClearButton {
    static constexpr std::string_view icon = "trash";

    static void clear(const std::function<void(std::string)>& setText) { setText({}); }
};

} // namespace korvane
