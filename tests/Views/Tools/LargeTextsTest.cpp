// What all states have in common that work on large texts: the result comes from the background, replaces
// the earlier one only then, and does not come at all if the input changes or the user cancels.
#include "Utilities/Base64.h"
#include "Utilities/JSON/JSONFormatter.h"
#include "Utilities/Markdown/MarkdownParser.h"
#include "Utilities/PercentEncoding.h"
#include "Views/Tools/Base64View.h"
#include "Views/Tools/JSONFormatterView.h"
#include "Views/Tools/JWTDecoderView.h"
#include "Views/Tools/MarkdownPreviewView.h"
#include "Views/Tools/TextDiffView.h"
#include "Views/Tools/TextTransformerView.h"
#include "Views/Tools/URLEncoderView.h"
#include "support/FakeServices.h"
#include "support/RopePrinter.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace korvane {
namespace {

template <typename State>
struct Subject {
    FakeServices fakes{};
    State state{};
    Context<State> context{fakes.services, [this](const auto& change) { change(state); }};

    template <typename Operation, typename... Arguments>
    void perform(const Operation& operation, Arguments&&... arguments) {
        if constexpr (std::is_invocable_v<Operation, State&, Arguments...>)
            std::invoke(operation, state, std::forward<Arguments>(arguments)...);
        else
            std::invoke(operation, state, std::forward<Arguments>(arguments)..., context);
    }
};

/// How a state is used: how its input is set, what makes `output` of it, which work that is, and what the
/// output is for `small` and `large`.
template <typename State>
struct Use {
    std::function<void(Subject<State>&, Rope)> setInput;
    std::function<void(Subject<State>&)> act;
    Rope State::* output;
    AwaitedWork State::* work;
    std::string small;
    std::string smallOutput;
    std::string large;
    std::string largeOutput;
};

template <typename State>
void expectLargeTextsInTheBackground(const Use<State>& use) {
    Subject<State> subject;
    const auto& output = subject.state.*use.output;
    const auto& work = subject.state.*use.work;
    auto& background = subject.fakes.background;

    use.setInput(subject, use.small);
    use.act(subject);
    EXPECT_EQ(output, use.smallOutput);
    EXPECT_EQ(background.pendingCount(), 0U) << "a small text is not worth it";

    use.setInput(subject, use.large);
    background.runAll(); // counts
    use.act(subject);
    ASSERT_TRUE(work.isRunning());
    EXPECT_FALSE(work.isBusy());
    subject.fakes.timers.advance(AwaitedWork::busyDelay);
    EXPECT_TRUE(work.isBusy());
    EXPECT_TRUE(subject.state.isBusy());
    EXPECT_TRUE(work.description.ends_with(" MB")) << work.description;
    EXPECT_EQ(output, use.smallOutput) << "until there is another one";
    background.runAll();
    EXPECT_EQ(output, use.largeOutput);
    EXPECT_FALSE(subject.state.isBusy());

    use.setInput(subject, use.small);
    use.act(subject);
    use.setInput(subject, use.large);
    use.act(subject);
    const auto stop = work.task->stopToken();
    use.setInput(subject, use.small);
    EXPECT_TRUE(stop.stop_requested());
    EXPECT_FALSE(work.isRunning());
    background.runAll();
    EXPECT_EQ(output, use.smallOutput) << "the result belongs to an earlier input";

    use.setInput(subject, use.large);
    use.act(subject);
    subject.state.cancel();
    EXPECT_FALSE(work.isRunning());
    background.runAll();
    EXPECT_EQ(output, use.smallOutput);
}

std::string repeated(std::string_view piece) {
    std::string text;
    while (text.size() < 1'000'000)
        text += piece;
    return text;
}

TEST(LargeTexts, Base64) {
    const auto large = repeated("Zeile\n");
    expectLargeTextsInTheBackground<Base64View>({
        .setInput = [](auto& subject, Rope text) { subject.perform(&Base64View::setInputText, text); },
        .act = [](auto& subject) { subject.perform(&Base64View::convert); },
        .output = &Base64View::outputText,
        .work = &Base64View::conversion,
        .small = "Hello",
        .smallOutput = "SGVsbG8=",
        .large = large,
        .largeOutput = Base64::encode(large),
    });
}

TEST(LargeTexts, JSON) {
    const auto large = "[" + repeated("1, ") + "1]";
    expectLargeTextsInTheBackground<JSONFormatterView>({
        .setInput = [](auto& subject, Rope text) { subject.perform(&JSONFormatterView::setInputText, text); },
        .act = [](auto& subject) { subject.perform(&JSONFormatterView::minify); },
        .output = &JSONFormatterView::outputText,
        .work = &JSONFormatterView::formatting,
        .small = "[ 2 ]",
        .smallOutput = "[2]",
        .large = large,
        .largeOutput = *JSONFormatter::minify(large),
    });
}

TEST(LargeTexts, URLs) {
    const auto large = repeated("é ");
    expectLargeTextsInTheBackground<URLEncoderView>({
        .setInput = [](auto& subject, Rope text) { subject.perform(&URLEncoderView::setInputText, text); },
        .act = [](auto& subject) { subject.perform(&URLEncoderView::performAction); },
        .output = &URLEncoderView::outputText,
        .work = &URLEncoderView::processing,
        .small = "a b",
        .smallOutput = "a%20b",
        .large = large,
        .largeOutput = *PercentEncoding::encode(large),
    });
}

TEST(LargeTexts, Transformations) {
    const auto large = repeated("Wort ");
    expectLargeTextsInTheBackground<TextTransformerView>({
        .setInput = [](auto& subject,
                       Rope text) { subject.perform(&TextTransformerView::setInputText, text); },
        .act = [](auto& subject) { subject.perform(&TextTransformerView::applyTransform); },
        .output = &TextTransformerView::outputText,
        .work = &TextTransformerView::transforming,
        .small = "abc",
        .smallOutput = "ABC",
        .large = large,
        .largeOutput = TextTransformer::transform(large, CaseTransform::uppercase),
    });
}

TEST(LargeTexts, ASecondPressReplacesTheFirst) {
    Subject<TextTransformerView> subject;
    subject.perform(&TextTransformerView::setInputText, Rope(repeated("Wort ")));
    subject.perform(&TextTransformerView::selectCaseTransform, CaseTransform::uppercase);
    const auto first = subject.state.transforming.task->stopToken();
    subject.perform(&TextTransformerView::selectCaseTransform, CaseTransform::lowercase);
    EXPECT_TRUE(first.stop_requested());
    subject.fakes.background.runAll();
    EXPECT_EQ(subject.state.outputText.substr(0, 5), "wort ");
    EXPECT_EQ(subject.state.outputStats.current()->stats(), subject.state.inputStats.current()->stats());
}

TEST(LargeTexts, Tokens) {
    Subject<JWTDecoderView> subject;
    auto payload = Base64::encode("{\"a\":\"" + repeated("x") + "\",\"exp\":1}");
    payload.erase(payload.find_last_not_of('=') + 1);
    subject.perform(&JWTDecoderView::setInputToken, Rope("e30." + payload + ".s"));
    subject.perform(&JWTDecoderView::decode);
    ASSERT_TRUE(subject.state.decoding.isRunning());
    EXPECT_EQ(subject.state.signature, "");
    subject.fakes.background.runAll();
    EXPECT_EQ(subject.state.signature, "s");
    EXPECT_GT(subject.state.payload.size(), 1'000'000U);
    EXPECT_TRUE(subject.state.expiryInfo->isExpired);
    subject.perform(&JWTDecoderView::decode);
    subject.perform(&JWTDecoderView::setInputToken, Rope("x"));
    subject.fakes.background.runAll();
    EXPECT_EQ(subject.state.signature, "") << "of an earlier token";
}

TEST(LargeTexts, HTML) {
    Subject<MarkdownPreviewView> subject;
    const auto large = repeated("*a*\n\n");
    subject.perform(&MarkdownPreviewView::setMarkdownText, Rope(large));
    EXPECT_EQ(subject.state.counts(), "… words\u2002•\u2002… lines\u2002•\u2002… characters");
    subject.perform(&MarkdownPreviewView::setViewMode, MarkdownPreviewView::ViewMode::htmlOutput);
    ASSERT_TRUE(subject.state.converting.isRunning());
    EXPECT_EQ(subject.state.html, "");
    subject.fakes.background.runAll();
    EXPECT_EQ(subject.state.html, MarkdownParser::toHTML(large));
    EXPECT_EQ(subject.state.counts(), "200000 words\u2002•\u2002400001 lines\u2002•\u20021000000 characters");
    subject.perform(&MarkdownPreviewView::setViewMode, MarkdownPreviewView::ViewMode::editorOnly);
    EXPECT_EQ(subject.state.html, "") << "it would not be kept up to date";
}

TEST(LargeTexts, Trees) {
    Subject<JSONFormatterView> subject;
    subject.perform(&JSONFormatterView::setShowTreeView, true);
    subject.perform(&JSONFormatterView::setInputText, Rope("[1, 2]"));
    EXPECT_EQ(subject.state.tree.rowCount(), 3U);
    const Rope large = "[" + repeated("1, ") + "1]";
    subject.perform(&JSONFormatterView::setInputText, large);
    EXPECT_EQ(subject.state.tree.rowCount(), 3U) << "until there is another one";
    subject.fakes.timers.advance(AwaitedWork::busyDelay);
    EXPECT_TRUE(subject.state.shownWork().isBusy());
    subject.fakes.background.runAll();
    EXPECT_EQ(subject.state.tree.rowCount(), 333'336U);
    subject.perform(&JSONFormatterView::setInputText, large + " ");
    subject.state.cancel();
    EXPECT_FALSE(subject.state.hasTree()) << "it would be that of an earlier input";
    subject.fakes.background.runAll();
    EXPECT_EQ(subject.state.tree.rowCount(), 0U);
}

} // namespace
} // namespace korvane
