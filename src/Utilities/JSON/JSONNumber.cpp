#include "Utilities/JSON/JSONNumber.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string>

namespace korvane::JSON {

namespace {

/// A number as the digits d1 d2 d3 ... and an exponent: d1.d2d3... times ten to the power of
/// `shift` + `exponent`. The digits neither begin nor end with a zero; zero has none.
struct Decimal {
    bool isNegative = false;
    std::string digits{};
    std::int64_t shift = 0;
    bool exponentIsNegative = false;
    std::string_view exponent{}; ///< the digits of the written exponent, without leading zeros
};

Decimal decimalOf(std::string_view literal) {
    Decimal decimal;
    decimal.isNegative = literal.starts_with('-');
    literal.remove_prefix(decimal.isNegative ? 1 : 0);
    const auto mantissa = literal.substr(0, literal.find_first_of("eE"));
    const auto whole = mantissa.substr(0, mantissa.find('.'));
    decimal.digits = whole;
    if (whole.size() < mantissa.size())
        decimal.digits += mantissa.substr(whole.size() + 1);
    const auto leadingZeros = std::min(decimal.digits.find_first_not_of('0'), decimal.digits.size());
    decimal.digits.erase(0, leadingZeros);
    decimal.digits.resize(decimal.digits.find_last_not_of('0') + 1); // npos + 1 is 0: nothing but zeros
    decimal.shift = static_cast<std::int64_t>(whole.size()) - 1 - static_cast<std::int64_t>(leadingZeros);
    if (mantissa.size() < literal.size()) {
        auto exponent = literal.substr(mantissa.size() + 1);
        decimal.exponentIsNegative = exponent.starts_with('-');
        exponent.remove_prefix(exponent.starts_with('-') || exponent.starts_with('+') ? 1 : 0);
        exponent.remove_prefix(std::min(exponent.find_first_not_of('0'), exponent.size()));
        decimal.exponent = exponent;
    }
    return decimal;
}

/// `digits` plus `summand`, whose absolute value is smaller.
std::string sum(std::string_view digits, std::int64_t summand) {
    std::string result(digits);
    auto carry = summand;
    for (auto digit = result.rbegin(); digit != result.rend() && carry != 0; ++digit) {
        carry += *digit - '0';
        const auto remainder = (carry % 10 + 10) % 10;
        *digit = static_cast<char>('0' + remainder);
        carry = (carry - remainder) / 10;
    }
    if (carry != 0)
        return result.insert(0, std::to_string(carry));
    return result.substr(std::min(result.find_first_not_of('0'), result.size() - 1));
}

/// The plain form; the first digit has the place value ten to the power of `exponent`.
std::string plainForm(std::string digits, std::int64_t exponent) {
    if (exponent < 0)
        return digits.insert(0, static_cast<std::size_t>(-exponent - 1), '0').insert(0, "0.");
    const auto wholeDigits = static_cast<std::size_t>(exponent) + 1;
    if (digits.size() <= wholeDigits)
        return digits.append(wholeDigits - digits.size(), '0');
    return digits.insert(wholeDigits, 1, '.');
}

std::string exponentForm(std::string digits, bool exponentIsNegative, std::string_view exponent) {
    if (digits.size() > 1)
        digits.insert(1, 1, '.');
    return digits.append(exponentIsNegative ? "e-" : "e").append(exponent);
}

std::string absoluteForm(Decimal decimal) {
    if (decimal.digits.empty())
        return "0";
    // Shorter exponents plus the shift, which is limited by the length of the text, fit into 64 bits.
    constexpr std::size_t smallExponentDigits = 18;
    if (decimal.exponent.size() > smallExponentDigits) {
        const auto exponent =
            sum(decimal.exponent, decimal.exponentIsNegative ? -decimal.shift : decimal.shift);
        return exponentForm(std::move(decimal.digits), decimal.exponentIsNegative, exponent);
    }
    std::int64_t exponent = 0;
    std::from_chars(decimal.exponent.data(), decimal.exponent.data() + decimal.exponent.size(), exponent);
    exponent = decimal.shift + (decimal.exponentIsNegative ? -exponent : exponent);
    const auto digitCount = static_cast<std::int64_t>(decimal.digits.size());
    const auto plainDigits = exponent < 0 ? digitCount - exponent : std::max(digitCount, exponent + 1);
    if (plainDigits <= static_cast<std::int64_t>(maxPlainDigits))
        return plainForm(std::move(decimal.digits), exponent);
    return exponentForm(std::move(decimal.digits), false, std::to_string(exponent));
}

} // namespace

std::string canonicalNumber(std::string_view literal) {
    auto decimal = decimalOf(literal);
    std::string form = decimal.isNegative ? "-" : "";
    return form.append(absoluteForm(std::move(decimal)));
}

} // namespace korvane::JSON
