#pragma once

#include "nmain/vfs/DirectoryFileSystem.h"

#include <filesystem>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace viewer {

/// The files of a folder, with a memory of which were opened and when they were last written. Files are opened from the
/// frame thread and from the one that decodes images.
class WatchedFileSystem : public nurel::vfs::FileSystem {
public:
    explicit WatchedFileSystem(const std::string &folder);

    nurel::stream::InputStream *open(const char *path) override;
    bool exists(const char *path) override;

    /// The files that were opened before and have been written since they were last asked for here.
    std::vector<std::string> takeChanged();

private:
    std::filesystem::file_time_type getWriteTime(const std::string &path) const;

    nurel::vfs::DirectoryFileSystem mFiles;
    std::filesystem::path mFolder;
    std::mutex mMutex;
    std::map<std::string, std::filesystem::file_time_type> mOpened;
};

} // namespace viewer
