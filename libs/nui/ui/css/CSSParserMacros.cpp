#include "nmain/parser/LexerException.h"
#include "nmain/parser/Token.h"
#include "nui/ui/css/CSSParser.h"
#include "nui/ui/css/detail/MacroPlaces.h"

#include <cstring>

namespace nurel::ui::css {

using parser::LexerException;
using parser::Token;

namespace {

// What one value may take until it counts as going on for ever.
constexpr unsigned int MAX_REPLACEMENTS = 10000;
constexpr std::size_t MAX_SIZE = std::size_t{1} << 20;

bool isLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

bool isWordCharacter(char character) {
    return isLetter(character) || (character >= '0' && character <= '9') || character == '_';
}

// A digit or "_" may stand before a name, but not behind it.
bool isWholeWord(const std::string &text, std::size_t position, std::size_t length) {
    if (position > 0 && isLetter(text[position - 1]))
        return false;
    return position + length == text.size() || !isWordCharacter(text[position + length]);
}

void guard(const Token &token, const char *name, unsigned int replacements, std::size_t size) {
    if (replacements > MAX_REPLACEMENTS)
        throw LexerException("Macros without end: '%.64s' after %u replacements. At position %d:%d", name,
                             MAX_REPLACEMENTS, token.getLine(), token.getColumn());
    if (size > MAX_SIZE)
        throw LexerException("Macros without end: '%.64s' makes a value longer than %zu bytes. At position %d:%d", name,
                             MAX_SIZE, token.getLine(), token.getColumn());
}

void guard(const Token &token, const detail::MacroPlaces &places) {
    if (places.isGivenUp())
        throw LexerException("Macros without end: a value takes too long. At position %d:%d", token.getLine(),
                             token.getColumn());
}

} // namespace

// Each word goes with everything behind it still attached. So a parser that compares exactly fails on all but the last
// word, while a font family keeps its spaces.
bool CSSParser::setValue(Property *property, const char *text, int &index) {
    do {
        if (!property->setValue(text, index))
            return false;
        text = std::strchr(text, ' ');
    } while (text && *++text);
    return true;
}

unsigned int CSSParser::applyDefines(const Token &token, std::string &out) const {
    out = token.getText();
    if (out.find(MACRO_SIGN) == std::string::npos || mMacros.empty())
        return 0;
    detail::MacroPlaces places(mMacros, mLongestMacro, out);
    guard(token, places);
    unsigned int total = 0;
    unsigned int count = 0;
    do {
        count = 0;
        const char *name = nullptr;
        while (const detail::MacroPlaces::Place *place = places.findNext(name)) {
            name = place->macro->first;
            // only the first place counts: one that is no whole word hides those behind it
            if (!isWholeWord(out, out.size() - place->fromEnd, std::strlen(name)))
                continue;
            places.replace(*place);
            ++count;
            ++total;
            guard(token, name, total, out.size());
            guard(token, places);
        }
    } while (count > 0);
    return total;
}

} // namespace nurel::ui::css
