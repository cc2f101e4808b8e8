/// Shows how long the window does not answer while large texts are worked on: prints a table with the longest
/// time that one event takes, for each tool and action, and how long the whole action takes until its result
/// is painted. Runs the screens with the services of the program, without a display.
///
///     korvane_watchdog [TOOL]

#include "Desktop/Look/Theme.h"
#include "Desktop/Text/TextArea.h"
#include "Desktop/Tools/Screens.h"
#include "Desktop/Window/ServicesQt.h"
#include "MixedDocument.h"
#include "support/ScreenDriver.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QtTest/QTest>

#include <fmt/format.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace korvane::bench {
namespace {

/// Measures the events that the window's thread handles.
class Watchdog final : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override {
        if (m_isInEvent) // sent by the handler of another one
            return QApplication::notify(receiver, event);
        m_isInEvent = true;
        QElapsedTimer timer;
        timer.start();
        const bool isHandled = QApplication::notify(receiver, event);
        const auto milliseconds = static_cast<double>(timer.nsecsElapsed()) / 1e6;
        m_isInEvent = false;
        m_longest = std::max(m_longest, milliseconds);
        if (milliseconds > idleLimit)
            m_sinceWork.restart();
        return isHandled;
    }

    void reset() {
        m_longest = 0;
        m_sinceWork.restart();
    }

    double longest() const { return m_longest; }

    std::int64_t idleTime() const { return m_sinceWork.elapsed(); } ///< in milliseconds

private:
    static constexpr double idleLimit = 0.5; ///< in milliseconds; the events of the caret are shorter

    bool m_isInEvent = false;
    double m_longest = 0;
    QElapsedTimer m_sinceWork;
};

/// Counts the work that is not done.
class CountingBackground final : public Background {
public:
    explicit CountingBackground(Background& background) : m_background(background) {}

    void run(std::function<void()> work, std::function<void()> done) override {
        ++m_running;
        m_background.run(std::move(work), [this, done = std::move(done)] {
            --m_running;
            done();
        });
    }

    bool isIdle() const { return m_running == 0; }

private:
    Background& m_background;
    std::atomic<int> m_running = 0;
};

struct Text {
    std::string name;
    std::string content;
};

class Bench {
public:
    explicit Bench(Watchdog& watchdog) : m_watchdog(watchdog) {}

    Services& services() { return m_services; }

    /// Performs one action and prints its row.
    void measure(std::string_view tool, std::string_view action, std::string_view text,
                 const std::function<void()>& perform) {
        m_watchdog.reset();
        QElapsedTimer timer;
        timer.start();
        perform();
        constexpr std::int64_t quiet = 400; // longer than a busy sign waits
        while (!m_background.isIdle() || m_watchdog.idleTime() < quiet)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        fmt::print("| {} | {} | {} | {:.1f} | {} |\n", tool, action, text, m_watchdog.longest(),
                   std::max<std::int64_t>(timer.elapsed() - m_watchdog.idleTime(), 0));
        std::fflush(stdout);
    }

private:
    Watchdog& m_watchdog;
    LinkOpener m_opener{};
    ServicesQt m_system{m_opener};
    CountingBackground m_background{m_system.services().background};
    Services m_services{m_system.services().clipboard, m_system.services().clock,
                        m_system.services().timers,    m_background,
                        m_system.services().browser,   m_system.services().notifications,
                        m_system.services().files,     m_system.services().panels,
                        m_system.services().images};
};

/// One tool: its screen, and what is done with each text.
struct Subject {
    std::string tool;
    QWidget* (*makeScreen)(Services& services);
    std::string input;                       ///< the name of the editor
    std::vector<std::string> preparations{}; ///< segments and buttons that are pressed before
    std::vector<std::string> actions{};      ///< buttons that are pressed after the text was pasted
};

const std::vector<Subject>& subjects() {
    static const std::vector<Subject> all = {
        {"JSON Formatter", jsonFormatterScreen, "Input", {}, {"Prettify", "Minify", "Validate"}},
        {"JSON tree", jsonFormatterScreen, "Input", {"Tree View"}, {}},
        {"Base64", base64Screen, "Plain Text", {}, {"Encode"}},
        {"URL Encoder", urlEncoderScreen, "Plain Text", {}, {"Encode"}},
        {"URL Encoder", urlEncoderScreen, "URL Input", {"Analyze URL"}, {"Analyze URL"}},
        {"JWT Decoder", jwtDecoderScreen, "JWT Token", {}, {"Decode"}},
        {"Hash Generator", hashGeneratorScreen, "Input Text", {}, {"Generate All"}},
        {"Regex Tester", regexTesterScreen, "Test String", {}, {"Test"}},
        {"Text Diff", textDiffScreen, "Original Text", {}, {"Compare"}},
        {"Text Transformer", textTransformerScreen, "Input Text", {}, {"UPPERCASE", "camelCase"}},
        {"Text Transformer", textTransformerScreen, "Input Lines", {"Line Operations"}, {"Sort A-Z"}},
        {"Text Transformer", textTransformerScreen, "Input Text", {"Statistics"}, {}},
        {"Markdown Preview", markdownPreviewScreen, "Markdown", {}, {"HTML Output"}},
    };
    return all;
}

void run(Bench& bench, const Subject& subject, const Text& text) {
    const std::unique_ptr<QWidget> widget(subject.makeScreen(bench.services()));
    const ScreenDriver screen(*widget, {1100, 750});
    const auto press = [&screen](const std::string& name) {
        screen.hasButton(name) ? screen.press(name) : screen.choose(name);
    };
    if (subject.tool == "Regex Tester")
        screen.enter("Pattern", "\\w+");
    for (const auto& preparation : subject.preparations)
        press(preparation);
    auto& editor = screen.editor(subject.input);
    const auto name = subject.preparations.empty() ? std::string() : " in " + subject.preparations.front();
    bench.measure(subject.tool, "Paste" + name, text.name, [&] {
        QTest::keyClick(&editor, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&editor, Qt::Key_V, Qt::ControlModifier);
    });
    bench.measure(subject.tool, "a key" + name, text.name, [&] {
        editor.setFocus();
        editor.select({text.content.size() / 2, text.content.size() / 2});
        QTest::sendKeyEvent(QTest::Click, &editor, Qt::Key_Space, QStringLiteral(" "), Qt::NoModifier);
    });
    if (subject.tool == "Text Diff")
        screen.editor("Modified Text").paste();
    for (const auto& action : subject.actions)
        bench.measure(subject.tool, action, text.name, [&] { press(action); });
    if (screen.hasEditor(subject.input)) // a result may be in its place
        bench.measure(subject.tool, "clear" + name, text.name, [&] {
            QTest::keyClick(&editor, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClick(&editor, Qt::Key_Delete);
        });
}

std::string withoutLines(std::string text) {
    std::ranges::replace(text, '\n', ' ');
    return text;
}

} // namespace
} // namespace korvane::bench

int main(int argc, char* argv[]) {
    using namespace korvane::bench;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Watchdog watchdog(argc, argv);
    QApplication::setStyle(korvane::Theme::style());
    const std::string_view wanted = argc > 1 ? argv[1] : "";
    Bench bench(watchdog);
    fmt::print("| tool | action | text | longest block, ms | until painted, ms |\n"
               "| --- | --- | --- | ---: | ---: |\n");
    for (const auto& [name, size, hasLines] :
         {std::tuple{"10 MB in lines", 10'000'000, true}, std::tuple{"10 MB in one line", 10'000'000, false},
          std::tuple{"100 MB in lines", 100'000'000, true}}) {
        auto content = mixedDocument(static_cast<std::size_t>(size));
        const Text text{name, hasLines ? std::move(content) : withoutLines(std::move(content))};
        bench.services().clipboard.setText(text.content);
        for (const auto& subject : subjects()) {
            if (subject.tool.starts_with(wanted))
                run(bench, subject, text);
        }
    }
    return 0;
}
