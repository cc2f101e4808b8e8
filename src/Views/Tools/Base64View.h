/// The state of the Base64 screen: text is converted to Base64 and back only on a button press, large texts
/// in the background.
#pragma once

#include "Models/Enumeration.h"
#include "Views/Components/AwaitedWork.h"
#include "Views/Components/LiveStats.h"
#include "Views/Components/StatusBadge.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {

struct Base64View {
    enum class Mode { encode, decode };

    Rope inputText{};
    Rope outputText{};
    Mode mode = Mode::encode;
    std::optional<std::string> errorMessage{};
    AwaitedWork conversion{};
    LiveStats inputStats{};
    LiveStats outputStats{};

    /// Also drops the message and cancels a conversion, which belong to the previous input.
    void setInputText(Rope text, const Context<Base64View>& context);

    void setMode(Mode newMode) { mode = newMode; }

    /// Converts the input in the direction of `mode`. A failure sets a message; decoding invalid input also
    /// empties the output.
    void convert(const Context<Base64View>& context);

    void cancel() { conversion.cancel(); }

    /// The badge for `errorMessage`.
    std::optional<StatusBadge> status() const;

    bool isBusy() const { return conversion.isBusy(); }

    bool hasInput() const { return !inputText.empty(); }

    bool hasOutput() const { return !outputText.empty(); }

    /// The number of user-perceived characters, such as "Input: 5 characters", followed by a bullet and those
    /// of the output if there is one. "…" while they are being counted.
    std::string statistics() const;

    bool operator==(const Base64View&) const = default;

private:
    struct Result;

    static Result encode(std::string_view text);
    static Result decode(std::string_view text);
    void show(Result result, const Context<Base64View>& context);
};

struct Base64ModeFacts {
    Base64View::Mode value;
    std::string_view rawValue;
    std::string_view icon;
    std::string_view inputTitle;
    std::string_view inputPlaceholder;
    std::string_view outputTitle;
    std::string_view verb; ///< for running work
};

template <>
inline constexpr auto facts<Base64View::Mode> = std::to_array<Base64ModeFacts>({
    {Base64View::Mode::encode, "Encode", "lock", "Plain Text", "Enter text to encode...", "Base64 Output",
     "Encoding"},
    {Base64View::Mode::decode, "Decode", "lock.open", "Base64 Input", "Enter Base64 to decode...",
     "Decoded Text", "Decoding"},
});

} // namespace korvane
