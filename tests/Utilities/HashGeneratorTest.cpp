#include "Utilities/HashGenerator.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <openssl/evp.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <stop_token>

namespace korvane {
namespace {

using HashGenerator::HashAlgorithm;
using HashGenerator::HashResult;
using enum HashGenerator::HashAlgorithm;

TEST(HashGenerator, MatchesThePublishedVectors) {
    struct Row {
        std::string_view name;
        HashAlgorithm algorithm;
        std::string text;
        std::string_view hash;
    };

    const std::string digits = "1234567890";
    const std::string letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
    const std::string twoBlocks = "abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq";
    const std::string twoLongBlocks = "abcdefghbcdefghicdefghijdefghijkefghijklfghijklmghijklmn"
                                      "hijklmnoijklmnopjklmnopqklmnopqrlmnopqrsmnopqrstnopqrstu";
    const std::string million(1'000'000, 'a');
    const Row rows[] = {
        // RFC 1321, A.5
        {"the empty text", md5, "", "d41d8cd98f00b204e9800998ecf8427e"},
        {"a", md5, "a", "0cc175b9c0f1b6a831c399e269772661"},
        {"abc", md5, "abc", "900150983cd24fb0d6963f7d28e17f72"},
        {"message digest", md5, "message digest", "f96b697d7cb7938d525a2f31aaf161d0"},
        {"alphabet", md5, "abcdefghijklmnopqrstuvwxyz", "c3fcd3d76192e4007dfb496cca67e13b"},
        {"letters and digits", md5, letters, "d174ab98d277d9f5a5611c2c9f419d9f"},
        {"eight times the digits", md5, digits + digits + digits + digits + digits + digits + digits + digits,
         "57edf4a22be3c955ac49da2e2107b67a"},
        // The examples for FIPS 180-4
        {"the empty text", sha1, "", "da39a3ee5e6b4b0d3255bfef95601890afd80709"},
        {"one block", sha1, "abc", "a9993e364706816aba3e25717850c26c9cd0d89d"},
        {"two blocks", sha1, twoBlocks, "84983e441c3bd26ebaae4aa1f95129e5e54670f1"},
        {"a million letters", sha1, million, "34aa973cd4c4daa4f61eeb2bdbad27316534016f"},
        {"the empty text", sha256, "", "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"},
        {"one block", sha256, "abc", "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"},
        {"two blocks", sha256, twoBlocks, "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1"},
        {"a million letters", sha256, million,
         "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0"},
        {"the empty text", sha512, "",
         "cf83e1357eefb8bdf1542850d66d8007d620e4050b5715dc83f4a921d36ce9ce"
         "47d0d13c5d85f2b0ff8318d2877eec2f63b931bd47417a81a538327af927da3e"},
        {"one block", sha512, "abc",
         "ddaf35a193617abacc417349ae20413112e6fa4e89a97ea20a9eeee64b55d39a"
         "2192992a274fc1a836ba3c23a3feebbd454d4423643ce80e2a9ac94fa54ca49f"},
        {"two blocks", sha512, twoLongBlocks,
         "8e959b75dae313da8cf4f72814fc143f8f7779c6eb9f7fa17299aeadb6889018"
         "501d289e4900f7e4331b99dec4b5433ac7d329eeb6dd26545e96e55b874be909"},
        {"a million letters", sha512, million,
         "e718483d0ce769644e2e42c7bc15b4638e1f98b13b2044285632a803afa973eb"
         "de0ff244877ea60a4cb0432ce577c31beb009c5c2c49aa2e4eadb217ad8cc09b"},
    };
    for (const auto& row : rows) {
        const auto label = std::string(rawValue(row.algorithm)) + " of " + std::string(row.name);
        EXPECT_EQ(HashGenerator::hash(row.text, row.algorithm), row.hash) << label;
        const auto all = HashGenerator::allHashes(row.text);
        EXPECT_EQ(all.at(static_cast<std::size_t>(row.algorithm)),
                  (HashResult{row.algorithm, std::string(row.hash)}))
            << label;
    }
}

TEST(HashGenerator, AlgorithmsHaveTheirNamesAndLengths) {
    struct Row {
        std::string_view name;
        HashAlgorithm algorithm;
        std::size_t length;
    };

    constexpr Row rows[] = {
        {"MD5", md5, 32}, {"SHA1", sha1, 40}, {"SHA256", sha256, 64}, {"SHA512", sha512, 128}};
    ASSERT_EQ(allCases<HashAlgorithm>.size(), std::size(rows));
    const auto all = HashGenerator::allHashes("x");
    ASSERT_EQ(all.size(), std::size(rows));
    for (std::size_t i = 0; i < all.size(); ++i) {
        EXPECT_EQ(all[i].algorithm, rows[i].algorithm);
        EXPECT_EQ(rawValue(rows[i].algorithm), rows[i].name);
        EXPECT_EQ(fromRawValue<HashAlgorithm>(rows[i].name), rows[i].algorithm);
        EXPECT_EQ(all[i].hash.size(), rows[i].length);
        EXPECT_EQ(factsOf(all[i].algorithm).digitCount, rows[i].length);
    }
}

TEST(HashGenerator, HashesTheExactBytes) {
    EXPECT_NE(HashGenerator::hash("text\n", sha256), HashGenerator::hash("text", sha256));
    EXPECT_NE(HashGenerator::hash("a\r\nb", sha256), HashGenerator::hash("a\nb", sha256));
    EXPECT_NE(HashGenerator::hash("\u00e9", sha256), HashGenerator::hash("e\u0301", sha256));
    EXPECT_NE(HashGenerator::hash(std::string_view("\0", 1), sha256), HashGenerator::hash("", sha256));
    EXPECT_EQ(HashGenerator::hash("\u00e9", md5), "66ddcd97cfdeabb2f6fb8a999b4bc76f");
}

/// The digest by OpenSSL's one-shot function.
std::string reference(const std::string& text, const char* name) {
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
    std::size_t length = 0;
    RC_ASSERT(EVP_Q_digest(nullptr, name, nullptr, text.data(), text.size(), digest.data(), &length) == 1);
    std::string hexadecimal;
    for (std::size_t i = 0; i < length; ++i) {
        std::array<char, 3> digits{};
        std::snprintf(digits.data(), digits.size(), "%02x", unsigned{digest[i]});
        hexadecimal += digits.data();
    }
    return hexadecimal;
}

RC_GTEST_PROP(HashGenerator, AgreesWithTheOneShotDigestAroundPieceBoundaries, (std::uint8_t fill)) {
    constexpr int piece = 64 << 10;
    const auto size =
        *rc::gen::oneOf(rc::gen::inRange(0, 300), rc::gen::inRange(piece - 2, piece + 3),
                        rc::gen::inRange(2 * piece - 2, 2 * piece + 3), rc::gen::inRange(0, 5 * piece));
    std::string text(static_cast<std::size_t>(size), static_cast<char>(fill));
    for (std::size_t i = 0; i < text.size(); i += 7)
        text[i] = static_cast<char>(i * i >> 3);
    constexpr const char* names[] = {"MD5", "SHA1", "SHA256", "SHA512"};
    const auto all = HashGenerator::allHashes(text);
    RC_ASSERT(all.size() == std::size(names));
    for (std::size_t i = 0; i < all.size(); ++i) {
        RC_ASSERT(all[i].hash == reference(text, names[i]));
        RC_ASSERT(HashGenerator::hash(text, all[i].algorithm) == all[i].hash);
    }
}

TEST(HashGenerator, ReturnsNothingOnceStopped) {
    const auto source = std::make_unique<std::stop_source>();
    EXPECT_EQ(HashGenerator::allHashes("text", source->get_token()).size(), 4U);
    source->request_stop();
    EXPECT_TRUE(HashGenerator::allHashes("text", source->get_token()).empty());
}

} // namespace
} // namespace korvane
