#include "Desktop/Tools/Screens.h"

#include "Desktop/Binding/Strings.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Text/TextArea.h"
#include "Desktop/Tools/Hash/ElidedField.h"
#include "Views/Tools/HashGeneratorView.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QScrollArea>
#include <QScrollBar>
#include <QtTest/QTest>

#include <memory>

namespace korvane {
namespace {

struct HashGeneratorScreenTest : testing::Test {
    FakeServices fakes{};
    std::unique_ptr<QWidget> widget{hashGeneratorScreen(fakes.services)};
    ScreenDriver screen{*widget};

    ElidedField& field(std::string_view algorithm) const {
        for (auto* child : widget->findChildren<QLineEdit*>()) {
            auto* digest = dynamic_cast<ElidedField*>(child);
            if (digest && digest->accessibleName() == qString(algorithm))
                return *digest;
        }
        throw std::runtime_error("no digest is called " + std::string(algorithm));
    }

    std::string digest(std::string_view algorithm) const { return utf8String(field(algorithm).text()); }
};

TEST_F(HashGeneratorScreenTest, HashesTypedText) {
    EXPECT_EQ(screen.placeholder("Input Text"), "Enter text to hash...");
    for (const auto algorithm : {"MD5", "SHA1", "SHA256", "SHA512"}) {
        EXPECT_EQ(digest(algorithm), "");
        EXPECT_EQ(field(algorithm).placeholderText(), "Enter text to generate hash");
    }
    EXPECT_FALSE(screen.shows("32 chars"));
    screen.type("Input Text", "abc");
    EXPECT_EQ(digest("MD5"), "900150983cd24fb0d6963f7d28e17f72");
    EXPECT_EQ(digest("SHA1"), "a9993e364706816aba3e25717850c26c9cd0d89d");
    EXPECT_TRUE(digest("SHA512").ends_with("2a9ac94fa54ca49f"));
    for (const auto label : {"32 chars", "40 chars", "64 chars", "128 chars", "3 characters • 3 bytes"})
        EXPECT_TRUE(screen.shows(label)) << label;
    screen.press("Copy SHA256");
    EXPECT_EQ(fakes.clipboard.content, "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

TEST_F(HashGeneratorScreenTest, GeneratesOnDemand) {
    screen.press("Live Update");
    screen.type("Input Text", "abc");
    EXPECT_EQ(digest("MD5"), "");
    screen.press("Generate All");
    EXPECT_EQ(digest("MD5"), "900150983cd24fb0d6963f7d28e17f72");
    screen.press("Clear");
    EXPECT_EQ(digest("MD5"), "900150983cd24fb0d6963f7d28e17f72");
    EXPECT_FALSE(screen.shows("3 characters • 3 bytes"));
}

TEST_F(HashGeneratorScreenTest, ClearingShowsTheDigestsOfTheEmptyText) {
    screen.type("Input Text", "a");
    screen.press("Clear");
    EXPECT_EQ(digest("MD5"), "d41d8cd98f00b204e9800998ecf8427e");
}

TEST_F(HashGeneratorScreenTest, MarksThePressedRow) {
    screen.press("SHA1");
    screen.press("SHA1");
    EXPECT_TRUE(screen.button("SHA1").isChecked());
    screen.button("SHA512").setFocus();
    QTest::keyClick(&screen.button("SHA512"), Qt::Key_Space);
    EXPECT_FALSE(screen.button("SHA1").isChecked());
    EXPECT_TRUE(screen.button("SHA512").isChecked());
    QTest::mouseClick(&field("MD5"), Qt::LeftButton);
    settle();
    EXPECT_TRUE(screen.button("MD5").isChecked());
    screen.press("Copy SHA256");
    EXPECT_TRUE(screen.button("MD5").isChecked()) << "copying does not select";
}

TEST_F(HashGeneratorScreenTest, AnElidedDigestCanBeSelectedAndCopied) {
    screen.type("Input Text", "abc");
    auto& field = this->field("SHA512");
    const auto shortened = field.grab().toImage();
    widget->activateWindow();
    QTest::mouseDClick(&field, Qt::LeftButton);
    settle();
    EXPECT_EQ(field.selectedText().toStdString(), digest("SHA512"));
    field.copy();
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), digest("SHA512"));
    EXPECT_NE(field.grab().toImage(), shortened);
    QTest::keyClick(&field, Qt::Key_X);
    EXPECT_EQ(digest("SHA512").size(), 128U) << "the field is read-only";
    screen.button("SHA512").setFocus();
    EXPECT_FALSE(field.hasSelectedText());
    EXPECT_EQ(field.grab().toImage(), shortened);
}

TEST_F(HashGeneratorScreenTest, ALargeTextIsHashedInTheBackground) {
    screen.type("Input Text", "abc");
    fakes.clipboard.content = std::string(maxImmediateSize + 1, 'x');
    screen.press("Paste");
    EXPECT_EQ(digest("MD5"), "");
    EXPECT_EQ(field("MD5").placeholderText(), "") << "there is a text";
    EXPECT_TRUE(screen.shows("32 chars"));
    EXPECT_TRUE(screen.shows("128 chars"));
    EXPECT_FALSE(screen.button("Copy MD5").isEnabled());
    fakes.background.runAll();
    EXPECT_TRUE(screen.button("Copy MD5").isEnabled());
    EXPECT_EQ(digest("MD5"),
              HashGenerator::hash(fakes.clipboard.content->string(), HashGenerator::HashAlgorithm::md5));
    EXPECT_TRUE(screen.shows("262145 characters • 262145 bytes"));
}

TEST_F(HashGeneratorScreenTest, TheFooterHasItsExactText) {
    EXPECT_EQ(
        screen.text(
            "All hashing is done locally using Apple's CryptoKit framework. No data leaves your device."),
        "All hashing is done locally using Apple's CryptoKit framework. No data leaves your device.");
}

TEST_F(HashGeneratorScreenTest, NeedsNoScrollingInTheMinimumWindow) {
    screen.type("Input Text", "abc");
    widget->resize(Theme::px(620), Theme::px(564));
    settle();
    EXPECT_EQ(widget->findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0);
    EXPECT_GE(screen.editor("Input Text").parentWidget()->height(), Theme::px(80));
}

} // namespace
} // namespace korvane
