#pragma once

#include "foundation/core/SmartPtr.h"
#include "nmain/core/Names.h"
#include "nmain/parser/Parser.h"
#include "nui/core/CKHashMap.h"
#include "nui/ui/css/Property.h"

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace nurel::parser {
class Token;
}

namespace nurel::ui::css {

class CSS;

/// Reads a style sheet. The language is described in docs/styling.md.
///
/// A token out of place costs the whole sheet: it raises `parser::LexerException` with line and column, both from 1.
/// Unknown property names and unknown "@" words cost a warning and what belongs to them. Values that a property does
/// not understand and selectors that are none are passed over without a word.
///
/// A parser can be used again and again; nothing of one sheet carries into the next. Sheets are parsed one at a time,
/// whatever the thread or the parser.
class CSSParser : public parser::Parser {
public:
    CSSParser();
    ~CSSParser() override;

    /// Reads the stream to its end. The stream stays the caller's, and the sheet is the caller's to delete. Raises
    /// `parser::LexerException` for what is no sheet, and whatever the stream raises.
    CSS *parse(stream::InputStream *stream);

    /// The file in which the rules of the sheets parsed from now on say that they stand. Null: none.
    void setFileName(const char *name);

private:
    /// The words of one selector put together, and where the first of them stood.
    struct SelectorText {
        std::string text;
        int line;
    };
    using Selectors = std::vector<SelectorText>;
    using Properties = std::map<Property::Name, core::SmartPtr<Property>>;
    using Macros = core::CKHashMapValue<std::string>;
    class ValueContext;

    static constexpr char MACRO_SIGN = '$';

    void parseRule(CSS *css);
    void parseSelectors(Selectors &selectors);
    void parseBlock(Properties &properties);
    void addRules(CSS &css, const Selectors &selectors, const Properties &properties) const;
    Property *parseProperty(Properties &properties);
    void parseValues(Property &property, int index);
    Property *skipProperty(const char *name);
    void parseExtension();
    void parseDefine();
    void parseDefinition(std::string &value);

    void disableTokens();
    void enableTokens();

    static bool setValue(Property *property, const char *text, int &index);
    unsigned int applyDefines(const parser::Token &token, std::string &out) const;
    Macros::const_iterator findMacro(const std::string &text, const char *after, std::size_t &position) const;
    Macros::const_iterator findPrefix(Macros::const_iterator macro, const char *text) const;

    parser::Token *mComma;
    Macros mMacros;
    std::shared_ptr<const std::string> mFileName;
};

} // namespace nurel::ui::css
