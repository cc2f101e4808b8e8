#include "Utilities/Text/CharacterName.h"

#include "Utilities/Text/UTF8.h"

#include <fmt/format.h>
#include <unicode/uchar.h>

namespace korvane {

std::string characterName(std::string_view text, std::size_t offset) {
    const auto [character, end] = decodeAt(text, offset);
    if (character == U'"')
        return "double quote";
    if (u_isgraph(static_cast<UChar32>(character)))
        return fmt::format("\"{}\"", text.substr(offset, end - offset));
    return fmt::format("U+{:04X}", static_cast<std::uint32_t>(character));
}

} // namespace korvane
