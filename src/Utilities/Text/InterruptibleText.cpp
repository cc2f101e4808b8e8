#include "Utilities/Text/InterruptibleText.h"

#include <algorithm>
#include <cstdint>

namespace korvane {

namespace {

const InterruptibleText::Source& sourceOf(const UText* handle) {
    return *static_cast<const InterruptibleText::Source*>(handle->context);
}

/// Provides the units from `start` to `limit`, with the read position at `index`.
void setChunk(UText* handle, std::int64_t start, std::int64_t limit, std::int64_t index) {
    handle->chunkContents = sourceOf(handle).text.getBuffer() + start;
    handle->chunkNativeStart = start;
    handle->chunkNativeLimit = limit;
    handle->chunkLength = static_cast<std::int32_t>(limit - start);
    handle->nativeIndexingLimit = handle->chunkLength;
    handle->chunkOffset = static_cast<std::int32_t>(index - start);
}

std::int64_t nativeLength(UText* handle) {
    return sourceOf(handle).text.length();
}

/// The boundary at or before `index` that splits no surrogate pair.
std::int64_t boundaryBefore(const icu::UnicodeString& text, std::int64_t index) {
    return index < text.length() ? text.getChar32Start(static_cast<std::int32_t>(index)) : text.length();
}

UBool access(UText* handle, std::int64_t index, UBool forward) {
    const auto& source = sourceOf(handle);
    const std::int64_t length = source.text.length();
    const auto pieceLength = source.options.pieceLength;
    if (!source.shouldContinue()) {
        if (source.options.stop == InterruptibleText::Stop::byException)
            throw InterruptibleText::Interrupted();
        setChunk(handle, length, length, length);
        return 0;
    }
    index = boundaryBefore(source.text, std::clamp(index, std::int64_t{0}, length));
    const auto startOf = [&](std::int64_t piece) {
        return boundaryBefore(source.text, std::min(piece * pieceLength, length));
    };
    // The piece contains the requested character, before or after the index. A surrogate pair on a border
    // belongs to the later piece.
    const auto wanted = forward ? index : std::max(index - 1, std::int64_t{0});
    auto piece = wanted / pieceLength;
    if (wanted >= startOf(piece + 1))
        ++piece;
    setChunk(handle, startOf(piece), startOf(piece + 1), index);
    return forward ? index < length : index > 0;
}

int32_t extract(UText* handle, std::int64_t start, std::int64_t limit, char16_t* destination,
                std::int32_t capacity, UErrorCode* status) {
    const auto& text = sourceOf(handle).text;
    const auto from =
        static_cast<std::int32_t>(std::clamp(start, std::int64_t{0}, std::int64_t{text.length()}));
    const auto to =
        static_cast<std::int32_t>(std::clamp(limit, std::int64_t{from}, std::int64_t{text.length()}));
    return text.tempSubStringBetween(from, to).extract(destination, capacity, *status);
}

UText* open(UText* handle, const InterruptibleText::Source& source, UErrorCode* status);

/// An independent reader of the same text; deep copies are unsupported, as ICU does not request them.
UText* clone(UText* destination, const UText* source, UBool deep, UErrorCode* status) {
    if (U_SUCCESS(*status) && deep != 0)
        *status = U_UNSUPPORTED_ERROR;
    return open(destination, sourceOf(source), status);
}

constexpr UTextFuncs functions = {
    .tableSize = sizeof(UTextFuncs),
    .reserved1 = 0,
    .reserved2 = 0,
    .reserved3 = 0,
    .clone = clone,
    .nativeLength = nativeLength,
    .access = access,
    .extract = extract,
    .replace = nullptr,
    .copy = nullptr,
    .mapOffsetToNative = nullptr, // native positions are UTF-16 units
    .mapNativeIndexToUTF16 = nullptr,
    .close = nullptr,
    .spare1 = nullptr,
    .spare2 = nullptr,
    .spare3 = nullptr,
};

UText* open(UText* handle, const InterruptibleText::Source& source, UErrorCode* status) {
    handle = utext_setup(handle, 0, status);
    if (U_FAILURE(*status))
        return handle;
    handle->pFuncs = &functions;
    handle->context = &source;
    setChunk(handle, 0, 0, 0);
    return handle;
}

} // namespace

InterruptibleText::InterruptibleText(const icu::UnicodeString& text,
                                     const std::function<bool()>& shouldContinue, Options options)
    : m_source{.text = text, .shouldContinue = shouldContinue, .options = options} {
    UErrorCode status = U_ZERO_ERROR;
    open(&m_handle, m_source, &status); // fails only where ICU would have to allocate
}

InterruptibleText::~InterruptibleText() {
    utext_close(&m_handle);
}

} // namespace korvane
