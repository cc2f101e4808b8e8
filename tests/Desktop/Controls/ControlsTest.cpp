#include "Desktop/Binding/Screen.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Controls/Slider.h"
#include "Desktop/Controls/Stepper.h"
#include "Desktop/Controls/TextField.h"
#include "Desktop/Controls/Toggle.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Text/SelectableText.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QSpinBox>
#include <QWheelEvent>
#include <QtTest/QTest>

#include <map>
#include <memory>
#include <ranges>

namespace korvane {
namespace {

struct Form {
    bool isOn = false;
    double share = 0.25;
    double quality = 0.9;
    double channel = 200;
    double length = 16;
    int count = 5;
    std::string text{};
    int submissions = 0;
    std::optional<std::string> error{};

    void setOn(bool on) { isOn = on; }

    void setShare(double newShare) { share = newShare; }

    void setQuality(double newQuality) { quality = newQuality; }

    void setChannel(double newChannel) { channel = newChannel; }

    void setLength(double newLength) { length = newLength; }

    void setCount(int newCount) { count = newCount; }

    std::string countLabel() const { return "Count: " + std::to_string(count); }

    void setText(std::string newText) { text = std::move(newText); }

    void submit() { ++submissions; }

    bool operator==(const Form&) const = default;
};

QWidget* controlsBody(Store& store) {
    return stack(
        Qt::Vertical, {},
        {
            toggle(store, "Switch", &Form::isOn, &Form::setOn),
            toggle(store, "Box", &Form::isOn, &Form::setOn, {.look = ToggleLook::checkbox}),
            slider(store, "Share", &Form::share, &Form::setShare, {}),
            slider(store, "Quality", &Form::quality, &Form::setQuality, {.minimum = 0.1}),
            slider(store, "Channel", &Form::channel, &Form::setChannel, {.maximum = 255, .stepsOfOne = 1}),
            slider(store, "Length", &Form::length, &Form::setLength,
                   {.minimum = 8, .maximum = 128, .stepsOfOne = 1, .isContinuous = false}),
            stepper(store, "Count", &Form::count, &Form::setCount, {.minimum = 1, .maximum = 100}),
            labelledStepper(store, "Hidden Count", &Form::count, &Form::setCount, {&Form::countLabel, 100},
                            {.minimum = 1, .maximum = 100, .width = 57}),
            textField(store, "Text", &Form::text, &Form::setText, {.submit = &Form::submit}),
            selectableText(store, "Shown", &Form::text),
            errorMessage(store, &Form::error),
            stretch(),
        });
}

struct ControlsTest : testing::Test {
    FakeServices fakes{};
    std::unique_ptr<Screen> frame{std::make_unique<Screen>(fakes.services, Form(), controlsBody)};
    ScreenDriver screen{*frame};

    const Form& state() const { return frame->store().state<Form>(); }

    void change(const std::function<void(Form&)>& operation) { frame->store().perform(operation); }
};

TEST_F(ControlsTest, ATogglePressedAnywhereOrBySpaceChangesItsValue) {
    QTest::mouseClick(&screen.button("Switch"), Qt::LeftButton, {}, {3, 3});
    EXPECT_TRUE(state().isOn);
    EXPECT_TRUE(screen.button("Box").isChecked()) << "it reads the same value";
    QTest::keyClick(&screen.button("Box"), Qt::Key_Space);
    EXPECT_FALSE(state().isOn);
    EXPECT_FALSE(screen.button("Switch").isChecked());
}

TEST_F(ControlsTest, ASliderWithAStepMovesByWholeSteps) {
    EXPECT_EQ(screen.slider("Length").value(), 8);
    QTest::keyClick(&screen.slider("Length"), Qt::Key_Right);
    EXPECT_EQ(state().length, 17);
    QTest::keyClick(&screen.slider("Length"), Qt::Key_End);
    EXPECT_EQ(state().length, 128);
    QTest::keyClick(&screen.slider("Length"), Qt::Key_Home);
    EXPECT_EQ(state().length, 8);
}

TEST_F(ControlsTest, TheKeysOfASliderReachEveryStepExactly) {
    auto& slider = screen.slider("Quality");
    QTest::keyClick(&slider, Qt::Key_Home);
    EXPECT_EQ(state().quality, 0.1);
    for (int percent = 10; percent < 100; ++percent) {
        EXPECT_EQ(static_cast<int>(state().quality * 100), percent) << "truncated as on a screen";
        EXPECT_NEAR(state().quality, percent / 100.0, 1e-15);
        QTest::keyClick(&slider, Qt::Key_Right);
    }
    EXPECT_EQ(state().quality, 1);
    for (int percent = 100; percent > 10; --percent) {
        EXPECT_EQ(static_cast<int>(state().quality * 100), percent);
        QTest::keyClick(&slider, Qt::Key_Left);
    }
    EXPECT_EQ(state().quality, 0.1);
}

TEST_F(ControlsTest, TheKeysOfASliderMoveToTheNextWholeStep) {
    auto& slider = screen.slider("Channel");

    struct Step {
        Qt::Key key;
        double from;
        double to;
    };

    const Step steps[] = {
        {Qt::Key_Right, 200, 201},    {Qt::Key_Left, 201, 200},    {Qt::Key_Right, 100.4, 101},
        {Qt::Key_Left, 100.4, 99},    {Qt::Key_Up, 0, 1},          {Qt::Key_Down, 1, 0},
        {Qt::Key_PageUp, 100.4, 110}, {Qt::Key_PageDown, 3.5, 0},  {Qt::Key_Right, 255, 255},
        {Qt::Key_Left, 0, 0},         {Qt::Key_Right, 254.9, 255}, {Qt::Key_Home, 12.5, 0},
        {Qt::Key_End, 12.5, 255},     {Qt::Key_Left, 1000, 254},   {Qt::Key_PageUp, 250, 255},
    };
    for (const auto& step : steps) {
        change([&](Form& form) { form.channel = step.from; });
        QTest::keyClick(&slider, step.key);
        EXPECT_EQ(state().channel, step.to) << step.key << " from " << step.from;
    }
}

TEST_F(ControlsTest, TheWheelChangesOnlyTheFocusedControl) {
    const auto turn = [](QWidget& control, int angle) {
        const auto place = QPointF(control.rect().center());
        QWheelEvent event(place, control.mapToGlobal(place), {}, {0, angle}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&control, &event);
        return event.isAccepted();
    };
    constexpr auto notch = static_cast<int>(QWheelEvent::DefaultDeltasPerStep);
    for (auto* control : std::initializer_list<QWidget*>{&screen.slider("Length"), &screen.slider("Channel"),
                                                         &screen.stepper("Count")}) {
        screen.field("Text").setFocus();
        const auto before = state();
        EXPECT_FALSE(turn(*control, notch)) << "left for the enclosing scroll area";
        EXPECT_EQ(state(), before);
        EXPECT_FALSE(control->hasFocus());
        control->setFocus();
        EXPECT_TRUE(turn(*control, notch));
        EXPECT_NE(state(), before);
        EXPECT_TRUE(turn(*control, -notch));
        EXPECT_EQ(state(), before) << control->accessibleName().toStdString();
    }
    screen.slider("Channel").setFocus();
    const auto before = state().channel;
    for (int part = 0; part < 4; ++part)
        turn(screen.slider("Channel"), notch / 4);
    EXPECT_EQ(state().channel, before + QApplication::wheelScrollLines());
}

TEST_F(ControlsTest, ASliderMovesToThePressedPosition) {
    auto& slider = screen.slider("Share");
    QTest::mouseClick(&slider, Qt::LeftButton, {}, {slider.width() / 2, slider.height() / 2});
    EXPECT_NEAR(state().share, 0.5, 0.01);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, {slider.width() - 1, slider.height() / 2});
    EXPECT_EQ(state().share, 1);
}

TEST_F(ControlsTest, ASliderKeepsValuesThatItCannotShow) {
    for (const double share : {0.123456789, -3.0, 7.0}) {
        change([share](Form& form) { form.share = share; });
        EXPECT_EQ(state().share, share);
    }
    EXPECT_EQ(screen.slider("Share").value(), screen.slider("Share").maximum());
}

TEST_F(ControlsTest, AStepperHasAButtonAtEachEnd) {
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

TEST_F(ControlsTest, TypingAfterAClickIntoANumberReplacesIt) {
    auto& number = *screen.stepper("Count").findChild<QLineEdit*>();
    change([](Form& form) { form.count = 42; });
    QTest::mouseClick(&number, Qt::LeftButton, {}, {number.width() - 2, number.height() / 2});
    ASSERT_TRUE(screen.stepper("Count").hasFocus());
    QTest::keyClicks(&screen.stepper("Count"), "7");
    EXPECT_EQ(state().count, 7);
    QTest::keyClicks(&screen.stepper("Count"), "5");
    EXPECT_EQ(state().count, 75);
    QTest::mouseClick(&number, Qt::LeftButton, {}, {number.width() - 2, number.height() / 2});
    QTest::keyClick(&screen.stepper("Count"), Qt::Key_Backspace);
    EXPECT_EQ(state().count, 7) << "a second click places the caret";
}

TEST_F(ControlsTest, AClickOnTheLabelOfAStepperSelectsItsNumber) {
    auto& stepper = screen.stepper("Hidden Count");
    auto* label = stepper.parentWidget()->findChild<QLabel*>();
    ASSERT_TRUE(screen.shows("Count: 5"));
    for (const auto* number : {"7", "30"}) {
        screen.field("Text").setFocus();
        QTest::mouseClick(label, Qt::LeftButton, {}, {3, 3});
        ASSERT_TRUE(stepper.hasFocus());
        QTest::keyClicks(&stepper, number);
        EXPECT_TRUE(screen.shows(std::string("Count: ") + number));
    }
    QTest::mouseClick(&stepper, Qt::LeftButton, {}, {3, stepper.height() / 2});
    EXPECT_EQ(state().count, 29);
}

TEST_F(ControlsTest, AFieldReportsTypedTextAndCanUndoASetText) {
    screen.enter("Text", "año");
    EXPECT_EQ(state().text, "año");
    QTest::keyClick(&screen.field("Text"), Qt::Key_Return);
    EXPECT_EQ(state().submissions, 1);
    change([](Form& form) { form.text = "two\nlines"; });
    EXPECT_EQ(screen.field("Text").text(), "two\nlines");
    screen.field("Text").undo();
    EXPECT_EQ(state().text, "año");
}

TEST_F(ControlsTest, ASelectableTextHasTheHeightOfItsRows) {
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

TEST_F(ControlsTest, AValueBreaksAtAnyCharacterAndASentenceBetweenWords) {
    const auto& text = screen.editor("Shown");
    const auto rowsOf = [&](const std::string& shown) {
        change([&](Form& form) { form.text = shown; });
        settle();
        std::map<int, int> charactersByTop;
        for (std::size_t offset = 0; offset < shown.size(); ++offset)
            ++charactersByTop[text.caretRect(offset).top()];
        const auto lengths = std::views::values(charactersByTop);
        return std::vector<int>(lengths.begin(), lengths.end());
    };
    const auto even = rowsOf(std::string(400, 'm'));
    ASSERT_GT(even.size(), 2U);
    std::string mixed(400, 'm');
    for (auto place = static_cast<std::size_t>(even.front() / 2); place < mixed.size(); place += 20)
        mixed[place] = '-'; // where a sentence may break
    EXPECT_GE(rowsOf(mixed).front(), even.front());
    EXPECT_LE(rowsOf(mixed).size(), even.size());
    const auto almost = even.front() - 10; // fits into a row
    const auto words =
        rowsOf(std::string(static_cast<std::size_t>(almost), 'm') + " " + std::string(20, 'm'));
    EXPECT_EQ(words, (std::vector{almost + 1, 20})) << "the second word stays whole";
}

TEST_F(ControlsTest, AnErrorIsVisibleOnlyWhenSet) {
    EXPECT_FALSE(screen.hasEditor("Error"));
    change([](Form& form) { form.error = "Went wrong"; });
    EXPECT_EQ(screen.text("Error"), "Went wrong");
}

TEST_F(ControlsTest, AButtonNameIncludesItsSubject) {
    Store store(fakes.services, Form());
    const std::unique_ptr<QWidget> both(
        row({copyButton(store, "a", {.look = {.subject = "HEX"}}),
             quietButton(store, "Clear", "trash", &Form::submit, {.subject = "History"})}));
    const ScreenDriver driver(*both);
    EXPECT_EQ(driver.button("Copy HEX").text(), "Copy");
    driver.press("Copy HEX");
    EXPECT_EQ(driver.button("Copied! HEX").text(), "Copied!");
    EXPECT_EQ(driver.button("Clear History").text(), "Clear");
}

} // namespace
} // namespace korvane
