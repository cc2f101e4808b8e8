/// The state of the Base64 screen: text is converted to Base64 and back only on a button press.
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

    /// Also drops the message, which belongs to the previous input.
    void setInputText(std::string text);

    void setMode(Mode newMode) { mode = newMode; }

    /// Converts the input in the direction of `mode`. A failure sets a message; decoding invalid input also
    /// empties the output.
    void convert();

    /// The badge for `errorMessage`.
    std::optional<StatusBadge> status() const;

    bool hasInput() const { return !inputText.empty(); }

    bool hasOutput() const { return !outputText.empty(); }

    /// The number of user-perceived characters, such as "Input: 5 characters", followed by a bullet and those
    /// of the output if there is one.
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
