#pragma once

#include "nmain/vfs/FileSystem.h"

#include <string>

namespace nurel::vfs {

/// The files below one folder of the operating system. Paths are relative to that folder; an absolute path is taken as
/// it is, and ".." may leave the folder: this is a starting point, not a fence. Streams and messages carry the whole
/// path, root included.
class DirectoryFileSystem : public FileSystem {
public:
    /// The folder need not exist yet. "" or null is the working directory of the process.
    explicit DirectoryFileSystem(const char *root);

    stream::InputStream *open(const char *path) override;

    /// False for folders too: they can't be opened.
    bool exists(const char *path) override;

    const char *getRoot() const { return mRoot.c_str(); }

private:
    std::string locate(const char *path) const;

    std::string mRoot;
};

} // namespace nurel::vfs
