#pragma once

#include "nmain/parser/Lexer.h"
#include "nmain/parser/Token.h"

#include <cstddef>
#include <memory>

namespace nurel::ui::css {

/// The words of style sheets: six marks, comments between "/*" and "*/", strings in single or double quotes without
/// escapes, and identifiers, which is everything else up to the next white space or mark. A comment or a quote inside
/// an identifier belongs to it.
///
/// All lexers share their tokens and the memory of the string that was read last, so that only one sheet can be parsed
/// at a time. What a token says holds until the next one is read.
class CSSLexer : public parser::Lexer {
public:
    /// The ids of the tokens.
    enum TokenId : unsigned int {
        OPEN = 0,
        CLOSE = 1,
        COMMA = 2, ///< may be switched off, and is then part of identifiers
        COLON = 3,
        SEMICOLON = 4,
        AT = 5,
        INVALID = 6, ///< no token that is read has it
        STRING = 7,
        IDENTIFIER = 8
    };

    CSSLexer();

protected:
    bool isNewLine(const char *text) const override;
    bool isIgnorable(char character) const override;
    CommentGuess isSingleLineComment(const char *text) const override;
    CommentGuess isMultiLineComment(const char *text) const override;
    CommentGuess isEndMultiLineComment(const char *text) const override;
    const char *getMultilineComment() const override;
    int getEndMultiLineCommentLength() const override;
    const char *getEndMultilineComment() const override;
    bool isString(const char *text) const override;

    /// The string token for a text that begins and ends with the same quote, with what stands between them as its
    /// content; else the identifier token with the text itself, which is not copied.
    parser::Token *text2Token(const char *text) override;

private:
    void fillTokens();
    static char *copyString(const char *text, std::size_t length);

    static parser::Token sMarks[6];
    static parser::Token sInvalid;
    static parser::Token sString;
    static parser::Token sIdentifier;
    static std::unique_ptr<char[]> sBuffer;
    static std::size_t sCapacity;
};

} // namespace nurel::ui::css
