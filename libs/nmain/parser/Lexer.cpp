#include "nmain/parser/Lexer.h"

#include "foundation/logging/Logger.h"
#include "nmain/stream/InputStream.h"

#include <algorithm>
#include <cstring>

namespace nurel::parser {

namespace {

constexpr char BYTE_ORDER_MARK[] = "\xEF\xBB\xBF";
constexpr std::size_t BYTE_ORDER_MARK_LENGTH = sizeof BYTE_ORDER_MARK - 1;

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0u) == 0x80u;
}

} // namespace

Lexer::Lexer(unsigned int lookAhead, unsigned int bufferSize)
    : mEnd(Token::END_OF_INPUT, "<!EOF!>"), mStream(nullptr), mPosition(0), mLength(0),
      mLookAhead(std::max<std::size_t>(lookAhead, BYTE_ORDER_MARK_LENGTH)), mChunk(std::max(bufferSize, 1u)),
      mStarted(false), mLine(1), mColumn(1) {
    mBuffer.push_back('\0');
}

Lexer::~Lexer() = default;

void Lexer::setInputStream(stream::InputStream *stream) {
    mStream = stream;
    mPosition = 0;
    mLength = 0;
    mBuffer[0] = '\0';
    mStarted = false;
    mLine = 1;
    mColumn = 1;
}

Token *Lexer::next() {
    skipByteOrderMark();
    skipIgnorable();
    const int line = mLine;
    const int column = mColumn;
    Token *token;
    if (!fill()) {
        token = &mEnd;
    } else if ((token = findToken(here(), false))) {
        advance(std::strlen(token->getText()));
    } else {
        if (isString(here()))
            readString();
        else
            readWord();
        token = text2Token(mWord.c_str());
    }
    token->setPosition(line, column);
    return token;
}

void Lexer::addToken(Token *token) {
    if (!token || !*token->getText())
        return;
    mTokens.push_back(token);
    mFirstBytes.set(static_cast<unsigned char>(*token->getText()));
    mLookAhead = std::max(mLookAhead, std::strlen(token->getText()));
}

Token *Lexer::findToken(unsigned int id) const {
    const auto found =
        std::find_if(mTokens.begin(), mTokens.end(), [id](const Token *token) { return token->getId() == id; });
    return found == mTokens.end() ? nullptr : *found;
}

Token *Lexer::findToken(const char *text, bool whole) const {
    if (!mFirstBytes.test(static_cast<unsigned char>(*text)))
        return nullptr;
    Token *longest = nullptr;
    std::size_t longestLength = 0;
    for (Token *token : mTokens) {
        const std::size_t length = std::strlen(token->getText());
        if (!token->isEnabled() || length <= longestLength || std::strncmp(text, token->getText(), length) != 0)
            continue;
        if (whole && text[length])
            continue;
        longest = token;
        longestLength = length;
    }
    return longest;
}

bool Lexer::isIdentifier(const char *text) const {
    return *text && !isIgnorable(*text) && !findToken(text, false);
}

bool Lexer::isNewLine(const char *text) const {
    return *text == '\n';
}

bool Lexer::isIgnorable(char character) const {
    return static_cast<unsigned char>(character) <= ' ';
}

Lexer::CommentGuess Lexer::isSingleLineComment(const char *) const {
    return CG_NONE;
}

Lexer::CommentGuess Lexer::isMultiLineComment(const char *) const {
    return CG_NONE;
}

Lexer::CommentGuess Lexer::isEndMultiLineComment(const char *) const {
    return CG_COMMENT;
}

const char *Lexer::getMultilineComment() const {
    return "";
}

int Lexer::getEndMultiLineCommentLength() const {
    return 0;
}

const char *Lexer::getEndMultilineComment() const {
    return "";
}

bool Lexer::isString(const char *text) const {
    return *text == '"' || *text == '\'';
}

// Reads on until the buffer holds all that a test at the present place may want to see. False at the end of input.
bool Lexer::fill() {
    while (mLength - mPosition < mLookAhead && mStream) {
        std::memmove(mBuffer.data(), here(), mLength - mPosition);
        mLength -= mPosition;
        mPosition = 0;
        mBuffer.resize(mLength + mChunk + 1);
        mBuffer[mLength] = '\0';
        const std::size_t count = mStream->read(mBuffer.data() + mLength, mChunk);
        if (count == 0)
            mStream = nullptr;
        mLength += count;
        mBuffer[mLength] = '\0';
    }
    return mPosition < mLength;
}

// Passes bytes that are in the buffer.
void Lexer::advance(std::size_t count) {
    for (count = std::min(count, mLength - mPosition); count > 0; --count) {
        const char *text = here();
        ++mPosition;
        if (isNewLine(text)) {
            ++mLine;
            mColumn = 1;
        } else if (!isContinuation(*text)) {
            ++mColumn;
        }
    }
}

void Lexer::take() {
    mWord += *here();
    advance(1);
}

void Lexer::skipByteOrderMark() {
    if (mStarted || !fill())
        return;
    mStarted = true;
    if (std::strncmp(here(), BYTE_ORDER_MARK, BYTE_ORDER_MARK_LENGTH) == 0)
        mPosition += BYTE_ORDER_MARK_LENGTH;
}

void Lexer::skipIgnorable() {
    while (fill()) {
        if (isIgnorable(*here()))
            advance(1);
        else if (isMultiLineComment(here()) != CG_NONE)
            skipComment();
        else if (isSingleLineComment(here()) != CG_NONE)
            skipLine();
        else
            return;
    }
}

void Lexer::skipLine() {
    do
        advance(1);
    while (fill() && !isNewLine(here()));
}

void Lexer::skipComment() {
    const int line = mLine;
    const int column = mColumn;
    advance(std::max<std::size_t>(std::strlen(getMultilineComment()), 1));
    while (fill()) {
        if (isEndMultiLineComment(here()) != CG_NONE) {
            advance(static_cast<std::size_t>(std::max(getEndMultiLineCommentLength(), 0)));
            return;
        }
        advance(1);
    }
    logging::Logger::mROOT_LOGGER.warn("Comment without '%s'. At position %d:%d", getEndMultilineComment(), line,
                                       column);
}

void Lexer::readString() {
    mWord.clear();
    const char quote = *here();
    take();
    while (fill() && *here() != quote)
        take();
    if (fill())
        take();
}

void Lexer::readWord() {
    mWord.clear();
    // one character at least, so that a dialect which calls it no identifier still gets on
    do
        take();
    while (fill() && isIdentifier(here()) && isMultiLineComment(here()) == CG_NONE &&
           isSingleLineComment(here()) == CG_NONE);
}

} // namespace nurel::parser
