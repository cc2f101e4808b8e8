#include "Views/Tools/JWTDecoderView.h"

#include "Utilities/Base64.h"
#include "Utilities/DateText.h"
#include "Utilities/JSON/JSON.h"
#include "Utilities/Text/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <expected>
#include <ranges>
#include <utility>
#include <vector>

namespace korvane {

namespace {

using ExpiryInfo = JWTDecoderView::ExpiryInfo;
using NumericDate = JWTDecoderView::NumericDate;

/// The bytes that `part` encodes in the URL-safe alphabet of Base64 without padding (RFC 4648, section 5), or
/// none. The standard alphabet and padding are accepted, too.
std::optional<std::string> decodingBase64URL(std::string_view part) {
    constexpr std::size_t groupLength = 4;
    std::string standard(part);
    std::ranges::replace(standard, '-', '+');
    std::ranges::replace(standard, '_', '/');
    if (const auto rest = standard.size() % groupLength; rest > 0)
        standard.append(groupLength - rest, '=');
    return Base64::decode(standard);
}

/// The JSON in one part of a token. It is neither copied nor moved, because the document refers to the text.
class JSONPart {
public:
    explicit JSONPart(std::string_view part)
        : m_text(decodingBase64URL(part).value_or("")), // empty text is not JSON either
          m_document(JSON::parse(m_text)) {}

    JSONPart(const JSONPart&) = delete;
    JSONPart& operator=(const JSONPart&) = delete;

    /// The pretty-printed JSON, or none if the part cannot be decoded.
    std::optional<std::string> prettyPrinted() const {
        if (!m_document)
            return std::nullopt;
        auto text = JSON::write(m_document->root(), {.prettyPrinted = true});
        return text ? std::optional(std::move(*text)) : std::nullopt;
    }

    /// The date in the claim; none if the claim is missing or not a number.
    std::optional<NumericDate> date(std::string_view claim) const {
        const auto* value = m_document->root().member(claim);
        if (!value || value->type() != JSON::Type::number)
            return std::nullopt;
        return NumericDate{.secondsSince1970 = value->number(), .number = std::string(value->text())};
    }

private:
    std::string m_text;
    std::expected<JSON::Document, JSON::ParseError> m_document;
};

/// The length of the scheme before a token in an HTTP header field (RFC 6750, section 2.1) and its space,
/// with the field's name if that was copied, too; 0 without a scheme.
std::size_t schemeLength(std::string_view text) {
    constexpr std::string_view scheme = "bearer ";
    for (const std::string_view field : {"", "authorization: ", "authorization:"}) {
        const auto start = text.substr(0, field.size() + scheme.size());
        const auto isSame = [](char left, char right) { return left == right || (left | ' ') == right; };
        if (std::ranges::equal(start, std::string(field).append(scheme), isSame))
            return start.size();
    }
    return 0;
}

/// The dates in a payload that could be decoded; none if it has none.
std::optional<ExpiryInfo> expiryInfoOf(const JSONPart& payload) {
    auto expiryDate = payload.date("exp");
    auto issuedAt = payload.date("iat");
    if (!expiryDate && !issuedAt)
        return std::nullopt;
    return ExpiryInfo{.expiryDate = std::move(expiryDate), .issuedAt = std::move(issuedAt)};
}

std::string hintFor(std::string_view token) {
    if (const auto length = schemeLength(token); length > 0)
        return fmt::format("Remove \"{}\" from the start", token.substr(0, length));
    if (wordCount(token) > 1)
        return "Remove the line breaks and spaces inside the token";
    return {};
}

} // namespace

struct JWTDecoderView::Result {
    Rope header{};
    Rope payload{};
    Rope signature{};
    std::optional<std::string> errorMessage{};
    std::optional<ExpiryInfo> expiryInfo{}; ///< without `isExpired`
    std::string hint{};
};

void JWTDecoderView::setInputToken(Rope token) {
    if (token == inputToken)
        return;
    inputToken = std::move(token);
    decoding.cancel();
    clearResults();
}

void JWTDecoderView::clearResults() {
    header.clear();
    payload.clear();
    signature.clear();
    errorMessage.reset();
    expiryInfo.reset();
    hint.clear();
}

void JWTDecoderView::decode(const Context<JWTDecoderView>& context) {
    clearResults();
    runAwaited(
        context, *this, &JWTDecoderView::decoding, {.verb = "Decoding", .bytes = inputToken.size()},
        [text = inputToken](const std::stop_token&) { return decoded(FlatText(text)); },
        [&clock = context.services.clock](JWTDecoderView& view, Result result) {
            view.show(std::move(result), clock);
        });
}

JWTDecoderView::Result JWTDecoderView::decoded(std::string_view text) {
    const auto token = trimmingWhitespacesAndNewlines(text);
    if (token.empty())
        return {};
    constexpr std::size_t partCount = 3;
    std::vector<std::string_view> parts;
    for (const auto part : std::views::split(token, '.') | std::views::take(partCount + 1))
        parts.emplace_back(part);
    Result result;
    if (parts.size() == partCount)
        decodeParts(result, parts[0], parts[1], parts[2]);
    else
        result.errorMessage = "Invalid JWT format. Expected 3 parts separated by dots.";
    if (result.errorMessage)
        result.hint = hintFor(token);
    return result;
}

void JWTDecoderView::decodeParts(Result& result, std::string_view headerPart, std::string_view payloadPart,
                                 std::string_view signaturePart) {
    auto headerText = JSONPart(headerPart).prettyPrinted();
    if (!headerText) {
        result.errorMessage = "Could not decode header";
        return;
    }
    result.header = std::move(*headerText);
    const JSONPart payloadJSON(payloadPart);
    auto payloadText = payloadJSON.prettyPrinted();
    if (!payloadText) {
        result.errorMessage = "Could not decode payload";
        return;
    }
    result.payload = std::move(*payloadText);
    result.expiryInfo = expiryInfoOf(payloadJSON);
    result.signature = signaturePart;
}

void JWTDecoderView::show(Result result, const Clock& clock) {
    header = std::move(result.header);
    payload = std::move(result.payload);
    signature = std::move(result.signature);
    errorMessage = std::move(result.errorMessage);
    expiryInfo = std::move(result.expiryInfo);
    hint = std::move(result.hint);
    if (hasExpiryDate()) {
        const std::chrono::duration<double> now = clock.now().time_since_epoch();
        expiryInfo->isExpired = expiryInfo->expiryDate->secondsSince1970 < now.count();
    }
}

std::optional<StatusBadge> JWTDecoderView::status() const {
    if (errorMessage)
        return StatusBadge{Status::error, *errorMessage};
    if (!expiryInfo)
        return std::nullopt;
    return expiryInfo->isExpired ? StatusBadge{Status::error, "Token Expired"}
                                 : StatusBadge{Status::success, "Token Valid"};
}

std::string JWTDecoderView::expiryText() const {
    if (!hasExpiryDate())
        return {};
    const auto& date = *expiryInfo->expiryDate;
    return "Expires: " + DateText::mediumDateAndTime(date.secondsSince1970).value_or(date.number);
}

} // namespace korvane
