#pragma once

#include "foundation/core/Type.h"
#include "nmain/core/Fwd.h"

#include <string>

namespace nurel::stream {
class InputStream;
class OutputStream;
} // namespace nurel::stream

namespace nurel::core {

/// What can be written to a stream and read back: a header of format version and type name, then the fields of the
/// class and its bases. save() and load() do both; a class with fields overrides serialize() and deserialize(), calling
/// its base first, and, if it once wrote its fields otherwise, the legacy forms. What a stream raises passes through.
class Serializable {
public:
    /// The format that serialize() writes and deserialize() reads. 0 and 1 are older ones.
    static constexpr unsigned FORMAT = 2;

    virtual ~Serializable() = default;

    virtual const ::core::Type &getType() const = 0;

    /// Whether the run-time class is this one or derives from it.
    bool instanceOf(const ::core::Type &type) const { return getType().instanceOf(type); }

    /// Writes header and fields.
    void save(stream::OutputStream &out) const;

    /// Reads what save() wrote for an object of the same class, whichever format it has.
    void load(stream::InputStream &in);

    virtual void serialize(stream::OutputStream &out) const;
    virtual void deserialize(stream::InputStream &in);

    /// Read the fields of the older formats. Unless a class overrides them they raise IllegalStateException: the class
    /// has never been written in that format.
    virtual void deserializeLegacy0(stream::InputStream &in);
    virtual void deserializeLegacy1(stream::InputStream &in);

    /// Reads the header and returns the format of the fields after it. Raises IllegalStateException when the stream
    /// holds no header, a newer format, or another class.
    unsigned checkRead(stream::InputStream &in) const;

    /// Writes the header.
    void checkWrite(stream::OutputStream &out) const;

protected:
    Serializable() = default;
    Serializable(const Serializable &) = default;
    Serializable &operator=(const Serializable &) = default;

    /// For the fields of derived classes: a text as its length in four bytes, low byte first, and its bytes. Both raise
    /// IllegalStateException for a text of more than 16 MiB, and readText() for a stream that ends early.
    void writeText(stream::OutputStream &out, const char *text) const;
    void readText(stream::InputStream &in, std::string &text) const;
};

} // namespace nurel::core
