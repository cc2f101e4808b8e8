/// Linked with the program's own main.cpp, this tries internet sockets in the running program, from its
/// threads, and clicks a link. It prints what happens, one fact a line, and quits.

#include "Desktop/Tools/Markdown/MarkdownBrowser.h"
#include "Desktop/Window/MainWindow.h"
#include "support/SocketAttempts.h"

#include <QApplication>
#include <QLabel>
#include <QTextBrowser>
#include <QTextCursor>
#include <QTimer>
#include <QtTest/QTest>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <latch>
#include <set>
#include <string>
#include <thread>

namespace korvane {
namespace {

void print(const std::string& line) {
    std::puts(line.c_str());
    std::fflush(stdout); // before other processes write
}

std::string outcome(int error) {
    return error == 0 ? "opened" : std::strerror(error);
}

void printAttempts(const std::string& thread) {
    print(thread + ": internet " + outcome(internetSocketError()) + ", internet 6 " +
          outcome(socketError(AF_INET6, SOCK_STREAM)) + ", local " +
          outcome(socketError(AF_UNIX, SOCK_STREAM)));
}

/// The filters of all threads, without repetitions: one line if they are the same everywhere.
void printFilters() {
    std::set<std::string> states;
    std::size_t count = 0;
    for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
        states.insert(filterState(task.path() / "status"));
        ++count;
    }
    for (const auto& state : states)
        print((count > 1 ? "threads: " : "one thread: ") + state);
}

MainWindow& window() {
    for (auto* widget : QApplication::topLevelWidgets()) {
        if (auto* found = dynamic_cast<MainWindow*>(widget))
            return *found;
    }
    qFatal("there is no window");
}

void printToolTip() {
    for (const auto* label : window().findChildren<QLabel*>()) {
        if (label->text().toStdString() == ToolSidebarView::footer) {
            print("tool tip: " + label->parentWidget()->toolTip().toStdString());
            print("description: " + label->accessibleDescription().toStdString());
        }
    }
}

void clickLink() {
    window().store().perform(&ContentView::select, Tool::markdownPreview);
    QCoreApplication::processEvents();
    auto& preview = dynamic_cast<MarkdownBrowser&>(*window().findChild<QTextBrowser*>());
    const auto link = preview.document()->find("Korvane");
    auto start = link;
    start.setPosition(link.selectionStart());
    preview.setTextCursor(link);
    preview.ensureCursorVisible();
    QCoreApplication::processEvents();
    QTest::mouseClick(preview.viewport(), Qt::LeftButton, {},
                      preview.cursorRect(start).center() + QPoint(4, 0));
}

std::latch isShown(1);

void tryEverything(std::jthread& early) {
    printAttempts("window");
    std::jthread([] { printAttempts("later thread"); }).join();
    printFilters();
    isShown.count_down();
    early.join();
    printToolTip();
    clickLink();
    QApplication::quit();
}

/// Qt calls this while the application object is made, before the network is closed.
void begin() {
    static std::jthread early([] {
        isShown.wait();
        printAttempts("earlier thread");
    });
    printAttempts("start");
    QTimer::singleShot(0, [] { tryEverything(early); });
}

Q_COREAPP_STARTUP_FUNCTION(begin)

} // namespace
} // namespace korvane
