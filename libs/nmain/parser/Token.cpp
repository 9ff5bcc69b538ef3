#include "nmain/parser/Token.h"

namespace nurel::parser {

Token::Token(unsigned id, const char *text) : Token(id, text, true) {}

Token::Token(unsigned id, const char *text, bool enabled)
    : mId(id), mText(text ? text : ""), mString(nullptr), mLine(0), mColumn(0), mEnabled(enabled) {}

Token::Token(unsigned id, const char *text, char *content) : Token(id, text, true) {
    mString = content;
}

void Token::setPosition(int line, int column) {
    mLine = line;
    mColumn = column;
}

} // namespace nurel::parser
