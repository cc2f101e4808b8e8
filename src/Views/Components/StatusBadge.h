/// A short message with its severity.
#pragma once

#include "Models/Enumeration.h"
#include "Models/PaletteColor.h"

#include <array>
#include <string>
#include <string_view>

namespace korvane {

/// No message has the status `info` yet.
enum class Status { success, error, warning, info };

struct StatusFacts {
    Status value;
    std::string_view rawValue; ///< not shown anywhere yet
    std::string_view icon;
    PaletteColor color;
};

template <>
inline constexpr auto facts<Status> = std::to_array<StatusFacts>({
    {Status::success, "success", "checkmark.circle.fill", PaletteColor::green},
    {Status::error, "error", "xmark.circle.fill", PaletteColor::red},
    {Status::warning, "warning", "exclamationmark.triangle.fill", PaletteColor::orange},
    {Status::info, "info", "info.circle.fill", PaletteColor::blue},
});

constexpr PaletteColor color(Status status) {
    return factsOf(status).color;
}

struct StatusBadge {
    Status status = Status::info;
    std::string message{};
    std::string place{}; ///< the part of the message that names a place in the input, if there is one

    bool operator==(const StatusBadge&) const = default;
};

} // namespace korvane
