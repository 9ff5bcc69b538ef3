#include "nmain/vfs/FileSystem.h"

#include "foundation/core/Exception.h"
#include "nmain/stream/InputStream.h"
#include "nmain/vfs/DirectoryFileSystem.h"
#include "nmain/vfs/File.h"
#include "nmain/vfs/MemoryFileSystem.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <thread>

using namespace nurel;

namespace {

std::string read(vfs::FileSystem &files, const char *path) {
    try {
        const std::unique_ptr<stream::InputStream> stream(files.open(path));
        return stream::readAll(*stream);
    } catch (const core::IOException &error) {
        return std::string("error: ") + error.what();
    }
}

class DirectoryFileSystemTest : public testing::Test {
protected:
    void SetUp() override {
        mFolder = std::filesystem::path(testing::TempDir()) / "nui-directory-test";
        std::filesystem::create_directories(mFolder / "inner");
        std::ofstream(mFolder / "inner" / "file.txt") << "content";
    }
    void TearDown() override { std::filesystem::remove_all(mFolder); }

    std::filesystem::path mFolder;
};

/// Knows one file and leaves `exists` to the base.
class OneFileSystem : public vfs::FileSystem {
public:
    stream::InputStream *open(const char *path) override {
        if (std::string(path) != "one")
            throw core::IOException("Cannot open file %s", path);
        return new stream::MemoryInputStream(path, "1");
    }
};

} // namespace

TEST_F(DirectoryFileSystemTest, OpensPathsBelowItsRoot) {
    vfs::DirectoryFileSystem files(mFolder.string().c_str());
    EXPECT_EQ(read(files, "inner/file.txt"), "content");
    EXPECT_EQ(read(files, "inner/../inner/file.txt"), "content");
    EXPECT_TRUE(files.exists("inner/file.txt"));
}

TEST_F(DirectoryFileSystemTest, NamesAStreamByItsWholePath) {
    vfs::DirectoryFileSystem files(mFolder.string().c_str());
    const std::unique_ptr<stream::InputStream> stream(files.open("inner/file.txt"));
    EXPECT_EQ(stream->getName(), (mFolder / "inner/file.txt").string());
}

TEST_F(DirectoryFileSystemTest, TakesAnAbsolutePathAsItIs) {
    vfs::DirectoryFileSystem files("/somewhere/else");
    EXPECT_EQ(read(files, (mFolder / "inner/file.txt").string().c_str()), "content");
}

TEST_F(DirectoryFileSystemTest, RefusesWhatIsMissing) {
    vfs::DirectoryFileSystem files(mFolder.string().c_str());
    EXPECT_EQ(read(files, "none"), "error: Cannot open file " + (mFolder / "none").string());
    EXPECT_FALSE(files.exists("none"));
}

TEST_F(DirectoryFileSystemTest, RefusesFolders) {
    vfs::DirectoryFileSystem files(mFolder.string().c_str());
    EXPECT_EQ(read(files, "inner"), "error: Cannot open file " + (mFolder / "inner").string());
    EXPECT_FALSE(files.exists("inner"));
    EXPECT_FALSE(files.exists(""));
    EXPECT_FALSE(files.exists(nullptr));
    EXPECT_THROW(files.open(nullptr), core::IOException);
}

TEST(MemoryFileSystem, OpensWhatWasAdded) {
    vfs::MemoryFileSystem files;
    files.add("a/b.ui", "text");
    const std::unique_ptr<stream::InputStream> stream(files.open("a/b.ui"));
    EXPECT_STREQ(stream->getName(), "a/b.ui");
    EXPECT_EQ(stream::readAll(*stream), "text");
}

TEST(MemoryFileSystem, RefusesWhatIsMissing) {
    vfs::MemoryFileSystem files;
    EXPECT_EQ(read(files, "none.ui"), "error: Cannot open file none.ui");
    EXPECT_EQ(read(files, nullptr), "error: Cannot open file ");
    EXPECT_FALSE(files.exists("none.ui"));
    EXPECT_FALSE(files.remove("none.ui"));
}

TEST(MemoryFileSystem, ComparesPathsWithoutTheirDetours) {
    vfs::MemoryFileSystem files;
    files.add("./a//b", "text");
    EXPECT_TRUE(files.exists("a/b"));
    EXPECT_TRUE(files.exists("a/x/../b"));
    EXPECT_FALSE(files.exists("/a/b"));
    EXPECT_TRUE(files.remove("a/./b"));
    EXPECT_FALSE(files.exists("a/b"));
}

TEST(MemoryFileSystem, KeepsTheOldContentForOpenStreams) {
    vfs::MemoryFileSystem files;
    files.add("file", "old");
    const std::unique_ptr<stream::InputStream> open(files.open("file"));
    files.add("file", "new");
    EXPECT_EQ(stream::readAll(*open), "old");
    EXPECT_EQ(read(files, "file"), "new");
    files.remove("file");
    EXPECT_EQ(read(files, "file"), "error: Cannot open file file");
}

TEST(MemoryFileSystem, ServesSeveralThreads) {
    vfs::MemoryFileSystem files;
    files.add("file", "0");
    std::thread writer([&files] {
        for (int i = 1; i < 200; ++i)
            files.add("file", std::to_string(i));
    });
    for (int i = 0; i < 200; ++i)
        EXPECT_NE(read(files, "file"), "");
    writer.join();
    EXPECT_EQ(read(files, "file"), "199");
}

TEST(FileSystem, AsksWhetherAFileExistsByOpeningIt) {
    OneFileSystem files;
    EXPECT_TRUE(files.exists("one"));
    EXPECT_FALSE(files.exists("two"));
}

TEST(File, GivesAStreamFromTheBeginningEachTime) {
    vfs::MemoryFileSystem files;
    files.add("sheet.css", "a {}");
    const vfs::File file(files, "sheet.css");
    for (int i = 0; i < 2; ++i) {
        const std::unique_ptr<stream::InputStream> stream(file.getInputStream());
        EXPECT_EQ(stream::readAll(*stream), "a {}");
    }
    EXPECT_STREQ(file.getPath(), "sheet.css");
}

TEST(File, OpensNothingBeforeItIsAsked) {
    vfs::MemoryFileSystem files;
    const vfs::File file(files, nullptr);
    EXPECT_STREQ(file.getPath(), "");
    EXPECT_THROW(file.getInputStream(), core::IOException);
}
