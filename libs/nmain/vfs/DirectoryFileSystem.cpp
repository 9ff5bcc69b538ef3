#include "nmain/vfs/DirectoryFileSystem.h"

#include "nmain/stream/InputStream.h"

#include <filesystem>
#include <system_error>

namespace nurel::vfs {

DirectoryFileSystem::DirectoryFileSystem(const char *root) : mRoot(root ? root : "") {}

stream::InputStream *DirectoryFileSystem::open(const char *path) {
    return new stream::FileInputStream(locate(path).c_str());
}

bool DirectoryFileSystem::exists(const char *path) {
    std::error_code unknown;
    const std::filesystem::file_status status = std::filesystem::status(locate(path), unknown);
    return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

std::string DirectoryFileSystem::locate(const char *path) const {
    return (std::filesystem::path(mRoot) / (path ? path : "")).string();
}

} // namespace nurel::vfs
