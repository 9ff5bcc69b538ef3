#include "nmain/parser/Lexer.h"

#include "foundation/logging/Logger.h"
#include "nmain/stream/InputStream.h"

#include <algorithm>
#include <cstring>

namespace nurel::parser {

namespace {

constexpr char BYTE_ORDER_MARK[] = "\xEF\xBB\xBF";
constexpr std::size_t BYTE_ORDER_MARK_LENGTH = sizeof BYTE_ORDER_MARK - 1;

// What a character can be, several at once.
constexpr std::uint8_t WORD = 1; // a word always goes on with it
constexpr std::uint8_t MARK = 2; // a registered mark begins with it
constexpr std::uint8_t IGNORABLE = 4;
constexpr std::uint8_t NEW_LINE = 8;
constexpr std::uint8_t CONTINUATION = 16; // not the first byte of a character

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0u) == 0x80u;
}

} // namespace

Lexer::Lexer(unsigned int lookAhead, unsigned int bufferSize)
    : mClasses{}, mClassified(false), mEnd(Token::END_OF_INPUT, "<!EOF!>"), mStream(nullptr), mPosition(0), mLength(0),
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
    if (!mClassified)
        classify();
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
    const std::size_t length = std::strlen(token->getText());
    mMarks.push_back({token, length});
    mFirstBytes.set(static_cast<unsigned char>(*token->getText()));
    mLookAhead = std::max(mLookAhead, length);
    mClassified = false;
}

Token *Lexer::findToken(unsigned int id) const {
    const auto found =
        std::find_if(mMarks.begin(), mMarks.end(), [id](const Mark &mark) { return mark.token->getId() == id; });
    return found == mMarks.end() ? nullptr : found->token;
}

Token *Lexer::findToken(const char *text, bool whole) const {
    if (!mFirstBytes.test(static_cast<unsigned char>(*text)))
        return nullptr;
    Token *longest = nullptr;
    std::size_t longestLength = 0;
    for (const Mark &mark : mMarks) {
        if (*mark.token->getText() != *text || !mark.token->isEnabled() || mark.length <= longestLength ||
            std::strncmp(text, mark.token->getText(), mark.length) != 0)
            continue;
        if (whole && text[mark.length])
            continue;
        longest = mark.token;
        longestLength = mark.length;
    }
    return longest;
}

// Asks the dialect about each character, so that a sheet costs no virtual call a character.
void Lexer::classify() {
    mClassified = true;
    for (std::size_t byte = 0; byte < mClasses.size(); ++byte) {
        const char text[] = {static_cast<char>(byte), '\0'};
        std::uint8_t characterClass = 0;
        if (mFirstBytes.test(byte))
            characterClass |= MARK;
        else if (isIdentifier(text))
            characterClass |= WORD;
        if (isIgnorable(*text))
            characterClass |= IGNORABLE;
        if (isNewLine(text))
            characterClass |= NEW_LINE;
        if (isContinuation(*text))
            characterClass |= CONTINUATION;
        mClasses[byte] = characterClass;
    }
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

// How far away the character is, or the end of what is in the buffer.
std::size_t Lexer::find(char character) const {
    const std::size_t rest = mLength - mPosition;
    const void *found = std::memchr(here(), character, rest);
    return found ? static_cast<std::size_t>(static_cast<const char *>(found) - here()) : rest;
}

// Passes bytes that are in the buffer.
void Lexer::advance(std::size_t count) {
    for (const std::size_t end = mPosition + std::min(count, mLength - mPosition); mPosition < end; ++mPosition) {
        const std::uint8_t characterClass = classOf(*here());
        if (characterClass & NEW_LINE) {
            ++mLine;
            mColumn = 1;
        } else if (!(characterClass & CONTINUATION)) {
            ++mColumn;
        }
    }
}

// How many bytes of the class stand here in the buffer.
std::size_t Lexer::count(std::uint8_t characterClass) const {
    std::size_t end = mPosition;
    while (end < mLength && (classOf(mBuffer[end]) & characterClass))
        ++end;
    return end - mPosition;
}

void Lexer::take(std::size_t count) {
    mWord.append(here(), count);
    advance(count);
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
        if (classOf(*here()) & IGNORABLE)
            advance(count(IGNORABLE));
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
    while (fill() && !(classOf(*here()) & NEW_LINE));
}

void Lexer::skipComment() {
    const int line = mLine;
    const int column = mColumn;
    const char first = *getEndMultilineComment();
    advance(std::max<std::size_t>(std::strlen(getMultilineComment()), 1));
    while (fill()) {
        if (first && *here() != first) {
            advance(find(first));
        } else if (isEndMultiLineComment(here()) != CG_NONE) {
            advance(static_cast<std::size_t>(std::max(getEndMultiLineCommentLength(), 0)));
            return;
        } else {
            advance(1);
        }
    }
    logging::Logger::mROOT_LOGGER.warn("Comment without '%s'. At position %d:%d", getEndMultilineComment(), line,
                                       column);
}

void Lexer::readString() {
    mWord.clear();
    const char quote = *here();
    take(1);
    while (fill() && *here() != quote)
        take(find(quote));
    if (fill())
        take(1);
}

void Lexer::readWord() {
    mWord.clear();
    // one character at least, so that a dialect which calls it no identifier still gets on
    take(1);
    while (fill()) {
        const char *text = here();
        if (classOf(*text) & WORD)
            take(count(WORD));
        else if ((classOf(*text) & MARK) && isIdentifier(text))
            take(1);
        else
            return;
    }
}

} // namespace nurel::parser
