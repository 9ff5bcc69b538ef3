#pragma once

#include <memory>
#include <vector>

namespace nurel::stream {
class InputStream;
}

namespace nurel::parser {

class Lexer;
class Token;

/// The base of a parser by recursive descent: tokens one at a time, with any number given back.
class Parser {
public:
    /// With `ownsLexer` the lexer is deleted with the parser. Raises core::IllegalArgumentException for a null lexer.
    Parser(Lexer *lexer, bool ownsLexer);
    Parser(const Parser &) = delete;
    Parser &operator=(const Parser &) = delete;
    virtual ~Parser();

    /// Starts at the beginning of a stream and forgets the tokens that were given back. With `ownsStream` the stream is
    /// deleted with the parser, or when the next one is set.
    void setInputStream(stream::InputStream *stream, bool ownsStream);

    /// The token given back last, or else the lexer's next one. Never null; see Token for how long it holds.
    Token *next();

    /// Gives a token back: `next` returns it again, the last one given back first. The end of input may be given back
    /// too; null is ignored. A token is not copied, so two readings of one shared token can't both be given back.
    void push(Token *token);

    /// Raises LexerException, with the token's text, line and column, when the token's id is another.
    void check(const Token *token, unsigned int id) const;

    /// Drops tokens up to and including the one that closes a section. `depth` is how many sections are open already;
    /// each `open` adds one and each `close` takes one, and the section ends when none is left. With depth 0 the next
    /// `open` begins it, and a `close` before that ends it. Stops at the end of input.
    void skipSection(unsigned int open, unsigned int close, int depth);

protected:
    Lexer *getLexer() const { return mLexer; }

private:
    Lexer *mLexer;
    std::unique_ptr<Lexer> mOwnedLexer;
    std::unique_ptr<stream::InputStream> mOwnedStream;
    std::vector<Token *> mPushed;
};

} // namespace nurel::parser
