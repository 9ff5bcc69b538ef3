#include "nmain/vfs/MemoryFileSystem.h"

#include "foundation/core/Exception.h"
#include "foundation/core/Lock.h"
#include "nmain/stream/InputStream.h"

#include <filesystem>

namespace nurel::vfs {

namespace {

std::string normalise(const char *path) {
    return std::filesystem::path(path ? path : "").lexically_normal().generic_string();
}

} // namespace

void MemoryFileSystem::add(const char *path, std::string content) {
    auto shared = std::make_shared<const std::string>(std::move(content));
    const ::core::Lock lock(mLock);
    mFiles[normalise(path)].swap(shared);
}

bool MemoryFileSystem::remove(const char *path) {
    const ::core::Lock lock(mLock);
    return mFiles.erase(normalise(path)) != 0;
}

stream::InputStream *MemoryFileSystem::open(const char *path) {
    std::shared_ptr<const std::string> content = find(path);
    if (!content)
        throw ::core::IOException("Cannot open file %s", path ? path : "");
    return new stream::MemoryInputStream(path, std::move(content));
}

bool MemoryFileSystem::exists(const char *path) {
    return find(path) != nullptr;
}

std::shared_ptr<const std::string> MemoryFileSystem::find(const char *path) {
    const ::core::Lock lock(mLock);
    const auto found = mFiles.find(normalise(path));
    return found == mFiles.end() ? nullptr : found->second;
}

} // namespace nurel::vfs
