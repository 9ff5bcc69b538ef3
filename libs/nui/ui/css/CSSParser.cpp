#include "nui/ui/css/CSSParser.h"

#include "foundation/logging/Logger.h"
#include "nmain/parser/LexerException.h"
#include "nmain/parser/Token.h"
#include "nui/ui/css/CSS.h"
#include "nui/ui/css/CSSLexer.h"
#include "nui/ui/css/Rule.h"
#include "nui/ui/css/Selector.h"

#include <cstring>

namespace nurel::ui::css {

using parser::LexerException;
using parser::Token;

namespace {

constexpr unsigned int NO_TOKEN = 9; // nothing nests by it

[[noreturn]] void raiseNoSelector(const Token &found) {
    throw LexerException("Syntax error: ':' or <id> expected, '%s' found. At position %d:%d", found.getText(),
                         found.getLine(), found.getColumn());
}

} // namespace

/// While it lives, commas are part of words.
class CSSParser::ValueContext {
public:
    explicit ValueContext(CSSParser &parser) : mParser(parser) { mParser.disableTokens(); }
    ~ValueContext() { mParser.enableTokens(); }
    ValueContext(const ValueContext &) = delete;
    ValueContext &operator=(const ValueContext &) = delete;

private:
    CSSParser &mParser;
};

CSSParser::CSSParser() : Parser(new CSSLexer, true), mComma(getLexer()->findToken(CSSLexer::COMMA)) {}

CSSParser::~CSSParser() = default;

void CSSParser::setFileName(const char *name) {
    mFileName = name ? std::make_shared<const std::string>(name) : nullptr;
}

void CSSParser::disableTokens() {
    mComma->setEnabled(false);
}

void CSSParser::enableTokens() {
    mComma->setEnabled(true);
}

CSS *CSSParser::parse(stream::InputStream *stream) {
    setInputStream(stream, false);
    auto css = std::make_unique<CSS>();
    enableTokens();
    mMacros.clear();
    for (Token *token = next(); !Token::isEOF(token); token = next()) {
        push(token);
        parseRule(css.get());
    }
    return css.release();
}

void CSSParser::parseRule(CSS *css) {
    Selectors selectors;
    parseSelectors(selectors);
    Properties properties;
    parseBlock(properties);
    addRules(*css, selectors, properties);
}

// Up to and including the "{". White space between two words parts selectors just as commas do, and nothing else does:
// a ":" goes to the last word, even over a comma.
void CSSParser::parseSelectors(Selectors &selectors) {
    for (Token *token = next(); token->getId() != CSSLexer::OPEN; token = next()) {
        switch (token->getId()) {
        case CSSLexer::IDENTIFIER:
            selectors.push_back({token->getText(), token->getLine()});
            break;
        case CSSLexer::COLON:
            push(token);
            break;
        case CSSLexer::COMMA:
            break;
        case CSSLexer::AT:
            parseExtension();
            break;
        default:
            raiseNoSelector(*token);
        }
        Token *ahead = next();
        if (ahead->getId() == CSSLexer::COLON) {
            if (selectors.empty())
                raiseNoSelector(*ahead);
            const Token *state = next();
            check(state, CSSLexer::IDENTIFIER);
            selectors.back().text.append(1, ':').append(state->getText());
        } else if (ahead->getId() != CSSLexer::COMMA) {
            push(ahead);
        }
    }
}

// Up to and including the "}".
void CSSParser::parseBlock(Properties &properties) {
    for (Token *token = next(); token->getId() != CSSLexer::CLOSE; token = next()) {
        push(token);
        parseProperty(properties);
    }
}

void CSSParser::addRules(CSS &css, const Selectors &selectors, const Properties &properties) const {
    for (const SelectorText &text : selectors) {
        std::unique_ptr<Selector> selector(Selector::parse(text.text.c_str()));
        if (!selector)
            continue;
        const core::SmartPtr<Rule> rule = new Rule();
        rule->append(selector.release());
        rule->setSource(mFileName, text.line);
        for (const auto &property : properties)
            rule->add(property.second.get());
        css.add(rule.get());
    }
}

Property *CSSParser::parseProperty(Properties &properties) {
    const Token *token = next();
    check(token, CSSLexer::IDENTIFIER);
    int index = 0;
    const Property::Name name = Property::parseName(token->getText(), index);
    if (!name)
        return skipProperty(token->getText());
    const auto found = properties.find(name);
    const bool isNew = found == properties.end();
    const core::SmartPtr<Property> property = isNew ? core::SmartPtr<Property>(Property::create(name)) : found->second;
    if (!property)
        return skipProperty(token->getText());
    check(next(), CSSLexer::COLON);
    parseValues(*property, index);
    if (isNew)
        properties.emplace(name, property);
    return property.get();
}

// Up to and including the ";".
void CSSParser::parseValues(Property &property, int index) {
    const ValueContext context(*this);
    std::string value;
    for (const Token *token = next(); token->getId() != CSSLexer::SEMICOLON; token = next()) {
        check(token, CSSLexer::IDENTIFIER);
        if (applyDefines(*token, value) == 0)
            property.setValue(value.c_str(), index);
        else
            setValue(&property, value.c_str(), index);
    }
}

Property *CSSParser::skipProperty(const char *name) {
    logging::Logger::mROOT_LOGGER.warn("Ignoring unsupported CSS property: %s", name);
    skipSection(NO_TOKEN, CSSLexer::SEMICOLON, 1);
    return nullptr;
}

void CSSParser::parseExtension() {
    const Token *token = next();
    check(token, CSSLexer::IDENTIFIER);
    if (std::strcmp(token->getText(), "define") == 0) {
        parseDefine();
        return;
    }
    logging::Logger::mROOT_LOGGER.warn("Ignoring unsupported extension @%s", token->getText());
    skipSection(CSSLexer::OPEN, CSSLexer::CLOSE, 0);
}

void CSSParser::parseDefine() {
    check(next(), CSSLexer::OPEN);
    for (const Token *token = next(); token->getId() != CSSLexer::CLOSE; token = next()) {
        if (token->getId() != CSSLexer::IDENTIFIER)
            throw LexerException("Syntax error: <id> expected, '%s' found (CSSParser::parseDefine) at %d:%d",
                                 token->getText(), token->getLine(), token->getColumn());
        std::string name = token->getText();
        if (!name.empty() && name.front() != MACRO_SIGN)
            name.insert(name.begin(), MACRO_SIGN);
        check(next(), CSSLexer::COLON);
        std::string value;
        parseDefinition(value);
        if (name.size() < 2)
            logging::Logger::mROOT_LOGGER.warn("Ignoring unnamed macro: %s: %s", name.c_str(), value.c_str());
        else
            mMacros.put(name, value);
    }
}

// Up to and including the ";". The words and the contents of strings, with one space between any two.
void CSSParser::parseDefinition(std::string &value) {
    const ValueContext context(*this);
    bool isFirst = true;
    for (const Token *token = next(); token->getId() != CSSLexer::SEMICOLON; token = next()) {
        if (!isFirst)
            value += ' ';
        isFirst = false;
        if (token->getId() == CSSLexer::IDENTIFIER)
            value += token->getText();
        else if (token->getId() == CSSLexer::STRING)
            value += token->getString();
        else // the text is misspelt, and callers see it so
            throw LexerException(
                "Syntax error: <id> or <string> expeted. '%s' found (CSSParser::parseDefine), at %d:%d",
                token->getText(), token->getLine(), token->getColumn());
    }
}

} // namespace nurel::ui::css
