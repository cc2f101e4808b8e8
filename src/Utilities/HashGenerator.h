/// Message digests of text: MD5 (RFC 1321), SHA-1, SHA-256 and SHA-512 (FIPS 180-4), without salt or key.
/// MD5 and SHA-1 serve to compare existing digests; they are not secure.
#pragma once

#include "Models/Enumeration.h"

#include <array>
#include <cstddef>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

namespace HashGenerator {

enum class HashAlgorithm { md5, sha1, sha256, sha512 };

/// A digest and its algorithm.
struct HashResult {
    HashAlgorithm algorithm{};
    std::string hash{}; ///< lower-case hexadecimal

    bool operator==(const HashResult&) const = default;
};

/// The digest of the bytes of `text` in lower-case hexadecimal, two digits a byte. Empty if the system's
/// OpenSSL lacks the algorithm.
std::string hash(std::string_view text, HashAlgorithm algorithm);

/// The digests of `text` by all algorithms in their order; empty if a stop is requested, which takes effect
/// within a millisecond. Takes about 4 nanoseconds a byte on a processor with SHA instructions.
std::vector<HashResult> allHashes(std::string_view text, const std::stop_token& stop = {});

} // namespace HashGenerator

struct HashAlgorithmFacts {
    HashGenerator::HashAlgorithm value;
    std::string_view rawValue;
    std::size_t digitCount; ///< of a digest in hexadecimal
};

template <>
inline constexpr auto facts<HashGenerator::HashAlgorithm> = std::to_array<HashAlgorithmFacts>({
    {HashGenerator::HashAlgorithm::md5, "MD5", 32},
    {HashGenerator::HashAlgorithm::sha1, "SHA1", 40},
    {HashGenerator::HashAlgorithm::sha256, "SHA256", 64},
    {HashGenerator::HashAlgorithm::sha512, "SHA512", 128},
});

} // namespace korvane
