#include "nmain/vfs/File.h"

#include "nmain/vfs/FileSystem.h"

namespace nurel::vfs {

File::File(FileSystem &fileSystem, const char *path) : mFileSystem(&fileSystem), mPath(path ? path : "") {}

stream::InputStream *File::getInputStream() const {
    return mFileSystem->open(mPath.c_str());
}

} // namespace nurel::vfs
