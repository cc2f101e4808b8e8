#include "Desktop/Kit/Screen.h"

#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLineEdit>
#include <QSlider>
#include <QSpinBox>
#include <QtTest/QTest>

#include <memory>

namespace korvane {
namespace {

struct Form {
    bool isOn = false;
    double share = 0.25;
    double length = 16;
    int count = 5;
    std::string text{};
    int submissions = 0;
    std::optional<std::string> error{};

    void setOn(bool on) { isOn = on; }

    void setShare(double newShare) { share = newShare; }

    void setLength(double newLength) { length = newLength; }

    void setCount(int newCount) { count = newCount; }

    void setText(std::string newText) { text = std::move(newText); }

    void submit() { ++submissions; }

    bool operator==(const Form&) const = default;
};

QWidget* controlsBody(View<Form>& view) {
    return stack(
        Qt::Vertical, {},
        {
            view.toggle("Switch", &Form::isOn, &Form::setOn),
            view.toggle("Box", &Form::isOn, &Form::setOn, {.look = ToggleLook::checkbox}),
            view.slider("Share", &Form::share, &Form::setShare, {}),
            view.slider("Length", &Form::length, &Form::setLength, {.minimum = 8, .maximum = 128, .step = 1}),
            view.stepper("Count", &Form::count, &Form::setCount, {.minimum = 1, .maximum = 100}),
            view.textField("Text", &Form::text, &Form::setText, {.submit = view.performing(&Form::submit)}),
            view.selectableText("Shown", &Form::text),
            view.errorMessage(&Form::error),
            stretch(),
        });
}

struct ControlsTest : testing::Test {
    FakeServices fakes{};
    std::unique_ptr<ScreenFrame<Form>> frame{
        std::make_unique<ScreenFrame<Form>>(fakes.services, controlsBody)};
    ScreenDriver screen{*frame};

    const Form& state() const { return frame->view().state(); }

    void change(const std::function<void(Form&)>& operation) { frame->view().perform(operation); }
};

TEST_F(ControlsTest, ATogglePressedAnywhereOrBySpaceChangesItsValue) {
    QTest::mouseClick(&screen.button("Switch"), Qt::LeftButton, {}, {3, 3});
    EXPECT_TRUE(state().isOn);
    EXPECT_TRUE(screen.button("Box").isChecked()) << "it reads the same value";
    QTest::keyClick(&screen.button("Box"), Qt::Key_Space);
    EXPECT_FALSE(state().isOn);
    EXPECT_FALSE(screen.button("Switch").isChecked());
}

TEST_F(ControlsTest, ASliderWithAStepGoesFromValueToValue) {
    EXPECT_EQ(screen.slider("Length").value(), 8);
    QTest::keyClick(&screen.slider("Length"), Qt::Key_Right);
    EXPECT_EQ(state().length, 17);
    QTest::keyClick(&screen.slider("Length"), Qt::Key_End);
    EXPECT_EQ(state().length, 128);
    QTest::keyClick(&screen.slider("Length"), Qt::Key_Home);
    EXPECT_EQ(state().length, 8);
}

TEST_F(ControlsTest, ASliderGoesWhereItIsPressed) {
    auto& slider = screen.slider("Share");
    QTest::mouseClick(&slider, Qt::LeftButton, {}, {slider.width() / 2, slider.height() / 2});
    EXPECT_NEAR(state().share, 0.5, 0.01);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, {slider.width() - 1, slider.height() / 2});
    EXPECT_EQ(state().share, 1);
}

TEST_F(ControlsTest, ASliderLeavesAValueAsItIsThatItCannotShow) {
    for (const double share : {0.123456789, -3.0, 7.0}) {
        change([share](Form& form) { form.share = share; });
        EXPECT_EQ(state().share, share);
    }
    EXPECT_EQ(screen.slider("Share").value(), screen.slider("Share").maximum());
}

TEST_F(ControlsTest, AStepperHasAButtonAtEitherEnd) {
    auto& stepper = screen.stepper("Count");
    QTest::mouseClick(&stepper, Qt::LeftButton, {}, {3, stepper.height() / 2});
    EXPECT_EQ(state().count, 4);
    QTest::mouseClick(&stepper, Qt::LeftButton, {}, {stepper.width() - 3, stepper.height() / 2});
    EXPECT_EQ(state().count, 5);
    QTest::keyClick(&stepper, Qt::Key_Up);
    EXPECT_EQ(state().count, 6);
}

TEST_F(ControlsTest, AStepperStaysWithinItsBounds) {
    auto& stepper = screen.stepper("Count");
    stepper.selectAll();
    QTest::keyClicks(&stepper, "250");
    QTest::keyClick(&stepper, Qt::Key_Return);
    EXPECT_LE(state().count, 100);
    change([](Form& form) { form.count = 1; });
    QTest::keyClick(&stepper, Qt::Key_Down);
    EXPECT_EQ(state().count, 1);
}

TEST_F(ControlsTest, AFieldGivesBackWhatIsTypedAndCanUndoWhatWasSet) {
    screen.enter("Text", "año");
    EXPECT_EQ(state().text, "año");
    QTest::keyClick(&screen.field("Text"), Qt::Key_Return);
    EXPECT_EQ(state().submissions, 1);
    change([](Form& form) { form.text = "two\nlines"; });
    EXPECT_EQ(screen.field("Text").text(), "two\nlines");
    screen.field("Text").undo();
    EXPECT_EQ(state().text, "año");
}

TEST_F(ControlsTest, ASelectableTextIsAsHighAsItsTextNeeds) {
    auto& text = screen.editor("Shown");
    change([](Form& form) { form.text = "short"; });
    settle();
    const auto row = text.height();
    change([](Form& form) { form.text = std::string(400, 'm'); });
    settle();
    EXPECT_GE(text.height(), 3 * row);
    EXPECT_EQ(text.height(), text.rowCount(text.width()) * row);
    EXPECT_EQ(screen.text("Shown"), std::string(400, 'm'));
}

TEST_F(ControlsTest, AnErrorIsShownWhileThereIsOne) {
    EXPECT_FALSE(screen.hasEditor("Error"));
    change([](Form& form) { form.error = "Went wrong"; });
    EXPECT_EQ(screen.text("Error"), "Went wrong");
}

TEST_F(ControlsTest, AButtonIsNamedAfterWhatItActsOn) {
    View<Form> view(fakes.services);
    const std::unique_ptr<QWidget> both(
        row({view.copyButton("a", {.look = {.subject = "HEX"}}),
             view.quietButton("Clear", "trash", &Form::submit, true, {.subject = "History"})}));
    const ScreenDriver driver(*both);
    EXPECT_EQ(driver.button("Copy HEX").text(), "Copy");
    driver.press("Copy HEX");
    EXPECT_EQ(driver.button("Copied! HEX").text(), "Copied!");
    EXPECT_FALSE(driver.button("Clear History").isEnabled());
}

} // namespace
} // namespace korvane
