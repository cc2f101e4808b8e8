#include "Utilities/Base64.h"

#include <modp_b64.h>

namespace korvane::Base64 {

std::string encode(std::string_view bytes) {
    std::string text(modp_b64_encode_len(bytes.size()), '\0');
    text.resize(modp_b64_encode(text.data(), bytes.data(), bytes.size()));
    return text;
}

std::optional<std::string> decode(std::string_view text) {
    std::string bytes(modp_b64_decode_len(text.size()), '\0');
    const auto length = modp_b64_decode(bytes.data(), text.data(), text.size());
    if (length == static_cast<std::size_t>(-1))
        return std::nullopt;
    bytes.resize(length);
    return bytes;
}

} // namespace korvane::Base64
