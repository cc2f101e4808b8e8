#include "Utilities/Base64.h"

#include "Utilities/LargePages.h"

#include <modp_b64.h>

namespace korvane::Base64 {

std::string encode(std::string_view bytes) {
    std::string text;
    text.resize_and_overwrite(modp_b64_encode_len(bytes.size()), [&](char* buffer, std::size_t size) {
        preferLargePages(buffer, size);
        return modp_b64_encode(buffer, bytes.data(), bytes.size());
    });
    return text;
}

std::optional<std::string> decode(std::string_view text) {
    constexpr auto failed = static_cast<std::size_t>(-1);
    std::size_t length = 0;
    std::string bytes;
    bytes.resize_and_overwrite(modp_b64_decode_len(text.size()), [&](char* buffer, std::size_t size) {
        preferLargePages(buffer, size);
        length = modp_b64_decode(buffer, text.data(), text.size());
        return length == failed ? 0 : length;
    });
    if (length == failed)
        return std::nullopt;
    return bytes;
}

} // namespace korvane::Base64
