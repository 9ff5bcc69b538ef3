#pragma once

namespace nurel::parser {

/// One word of a language: a mark that a Lexer knows by its text, or the carrier of an identifier or a string. Tokens
/// are shared: a lexer hands out the same object each time, with the place at which it has just read it, so place, text
/// and content hold only until the lexer reads on. Texts are not copied; they must live as long as they are set.
class Token {
public:
    /// The id of the end of input. Dialects number their own tokens from 0.
    static constexpr unsigned END_OF_INPUT = 0xffffffffu;

    /// An enabled token without content. A null text counts as "".
    constexpr Token(unsigned id, const char *text) : Token(id, text, true) {}

    constexpr Token(unsigned id, const char *text, bool enabled)
        : mId(id), mText(text ? text : ""), mString(nullptr), mLine(0), mColumn(0), mEnabled(enabled) {}

    /// A token for strings, with the content that it starts with (null: none).
    constexpr Token(unsigned id, const char *text, char *content) : Token(id, text, true) { mString = content; }

    /// True for the token that stands for the end of input, and for null.
    static bool isEOF(const Token *token) { return !token || token->mId == END_OF_INPUT; }

    unsigned getId() const { return mId; }

    const char *getText() const { return mText; }
    void setText(const char *text) { mText = text ? text : ""; }

    /// A lexer reads past a disabled token as if it had never been registered.
    bool isEnabled() const { return mEnabled; }
    void setEnabled(bool enabled) { mEnabled = enabled; }

    /// Line and column, both from 1, of the first character at which the token was read last; 0 before that. A column
    /// is one character.
    int getLine() const { return mLine; }
    int getColumn() const { return mColumn; }
    void setPosition(int line, int column) {
        mLine = line;
        mColumn = column;
    }

    /// The content of a string token, without its quotes. Null when there is none. It belongs to whoever sets it.
    char *getString() const { return mString; }
    void setString(char *content) { mString = content; }

private:
    unsigned mId;
    const char *mText;
    char *mString;
    int mLine;
    int mColumn;
    bool mEnabled;
};

} // namespace nurel::parser
