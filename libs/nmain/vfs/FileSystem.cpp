#include "nmain/vfs/FileSystem.h"

#include "foundation/core/Exception.h"
#include "nmain/stream/InputStream.h"

#include <memory>

namespace nurel::vfs {

bool FileSystem::exists(const char *path) {
    try {
        return std::unique_ptr<stream::InputStream>(open(path)) != nullptr;
    } catch (const ::core::IOException &) {
        return false;
    }
}

} // namespace nurel::vfs
