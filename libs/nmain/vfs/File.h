#pragma once

#include <string>

namespace nurel::stream {
class InputStream;
}

namespace nurel::vfs {

class FileSystem;

/// A path together with the file system that opens it. Making one opens nothing.
class File {
public:
    /// The file system must outlive the file. A null path counts as "".
    File(FileSystem &fileSystem, const char *path);
    virtual ~File() = default;

    /// A new stream from the file's beginning, which the caller owns. Raises core::IOException when it can't be opened.
    virtual stream::InputStream *getInputStream() const;

    const char *getPath() const { return mPath.c_str(); }

private:
    FileSystem *mFileSystem;
    std::string mPath;
};

} // namespace nurel::vfs
