#include "nmain/parser/LexerException.h"
#include "nmain/parser/Token.h"
#include "nui/ui/css/CSSParser.h"

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

std::size_t countCommon(const char *a, const char *b) {
    std::size_t count = 0;
    while (a[count] && a[count] == b[count])
        ++count;
    return count;
}

void guard(const Token &token, const char *name, unsigned int replacements, std::size_t size) {
    if (replacements > MAX_REPLACEMENTS)
        throw LexerException("Macros without end: '%.64s' after %u replacements. At position %d:%d", name,
                             MAX_REPLACEMENTS, token.getLine(), token.getColumn());
    if (size > MAX_SIZE)
        throw LexerException("Macros without end: '%.64s' makes a value longer than %zu bytes. At position %d:%d", name,
                             MAX_SIZE, token.getLine(), token.getColumn());
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
    unsigned int total = 0;
    unsigned int count = 0;
    do {
        count = 0;
        std::size_t position = 0;
        for (auto macro = findMacro(out, nullptr, position); macro != mMacros.end();
             macro = findMacro(out, macro->first, position)) {
            // only the first place counts: one that is no whole word hides those behind it
            const std::size_t length = std::strlen(macro->first);
            if (!isWholeWord(out, position, length))
                continue;
            out.replace(position, length, macro->second);
            ++count;
            ++total;
            guard(token, macro->first, total, out.size());
        }
    } while (count > 0);
    return total;
}

// The first macro behind `after` in the order of names that stands in the text, and its first place there; the end when
// there is none. The same as to look for each name in turn, but it costs no time for names that the text doesn't have.
CSSParser::Macros::const_iterator CSSParser::findMacro(const std::string &text, const char *after,
                                                       std::size_t &position) const {
    const auto first = after ? mMacros.upper_bound(after) : mMacros.begin();
    auto best = mMacros.end();
    if (first == best)
        return best;
    for (std::size_t place = text.find(MACRO_SIGN); place != std::string::npos;
         place = text.find(MACRO_SIGN, place + 1)) {
        const char *here = text.c_str() + place;
        if (best != mMacros.end() && std::strncmp(here, best->first, std::strlen(best->first)) >= 0)
            continue; // what stands here is that one or comes after it
        const auto macro = findPrefix(first, here);
        if (macro == mMacros.end())
            continue;
        best = macro;
        position = place;
        if (best == first)
            break;
    }
    return best;
}

// The shortest macro name, from `macro` on in the order of names, with which the text begins.
CSSParser::Macros::const_iterator CSSParser::findPrefix(Macros::const_iterator macro, const char *text) const {
    std::string beginning;
    while (macro != mMacros.end()) {
        const char *name = macro->first;
        const std::size_t common = countCommon(name, text);
        if (!name[common])
            return macro;
        // names are ordered by their bytes without sign
        if (static_cast<unsigned char>(name[common]) > static_cast<unsigned char>(text[common]))
            break;
        // this name is too small: one that fits shares at least one character more with the text
        beginning.assign(text, common + 1);
        macro = mMacros.lower_bound(beginning.c_str());
    }
    return mMacros.end();
}

} // namespace nurel::ui::css
