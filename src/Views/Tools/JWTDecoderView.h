/// The state of the JWT Decoder screen: a JSON Web Token (RFC 7519) in its compact form, and what is in it
/// once Decode has been pressed. Nothing is verified: the signature is shown, never checked.
#pragma once

#include "Views/Components/StatusBadge.h"
#include "Views/Services.h"

#include <optional>
#include <string>
#include <string_view>

namespace korvane {

struct JWTDecoderView {
    /// A moment as a claim gives it.
    struct NumericDate {
        double secondsSince1970 = 0; ///< may be infinite, where the claim is beyond all doubles
        std::string number{};        ///< every digit of it

        bool operator==(const NumericDate&) const = default;
    };

    struct ExpiryInfo {
        bool isExpired = false; ///< whether `expiryDate` was past when the token was decoded
        std::optional<NumericDate> expiryDate{};
        std::optional<NumericDate> issuedAt{}; ///< not shown

        bool operator==(const ExpiryInfo&) const = default;
    };

    std::string inputToken{};
    std::string header{};
    std::string payload{};
    std::string signature{};
    std::optional<std::string> errorMessage{};
    std::optional<ExpiryInfo> expiryInfo{};

    /// What any change of the token entails, wherever it came from: the results do not belong to it any
    /// longer.
    void setInputToken(std::string token);

    /// Shows header and payload of the token as JSON, and the signature as it is written. What comes before
    /// the first failure stays shown. A blank token gives neither results nor a message.
    void decode(const Context<JWTDecoderView>& context);

    /// The message, or whether the token has expired; none if the token says nothing of dates.
    std::optional<StatusBadge> status() const;

    bool hasExpiryDate() const { return expiryInfo && expiryInfo->expiryDate; }

    /// "Expires: " and the date in the user's customs, or the claim's number if there is no such date.
    std::string expiryText() const;

    /// What to take out of a token that could not be decoded, if it has one of the usual things too many: the
    /// name of the scheme or of the whole header field before it, or line breaks and spaces in it.
    std::string hint() const;

    /// What stands beside the status: the one or the other.
    std::string details() const { return errorMessage ? hint() : expiryText(); }

    bool operator==(const JWTDecoderView&) const = default;

private:
    void clearResults();
    void decodeParts(std::string_view headerPart, std::string_view payloadPart,
                     std::string_view signaturePart, const Clock& clock);
};

} // namespace korvane
