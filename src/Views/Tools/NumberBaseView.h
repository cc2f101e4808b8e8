/// The state of the Number Base screen: a number as the user types it, converted to all four bases at every
/// change.
#pragma once

#include "Utilities/NumberBaseConverter.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {

/// One of the four tiles that show the number.
struct BaseResultCard {
    NumberBaseConverter::Base base = NumberBaseConverter::Base::binary;
    std::string value{};
    bool isSource = false; ///< whether the input is in this base

    /// The text beside the base's name: "(source)", or empty.
    std::string_view note() const { return isSource ? "(source)" : ""; }

    /// The radix, such as "base 16".
    std::string caption() const;

    bool operator==(const BaseResultCard&) const = default;
};

struct NumberBaseView {
    using Base = NumberBaseConverter::Base;

    std::string inputText{};
    Base sourceBase = Base::decimal;
    std::map<Base, std::string> results{}; ///< one text per base; empty without a number
    std::optional<std::string> errorMessage{};
    bool showGrouped = false;

    // Both convert the number.
    void setInputText(std::string text);
    void setSourceBase(Base base);

    /// Changes only how the results are shown.
    void setShowGrouped(bool show) { showGrouped = show; }

    /// The result as it is shown and copied: grouped if `showGrouped` is set, "-" if there is none.
    std::string formatResult(Base base) const;

    BaseResultCard resultCard(Base base) const;

    bool hasResults() const { return !results.empty(); }

    /// The title of the input, such as "Input (Decimal)".
    std::string inputTitle() const;

    /// The placeholder of the input, such as "Enter decimal number...".
    std::string_view placeholder() const { return factsOf(sourceBase).placeholder; }

    /// The hint before the input, such as "0x"; empty in decimal.
    std::string_view inputPrefix() const { return factsOf(sourceBase).prefix; }

    bool operator==(const NumberBaseView&) const = default;

private:
    void convert();
};

} // namespace korvane
