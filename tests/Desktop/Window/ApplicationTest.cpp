/// The whole program with the real services and with the network closed. These tests also run under a tracer,
/// which checks for network access and for files written.

#include "Desktop/Look/Theme.h"
#include "Desktop/Window/MainWindow.h"
#include "Desktop/Window/ServicesQt.h"
#include "Utilities/ClosedNetwork.h"
#include "support/Pictures.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QFileDialog>
#include <QIcon>
#include <QLineEdit>
#include <QPointer>
#include <QTemporaryDir>
#include <QtTest/QTest>

#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

namespace korvane {
namespace {

/// In milliseconds: far longer than the work takes on any machine; only a failure waits that long.
constexpr int timeout = 60'000;

class ApplicationTest : public ::testing::Test {
protected:
    /// It cannot be opened again; the other tests in the process need none.
    static void SetUpTestSuite() { ASSERT_TRUE(closeNetwork()); }

    QTemporaryDir folder{};
    LinkOpener opener{};
    ServicesQt real{opener};
    MainWindow window{real.services()};
    ScreenDriver screen{window, {1100, 750}};

    void select(Tool tool) {
        window.store().perform(&ContentView::select, tool);
        settle();
    }

    /// Presses the initial buttons of the tool one after the other, except the one for the file panel.
    void pressEverything() {
        static const QStringList others{"Minimize", "Maximize", "Close", "Choose File"};
        std::vector<QPointer<QAbstractButton>> buttons;
        for (auto* button : window.findChildren<QAbstractButton*>()) {
            if (button->isVisible() && !others.contains(button->accessibleName()))
                buttons.emplace_back(button);
        }
        for (const auto& button : buttons) {
            if (button && button->isVisible() && button->isEnabled())
                button->click();
            settle();
        }
    }

    /// Waits for work on another thread.
    static bool holdsInTime(const std::function<bool()>& condition) {
        return QTest::qWaitFor(condition, timeout);
    }

    /// Chooses `path` in the file panel that is open.
    static void chooseFile(const QString& path) {
        QFileDialog* panel = nullptr;
        for (auto* widget : QApplication::topLevelWidgets()) {
            if (auto* dialog = qobject_cast<QFileDialog*>(widget); dialog && dialog->isVisible())
                panel = dialog;
        }
        ASSERT_NE(panel, nullptr);
        auto* name = panel->findChild<QLineEdit*>();
        name->setText(path);
        QTest::keyClick(name, Qt::Key_Return);
        settle();
    }

    QColorDialog* colorDialog() const { return window.findChild<QColorDialog*>(); }
};

TEST_F(ApplicationTest, UsesEveryTool) {
    for (const auto tool : allCases<Tool>) {
        QApplication::clipboard()->setText("[1, \"aGVsbG8=\", \"https://example.org/?q=1\"]");
        select(tool);
        EXPECT_TRUE(screen.shows(rawValue(tool)));
        pressEverything();
        EXPECT_EQ(window.store().state<ContentView>().selectedTool, tool);
    }
}

TEST_F(ApplicationTest, KeepsAColor) {
    select(Tool::colorPicker);
    screen.press("Select Color");
    ASSERT_NE(colorDialog(), nullptr);
    auto* keep = colorDialog()->findChild<QAbstractButton*>();
    for (auto* button : colorDialog()->findChildren<QAbstractButton*>()) {
        if (button->text().contains("Custom Colors"))
            keep = button;
    }
    ASSERT_TRUE(keep->text().contains("Custom Colors"));
    keep->click();
    colorDialog()->accept();
    settle();
    EXPECT_EQ(colorDialog(), nullptr);
}

TEST_F(ApplicationTest, ConvertsAPicture) {
    const auto bytes = ImageProcess().convert(support::photograph({64, 48}), ImageFormat::jpeg, 0.9);
    ASSERT_TRUE(bytes);
    ASSERT_TRUE(real.services().files.write(folder.filePath("picture.jpg").toStdString(), *bytes));

    select(Tool::imageConverter);
    screen.press("Choose File");
    chooseFile(folder.filePath("picture.jpg"));
    ASSERT_TRUE(holdsInTime([&] { return screen.hasButton("Remove"); }));
    screen.press("Apply Transforms");
    ASSERT_TRUE(holdsInTime([&] { return screen.button("Save As...").isEnabled(); }));
    screen.press("Save As...");
    const auto converted = folder.filePath("converted.png");
    chooseFile(converted);
    ASSERT_TRUE(holdsInTime([&] { return QFile::exists(converted); }));
    EXPECT_EQ(QImage(converted).size(), QSize(64, 48));
}

TEST_F(ApplicationTest, MapsNoImageLibraryWithTheImageToolOpen) {
    select(Tool::imageConverter);
    const auto bytes =
        real.services().images.process()->convert(support::photograph({64, 48}), ImageFormat::heic, 0.9);
    ASSERT_TRUE(bytes);
    ASSERT_TRUE(real.services().files.write(folder.filePath("picture.heic").toStdString(), *bytes));
    screen.press("Choose File");
    chooseFile(folder.filePath("picture.heic"));
    ASSERT_TRUE(holdsInTime([&] { return screen.hasButton("Remove"); }));
    std::ifstream maps("/proc/self/maps");
    const std::string mapped{std::istreambuf_iterator<char>(maps), {}};
    ASSERT_NE(mapped.find("libQt6Widgets"), std::string::npos);
    for (const auto* library :
         {"libvips", "libheif", "libde265", "libx265", "liborc", "libcurl", "libgnutls"})
        EXPECT_EQ(mapped.find(library), std::string::npos) << library;
}

TEST_F(ApplicationTest, AFontChosenByTheDesktopIsKept) {
    const auto familyFor = [](const char* chosen, const char* family) {
        return Theme::withDefaultFamily(QFont(chosen), "Sans Serif", family).family();
    };
    EXPECT_EQ(familyFor("Sans Serif", "DejaVu Sans"), "DejaVu Sans");
    EXPECT_EQ(familyFor("Sans Serif", "No Such Font"), "Sans Serif") << "it is not installed";
    EXPECT_EQ(familyFor("DejaVu Sans Mono", "DejaVu Sans"), "DejaVu Sans Mono");
}

TEST_F(ApplicationTest, HasAnIconForEverySize) {
    for (const int size : {16, 24, 32, 48, 64, 128}) {
        const auto picture = QApplication::windowIcon().pixmap(size).toImage();
        EXPECT_EQ(picture.size(), QSize(size, size));
        EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0) << "transparent at its corners";
        EXPECT_EQ(picture.pixelColor(size / 2, size / 2 - size / 40), QColor(Qt::white)) << "the dot";
    }
}

} // namespace
} // namespace korvane
