#include "Views/Tools/TextTransformerView.h"

#include "support/FakeServices.h"

#include <gtest/gtest.h>

#include <string>

namespace korvane {
namespace {

TextTransformerView withInput(std::string text) {
    TextTransformerView view;
    perform(view, &TextTransformerView::setInputText, std::move(text));
    return view;
}

TEST(TextTransformerView, StartsWithUppercaseAndSortAZ) {
    const TextTransformerView view;
    EXPECT_EQ(view.inputText, "");
    EXPECT_EQ(view.outputText, "");
    EXPECT_EQ(view.selectedTab, TransformTab::caseTransform);
    EXPECT_EQ(view.selectedCaseTransform, CaseTransform::uppercase);
    EXPECT_EQ(view.selectedLineOperation, LineOperation::sortAZ);
    EXPECT_FALSE(view.hasInput());
    EXPECT_FALSE(view.hasOutput());
}

TEST(TextTransformerView, TabsHaveTheirTextsInOrder) {
    const TransformTabFacts expected[] = {
        {TransformTab::caseTransform, "Case Transform", "Input Text", "arrow.down.doc",
         "Enter text to transform...", "Transformed text will appear here..."},
        {TransformTab::lineOperations, "Line Operations", "Input Lines", "arrow.down.doc",
         "Enter text (one item per line)...", "Result will appear here..."},
        {TransformTab::statistics, "Statistics", "Input Text", "", "Enter text to analyze...", ""},
    };
    ASSERT_EQ(allCases<TransformTab>.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        const auto& row = facts<TransformTab>[i];
        EXPECT_EQ(allCases<TransformTab>[i], expected[i].value);
        EXPECT_EQ(row.rawValue, expected[i].rawValue);
        EXPECT_EQ(row.inputTitle, expected[i].inputTitle);
        EXPECT_EQ(row.inputIcon, expected[i].inputIcon);
        EXPECT_EQ(row.inputPlaceholder, expected[i].inputPlaceholder);
        EXPECT_EQ(row.outputPlaceholder, expected[i].outputPlaceholder);
    }
}

TEST(TextTransformerView, APressTransformsAndSelectsTheButton) {
    auto view = withInput("hello World");
    perform(view, &TextTransformerView::selectCaseTransform, CaseTransform::snakeCase);
    EXPECT_EQ(view.selectedCaseTransform, CaseTransform::snakeCase);
    EXPECT_EQ(view.outputText, "hello_world");
    EXPECT_EQ(view.inputText, "hello World");
    perform(view, &TextTransformerView::selectLineOperation, LineOperation::reverse);
    EXPECT_EQ(view.selectedLineOperation, LineOperation::reverse);
    EXPECT_EQ(view.selectedCaseTransform, CaseTransform::snakeCase);
    EXPECT_EQ(view.outputText, "hello World");
}

TEST(TextTransformerView, APressOfTheSelectedButtonComputesAgain) {
    auto view = withInput("hello");
    perform(view, &TextTransformerView::selectCaseTransform, CaseTransform::uppercase);
    perform(view, &TextTransformerView::setInputText, "bye");
    perform(view, &TextTransformerView::selectCaseTransform, CaseTransform::uppercase);
    EXPECT_EQ(view.outputText, "BYE");
}

TEST(TextTransformerView, ShufflingAgainGivesAnotherOrder) {
    std::string lines;
    for (int line = 0; line < 100; ++line)
        lines += std::to_string(line) + "\n";
    auto view = withInput(lines);
    perform(view, &TextTransformerView::selectLineOperation, LineOperation::shuffle);
    const auto first = view.outputText;
    perform(view, &TextTransformerView::selectLineOperation, LineOperation::shuffle);
    EXPECT_NE(view.outputText, first);
}

TEST(TextTransformerView, TypingAndSwitchingDoNotTransform) {
    auto view = withInput("Hello");
    EXPECT_EQ(view.outputText, "");
    perform(view, &TextTransformerView::selectCaseTransform, CaseTransform::uppercase);
    perform(view, &TextTransformerView::setInputText, "Hello, world");
    view.setSelectedTab(TransformTab::lineOperations);
    view.setSelectedTab(TransformTab::statistics);
    EXPECT_EQ(view.inputText, "Hello, world");
    EXPECT_EQ(view.outputText, "HELLO");
}

TEST(TextTransformerView, ClearingTheInputKeepsTheOutput) {
    auto view = withInput("Hello");
    perform(view, &TextTransformerView::selectCaseTransform, CaseTransform::uppercase);
    perform(view, &TextTransformerView::setInputText, "");
    EXPECT_EQ(view.outputText, "HELLO");
    EXPECT_FALSE(view.hasInput());
    EXPECT_EQ(view.inputStats.current()->stats(), TextStats());
}

TEST(TextTransformerView, EmptyInputGivesEmptyOutputForEveryButton) {
    auto view = withInput("Hello");
    for (const auto transform : allCases<CaseTransform>) {
        perform(view, &TextTransformerView::setInputText, "Hello");
        perform(view, &TextTransformerView::selectCaseTransform, transform);
        EXPECT_TRUE(view.hasOutput());
        perform(view, &TextTransformerView::setInputText, "");
        perform(view, &TextTransformerView::selectCaseTransform, transform);
        EXPECT_EQ(view.outputText, "") << rawValue(transform);
    }
    for (const auto operation : allCases<LineOperation>) {
        perform(view, &TextTransformerView::setInputText, "Hello");
        perform(view, &TextTransformerView::selectLineOperation, operation);
        EXPECT_TRUE(view.hasOutput());
        perform(view, &TextTransformerView::setInputText, "");
        perform(view, &TextTransformerView::selectLineOperation, operation);
        EXPECT_EQ(view.outputText, "") << rawValue(operation);
    }
}

TEST(TextTransformerView, FootersCountTheCurrentTexts) {
    auto view = withInput("One line.\n👨‍👩‍👧 e\u0301\n");
    EXPECT_EQ(view.footer(), "14 characters\u2002•\u20024 words\u2002•\u20023 lines");
    view.setSelectedTab(TransformTab::lineOperations);
    EXPECT_EQ(view.footer(), "Input: 3 lines");
    perform(view, &TextTransformerView::selectLineOperation, LineOperation::removeEmpty);
    EXPECT_EQ(view.footer(), "Input: 3 lines\u2002•\u2002Output: 2 lines");
    perform(view, &TextTransformerView::setInputText, "x");
    EXPECT_EQ(view.footer(), "Input: 1 lines\u2002•\u2002Output: 2 lines");
    view.setSelectedTab(TransformTab::caseTransform);
    EXPECT_EQ(view.footer(), "1 characters\u2002•\u20021 words\u2002•\u20021 lines");
    perform(view, &TextTransformerView::selectCaseTransform, CaseTransform::titleCase);
    view.setSelectedTab(TransformTab::lineOperations);
    EXPECT_EQ(view.footer(), "Input: 1 lines\u2002•\u2002Output: 1 lines");
}

TEST(TextTransformerView, ShowsAFooterWhileThereIsAnInputToTransform) {
    TextTransformerView view;
    EXPECT_FALSE(view.showsFooter());
    perform(view, &TextTransformerView::setInputText, " ");
    EXPECT_TRUE(view.showsFooter());
    view.setSelectedTab(TransformTab::lineOperations);
    EXPECT_TRUE(view.showsFooter());
    EXPECT_TRUE(view.showsOutput());
    view.setSelectedTab(TransformTab::statistics);
    EXPECT_FALSE(view.showsFooter());
    EXPECT_FALSE(view.showsOutput());
    view.setSelectedTab(TransformTab::caseTransform);
    perform(view, &TextTransformerView::setInputText, "");
    EXPECT_FALSE(view.showsFooter());
}

TEST(TextTransformerView, StatisticsCountInputAndOutput) {
    auto view = withInput("Hi! Yes?!");
    perform(view, &TextTransformerView::setInputText, "Hi! Yes?!\n\nNo.");
    EXPECT_EQ(view.inputStats.current()->stats(), TextTransformer::getStats("Hi! Yes?!\n\nNo."));
    perform(view, &TextTransformerView::selectCaseTransform, CaseTransform::camelCase);
    EXPECT_EQ(view.outputStats.current()->stats(), TextTransformer::getStats(view.outputText.string()));
}

} // namespace
} // namespace korvane
