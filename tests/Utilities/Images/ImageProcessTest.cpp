/// The image process: that its operations are those of the engine, and that nothing it does harms the
/// program.

#include "Utilities/Images/ImageProcess.h"

#include "Utilities/Images/SanitizedBuild.h"
#include "support/FakeServices.h"
#include "support/Pictures.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <future>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <linux/landlock.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace korvane {
namespace {

using support::haveSamePixels;

const Image& picture() {
    static const auto picture = support::distinctPicture({40, 30});
    return picture;
}

SharedBytes fileThat(std::string_view misbehaves) {
    return SharedBytes::copyOf("misbehave:" + std::string(misbehaves));
}

ImageProcessOptions impatient(std::chrono::milliseconds limit) {
    auto options = misbehavingProgram();
    options.operationLimit = limit;
    return options;
}

/// Long enough for a small picture on any machine.
constexpr std::chrono::seconds shortLimit(2);

void expectToWork(ImageProcess& process) {
    const auto file = process.convert(picture(), ImageFormat::png, 1);
    ASSERT_TRUE(file) << errorDescription(file.error());
    const auto again = process.decode(*file);
    ASSERT_TRUE(again) << errorDescription(again.error());
    EXPECT_TRUE(haveSamePixels(*again, picture()));
}

std::size_t openDescriptors() {
    const auto entries = std::filesystem::directory_iterator("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

TEST(ImageProcess, PerformsEveryOperation) {
    ImageProcess process;
    const auto codecs = process.codecs();
    ASSERT_TRUE(codecs);
    for (const auto format : allCases<ImageFormat>) {
        EXPECT_TRUE(codecs->canDecode(format) && codecs->canEncode(format)) << rawValue(format);
        const auto file = process.convert(picture(), format, 0.9);
        ASSERT_TRUE(file) << rawValue(format);
        EXPECT_EQ(process.formatOf(*file), format);
        const auto image = process.decode(*file);
        ASSERT_TRUE(image) << rawValue(format);
        EXPECT_EQ(image->width, 40);
        const auto info = process.getImageInfo(*file);
        ASSERT_TRUE(info) << rawValue(format);
        EXPECT_EQ(*info, (ImageInfo{.width = 40,
                                    .height = 30,
                                    .format = std::string(description(format)),
                                    .fileSize = static_cast<std::int64_t>(file->size()),
                                    .colorSpace = "RGB",
                                    .hasAlpha = format == ImageFormat::gif}))
            << rawValue(format);
    }
    const auto turned = process.rotate(picture(), Rotation::degrees90);
    ASSERT_TRUE(turned);
    EXPECT_EQ(support::pixelAt(*turned, 0, 39), support::pixelAt(picture(), 0, 0));
    const auto flipped = process.flip(picture(), FlipDirection::vertical);
    ASSERT_TRUE(flipped);
    EXPECT_EQ(support::pixelAt(*flipped, 3, 29), support::pixelAt(picture(), 3, 0));
    EXPECT_EQ(process.resize(picture(), {20, 99}, true)->height, 15);
    EXPECT_EQ(process.resize(picture(), {20, 9}, false)->height, 9);
    const auto preview = process.preview(picture(), 20);
    ASSERT_TRUE(preview);
    EXPECT_EQ(preview->width, 20);
    EXPECT_EQ(preview->channels, 4);
    EXPECT_EQ(process.rotate(picture(), Rotation::none), picture());
    EXPECT_EQ(process.flip(picture(), FlipDirection::none), picture());
}

TEST(ImageProcess, ReportsTheErrorsOfTheEngine) {
    ImageProcess process;
    const auto text = SharedBytes::copyOf("no picture at all");
    EXPECT_EQ(process.formatOf(text).error(), ConversionError::unsupportedFormat);
    EXPECT_EQ(process.decode(text).error(), ConversionError::unsupportedFormat);
    EXPECT_EQ(process.getImageInfo(text).error(), ConversionError::invalidImage);
    const auto png = process.convert(picture(), ImageFormat::png, 1).value();
    const auto half = SharedBytes::copyOf(png.view().substr(0, png.size() / 2));
    EXPECT_EQ(process.decode(half).error(), ConversionError::invalidImage);
    EXPECT_EQ(process.decode({}).error(), ConversionError::unsupportedFormat);
    EXPECT_EQ(process.getImageInfo({}).error(), ConversionError::invalidImage);
    EXPECT_EQ(process.convert({}, ImageFormat::png, 1).error(), ConversionError::invalidImage);
    EXPECT_EQ(process.preview({}, 9).error(), ConversionError::invalidImage);
    EXPECT_EQ(process.resize(picture(), {2'000'000'000, 2'000'000'000}, false).error(),
              ConversionError::resizeFailed);
    EXPECT_EQ(process.lastSignal(), std::nullopt);
}

TEST(ImageProcess, KeepsProfilesResolutionsAndDepth) {
    ImageProcess process;
    auto deep = support::distinctPicture({8, 6}, 4, 2);
    deep.horizontalDPI = 300;
    deep.verticalDPI = 150;
    const auto again = process.decode(process.convert(deep, ImageFormat::tiff, 1).value());
    ASSERT_TRUE(again);
    EXPECT_TRUE(haveSamePixels(*again, deep));
    EXPECT_NEAR(again->horizontalDPI, 300, 0.01);
    EXPECT_NEAR(again->verticalDPI, 150, 0.01);
}

TEST(ImageProcess, WhateverItDoesIsOneErrorAndTheNextPictureWorks) {
    struct Row {
        std::string_view defect;
        ConversionError error;
        std::optional<int> signal{}; ///< none: it is not checked
        bool needsIsolation = false;
    };

    using enum ConversionError;
    const Row rows[] = {
        {"crash", processEnded, SIGSEGV},
        {"spin", timedOut, SIGKILL},
        {"silence", timedOut, SIGKILL},
        {"allocate", outOfMemory, {}, true},
        {"allocate-shared", outOfMemory, {}, true},
        {"fork", processEnded, SIGSYS, true},
        {"execute", processEnded, SIGSYS, true},
        {"open", processEnded, SIGSYS, true},
        {"socket", processEnded, SIGSYS, true},
        {"connect", processEnded, SIGSYS, true},
        {"trace", processEnded, SIGSYS, true},
        {"signal", processEnded, SIGSYS, true},
        {"make-executable", processEnded, SIGSYS, true},
        {"write-beyond", processEnded, {}},
        {"wrong-size", invalidAnswer, SIGKILL},
        {"wrong-number", invalidAnswer, SIGKILL},
        {"truncated", invalidAnswer, SIGKILL},
        {"unsealed", invalidAnswer, SIGKILL},
    };
    ImageProcess process(impatient(shortLimit));
    for (const auto& row : rows) {
        if (row.needsIsolation && isSanitizedBuild)
            continue; // TheProcessIsIsolated is skipped with the reason
        SCOPED_TRACE(row.defect);
        const auto result = process.decode(fileThat(row.defect));
        ASSERT_FALSE(result);
        EXPECT_EQ(result.error(), row.error) << errorDescription(result.error());
        if (row.signal && !isSanitizedBuild) {
            EXPECT_EQ(process.lastSignal(), row.signal);
        }
        expectToWork(process);
    }
}

TEST(ImageProcess, UnaskedMessagesAreNotTakenForAnswers) {
    ImageProcess process(impatient(shortLimit));
    // The first of them is a right answer.
    EXPECT_TRUE(process.decode(fileThat("flood")));
    expectToWork(process);
}

TEST(ImageProcess, StartingHasALimit) {
    auto options = misbehavingProgram({"silent"});
    options.startLimit = std::chrono::milliseconds(100);
    ImageProcess process(options);
    EXPECT_EQ(process.codecs().error(), ConversionError::timedOut);
    EXPECT_EQ(process.lastSignal(), SIGKILL);
}

TEST(ImageProcess, AStopRequestEndsItAtOnce) {
    ImageProcess process(misbehavingProgram());
    for (const auto* defect : {"spin", "silence"}) {
        std::stop_source stop;
        auto result = std::async(std::launch::async,
                                 [&] { return process.decode(fileThat(defect), stop.get_token()); });
        stop.request_stop();
        EXPECT_EQ(result.get().error(), ConversionError::cancelled);
        expectToWork(process);
    }
    std::stop_source stopped;
    stopped.request_stop();
    EXPECT_EQ(process.decode(fileThat("spin"), stopped.get_token()).error(), ConversionError::cancelled);
}

TEST(ImageProcess, OperationsOfSeveralThreadsTakeTurns) {
    ImageProcess process;
    const auto file = process.convert(picture(), ImageFormat::png, 1).value();
    std::vector<std::jthread> threads;
    std::atomic<int> right = 0;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < 20; ++round) {
                const auto image = process.decode(file);
                if (image && haveSamePixels(*image, picture()))
                    ++right;
            }
        });
    }
    threads.clear();
    EXPECT_EQ(right, 80);
}

TEST(ImageProcess, WaitingForATurnCanBeCancelled) {
    ImageProcess process(misbehavingProgram());
    ASSERT_TRUE(process.codecs());
    std::stop_source first;
    std::stop_source second;
    auto busy = std::async(std::launch::async,
                           [&] { return process.decode(fileThat("silence"), first.get_token()); });
    auto waiting = std::async(std::launch::async,
                              [&] { return process.decode(fileThat("silence"), second.get_token()); });
    second.request_stop();
    EXPECT_EQ(waiting.get().error(), ConversionError::cancelled);
    first.request_stop();
    EXPECT_EQ(busy.get().error(), ConversionError::cancelled);
}

TEST(ImageProcess, LeavesNoDescriptorsOpen) {
    const auto before = openDescriptors();
    {
        ImageProcess process(impatient(shortLimit));
        for (const auto* defect : {"crash", "wrong-size", "unsealed", "flood"}) {
            process.decode(fileThat(defect));
            expectToWork(process);
        }
    }
    EXPECT_EQ(openDescriptors(), before);
}

TEST(ImageProcess, TheProcessIsIsolated) {
    if (isSanitizedBuild)
        GTEST_SKIP() << "the runtime of the sanitizers needs what the isolation takes away";
    ImageProcess process(misbehavingProgram());
    EXPECT_EQ(process.decode(fileThat("open")).error(), ConversionError::processEnded);
    EXPECT_EQ(process.lastSignal(), SIGSYS);
}

TEST(ImageProcess, LandlockAloneKeepsAllThreadsFromFiles) {
    if (syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION) < 1)
        GTEST_SKIP() << "the kernel has no Landlock";
    ImageProcess process(misbehavingProgram({"only-landlock"}));
    EXPECT_EQ(process.decode(fileThat("open")).error(), ConversionError::unsupportedFormat)
        << "the file could be opened if there is an answer";
    EXPECT_EQ(process.lastSignal(), std::nullopt);
}

} // namespace
} // namespace korvane
