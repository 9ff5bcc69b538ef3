#include "foundation/core/SmartPtr.h"
#include "foundation/text/StringUtil.h"
#include "nxml/i18n/Bundle.h"
#include "nxml/i18n/detail/CatalogueText.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace nurel::i18n {

namespace {

constexpr std::string_view WHITE_SPACE = " \t\r\f\v";

bool isKeywordCharacter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= '0' && character <= '9') || character == '_' ||
           character == '[' || character == ']';
}

/// Reads a gettext catalogue line by line; the entry that is being read is put into the bundle when the next one
/// begins.
class POReader {
public:
    POReader(const CatalogueText &text, Bundle &bundle) : mText(text), mSource(text.getText()), mBundle(bundle) {}

    void read();

    /// What the header says; empty when it says nothing.
    const std::string &getLanguage() const { return mLanguage; }

private:
    enum Part { NOTHING, CONTEXT, ID, PLURAL_ID, TEXT, OTHER_TEXT };

    struct Entry {
        std::string context, id, text;
        bool hasContext = false, hasId = false, hasText = false;
        std::size_t start = 0;
    };

    void readLine();
    void readComment();
    void readKeyword();
    void readStrings();
    void readString(std::string &content);
    void readEscape(std::string &content);
    void begin(Part part, std::size_t start);
    void finish();
    void readHeader();
    std::string getHeaderField(std::string_view name) const;

    bool isAtLineEnd() const { return mPosition >= mLineEnd; }
    void skipWhiteSpace();

    const CatalogueText &mText;
    std::string_view mSource;
    Bundle &mBundle;
    std::size_t mPosition = 0;
    std::size_t mLineEnd = 0;
    Entry mEntry;
    Part mPart = NOTHING;    // what a continued string belongs to
    bool mFuzzy = false;     // the entry being read is marked as a guess
    bool mNextFuzzy = false; // so is the next one
    std::string mLanguage;
};

void POReader::read() {
    while (mPosition < mSource.size()) {
        mLineEnd = std::min(mSource.find('\n', mPosition), mSource.size());
        readLine();
        mPosition = mLineEnd + 1;
    }
    finish();
}

void POReader::readLine() {
    skipWhiteSpace();
    if (isAtLineEnd())
        return;
    if (mSource[mPosition] == '#')
        readComment();
    else if (mSource[mPosition] == '"')
        readStrings();
    else
        readKeyword();
}

void POReader::readComment() {
    if (mEntry.hasText)
        finish();
    const std::string_view line = mSource.substr(mPosition, mLineEnd - mPosition);
    if (line.starts_with("#,") && line.find("fuzzy") != line.npos)
        mNextFuzzy = true;
}

void POReader::readKeyword() {
    const std::size_t start = mPosition;
    while (!isAtLineEnd() && isKeywordCharacter(mSource[mPosition]))
        ++mPosition;
    const std::string keyword(mSource.substr(start, mPosition - start));
    if (keyword == "msgctxt")
        begin(CONTEXT, start);
    else if (keyword == "msgid")
        begin(ID, start);
    else if (keyword == "msgid_plural")
        begin(PLURAL_ID, start);
    else if (keyword == "msgstr" || keyword == "msgstr[0]")
        begin(TEXT, start);
    else if (keyword.starts_with("msgstr[") && keyword.ends_with("]"))
        begin(OTHER_TEXT, start);
    else
        mText.fail(start, "a keyword such as msgid expected");
    skipWhiteSpace();
    if (isAtLineEnd() || mSource[mPosition] != '"')
        mText.fail(mPosition, "a string expected after %s", keyword.c_str());
    readStrings();
}

// Enters the part of an entry that its keyword opens, and the next entry where one begins.
void POReader::begin(Part part, std::size_t start) {
    const bool opensEntry = part == CONTEXT || (part == ID && !(mEntry.hasContext && !mEntry.hasId));
    if (opensEntry) {
        finish();
        mEntry.start = start;
        mFuzzy = std::exchange(mNextFuzzy, false);
    } else if (part != ID && !mEntry.hasId) {
        mText.fail(start, "msgid expected");
    } else if (part == TEXT && mEntry.hasText) {
        mText.fail(start, "a second msgstr for one msgid");
    }
    mPart = part;
    mEntry.hasContext = mEntry.hasContext || part == CONTEXT;
    mEntry.hasId = mEntry.hasId || part == ID;
    mEntry.hasText = mEntry.hasText || part == TEXT;
}

void POReader::readStrings() {
    std::string dropped;
    std::string *content = nullptr;
    switch (mPart) {
    case NOTHING:
        mText.fail(mPosition, "a string without a keyword");
    case CONTEXT:
        content = &mEntry.context;
        break;
    case ID:
        content = &mEntry.id;
        break;
    case TEXT:
        content = &mEntry.text;
        break;
    case PLURAL_ID:
    case OTHER_TEXT:
        content = &dropped;
        break;
    }
    while (!isAtLineEnd()) {
        if (mSource[mPosition] != '"')
            mText.fail(mPosition, "nothing may follow a string");
        readString(*content);
        skipWhiteSpace();
    }
}

void POReader::readString(std::string &content) {
    const std::size_t start = mPosition++;
    while (!isAtLineEnd() && mSource[mPosition] != '"') {
        if (mSource[mPosition] == '\\')
            readEscape(content);
        else
            content += mSource[mPosition++];
    }
    if (isAtLineEnd())
        mText.fail(start, "a string without its closing quote");
    ++mPosition;
}

void POReader::readEscape(std::string &content) {
    constexpr std::string_view LETTERS = "ntr\"\\'abfv";
    constexpr std::string_view MEANINGS = "\n\t\r\"\\'\a\b\f\v";
    const std::size_t start = mPosition++;
    const std::size_t letter = isAtLineEnd() ? LETTERS.npos : LETTERS.find(mSource[mPosition]);
    if (letter == LETTERS.npos)
        mText.fail(start, "an unknown escape sequence");
    content += MEANINGS[letter];
    ++mPosition;
}

void POReader::finish() {
    if ((mEntry.hasContext || mEntry.hasId) && !mEntry.hasText)
        mText.fail(mEntry.start, "an entry without msgstr");
    if (mEntry.hasId && !mEntry.hasContext && mEntry.id.empty())
        readHeader();
    else if (mEntry.hasId && !mEntry.text.empty() && !mFuzzy)
        mBundle.put((mEntry.hasContext ? mEntry.context + '\004' + mEntry.id : mEntry.id).c_str(), mEntry.text.c_str());
    mEntry = Entry();
    mPart = NOTHING;
    mFuzzy = false;
}

void POReader::readHeader() {
    mLanguage = getHeaderField("Language:");
    const std::string contentType = getHeaderField("Content-Type:");
    constexpr std::string_view CHARSET = "charset=";
    const std::size_t charset = contentType.find(CHARSET);
    if (charset == contentType.npos)
        return;
    const std::string name = contentType.substr(charset + CHARSET.size());
    for (const char *readable : {"UTF-8", "UTF8", "ASCII", "US-ASCII", "CHARSET"}) {
        if (text::StringUtil::compareIgnoreCase(name.c_str(), readable) == 0)
            return;
    }
    mText.fail(mEntry.start, "the charset %s can't be read; save the catalogue as UTF-8", name.c_str());
}

std::string POReader::getHeaderField(std::string_view name) const {
    const std::string_view header = mEntry.text;
    std::size_t start = 0;
    while (start < header.size() && !header.substr(start).starts_with(name))
        start = std::min(header.find('\n', start), header.size() - 1) + 1;
    if (start >= header.size())
        return {};
    std::string_view field = header.substr(start + name.size());
    field = field.substr(0, field.find('\n'));
    field.remove_prefix(std::min(field.find_first_not_of(WHITE_SPACE), field.size()));
    return std::string(field.substr(0, field.find_last_not_of(WHITE_SPACE) + 1));
}

void POReader::skipWhiteSpace() {
    while (!isAtLineEnd() && WHITE_SPACE.find(mSource[mPosition]) != WHITE_SPACE.npos)
        ++mPosition;
}

} // namespace

Bundle *Bundle::parsePO(stream::InputStream &stream, const char *locale) {
    const CatalogueText text(stream);
    ::core::SmartPtr<Bundle> bundle(new Bundle(locale));
    POReader reader(text, *bundle);
    reader.read();
    if (!reader.getLanguage().empty())
        bundle->mLocale = normaliseLocale(reader.getLanguage().c_str());
    return bundle.release();
}

} // namespace nurel::i18n
