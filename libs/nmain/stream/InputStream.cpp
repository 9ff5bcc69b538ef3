#include "nmain/stream/InputStream.h"

#include "foundation/core/Exception.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace nurel::stream {

MemoryInputStream::MemoryInputStream(const char *name, std::string content)
    : MemoryInputStream(name, std::make_shared<const std::string>(std::move(content))) {}

MemoryInputStream::MemoryInputStream(const char *name, std::shared_ptr<const std::string> content)
    : mName(name ? name : ""), mContent(std::move(content)) {}

std::size_t MemoryInputStream::read(void *buffer, std::size_t size) {
    if (!mContent || size == 0)
        return 0;
    const std::size_t count = std::min(size, mContent->size() - mPosition);
    std::memcpy(buffer, mContent->data() + mPosition, count);
    mPosition += count;
    return count;
}

FileInputStream::FileInputStream(const char *path) : mName(path ? path : ""), mFile(nullptr) {
    // opening a folder succeeds on some systems, and only reading it fails
    std::error_code unknown;
    if (!std::filesystem::is_directory(mName, unknown))
        mFile = std::fopen(mName.c_str(), "rb");
    if (!mFile)
        throw ::core::IOException("Cannot open file %s", mName.c_str());
}

FileInputStream::~FileInputStream() {
    std::fclose(mFile);
}

std::size_t FileInputStream::read(void *buffer, std::size_t size) {
    const std::size_t count = std::fread(buffer, 1, size, mFile);
    if (count < size && std::ferror(mFile))
        throw ::core::IOException("Cannot read file %s", mName.c_str());
    return count;
}

std::string readAll(InputStream &stream) {
    constexpr std::size_t CHUNK = 16384;
    std::string content;
    for (;;) {
        const std::size_t length = content.size();
        content.resize(length + CHUNK);
        const std::size_t count = stream.read(content.data() + length, CHUNK);
        content.resize(length + count);
        if (count == 0)
            return content;
    }
}

} // namespace nurel::stream
