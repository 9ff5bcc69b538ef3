#pragma once

#include <cstddef>
#include <string>

namespace nurel::stream {

/// A sink of bytes that is written once from front to back, by one thread at a time.
class OutputStream {
public:
    OutputStream() = default;
    OutputStream(const OutputStream &) = delete;
    OutputStream &operator=(const OutputStream &) = delete;
    virtual ~OutputStream() = default;

    /// Writes all of `size` bytes. Raises core::IOException when the sink takes no more.
    virtual void write(const void *buffer, std::size_t size) = 0;

    /// The name by which messages point at the stream. Never null; lives as long as the stream.
    virtual const char *getName() const = 0;
};

/// Collects what is written in memory.
class MemoryOutputStream : public OutputStream {
public:
    /// A null name counts as "".
    explicit MemoryOutputStream(const char *name = "");

    void write(const void *buffer, std::size_t size) override;
    const char *getName() const override { return mName.c_str(); }

    const std::string &getContent() const { return mContent; }

private:
    std::string mName;
    std::string mContent;
};

} // namespace nurel::stream
