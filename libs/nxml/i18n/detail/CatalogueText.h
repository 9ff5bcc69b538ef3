#pragma once

#include <cstddef>
#include <string>

namespace nurel::stream {
class InputStream;
}

namespace nurel::i18n {

/// The whole text of a catalogue, and errors that point into it.
class CatalogueText {
public:
    /// Reads the stream to its end. Raises CatalogueException when it is not well-formed UTF-8 or holds U+0000, and
    /// what the stream raises. A byte order mark is left out.
    explicit CatalogueText(stream::InputStream &stream);

    const std::string &getText() const { return mText; }

    /// Raises CatalogueException "<stream>:<line>:<column>: <reason>" for the byte with this index.
    [[noreturn]] void fail(std::size_t index, const char *format, ...) const __attribute__((format(printf, 3, 4)));

private:
    void checkEncoding() const;

    std::string mName;
    std::string mText;
};

} // namespace nurel::i18n
