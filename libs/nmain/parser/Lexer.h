#pragma once

#include "nmain/parser/Token.h"

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace nurel::stream {
class InputStream;
}

namespace nurel::parser {

/// Cuts a stream into tokens. A dialect derives from it, registers its marks with `addToken` and overrides the tests
/// below; the base does the reading, the counting of lines and columns, and the longest match among the marks.
///
/// At each place, in this order: what is ignorable and comments are skipped; the longest enabled mark that stands there
/// is a token; a quote begins a string, which runs to the next quote of its kind or to the end of input; anything else
/// is a word, which runs to the next place where `isIdentifier` says no: a comment or a quote inside a word is part of
/// it. Words and strings, with their quotes and of any length, go through `text2Token`. A byte order mark at the start
/// is skipped.
///
/// Characters are read ahead, tokens are not: switching a mark on or off takes effect with the next token.
///
/// What a dialect says of a single character must not change: before the first token, and again when marks have been
/// added, the lexer asks the tests that say so once for each of the 256 characters and goes by the answers.
class Lexer {
public:
    /// What a comment test says of a place in the text.
    enum CommentGuess { CG_NONE = 0, CG_COMMENT = 2 };

    /// @param lookAhead    how many characters each test may look at, at least; the marks add to it what they need.
    ///                     Past the end of input a test sees the terminator.
    /// @param bufferSize   how many bytes are asked of the stream at once.
    Lexer(unsigned int lookAhead, unsigned int bufferSize);
    Lexer(const Lexer &) = delete;
    Lexer &operator=(const Lexer &) = delete;
    virtual ~Lexer();

    /// Starts again at line 1 and column 1 with a stream, which stays the caller's and must live until it has been read
    /// or another is set. Nothing is read yet. Null is an empty input.
    void setInputStream(stream::InputStream *stream);

    /// The next token; at the end of input always the token for which Token::isEOF holds. Never null. Raises whatever
    /// the stream raises.
    Token *next();

    /// Registers a mark, which must outlive the lexer. Null and empty texts are ignored; of two equal texts the first
    /// that is enabled is found.
    void addToken(Token *token);

    /// The registered mark of that id, enabled or not; null when there is none.
    Token *findToken(unsigned int id) const;

protected:
    /// The longest enabled mark with which the text begins or, with `whole`, which is the whole text. Null when none
    /// is.
    virtual Token *findToken(const char *text, bool whole) const;

    /// Whether a word goes on here. The base: at what is neither ignorable nor a mark nor the end. Asked at the place
    /// where one of the registered marks might begin; for every other character asked once, with that character alone.
    virtual bool isIdentifier(const char *text) const;

    /// Whether a line ends with this character. The base: "\n". Asked once for each character, with that one alone.
    virtual bool isNewLine(const char *text) const;

    /// Whether the character only separates. The base: space and everything below it. Asked once for each character.
    virtual bool isIgnorable(char character) const;

    /// Whether a comment begins here that runs to the end of the line. The base: never.
    virtual CommentGuess isSingleLineComment(const char *text) const;

    /// Whether a comment begins here that has a mark of its own at its end. The base: never.
    virtual CommentGuess isMultiLineComment(const char *text) const;

    /// Whether that mark stands here. The base: always. Asked only where its first character stands, if
    /// `getEndMultilineComment` tells it.
    virtual CommentGuess isEndMultiLineComment(const char *text) const;

    /// The mark that opens such a comment, as long as it is to be skipped. The base: "".
    virtual const char *getMultilineComment() const;

    /// The length of the mark that closes it. The base: 0.
    virtual int getEndMultiLineCommentLength() const;

    /// The mark that closes it. The base: "".
    virtual const char *getEndMultilineComment() const;

    /// Whether a quote stands here. The base: a single or a double one.
    virtual bool isString(const char *text) const;

    /// The token for a word or a string. The text lives until the next token is read and may be kept by pointer until
    /// then. Must not give null.
    virtual Token *text2Token(const char *text) = 0;

private:
    struct Mark {
        Token *token;
        std::size_t length;
    };

    void classify();
    bool fill();
    const char *here() const { return mBuffer.data() + mPosition; }
    std::uint8_t classOf(char character) const { return mClasses[static_cast<unsigned char>(character)]; }
    std::size_t find(char character) const;
    std::size_t count(std::uint8_t characterClass) const;
    void advance(std::size_t count);
    void take(std::size_t count);
    void skipByteOrderMark();
    void skipIgnorable();
    void skipLine();
    void skipComment();
    void readString();
    void readWord();

    std::vector<Mark> mMarks;
    std::bitset<256> mFirstBytes;           // those with which a registered mark begins
    std::array<std::uint8_t, 256> mClasses; // what the dialect says of each character
    bool mClassified;                       // whether the line above holds
    Token mEnd;
    stream::InputStream *mStream; // null when it has been read to its end
    std::vector<char> mBuffer;    // what is read and not yet used, mPosition to mLength, and a terminator
    std::size_t mPosition;
    std::size_t mLength;
    std::size_t mLookAhead;
    std::size_t mChunk;
    std::string mWord; // the word or string that was read last
    bool mStarted;
    int mLine;
    int mColumn;
};

} // namespace nurel::parser
