#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>

namespace nurel::stream {

/// A source of bytes that is read once from front to back. A stream belongs to one thread at a time; different streams
/// may be read by different threads. Whoever gets a stream from an `open` owns it.
class InputStream {
public:
    InputStream() = default;
    InputStream(const InputStream &) = delete;
    InputStream &operator=(const InputStream &) = delete;
    virtual ~InputStream() = default;

    /// Reads up to `size` bytes to `buffer` and returns how many; it may return fewer than asked for. 0 is the end of
    /// the stream, and every later call gives 0 too. Raises core::IOException when the source fails.
    virtual std::size_t read(void *buffer, std::size_t size) = 0;

    /// The name by which messages point at the stream, a path as a rule. Never null; lives as long as the stream.
    virtual const char *getName() const = 0;
};

/// A stream over bytes in memory.
class MemoryInputStream : public InputStream {
public:
    /// Takes the bytes over. A null name counts as "".
    MemoryInputStream(const char *name, std::string content);

    /// Shares the bytes with others. Null content is an empty stream.
    MemoryInputStream(const char *name, std::shared_ptr<const std::string> content);

    std::size_t read(void *buffer, std::size_t size) override;
    const char *getName() const override { return mName.c_str(); }

private:
    std::string mName;
    std::shared_ptr<const std::string> mContent;
    std::size_t mPosition = 0;
};

/// A stream over a file of the operating system, whose name is its path.
class FileInputStream : public InputStream {
public:
    /// Raises core::IOException "Cannot open file <path>" when the file is missing, unreadable or a directory.
    explicit FileInputStream(const char *path);
    ~FileInputStream() override;

    std::size_t read(void *buffer, std::size_t size) override;
    const char *getName() const override { return mName.c_str(); }

private:
    std::string mName;
    std::FILE *mFile;
};

/// Everything from the stream's present position to its end. Raises what `read` raises.
std::string readAll(InputStream &stream);

} // namespace nurel::stream
