#include "nmain/core/Serializable.h"

#include "nmain/stream/InputStream.h"
#include "nmain/stream/OutputStream.h"

#include "foundation/core/Exception.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace nurel::core {

namespace {

constexpr unsigned char MARK[] = {'N', 'U', 'S'}; ///< the header's first bytes; the format follows
constexpr std::size_t LONGEST_TEXT = 16u << 20;

/// Says whether the stream had that many bytes.
bool readFully(stream::InputStream &in, void *bytes, std::size_t size) {
    auto *at = static_cast<unsigned char *>(bytes);
    while (size != 0) {
        const std::size_t count = in.read(at, size);
        if (count == 0)
            return false;
        at += count;
        size -= count;
    }
    return true;
}

} // namespace

void Serializable::save(stream::OutputStream &out) const {
    checkWrite(out);
    serialize(out);
}

void Serializable::load(stream::InputStream &in) {
    switch (checkRead(in)) {
    case 0:
        deserializeLegacy0(in);
        break;
    case 1:
        deserializeLegacy1(in);
        break;
    default:
        deserialize(in);
        break;
    }
}

void Serializable::serialize(stream::OutputStream &) const {}

void Serializable::deserialize(stream::InputStream &) {}

void Serializable::deserializeLegacy0(stream::InputStream &) {
    throw ::core::IllegalStateException("Cannot read %s: it has no format 0", getType().getName());
}

void Serializable::deserializeLegacy1(stream::InputStream &) {
    throw ::core::IllegalStateException("Cannot read %s: it has no format 1", getType().getName());
}

unsigned Serializable::checkRead(stream::InputStream &in) const {
    const char *const own = getType().getName();
    unsigned char header[sizeof MARK + 1];
    if (!readFully(in, header, sizeof header) || std::memcmp(header, MARK, sizeof MARK) != 0)
        throw ::core::IllegalStateException("Cannot read %s: the stream holds no object", own);
    const unsigned format = header[sizeof MARK];
    if (format > FORMAT)
        throw ::core::IllegalStateException("Cannot read %s: the stream has the unknown format %u", own, format);
    std::string found;
    readText(in, found);
    if (found != own)
        throw ::core::IllegalStateException("Cannot read %s: the stream holds %s", own, found.c_str());
    return format;
}

void Serializable::checkWrite(stream::OutputStream &out) const {
    unsigned char header[sizeof MARK + 1];
    std::copy_n(MARK, sizeof MARK, header);
    header[sizeof MARK] = FORMAT;
    out.write(header, sizeof header);
    writeText(out, getType().getName());
}

void Serializable::writeText(stream::OutputStream &out, const char *text) const {
    const std::size_t size = std::strlen(text);
    if (size > LONGEST_TEXT)
        throw ::core::IllegalStateException("Cannot write %s: a text has more than 16 MiB", getType().getName());
    const unsigned char length[] = {
        static_cast<unsigned char>(size & 0xff), static_cast<unsigned char>(size >> 8 & 0xff),
        static_cast<unsigned char>(size >> 16 & 0xff), static_cast<unsigned char>(size >> 24 & 0xff)};
    out.write(length, sizeof length);
    out.write(text, size);
}

void Serializable::readText(stream::InputStream &in, std::string &text) const {
    unsigned char length[4];
    if (!readFully(in, length, sizeof length))
        throw ::core::IllegalStateException("Cannot read %s: the stream ends early", getType().getName());
    const std::size_t size =
        length[0] | std::size_t{length[1]} << 8 | std::size_t{length[2]} << 16 | std::size_t{length[3]} << 24;
    if (size > LONGEST_TEXT)
        throw ::core::IllegalStateException("Cannot read %s: a text has more than 16 MiB", getType().getName());
    std::string bytes(size, '\0');
    if (!readFully(in, bytes.data(), size))
        throw ::core::IllegalStateException("Cannot read %s: the stream ends early", getType().getName());
    text = std::move(bytes);
}

} // namespace nurel::core
