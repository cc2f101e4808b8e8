#include "Utilities/HashGenerator.h"

#include <fmt/format.h>
#include <openssl/evp.h>
#include <openssl/provider.h>

#include <algorithm>
#include <cstddef>
#include <memory>

namespace korvane::HashGenerator {

namespace {

/// All algorithms process a piece of this size before the next one: it fits into the processor's cache, so
/// the text is read from memory once.
constexpr std::size_t pieceSize = std::size_t{64} << 10;

/// OpenSSL's implementations of all algorithms, kept until the process ends. They come from a separate
/// library context that ignores the system's configuration, which may forbid old algorithms. An algorithm
/// that OpenSSL was built without is a null pointer.
class Implementations {
public:
    static const EVP_MD* of(HashAlgorithm algorithm) {
        static const Implementations all;
        return all.m_digests[static_cast<std::size_t>(algorithm)];
    }

private:
    Implementations() {
        auto* const context = OSSL_LIB_CTX_new();
        if (!context || !OSSL_PROVIDER_load(context, "default"))
            return;
        for (const auto algorithm : allCases<HashAlgorithm>)
            m_digests[static_cast<std::size_t>(algorithm)] =
                EVP_MD_fetch(context, rawValue(algorithm).data(), nullptr);
    }

    std::array<EVP_MD*, facts<HashAlgorithm>.size()> m_digests{};
};

/// One computation of a digest.
class Digest {
public:
    explicit Digest(HashAlgorithm algorithm) {
        const auto* const implementation = Implementations::of(algorithm);
        m_isValid =
            implementation && m_context && EVP_DigestInit_ex2(m_context.get(), implementation, nullptr) == 1;
    }

    void update(std::string_view bytes) {
        m_isValid = m_isValid && EVP_DigestUpdate(m_context.get(), bytes.data(), bytes.size()) == 1;
    }

    /// Empty if any step failed.
    std::string finish() {
        std::array<unsigned char, EVP_MAX_MD_SIZE> bytes{};
        unsigned length = 0;
        if (!m_isValid || EVP_DigestFinal_ex(m_context.get(), bytes.data(), &length) != 1)
            return {};
        return fmt::format("{:02x}", fmt::join(bytes.begin(), bytes.begin() + length, ""));
    }

private:
    struct Deleter {
        void operator()(EVP_MD_CTX* context) const { EVP_MD_CTX_free(context); }
    };

    std::unique_ptr<EVP_MD_CTX, Deleter> m_context{EVP_MD_CTX_new()};
    bool m_isValid = false;
};

} // namespace

std::string hash(std::string_view text, HashAlgorithm algorithm) {
    Digest digest(algorithm);
    digest.update(text);
    return digest.finish();
}

std::vector<HashResult> allHashes(std::string_view text, const std::stop_token& stop) {
    std::vector<Digest> digests;
    for (const auto algorithm : allCases<HashAlgorithm>)
        digests.emplace_back(algorithm);
    while (!text.empty()) {
        if (stop.stop_requested())
            return {};
        const auto piece = text.substr(0, pieceSize);
        for (auto& digest : digests)
            digest.update(piece);
        text.remove_prefix(piece.size());
    }
    std::vector<HashResult> results;
    for (const auto algorithm : allCases<HashAlgorithm>)
        results.push_back({algorithm, digests[static_cast<std::size_t>(algorithm)].finish()});
    return results;
}

} // namespace korvane::HashGenerator
