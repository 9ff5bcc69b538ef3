#pragma once

#include "foundation/core/IRefCount.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace nurel::stream {
class InputStream;
}

namespace nurel::i18n {

/// The texts of one language by their keys. Reference counted; I18N holds those that it uses.
class Bundle : public ::core::IRefCount {
public:
    /// An empty bundle. The locale is a language ("de"), a language with a region ("de_AT"), or "" for the texts that
    /// serve every language; see normaliseLocale.
    explicit Bundle(const char *locale);

    /// Reads an XML catalogue: a root element `<catalogue locale="de">` of `<text key="OK">Gut</text>` elements. Of
    /// equal keys the last holds. The result's reference is the caller's; the stream stays the caller's too. Raises
    /// CatalogueException "<stream>:<line>:<column>: <reason>" when the text is no such catalogue, and what the stream
    /// raises.
    static Bundle *parseXML(stream::InputStream &stream);

    /// Reads a gettext catalogue (.po, UTF-8). The locale is the header's "Language"; `locale` holds when the header
    /// has none. Fuzzy, obsolete and untranslated entries are left out, of plural forms the first is taken, and an
    /// entry with a context has the key "<context>\004<id>". Otherwise as parseXML.
    static Bundle *parsePO(stream::InputStream &stream, const char *locale = "");

    /// parsePO for a stream whose name ends in ".po", else parseXML.
    static Bundle *parse(stream::InputStream &stream);

    const char *getLocale() const { return mLocale.c_str(); }
    unsigned getLength() const { return static_cast<unsigned>(mTexts.size()); }

    /// Adds or replaces a text. Null counts as "". Pointers to the text that was there before end.
    void put(const char *key, const char *text);

    /// The text of a key, which lives until it is replaced or the bundle ends; null when there is none.
    const char *get(std::string_view key) const;

    /// Whether a text holds keys, written "${key}", that I18N::resolve would replace. False for null.
    static bool needsResolving(const char *text);

    /// The form in which locales are compared: what follows "." or "@" is dropped and "-" becomes "_", so that
    /// "de-AT.UTF-8" is "de_AT". "C" and "POSIX" are "".
    static std::string normaliseLocale(const char *locale);

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
    };

    std::string mLocale;
    std::unordered_map<std::string, std::string, Hash, std::equal_to<>> mTexts;
};

} // namespace nurel::i18n
