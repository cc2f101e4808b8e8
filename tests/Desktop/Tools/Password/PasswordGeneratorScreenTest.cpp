#include "Desktop/Lists/RowList.h"
#include "Desktop/Text/TextArea.h"
#include "Desktop/Tools/Screens.h"
#include "Utilities/PasswordGenerator.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QSpinBox>
#include <QtTest/QTest>

#include <memory>
#include <string>

namespace korvane {
namespace {

struct PasswordGeneratorScreenTest : testing::Test {
    FakeServices fakes{};
    std::unique_ptr<QWidget> widget{passwordGeneratorScreen(fakes.services)};
    ScreenDriver screen{*widget};

    std::string current() const { return screen.text("Password"); }

    void switchAllClassesOff() const {
        for (const auto* option :
             {"Uppercase (A-Z)", "Lowercase (a-z)", "Numbers (0-9)", "Symbols (!@#$%...)"})
            screen.press(option);
    }
};

TEST_F(PasswordGeneratorScreenTest, ANewScreenShowsAllItsTexts) {
    for (const auto* label :
         {"Password Generator", "Generate secure passwords", "16 characters", "CHARACTER OPTIONS",
          "PASSWORD LENGTH", "8", "128", "16", "characters", "BULK GENERATE", "Count:", "History (1)"})
        EXPECT_TRUE(screen.shows(label)) << label;
    for (const auto* button :
         {"Generate", "Copy Password", "Uppercase (A-Z)", "Lowercase (a-z)", "Numbers (0-9)",
          "Symbols (!@#$%...)", "Exclude ambiguous (0, O, l, 1, I)", "Generate 5", "Copy All", "Clear"})
        EXPECT_TRUE(screen.hasButton(button)) << button;
    for (const auto* option : {"Uppercase (A-Z)", "Lowercase (a-z)", "Numbers (0-9)", "Symbols (!@#$%...)"})
        EXPECT_TRUE(screen.button(option).isChecked()) << option;
    EXPECT_FALSE(screen.button("Exclude ambiguous (0, O, l, 1, I)").isChecked());
    ASSERT_EQ(current().size(), 16U);
    const auto entropy =
        static_cast<int>(PasswordGenerator::calculateEntropy(current())); // a class may be missing
    EXPECT_TRUE(screen.shows("Entropy: " + std::to_string(entropy) + " bits"));
    EXPECT_TRUE(screen.shows(label(PasswordGenerator::calculateStrength(current()))));
    EXPECT_EQ(screen.placeholder("Password"), "Click Generate to create a password");
}

TEST_F(PasswordGeneratorScreenTest, GeneratesAndCopiesAsASecret) {
    const auto first = current();
    screen.press("Generate");
    EXPECT_NE(current(), first);
    EXPECT_TRUE(screen.shows("History (2)"));
    screen.press("Copy Password");
    EXPECT_EQ(fakes.clipboard.content, current());
    EXPECT_TRUE(fakes.clipboard.isSecret);
    fakes.clipboard.isSecret = false;
    screen.press("Copy " + first);
    EXPECT_EQ(fakes.clipboard.content, first);
    EXPECT_TRUE(fakes.clipboard.isSecret);
    fakes.clipboard.isSecret = false;
    screen.press("Copy All");
    EXPECT_EQ(fakes.clipboard.content, current() + "\n" + first);
    EXPECT_TRUE(fakes.clipboard.isSecret);
}

TEST_F(PasswordGeneratorScreenTest, CopiesASelectionAsASecret) {
    auto& text = screen.editor("Password");
    text.selectAll();
    text.copy();
    const auto* content = QApplication::clipboard()->mimeData();
    ASSERT_NE(content, nullptr);
    EXPECT_EQ(content->text().toStdString(), current());
    EXPECT_EQ(content->data("x-kde-passwordManagerHint"), "secret");
}

TEST_F(PasswordGeneratorScreenTest, WithoutAClassThePlaceholderIsVisible) {
    switchAllClassesOff();
    EXPECT_EQ(current().size(), 16U) << "only the button generates";
    screen.press("Generate");
    EXPECT_EQ(current(), "");
    EXPECT_FALSE(screen.shows("Entropy: 0 bits"));
    EXPECT_FALSE(screen.shows("Very Weak"));
    EXPECT_TRUE(screen.shows("History (2)"));
    screen.press("Clear"); // also removes the button of the empty entry
    EXPECT_FALSE(screen.hasButton("Copy Password"));
    screen.press("Numbers (0-9)");
    screen.press("Generate");
    EXPECT_TRUE(screen.hasButton("Copy Password"));
    EXPECT_TRUE(screen.shows("Entropy: 53 bits")); // 16 log2 10
}

TEST_F(PasswordGeneratorScreenTest, ChoosesTheLengthWithASlider) {
    auto* slider = widget->findChild<QWidget*>();
    for (auto* candidate : widget->findChildren<QWidget*>()) {
        if (candidate->accessibleName() == "Password Length" && candidate->focusPolicy() != Qt::NoFocus)
            slider = candidate;
    }
    QTest::keyClick(slider, Qt::Key_Right);
    EXPECT_TRUE(screen.shows("17"));
    QTest::keyClick(slider, Qt::Key_Home);
    screen.press("Generate");
    EXPECT_EQ(current().size(), 8U);
    QTest::keyClick(slider, Qt::Key_End);
    screen.press("Generate");
    EXPECT_EQ(current().size(), 128U);
    EXPECT_TRUE(screen.shows("128 characters"));
}

TEST_F(PasswordGeneratorScreenTest, GeneratesTheChosenCount) {
    auto* count = widget->findChild<QSpinBox*>();
    ASSERT_NE(count, nullptr);
    EXPECT_EQ(count->minimum(), 1);
    EXPECT_EQ(count->maximum(), 50);
    count->setValue(50);
    screen.press("Generate 50");
    EXPECT_TRUE(screen.shows("History (50)"));
    auto& list = screen.list("History");
    const auto last = list.accessibleRow(49).name.toStdString();
    EXPECT_TRUE(last.starts_with(current() + ", ")) << "the first one drawn is at the bottom";
}

TEST_F(PasswordGeneratorScreenTest, ClearsItsHistory) {
    screen.press("Clear");
    EXPECT_TRUE(screen.shows("History (0)"));
    EXPECT_TRUE(screen.shows("Generated passwords will appear here"));
    EXPECT_EQ(current().size(), 16U);
}

} // namespace
} // namespace korvane
