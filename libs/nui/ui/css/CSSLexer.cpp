#include "nui/ui/css/CSSLexer.h"

#include <cstring>

namespace nurel::ui::css {

namespace {

constexpr unsigned int LOOK_AHEAD = 2;
constexpr unsigned int BUFFER_SIZE = 1024;

constexpr char OPEN_COMMENT[] = "/*";
constexpr char CLOSE_COMMENT[] = "*/";
constexpr std::size_t COMMENT_MARK_LENGTH = 2;

} // namespace

constinit parser::Token CSSLexer::sMarks[6] = {{OPEN, "{"},  {CLOSE, "}"},     {COMMA, ","},
                                               {COLON, ":"}, {SEMICOLON, ";"}, {AT, "@"}};
// reads as the empty text
constinit parser::Token CSSLexer::sInvalid(INVALID, "\0<!INVALID_TOKEN!>");
constinit parser::Token CSSLexer::sString(STRING, "<!string!>", static_cast<char *>(nullptr));
constinit parser::Token CSSLexer::sIdentifier(IDENTIFIER, "<!id!>", false);
constinit std::unique_ptr<char[]> CSSLexer::sBuffer;
constinit std::size_t CSSLexer::sCapacity = 0;

CSSLexer::CSSLexer() : Lexer(LOOK_AHEAD, BUFFER_SIZE) {
    fillTokens();
}

void CSSLexer::fillTokens() {
    for (parser::Token &mark : sMarks)
        addToken(&mark);
}

bool CSSLexer::isNewLine(const char *text) const {
    return *text == '\n';
}

bool CSSLexer::isIgnorable(char character) const {
    return static_cast<unsigned char>(character) <= ' ';
}

parser::Lexer::CommentGuess CSSLexer::isSingleLineComment(const char *) const {
    return CG_NONE;
}

parser::Lexer::CommentGuess CSSLexer::isMultiLineComment(const char *text) const {
    return std::strncmp(text, OPEN_COMMENT, COMMENT_MARK_LENGTH) == 0 ? CG_COMMENT : CG_NONE;
}

parser::Lexer::CommentGuess CSSLexer::isEndMultiLineComment(const char *text) const {
    return std::strncmp(text, CLOSE_COMMENT, COMMENT_MARK_LENGTH) == 0 ? CG_COMMENT : CG_NONE;
}

const char *CSSLexer::getMultilineComment() const {
    return OPEN_COMMENT;
}

int CSSLexer::getEndMultiLineCommentLength() const {
    return COMMENT_MARK_LENGTH;
}

const char *CSSLexer::getEndMultilineComment() const {
    return CLOSE_COMMENT;
}

bool CSSLexer::isString(const char *text) const {
    return *text == '\'' || *text == '"';
}

// Room grows with the longest string so far and is never given back.
char *CSSLexer::copyString(const char *text, std::size_t length) {
    if (length >= sCapacity) {
        sBuffer = std::make_unique<char[]>(length + 1);
        sCapacity = length + 1;
    }
    std::memcpy(sBuffer.get(), text, length);
    sBuffer[length] = '\0';
    return sBuffer.get();
}

parser::Token *CSSLexer::text2Token(const char *text) {
    const std::size_t length = std::strlen(text);
    if (length < 2 || !isString(text) || text[length - 1] != text[0]) {
        sIdentifier.setText(text);
        return &sIdentifier;
    }
    sString.setString(copyString(text + 1, length - 2));
    return &sString;
}

} // namespace nurel::ui::css
