/// The real files, in a folder of their own.

#include "Desktop/Window/ServicesQt.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <filesystem>
#include <fstream>
#include <iterator>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

namespace korvane {
namespace {

class FilesTest : public ::testing::Test {
protected:
    QTemporaryDir folder{};
    ServicesQt real{};
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

/// While it lives, no file of this process can grow beyond a size: a disk that is full.
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
    EXPECT_EQ(files.read(path("Größe 1.png"), 1000), bytes);
    EXPECT_TRUE(files.write(path("Größe 1.png"), "shorter"));
    EXPECT_EQ(content(path("Größe 1.png")), "shorter");
    EXPECT_EQ(fileCount(), 1) << "nothing is left beside it";
}

TEST_F(FilesTest, SaysWhyItCannotRead) {
    EXPECT_EQ(files.read(path("gone"), 1000).error(), "No such file or directory");
    EXPECT_FALSE(files.read(folder.path().toStdString(), 1000));
    EXPECT_FALSE(files.read("/dev/zero", 1000)) << "it never ends";
    mkfifo(path("pipe").c_str(), 0600);
    EXPECT_FALSE(files.read(path("pipe"), 1000)) << "it would wait for a writer";
    files.write(path("large"), std::string(1001, 'x'));
    EXPECT_EQ(files.read(path("large"), 1000).error(), "The file is too large");
}

TEST_F(FilesTest, AFullDiskLeavesTheOldFileAndNothingElse) {
    ASSERT_TRUE(files.write(path("picture"), "old"));
    {
        const FullDisk disk(4096);
        EXPECT_FALSE(files.write(path("picture"), std::string(100'000, 'x')));
        EXPECT_FALSE(files.write(path("new"), std::string(100'000, 'x')));
    }
    EXPECT_EQ(content(path("picture")), "old");
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(FilesTest, AMissingOrForbiddenFolderIsAnError) {
    EXPECT_FALSE(files.write(path("gone/picture"), "bytes"));
    EXPECT_FALSE(files.write("/proc/picture", "bytes"));
    EXPECT_FALSE(files.write(folder.path().toStdString(), "bytes")) << "it is a folder";
    if (geteuid() == 0)
        return; // to the superuser nothing is forbidden
    std::filesystem::permissions(folder.path().toStdString(), std::filesystem::perms::owner_read);
    EXPECT_FALSE(files.write(path("picture"), "bytes"));
    std::filesystem::permissions(folder.path().toStdString(), std::filesystem::perms::owner_all);
}

} // namespace
} // namespace korvane
