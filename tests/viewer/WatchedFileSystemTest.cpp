#include "WatchedFileSystem.h"

#include "TemporaryFolder.h"

#include "foundation/core/Exception.h"
#include "nmain/stream/InputStream.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace viewer {

namespace {

using Names = std::vector<std::string>;
using std::chrono::milliseconds;

class WatchedFileSystemTest : public testing::Test {
protected:
    std::string read(WatchedFileSystem &files, const char *name) {
        const std::unique_ptr<nurel::stream::InputStream> stream(files.open(name));
        return nurel::stream::readAll(*stream);
    }

    /// Asks once every tenth of a second until something has changed or the time is over.
    Names takeWithin(WatchedFileSystem &files, milliseconds limit) {
        for (const auto end = mNow + limit; mNow <= end; mNow += milliseconds(100)) {
            if (Names changed = files.takeChanged(mNow); !changed.empty())
                return changed;
        }
        return {};
    }

    TemporaryFolder mFolder;
    WatchedFileSystem::Time mNow{};
    WatchedFileSystem mFiles{{mFolder.getPath("screen"), mFolder.getPath("style")}};
};

} // namespace

TEST_F(WatchedFileSystemTest, TheFirstFolderThatHasAFileGivesIt) {
    mFolder.write("screen/both.txt", "screen");
    mFolder.write("style/both.txt", "style");
    mFolder.write("style/one.txt", "one");
    EXPECT_EQ(read(mFiles, "both.txt"), "screen");
    EXPECT_EQ(read(mFiles, "one.txt"), "one");
    EXPECT_TRUE(mFiles.exists("one.txt"));
    EXPECT_FALSE(mFiles.exists("none.txt"));
    EXPECT_FALSE(mFiles.exists("../screen"));
}

TEST_F(WatchedFileSystemTest, AMissingFileIsToldByItsPathInTheFirstFolder) {
    try {
        read(mFiles, "none.txt");
        FAIL();
    } catch (const core::IOException &e) {
        EXPECT_EQ(e.getMessage(), "Cannot open file " + mFolder.getPath("screen") + "/none.txt");
    }
}

TEST_F(WatchedFileSystemTest, AnAbsolutePathIsTakenAsItIs) {
    mFolder.write("elsewhere/a.txt", "a");
    EXPECT_EQ(read(mFiles, mFolder.getPath("elsewhere/a.txt").c_str()), "a");
}

TEST_F(WatchedFileSystemTest, WhatWasNeverAskedForIsNotWatched) {
    mFolder.write("screen/a.txt", "1");
    EXPECT_EQ(takeWithin(mFiles, milliseconds(1000)), Names());
    mFolder.write("screen/a.txt", "2");
    EXPECT_EQ(takeWithin(mFiles, milliseconds(1000)), Names());
}

TEST_F(WatchedFileSystemTest, ASaveIsToldOnceAndSoon) {
    mFolder.write("screen/a.txt", "1");
    read(mFiles, "a.txt");
    EXPECT_EQ(takeWithin(mFiles, milliseconds(1000)), Names());
    mFolder.write("screen/a.txt", "2");
    EXPECT_EQ(takeWithin(mFiles, milliseconds(300)), Names{"a.txt"});
    EXPECT_EQ(takeWithin(mFiles, milliseconds(1000)), Names());
}

TEST_F(WatchedFileSystemTest, AFileThatIsStillBeingWrittenIsWaitedFor) {
    mFolder.write("screen/a.txt", "1");
    read(mFiles, "a.txt");
    mFolder.write("screen/a.txt", "ha");
    EXPECT_EQ(mFiles.takeChanged(mNow), Names());
    mFolder.write("screen/a.txt", "half");
    EXPECT_EQ(mFiles.takeChanged(mNow += milliseconds(100)), Names());
    EXPECT_EQ(mFiles.takeChanged(mNow += milliseconds(100)), Names{"a.txt"});
}

TEST_F(WatchedFileSystemTest, AFileThatNeverRestsIsToldAllTheSame) {
    mFolder.write("screen/a.txt", "");
    read(mFiles, "a.txt");
    int told = 0;
    for (int i = 0; i < 10; ++i) {
        mFolder.write("screen/a.txt", std::string(static_cast<std::size_t>(i), '.'));
        told += mFiles.takeChanged(mNow += milliseconds(100)).empty() ? 0 : 1;
    }
    EXPECT_GE(told, 1);
}

TEST_F(WatchedFileSystemTest, ARenameOverTheFileIsASave) {
    mFolder.write("screen/a.txt", "1");
    read(mFiles, "a.txt");
    mFolder.writeByRenaming("screen/a.txt", "2");
    EXPECT_EQ(takeWithin(mFiles, milliseconds(300)), Names{"a.txt"});
    EXPECT_EQ(read(mFiles, "a.txt"), "2");
}

TEST_F(WatchedFileSystemTest, AFileOfTheSameTimeAndSizeInItsPlaceIsASave) {
    mFolder.write("screen/a.txt", "1");
    mFolder.write("screen/b.txt", "2");
    std::filesystem::last_write_time(mFolder.getPath("screen/b.txt"),
                                     std::filesystem::last_write_time(mFolder.getPath("screen/a.txt")));
    read(mFiles, "a.txt");
    std::filesystem::rename(mFolder.getPath("screen/b.txt"), mFolder.getPath("screen/a.txt"));
    EXPECT_EQ(takeWithin(mFiles, milliseconds(300)), Names{"a.txt"});
}

TEST_F(WatchedFileSystemTest, AFileThatIsGoneForAMomentIsNotMissed) {
    mFolder.write("screen/a.txt", "1");
    read(mFiles, "a.txt");
    mFolder.remove("screen/a.txt");
    EXPECT_EQ(takeWithin(mFiles, milliseconds(200)), Names());
    mFolder.write("screen/a.txt", "2");
    EXPECT_EQ(takeWithin(mFiles, milliseconds(300)), Names{"a.txt"});
}

TEST_F(WatchedFileSystemTest, AFileThatStaysAwayIsToldAndAgainWhenItIsBack) {
    mFolder.write("screen/a.txt", "1");
    read(mFiles, "a.txt");
    mFolder.remove("screen/a.txt");
    EXPECT_EQ(takeWithin(mFiles, milliseconds(700)), Names{"a.txt"});
    EXPECT_EQ(takeWithin(mFiles, milliseconds(700)), Names());
    mFolder.write("screen/a.txt", "2");
    EXPECT_EQ(takeWithin(mFiles, milliseconds(300)), Names{"a.txt"});
}

TEST_F(WatchedFileSystemTest, AFileThatWasMissedIsToldWhenItComes) {
    EXPECT_FALSE(mFiles.exists("a.txt"));
    EXPECT_EQ(takeWithin(mFiles, milliseconds(1000)), Names());
    mFolder.write("style/a.txt", "1");
    EXPECT_EQ(takeWithin(mFiles, milliseconds(300)), Names{"a.txt"});
}

TEST_F(WatchedFileSystemTest, AFileThatComesIntoAnEarlierFolderIsToldAsAChange) {
    mFolder.write("style/a.txt", "1");
    EXPECT_EQ(read(mFiles, "a.txt"), "1");
    mFolder.write("screen/a.txt", "2");
    EXPECT_EQ(takeWithin(mFiles, milliseconds(300)), Names{"a.txt"});
    EXPECT_EQ(read(mFiles, "a.txt"), "2");
}

TEST_F(WatchedFileSystemTest, ReadingAFileAnewTakesItsChangeOver) {
    mFolder.write("screen/a.txt", "1");
    read(mFiles, "a.txt");
    mFolder.write("screen/a.txt", "2");
    EXPECT_EQ(mFiles.takeChanged(mNow), Names());
    EXPECT_EQ(read(mFiles, "a.txt"), "2");
    EXPECT_EQ(takeWithin(mFiles, milliseconds(1000)), Names());
}

} // namespace viewer
