/// The document of the JSON benchmarks: records as services return them. Reproducible.
#pragma once

#include <cstddef>
#include <string>

namespace korvane::bench {

/// A JSON text of about `size` bytes, one record a line: unsorted names, nested objects and arrays, integers
/// and fractions, booleans and nulls, URLs, escapes, and text in several scripts.
std::string mixedDocument(std::size_t size);

} // namespace korvane::bench
