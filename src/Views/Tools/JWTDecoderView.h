/// The state of the JWT Decoder screen: a JSON Web Token (RFC 7519) in its compact form, and its content once
/// Decode has been pressed. The signature is shown, not verified. Large inputs are decoded in the background.
#pragma once

#include "Utilities/Text/Rope.h"
#include "Views/Components/AwaitedWork.h"
#include "Views/Components/StatusBadge.h"
#include "Views/Services.h"

#include <optional>
#include <string>
#include <string_view>

namespace korvane {

struct JWTDecoderView {
    /// The date in a claim.
    struct NumericDate {
        double secondsSince1970 = 0; ///< infinite if the claim exceeds the range of double
        std::string number{};        ///< as the claim writes it, with every digit

        bool operator==(const NumericDate&) const = default;
    };

    struct ExpiryInfo {
        bool isExpired = false; ///< whether `expiryDate` was past when the token was decoded
        std::optional<NumericDate> expiryDate{};
        std::optional<NumericDate> issuedAt{}; ///< not shown anywhere yet

        bool operator==(const ExpiryInfo&) const = default;
    };

    Rope inputToken{};
    Rope header{};
    Rope payload{};
    Rope signature{};
    std::optional<std::string> errorMessage{};
    std::optional<ExpiryInfo> expiryInfo{};
    /// What to remove from a token that could not be decoded: the scheme or the start of the header field
    /// before it, or line breaks and spaces inside it. Empty if it has neither.
    std::string hint{};
    AwaitedWork decoding{};

    /// Also drops the results and cancels running work, which belong to the previous token.
    void setInputToken(Rope token);

    /// Shows header and payload of the token as JSON, and the signature as it is written. A failure keeps the
    /// parts before it. A blank token gives neither results nor a message.
    void decode(const Context<JWTDecoderView>& context);

    void cancel() { decoding.cancel(); }

    /// The message, or whether the token has expired; none if the token has no dates.
    std::optional<StatusBadge> status() const;

    bool isBusy() const { return decoding.isBusy(); }

    bool hasExpiryDate() const { return expiryInfo && expiryInfo->expiryDate; }

    /// "Expires: " and the date in the user's locale, or the claim's number if there is no such date.
    std::string expiryText() const;

    /// The text beside the status.
    std::string details() const { return errorMessage ? hint : expiryText(); }

    bool operator==(const JWTDecoderView&) const = default;

private:
    struct Result;

    static Result decoded(std::string_view text);
    static void decodeParts(Result& result, std::string_view headerPart, std::string_view payloadPart,
                            std::string_view signaturePart);
    void clearResults();
    void show(Result result, const Clock& clock);
};

} // namespace korvane
