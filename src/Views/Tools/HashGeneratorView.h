/// The state of the Hash Generator screen: a text and its digests, updated at every change if the user wants
/// that. Large texts are hashed and counted in the background.
#pragma once

#include "Models/PaletteColor.h"
#include "Utilities/HashGenerator.h"
#include "Utilities/Text/Rope.h"
#include "Views/Components/AwaitedWork.h"
#include "Views/Components/LiveStats.h"
#include "Views/Services.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// The colour of an algorithm on this screen.
constexpr PaletteColor color(HashGenerator::HashAlgorithm algorithm) {
    using enum HashGenerator::HashAlgorithm;
    switch (algorithm) {
    case md5:
        return PaletteColor::red;
    case sha1:
        return PaletteColor::orange;
    case sha256:
        return PaletteColor::green;
    case sha512:
        return PaletteColor::blue;
    }
    return {};
}

/// An algorithm in the list on the screen.
struct HashResultRow {
    static constexpr std::string_view placeholder = "Enter text to generate hash";

    HashGenerator::HashAlgorithm algorithm{};
    std::string hash{}; ///< empty until it is computed
    bool isSelected = false;
    bool isComputing = false; ///< in the background; there is no digest meanwhile
    bool isBusy = false;      ///< the same, for so long that the row says so

    bool hasHash() const { return !hash.empty(); }

    /// The text in place of a digest; empty while one is being computed.
    std::string_view prompt() const { return isComputing ? std::string_view() : placeholder; }

    /// The length of the digest, such as "32 chars".
    std::string lengthText() const;

    /// Whether the length is shown, which is known before the digest is.
    bool showsLength() const { return hasHash() || isComputing; }

    bool operator==(const HashResultRow&) const = default;
};

struct HashGeneratorView {
    using HashAlgorithm = HashGenerator::HashAlgorithm;

    static constexpr std::string_view footer =
        "All hashing is done locally using Apple's CryptoKit framework. No data leaves your device.";

    Rope inputText{};
    /// The last digests; none while those of a large text are being computed.
    std::vector<HashGenerator::HashResult> hashes{};
    std::optional<HashAlgorithm> selectedAlgorithm{};
    bool liveUpdate = true;
    LiveStats inputStats{};
    AwaitedWork hashing{};

    /// Also computes the digests if `liveUpdate` is set; otherwise those of the previous input stay.
    void setInputText(Rope text, const Context<HashGeneratorView>& context);

    /// Computes nothing; the next change of the input does.
    void setLiveUpdate(bool isLive) { liveUpdate = isLive; }

    /// Computes the digests of the input.
    void generateAll(const Context<HashGeneratorView>& context);

    void cancel() { hashing.cancel(); }

    void select(HashAlgorithm algorithm) { selectedAlgorithm = algorithm; }

    HashResultRow row(HashAlgorithm algorithm) const;

    bool isBusy() const { return hashing.isBusy(); }

    bool hasStatistics() const { return !inputText.empty(); }

    /// The size of the input, such as "1 characters • 2 bytes"; "…" while characters are being counted.
    std::string statistics() const;

    bool operator==(const HashGeneratorView&) const = default;
};

} // namespace korvane
