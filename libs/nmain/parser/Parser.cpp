#include "nmain/parser/Parser.h"

#include "nmain/parser/Lexer.h"
#include "nmain/parser/LexerException.h"
#include "nmain/stream/InputStream.h"

namespace nurel::parser {

Parser::Parser(Lexer *lexer, bool ownsLexer) : mLexer(lexer), mOwnedLexer(ownsLexer ? lexer : nullptr) {
    if (!lexer)
        throw ::core::IllegalArgumentException("A parser needs a lexer");
}

Parser::~Parser() = default;

void Parser::setInputStream(stream::InputStream *stream, bool ownsStream) {
    mPushed.clear();
    mLexer->setInputStream(stream);
    if (mOwnedStream.get() == stream)
        mOwnedStream.release();
    mOwnedStream.reset(ownsStream ? stream : nullptr);
}

Token *Parser::next() {
    if (mPushed.empty())
        return mLexer->next();
    Token *token = mPushed.back();
    mPushed.pop_back();
    return token;
}

void Parser::push(Token *token) {
    if (token)
        mPushed.push_back(token);
}

void Parser::check(const Token *token, unsigned int id) const {
    if (token && token->getId() == id)
        return;
    const char *found = token ? token->getText() : "";
    const int line = token ? token->getLine() : 0;
    const int column = token ? token->getColumn() : 0;
    if (const Token *expected = mLexer->findToken(id))
        throw LexerException("Syntax error: '%s' expected, '%s' found. At position %d:%d", expected->getText(), found,
                             line, column);
    throw LexerException("Syntax error: unexpected '%s'. At position %d:%d", found, line, column);
}

void Parser::skipSection(unsigned int open, unsigned int close, int depth) {
    for (const Token *token = next(); !Token::isEOF(token); token = next()) {
        if (token->getId() == open)
            ++depth;
        else if (token->getId() == close && --depth <= 0)
            return;
    }
}

} // namespace nurel::parser
