/// Truncated, damaged and malicious files.

#include "Utilities/ImageConverter.h"

#include "Images/HEICStructure.h"
#include "support/DamagedImage.h"
#include "support/ImageFiles.h"
#include "support/Pictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <utility>

#include <sys/resource.h>

namespace korvane {
namespace {

using namespace ImageConverter;
using namespace support;

class DamagedImagesTest : public ::testing::TestWithParam<ImageFormat> {
protected:
    Image source = photograph({24, 16});
    std::string file{convert(source, GetParam(), 0.9).value().view()};
};

TEST_P(DamagedImagesTest, ATruncatedFileIsRejectedOrDecodesCompletely) {
    const auto whole = decode(file, {}).value();
    for (std::size_t size = 0; size < file.size(); ++size) {
        const auto image = decode(file.substr(0, size), {});
        EXPECT_TRUE(!image || haveSamePixels(*image, whole)) << size << " of " << file.size();
    }
}

TEST_P(DamagedImagesTest, RandomlyChangedFilesHoldEveryProperty) {
    std::mt19937 random(7 + static_cast<unsigned>(GetParam()));
    constexpr int changedFiles = 1000, maxChanges = 4;
    for (int i = 0; i < changedFiles; ++i) {
        auto changed = file;
        for (auto changes = 1 + random() % maxChanges; changes > 0; --changes)
            changed[random() % changed.size()] = static_cast<char>(random());
        EXPECT_EQ(brokenImageProperty(changed), "") << "change " << i;
    }
}

TEST_P(DamagedImagesTest, AFileWithAHeaderOfAnotherFormatHoldsEveryProperty) {
    for (const auto other : allCases<ImageFormat>) {
        auto changed = std::string(convert(source, other, 0.9).value().view().substr(0, 24));
        changed += file.substr(std::min<std::size_t>(24, file.size()));
        EXPECT_EQ(brokenImageProperty(changed), "");
    }
}

std::string testName(const ::testing::TestParamInfo<ImageFormat>& format) {
    return std::string(rawValue(format.param));
}

INSTANTIATE_TEST_SUITE_P(AllFormats, DamagedImagesTest, ::testing::ValuesIn(allCases<ImageFormat>), testName);

TEST(ImageLimits, AnOversizedPictureIsRejectedWithoutAllocatingIt) {
    using namespace std::string_literals;
    const auto png = [](std::uint32_t side) {
        const auto header = "IHDR" + bigEndian(side) + bigEndian(side) + "\x08\x02\0\0\0"s;
        return "\x89PNG\r\n\x1a\n" + chunk(header) + chunk("IDAT") + chunk("IEND");
    };
    ASSERT_EQ(getImageInfo(png(30))->width, 30) << "a smaller file of this kind can be read";
    const std::pair<std::string_view, std::string> files[] = {
        {"PNG", png(30'000)},
        {"BMP", "BM\0\0\0\0\0\0\0\0\x3e\0\0\0\x28\0\0\0\x30\x75\0\0\x30\x75\0\0\x01\0\x18\0"s +
                    std::string(100, '\0')},
        {"GIF",
         "GIF89a\x30\x75\x30\x75\x80\0\0\0\0\0\xff\xff\xff,\0\0\0\0\x30\x75\x30\x75\0\x02\x02\x44\x01\0;"s},
    };
    rusage before{};
    getrusage(RUSAGE_SELF, &before);
    for (const auto& [name, file] : files)
        EXPECT_EQ(decode(file, {}).error(), ConversionError::invalidImage) << name;
    rusage after{};
    getrusage(RUSAGE_SELF, &after);
    EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 200'000)
        << "kilobytes; each picture would take at least 900,000";
}

/// A box of a HEIC file.
std::string box(std::string_view type, const std::string& content) {
    return bigEndian(static_cast<std::uint32_t>(content.size() + 8)) + std::string(type) + content;
}

std::string reference(std::string_view type, char from, const std::string& to) {
    std::string content{'\0', from, '\0', static_cast<char>(to.size())};
    for (const char item : to)
        content += {'\0', item};
    return box(type, content);
}

std::string withReferences(const std::string& references) {
    const std::string version(4, '\0');
    return box("ftyp", "heic") + box("meta", version + box("hdlr", "x") + box("iref", version + references));
}

TEST(HEICStructure, RejectsRecursiveAndExcessiveReferences) {
    struct Row {
        std::string_view name;
        std::string references;
        bool isFinite;
    };

    std::string deep;
    std::string wide;
    for (char level = 1; level < 5; ++level)
        wide += reference("dimg", level, std::string(100, static_cast<char>(level + 1)));
    for (char level = 1; level < 20; ++level)
        deep += reference("dimg", level, {static_cast<char>(level + 1)});
    const Row rows[] = {
        {"no references", "", true},
        {"tiles", reference("dimg", 1, "\2\3\4\5"), true},
        {"transparency", reference("auxl", 2, "\1"), true},
        {"tiles with transparency", reference("dimg", 1, "\2\3") + reference("auxl", 4, "\1"), true},
        {"itself", reference("dimg", 1, "\1"), false},
        {"each other", reference("dimg", 1, "\2") + reference("dimg", 2, "\1"), false},
        {"the transparency of itself", reference("auxl", 1, "\1"), false},
        {"tiles whose transparency is the whole", reference("dimg", 1, "\2") + reference("auxl", 1, "\2"),
         false},
        {"a thumbnail is not decoded", reference("thmb", 1, "\1"), true},
        {"very deep", deep, false},
        {"a hundred times a hundred times a hundred", wide, false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(HEIC::hasFiniteReferences(withReferences(row.references)), row.isFinite) << row.name;
}

TEST(HEICStructure, AcceptsTruncatedAndArbitraryBytes) {
    const auto file = withReferences(reference("dimg", 1, "\2\3"));
    for (std::size_t size = 0; size < file.size(); ++size)
        EXPECT_TRUE(HEIC::hasFiniteReferences(file.substr(0, size))) << size;
    EXPECT_TRUE(HEIC::hasFiniteReferences(std::string(64, '\xff')));
    EXPECT_TRUE(HEIC::hasFiniteReferences(std::string(64, '\0')));
}

TEST(ImageFuzzSeeds, HoldEveryProperty) {
    int seeds = 0;
    for (const auto& entry : std::filesystem::directory_iterator(KORVANE_FUZZ_CORPUS "/ImageConverter")) {
        std::ifstream seed(entry.path(), std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(seed), {});
        EXPECT_EQ(brokenImageProperty(bytes), "") << entry.path();
        ++seeds;
    }
    EXPECT_GT(seeds, 0);
}

} // namespace
} // namespace korvane
