#pragma once

namespace nurel::stream {
class InputStream;
}

namespace nurel::vfs {

/// Where templates, style sheets, images and catalogues come from. A program derives from it to read its own archives.
/// Images are read by a worker, so `open` and `exists` must be safe to call from several threads at once.
class FileSystem {
public:
    FileSystem() = default;
    FileSystem(const FileSystem &) = delete;
    FileSystem &operator=(const FileSystem &) = delete;
    virtual ~FileSystem() = default;

    /// A new stream over the file, which the caller owns. Raises core::IOException "Cannot open file <path>" when there
    /// is no such file. A null path counts as "".
    virtual stream::InputStream *open(const char *path) = 0;

    /// Whether `open` would succeed now. This one tries it; file systems that know better override it.
    virtual bool exists(const char *path);
};

} // namespace nurel::vfs
