/// The state of the Base64 screen: text to Base64 and back, on a button press and never by itself.
#pragma once

#include "Models/Enumeration.h"
#include "Views/Components/StatusBadge.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {

struct Base64View {
    enum class Mode { encode, decode };

    std::string inputText{};
    std::string outputText{};
    Mode mode = Mode::encode;
    std::optional<std::string> errorMessage{};

    /// What any change of the input entails, wherever it came from: an old message no longer belongs to it.
    void setInputText(std::string text);

    void setMode(Mode newMode) { mode = newMode; }

    /// Converts the input in the direction of `mode`. A failure leaves a message; it empties the output only
    /// where the input was tried and found wrong.
    void convert();

    /// The badge for `errorMessage`.
    std::optional<StatusBadge> status() const;

    bool hasInput() const { return !inputText.empty(); }

    bool hasOutput() const { return !outputText.empty(); }

    /// How many user-perceived characters there are, such as "Input: 5 characters", with those of the output
    /// behind a bullet once there is an output.
    std::string statistics() const;

    bool operator==(const Base64View&) const = default;

private:
    void encode();
    void decode();
};

struct Base64ModeFacts {
    Base64View::Mode value;
    std::string_view rawValue;
    std::string_view icon;
    std::string_view inputTitle;
    std::string_view inputPlaceholder;
    std::string_view outputTitle;
};

template <>
inline constexpr auto facts<Base64View::Mode> = std::to_array<Base64ModeFacts>({
    {Base64View::Mode::encode, "Encode", "lock", "Plain Text", "Enter text to encode...", "Base64 Output"},
    {Base64View::Mode::decode, "Decode", "lock.open", "Base64 Input", "Enter Base64 to decode...",
     "Decoded Text"},
});

} // namespace korvane
