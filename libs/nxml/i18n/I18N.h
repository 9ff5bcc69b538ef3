#pragma once

#include "foundation/core/SmartPtr.h"
#include "nxml/i18n/Bundle.h"

#include <string>
#include <string_view>
#include <vector>

namespace nurel::i18n {

/// The texts of the program in the user's language. A singleton that the engine makes and destroys; it belongs to the
/// thread that runs the toolkit.
///
/// A key is looked up in the bundles of the locale, then in those of its language, then in those of no language:
/// "de_AT", "de", "". Among bundles of one locale the one added last comes first.
class I18N {
public:
    /// Makes the singleton, without bundles and with the locale "". Raises core::IllegalStateException when it is there
    /// already.
    static I18N &create();

    /// Ends the singleton; nothing happens when there is none.
    static void destroy();

    static bool isSingletonCreated() { return mSINGLETON != nullptr; }

    /// Raises core::IllegalStateException when there is none.
    static I18N &getSingleton();

    /// Null when there is none.
    static I18N *getSingletonPtr() { return mSINGLETON; }

    I18N(const I18N &) = delete;
    I18N &operator=(const I18N &) = delete;

    /// Adds a bundle and holds it from now on. Null and a bundle that is there already are ignored.
    void addBundle(Bundle *bundle);

    /// False when the bundle is not there.
    bool removeBundle(Bundle *bundle);

    /// Texts that were taken before keep their old language: whoever shows them asks again. See Bundle::normaliseLocale
    /// for the forms; null counts as "".
    void setLocale(const char *locale);
    const char *getLocale() const { return mLocale.c_str(); }

    /// The text of a key, the key itself when no bundle has it, "" for null. The pointer lives as long as the bundle's
    /// text or the given key.
    const char *operator[](const char *key) const;

    /// Replaces each "${key}" of the text by the key's text. An unknown key stands for itself or, with `markUnknown`,
    /// as
    /// "!key!". What is put in is not searched again, and a "${" without a "}" stays as it is. The result is written to
    /// `buffer`, whose text is returned and lives as long as the buffer is left alone. `text` may lie in the buffer;
    /// null counts as "".
    const char *resolve(const char *text, std::string &buffer, bool markUnknown) const;

private:
    I18N() = default;
    ~I18N() = default;

    const char *find(std::string_view key) const;
    void rebuildOrder();

    static I18N *mSINGLETON;

    std::string mLocale;
    std::vector<::core::SmartPtr<Bundle>> mBundles; // in the order of their adding
    std::vector<const Bundle *> mOrder;             // those that serve the locale, in the order of look-up
};

} // namespace nurel::i18n
