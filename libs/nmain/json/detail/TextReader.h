#pragma once

#include <array>
#include <cstddef>
#include <iterator>

namespace nurel::stream {
class InputStream;
}

namespace nurel::json {

/// A stream character by character, with the line and column of those read last.
class TextReader {
public:
    /// Line and column, both from 1; a column is one character.
    struct Place {
        int line;
        int column;
    };

    /// Walks the reader that it points at; the default one is the end.
    class Iterator {
    public:
        using iterator_category = std::input_iterator_tag;
        using value_type = char;
        using difference_type = std::ptrdiff_t;
        using pointer = const char *;
        using reference = char;

        Iterator() = default;
        explicit Iterator(TextReader &reader) : mReader(&reader) {}

        char operator*() const { return mReader->getCharacter(); }
        Iterator &operator++() {
            mReader->advance();
            return *this;
        }
        bool operator==(const Iterator &other) const { return isAtEnd() == other.isAtEnd(); }

    private:
        bool isAtEnd() const { return !mReader || mReader->isAtEnd(); }

        TextReader *mReader = nullptr;
    };

    explicit TextReader(stream::InputStream &stream) : mStream(stream) {}

    /// Reads on when the buffer is used up.
    bool isAtEnd();

    /// Not to be called at the end.
    char getCharacter() const { return mBuffer[mPosition]; }
    void advance();

    /// The character that was passed last; a line break before that.
    char getLastCharacter() const { return mLastCharacter; }
    Place getLastPlace() const { return mLast; }

    /// The place of the byte with this index. It is known for the two that were read last and for the next one; earlier
    /// ones give the oldest that is known.
    Place getPlace(std::size_t index) const;

private:
    stream::InputStream &mStream;
    std::array<char, 4096> mBuffer;
    std::size_t mPosition = 0;
    std::size_t mLength = 0;
    std::size_t mRead = 0; // bytes read in all
    char mLastCharacter = '\n';
    bool mMarked = false; // the stream starts with a byte order mark, which takes no column
    Place mNext{1, 1};
    Place mLast{1, 1};
    Place mBeforeLast{1, 1};
};

} // namespace nurel::json
