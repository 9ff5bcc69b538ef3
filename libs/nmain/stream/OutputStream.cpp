#include "nmain/stream/OutputStream.h"

namespace nurel::stream {

MemoryOutputStream::MemoryOutputStream(const char *name) : mName(name ? name : "") {}

void MemoryOutputStream::write(const void *buffer, std::size_t size) {
    mContent.append(static_cast<const char *>(buffer), size);
}

} // namespace nurel::stream
