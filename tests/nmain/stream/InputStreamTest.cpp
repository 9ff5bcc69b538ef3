#include "nmain/stream/InputStream.h"

#include "foundation/core/Exception.h"
#include "nmain/stream/OutputStream.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

using namespace nurel::stream;

namespace {

/// Gives its bytes three at a time.
class TrickleStream : public InputStream {
public:
    explicit TrickleStream(std::string content) : mContent(std::move(content)) {}

    std::size_t read(void *buffer, std::size_t size) override {
        const std::size_t count = mContent.copy(static_cast<char *>(buffer), std::min<std::size_t>(size, 3), mPosition);
        mPosition += count;
        return count;
    }
    const char *getName() const override { return "trickle"; }

private:
    std::string mContent;
    std::size_t mPosition = 0;
};

class FileInputStreamTest : public testing::Test {
protected:
    void SetUp() override {
        mFolder = std::filesystem::path(testing::TempDir()) / "nui-input-stream-test";
        std::filesystem::create_directories(mFolder);
    }
    void TearDown() override { std::filesystem::remove_all(mFolder); }

    std::filesystem::path mFolder;
};

std::string getMessage(const std::string &path) {
    try {
        const FileInputStream stream(path.c_str());
    } catch (const core::IOException &error) {
        return error.what();
    }
    return "opened";
}

} // namespace

TEST(MemoryInputStream, GivesItsBytesOnceAndThenTheEndForEver) {
    MemoryInputStream stream("name", std::string("ab\0cd", 5));
    char buffer[4];
    EXPECT_EQ(stream.read(buffer, 4), 4u);
    EXPECT_EQ(std::string(buffer, 4), std::string("ab\0c", 4));
    EXPECT_EQ(stream.read(buffer, 4), 1u);
    EXPECT_EQ(buffer[0], 'd');
    EXPECT_EQ(stream.read(buffer, 4), 0u);
    EXPECT_EQ(stream.read(buffer, 4), 0u);
}

TEST(MemoryInputStream, TakesNullForAnEmptyNameAndEmptyContent) {
    MemoryInputStream stream(nullptr, std::shared_ptr<const std::string>());
    char byte;
    EXPECT_STREQ(stream.getName(), "");
    EXPECT_EQ(stream.read(&byte, 1), 0u);
}

TEST(MemoryInputStream, SharesItsContentWithOthers) {
    const auto content = std::make_shared<const std::string>("shared");
    MemoryInputStream first("first", content);
    MemoryInputStream second("second", content);
    EXPECT_EQ(readAll(first), "shared");
    EXPECT_EQ(readAll(second), "shared");
}

TEST(ReadAll, GoesOnAfterShortReads) {
    TrickleStream stream("0123456789");
    EXPECT_EQ(readAll(stream), "0123456789");
}

TEST(ReadAll, TakesUpWhereTheStreamStands) {
    MemoryInputStream stream("name", std::string(100000, 'x') + "y");
    char buffer[100];
    stream.read(buffer, sizeof buffer);
    const std::string rest = readAll(stream);
    EXPECT_EQ(rest.size(), 99901u);
    EXPECT_EQ(rest.back(), 'y');
}

TEST_F(FileInputStreamTest, ReadsAFileWhoseNameIsItsPath) {
    const std::string path = (mFolder / "file").string();
    std::ofstream(path, std::ios::binary) << "line\r\n\xFF";
    FileInputStream stream(path.c_str());
    EXPECT_EQ(stream.getName(), path);
    EXPECT_EQ(readAll(stream), "line\r\n\xFF");
}

TEST_F(FileInputStreamTest, RefusesAMissingFile) {
    const std::string path = (mFolder / "missing").string();
    EXPECT_EQ(getMessage(path), "Cannot open file " + path);
}

TEST_F(FileInputStreamTest, RefusesAFolder) {
    EXPECT_EQ(getMessage(mFolder.string()), "Cannot open file " + mFolder.string());
}

TEST_F(FileInputStreamTest, RefusesNull) {
    EXPECT_THROW(FileInputStream(nullptr), core::IOException);
}

TEST(MemoryOutputStream, CollectsWhatIsWritten) {
    MemoryOutputStream stream("out");
    stream.write("ab", 2);
    stream.write("", 0);
    stream.write("c\0d", 3);
    EXPECT_STREQ(stream.getName(), "out");
    EXPECT_EQ(stream.getContent(), std::string("abc\0d", 5));
}
