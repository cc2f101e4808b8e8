/// Real files and file panels, in a temporary folder.

#include "Desktop/Window/ServicesQt.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QTemporaryDir>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

namespace korvane {
namespace {

class FilesTest : public ::testing::Test {
protected:
    QTemporaryDir folder{};
    LinkOpener opener{};
    ServicesQt real{opener};
    Files& files = real.services().files;

    std::string path(const std::string& name) const { return folder.path().toStdString() + "/" + name; }

    static std::string content(const std::string& file) {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    std::ptrdiff_t fileCount() const {
        return std::distance(std::filesystem::directory_iterator(folder.path().toStdString()), {});
    }
};

/// Simulates a full disk: limits the size of files that this process writes during its lifetime.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }

    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &m_before); }

private:
    rlimit m_before{};
};

TEST_F(FilesTest, WritesAndReads) {
    const std::string bytes("\0\xff picture", 10);
    EXPECT_TRUE(files.write(path("Größe 1.png"), bytes));
    EXPECT_EQ(files.read(path("Größe 1.png"), 1000)->view(), bytes);
    EXPECT_TRUE(files.write(path("Größe 1.png"), "shorter"));
    EXPECT_EQ(content(path("Größe 1.png")), "shorter");
    EXPECT_EQ(fileCount(), 1) << "no temporary file is left";
}

TEST_F(FilesTest, ReportsWhyAFileCannotBeRead) {
    EXPECT_EQ(files.read(path("gone"), 1000).error(), "No such file or directory");
    EXPECT_FALSE(files.read(folder.path().toStdString(), 1000));
    EXPECT_FALSE(files.read("/dev/zero", 1000)) << "it never ends";
    mkfifo(path("pipe").c_str(), 0600);
    EXPECT_FALSE(files.read(path("pipe"), 1000)) << "it would wait for a writer";
    files.write(path("large"), std::string(1001, 'x'));
    EXPECT_EQ(files.read(path("large"), 1000).error(), "The file is too large");
}

TEST_F(FilesTest, AFailedWriteKeepsTheOldFileAndLeavesNoOther) {
    ASSERT_TRUE(files.write(path("picture"), "old"));
    {
        const FullDisk disk(4096);
        EXPECT_FALSE(files.write(path("picture"), std::string(100'000, 'x')));
        EXPECT_FALSE(files.write(path("new"), std::string(100'000, 'x')));
    }
    EXPECT_EQ(content(path("picture")), "old");
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(FilesTest, WritingToAMissingOrForbiddenFolderFails) {
    EXPECT_FALSE(files.write(path("gone/picture"), "bytes"));
    EXPECT_FALSE(files.write("/proc/picture", "bytes"));
    EXPECT_FALSE(files.write(folder.path().toStdString(), "bytes")) << "it is a folder";
    if (geteuid() == 0)
        return; // the superuser may write anywhere
    std::filesystem::permissions(folder.path().toStdString(), std::filesystem::perms::owner_read);
    EXPECT_FALSE(files.write(path("picture"), "bytes"));
    std::filesystem::permissions(folder.path().toStdString(), std::filesystem::perms::owner_all);
}

/// The open window of the given type; null if there is none.
template <typename Window>
Window* openWindow() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (auto* window : QApplication::topLevelWidgets()) {
        if (auto* found = qobject_cast<Window*>(window); found && found->isVisible())
            return found;
    }
    return nullptr;
}

/// Types a path into the panel that is open, and confirms it.
void confirm(const std::string& path) {
    auto* panel = openWindow<QFileDialog>();
    ASSERT_TRUE(panel);
    panel->selectFile(QString::fromStdString(path));
    static_cast<QDialog*>(panel)->accept();
}

struct PanelsTest : FilesTest {
    std::string chosen{};
    FilePanels& panels = real.services().panels;

    void ask() {
        panels.save({.name = "JPEG image", .extensions = {"jpg", "jpeg"}, .otherExtensions = {"png"}},
                    path("converted.jpg"), [this](std::string path) { chosen = std::move(path); });
    }

    static void answer(QMessageBox::StandardButton button) {
        auto* question = openWindow<QMessageBox>();
        ASSERT_TRUE(question);
        question->button(button)->click();
    }
};

TEST_F(PanelsTest, AChosenPathHasAnExtensionOfItsKind) {
    for (const auto& [typed, expected] : {std::pair{"photo.jpeg", "photo.jpeg"},
                                          {"wrong.png", "wrong.jpg"},
                                          {"photo v1.2", "photo v1.2.jpg"},
                                          {"photo", "photo.jpg"}}) {
        ask();
        confirm(path(typed));
        EXPECT_EQ(chosen, path(expected)) << typed;
        EXPECT_FALSE(openWindow<QMessageBox>()) << typed;
    }
}

TEST_F(PanelsTest, AsksBeforeReplacingAFileWhoseNameWasNotTyped) {
    files.write(path("photo.jpg"), "old");
    ask();
    confirm(path("photo.png"));
    EXPECT_EQ(chosen, "") << "nothing before the question is answered";
    answer(QMessageBox::No);
    EXPECT_EQ(chosen, "");
    confirm(path("photo.png")); // the panel is open again
    answer(QMessageBox::Yes);
    EXPECT_EQ(chosen, path("photo.jpg"));
    EXPECT_FALSE(openWindow<QFileDialog>());
}

TEST_F(PanelsTest, OffersAllFilesBesideTheKind) {
    panels.open({.name = "Images", .extensions = {"png"}},
                [this](std::string path) { chosen = std::move(path); });
    auto* panel = openWindow<QFileDialog>();
    ASSERT_TRUE(panel);
    EXPECT_EQ(panel->nameFilters(), QStringList({"Images (*.png *.PNG)", "All files (*)"}));
    EXPECT_TRUE(panel->testOption(QFileDialog::HideNameFilterDetails)) << "without the list of extensions";
    panel->close();
}

} // namespace
} // namespace korvane
