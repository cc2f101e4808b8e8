/// What the user sees in the window when the image process misbehaves: one message, with the picture and the
/// options as they were, and the next picture works.

#include "Utilities/Images/SanitizedBuild.h"
#include "support/Pictures.h"
#include "support/WindowTest.h"

#include <QComboBox>

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

namespace korvane {
namespace {

struct Misbehaviour {
    std::string_view defect;
    std::string_view message;
    bool needsIsolation = false;
};

constexpr std::string_view stopped = "The image process stopped unexpectedly";
constexpr std::string_view tookTooLong = "It took too long and was stopped";
constexpr std::string_view invalid = "The image process gave an invalid answer";
constexpr std::string_view tooLarge = "The image needs too much memory";

class MisbehavingImagesTest : public WindowTest, public ::testing::WithParamInterface<Misbehaviour> {
protected:
    MisbehavingImagesTest() {
        auto options = misbehavingProgram();
        options.operationLimit = std::chrono::seconds(2); // long enough for a small picture on any machine
        fakes.images.replacement = std::make_shared<ImageProcess>(options);
        for (const int side : {24, 36}) {
            const auto picture = support::distinctPicture({side, side});
            fakes.files.contents["/" + std::to_string(side)] =
                FakeImages::shared()->convert(picture, ImageFormat::png, 1).value().view();
        }
        fakes.files.contents["/bad"] = "misbehave:" + std::string(GetParam().defect);
        open(Tool::imageConverter);
        fakes.background.runAll();
    }

    /// Opens a file by the buttons of the window. While a picture is shown there is no button for it: as by a
    /// drop.
    void load(const std::string& path) {
        screen.press("Choose File");
        fakes.panels.choose(path);
        fakes.background.runAll();
        settle();
    }
};

TEST_P(MisbehavingImagesTest, CostsOneMessage) {
    if (GetParam().needsIsolation && isSanitizedBuild)
        GTEST_SKIP() << "the image process is not isolated in a build with sanitizers";
    screen.press("Choose File");
    const auto chooseAgain = fakes.panels.choose;
    load("/24");
    ASSERT_TRUE(screen.shows("24 × 24"));
    screen.picker("Format").setCurrentIndex(1);
    screen.picker("Rotation").setCurrentIndex(2);

    chooseAgain("/bad");
    fakes.background.runAll();
    settle();
    EXPECT_EQ(screen.text("Error"), "Failed to load image: " + std::string(GetParam().message));
    EXPECT_TRUE(screen.shows("24 × 24")) << "the picture stays";
    EXPECT_EQ(screen.picker("Format").currentText(), "JPEG");
    EXPECT_EQ(screen.picker("Rotation").currentText(), "180°");
    screen.press("Apply Transforms");
    fakes.background.runAll();
    settle();
    EXPECT_FALSE(screen.hasEditor("Error"));
    EXPECT_FALSE(screen.shows("Apply transformations to see preview")) << "the picture can still be used";

    chooseAgain("/36");
    fakes.background.runAll();
    settle();
    EXPECT_TRUE(screen.shows("36 × 36"));
    EXPECT_FALSE(screen.hasEditor("Error"));
}

INSTANTIATE_TEST_SUITE_P(
    All, MisbehavingImagesTest,
    ::testing::Values(Misbehaviour{"crash", stopped}, Misbehaviour{"spin", tookTooLong},
                      Misbehaviour{"allocate", tooLarge, true}, Misbehaviour{"fork", stopped, true},
                      Misbehaviour{"open", stopped, true}, Misbehaviour{"socket", stopped, true},
                      Misbehaviour{"write-beyond", stopped}, Misbehaviour{"wrong-size", invalid},
                      Misbehaviour{"truncated", invalid}, Misbehaviour{"flood", invalid},
                      Misbehaviour{"silence", tookTooLong}),
    [](const auto& row) {
        std::string name(row.param.defect);
        std::erase(name, '-');
        return name;
    });

} // namespace
} // namespace korvane
