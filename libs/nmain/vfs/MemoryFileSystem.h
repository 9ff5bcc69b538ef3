#pragma once

#include "foundation/core/CriticalSection.h"
#include "nmain/vfs/FileSystem.h"

#include <map>
#include <memory>
#include <string>

namespace nurel::vfs {

/// Files that a program carries in memory. Paths are compared after "." and ".." steps and doubled slashes have been
/// taken out: "a/./b" and "a/b" are the same file. Every operation may be called from any thread.
class MemoryFileSystem : public FileSystem {
public:
    /// Makes the file, or replaces it; streams that are open keep reading the old content. Null counts as "".
    void add(const char *path, std::string content);

    /// Returns whether there was such a file.
    bool remove(const char *path);

    stream::InputStream *open(const char *path) override;
    bool exists(const char *path) override;

private:
    std::shared_ptr<const std::string> find(const char *path);

    ::core::CriticalSection mLock;
    std::map<std::string, std::shared_ptr<const std::string>> mFiles;
};

} // namespace nurel::vfs
