#include "WatchedFileSystem.h"

namespace viewer {

WatchedFileSystem::WatchedFileSystem(const std::string &folder) : mFiles(folder.c_str()), mFolder(folder) {}

std::filesystem::file_time_type WatchedFileSystem::getWriteTime(const std::string &path) const {
    std::error_code missing;
    const auto time = std::filesystem::last_write_time(mFolder / path, missing);
    return missing ? std::filesystem::file_time_type::min() : time;
}

nurel::stream::InputStream *WatchedFileSystem::open(const char *path) {
    {
        const std::lock_guard lock(mMutex);
        mOpened[path] = getWriteTime(path);
    }
    return mFiles.open(path);
}

bool WatchedFileSystem::exists(const char *path) {
    return mFiles.exists(path);
}

std::vector<std::string> WatchedFileSystem::takeChanged() {
    const std::lock_guard lock(mMutex);
    std::vector<std::string> changed;
    for (auto &[path, time] : mOpened) {
        const auto now = getWriteTime(path);
        if (now != time) {
            time = now;
            changed.push_back(path);
        }
    }
    return changed;
}

} // namespace viewer
