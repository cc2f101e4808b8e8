/// The document that the JSON figures are measured on: records as services return them, the same on every
/// machine and in every run.
#pragma once

#include <cstddef>
#include <string>

namespace korvane::bench {

/// A JSON text of about `size` bytes, one record a line: names in no order, nested objects and arrays, whole
/// and fractional numbers, booleans and nulls, URLs, escapes, and text in several scripts.
std::string mixedDocument(std::size_t size);

} // namespace korvane::bench
