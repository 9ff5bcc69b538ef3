#include "WatchedFileSystem.h"

#include <filesystem>

#include <sys/stat.h>

namespace viewer {

using nurel::vfs::DirectoryFileSystem;

WatchedFileSystem::WatchedFileSystem(const std::vector<std::string> &folders) {
    for (const std::string &folder : folders)
        mFolders.push_back(std::make_unique<DirectoryFileSystem>(folder.c_str()));
}

WatchedFileSystem::Stamp WatchedFileSystem::look(const std::string &path) const {
    Stamp stamp;
    for (const auto &folder : mFolders) {
        struct stat file;
        const std::string place = (std::filesystem::path(folder->getRoot()) / path).string();
        if (stat(place.c_str(), &file) == 0 && !S_ISDIR(file.st_mode)) {
            stamp.seconds = file.st_mtim.tv_sec;
            stamp.nanoseconds = file.st_mtim.tv_nsec;
            stamp.size = file.st_size;
            stamp.identity = file.st_ino;
            return stamp;
        }
        ++stamp.folder;
    }
    return stamp;
}

nurel::stream::InputStream *WatchedFileSystem::open(const char *path) {
    const std::string name = path ? path : "";
    const Stamp stamp = look(name);
    {
        const std::lock_guard lock(mMutex);
        mWatched[name] = {stamp, {}, {}, {}, false};
    }
    return mFolders[stamp.folder < mFolders.size() ? stamp.folder : 0]->open(name.c_str());
}

bool WatchedFileSystem::exists(const char *path) {
    const std::string name = path ? path : "";
    const Stamp stamp = look(name);
    if (stamp.folder < mFolders.size())
        return true;
    const std::lock_guard lock(mMutex);
    mWatched[name] = {stamp, {}, {}, {}, false};
    return false;
}

bool WatchedFileSystem::isSettled(Entry &entry, const Stamp &stamp, Time now) const {
    if (!entry.settling)
        entry.changingSince = now;
    if (!entry.settling || !(stamp == entry.seen)) {
        entry.settling = true;
        entry.seen = stamp;
        entry.seenSince = now;
    }
    const bool gone = stamp.folder == mFolders.size();
    return now - entry.seenSince >= (gone ? SETTLING_WHEN_GONE : SETTLING) ||
           now - entry.changingSince >= LONGEST_SETTLING;
}

std::vector<std::string> WatchedFileSystem::takeChanged(Time now) {
    const std::lock_guard lock(mMutex);
    std::vector<std::string> changed;
    for (auto &[path, entry] : mWatched) {
        const Stamp stamp = look(path);
        if (stamp == entry.known) {
            entry.settling = false;
        } else if (isSettled(entry, stamp, now)) {
            entry.known = stamp;
            entry.settling = false;
            changed.push_back(path);
        }
    }
    return changed;
}

} // namespace viewer
