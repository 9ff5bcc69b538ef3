#pragma once

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

namespace viewer {

/// A folder of the running test's own, which goes with the object.
class TemporaryFolder {
public:
    TemporaryFolder() {
        const auto *info = testing::UnitTest::GetInstance()->current_test_info();
        mPath = std::filesystem::temp_directory_path() /
                (std::string("nui-viewer-") + info->test_suite_name() + "-" + info->name());
        std::filesystem::remove_all(mPath);
        std::filesystem::create_directories(mPath);
    }
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;
    ~TemporaryFolder() { std::filesystem::remove_all(mPath); }

    std::string getPath(const std::string &name) const { return (mPath / name).string(); }

    /// Writes over what is there, in place. Folders on the way are made.
    void write(const std::string &name, const std::string &content) const {
        std::filesystem::create_directories((mPath / name).parent_path());
        std::ofstream(mPath / name, std::ios::binary) << content;
        setNewTime(name);
    }

    /// Saves as many editors do: the new file takes the place of the old one in one step.
    void writeByRenaming(const std::string &name, const std::string &content) const {
        write(name + "~", content);
        std::filesystem::rename(mPath / (name + "~"), mPath / name);
    }

    void remove(const std::string &name) const { std::filesystem::remove(mPath / name); }

private:
    /// Two saves of a test may fall into one tick of the file system's clock.
    void setNewTime(const std::string &name) const {
        mTime += std::chrono::seconds(2);
        std::filesystem::last_write_time(mPath / name, mTime);
    }

    std::filesystem::path mPath;
    mutable std::filesystem::file_time_type mTime = std::filesystem::file_time_type::clock::now();
};

} // namespace viewer
