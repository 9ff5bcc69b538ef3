#pragma once

#include "nmain/vfs/DirectoryFileSystem.h"

#include <chrono>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace viewer {

/// The files of some folders, with a memory of which were asked for and what became of them since. A name is looked for
/// in one folder after the other; the first that has it gives the file. Files are opened from the frame thread and from
/// the one that decodes images.
class WatchedFileSystem : public nurel::vfs::FileSystem {
public:
    using Time = std::chrono::steady_clock::time_point;

    /// How long a file has to stay as it is before a change counts: whoever writes it may not be done.
    static constexpr std::chrono::milliseconds SETTLING{80};
    /// The same for a file that is gone: some editors put the new one in place after they took the old one away.
    static constexpr std::chrono::milliseconds SETTLING_WHEN_GONE{400};
    /// A file that never comes to rest counts as changed after this time.
    static constexpr std::chrono::milliseconds LONGEST_SETTLING{500};

    /// "" is the working directory of the process. At least one.
    explicit WatchedFileSystem(const std::vector<std::string> &folders);

    nurel::stream::InputStream *open(const char *path) override;
    bool exists(const char *path) override;

    /// The files that were opened or missed before and have been written, deleted or made since they were last read or
    /// told here. `now` is the time of the call; calls are to come every tenth of a second or so.
    std::vector<std::string> takeChanged(Time now);

private:
    /// By what a file is known to be another one: never compared in part.
    struct Stamp {
        std::size_t folder = 0; ///< index of the folder that it is in, or their count when there is no such file
        long long seconds = 0;
        long long nanoseconds = 0;
        long long size = 0;
        unsigned long long identity = 0;
        bool operator==(const Stamp &) const = default;
    };
    struct Entry {
        Stamp known;
        Stamp seen; ///< while it settles
        Time seenSince;
        Time changingSince;
        bool settling = false;
    };

    Stamp look(const std::string &path) const;
    bool isSettled(Entry &entry, const Stamp &stamp, Time now) const;

    std::vector<std::unique_ptr<nurel::vfs::DirectoryFileSystem>> mFolders;
    std::mutex mMutex;
    std::map<std::string, Entry> mWatched;
};

} // namespace viewer
