#include "nxml/i18n/I18N.h"

#include "foundation/core/Exception.h"

#include <algorithm>
#include <cstring>

namespace nurel::i18n {

constinit I18N *I18N::mSINGLETON = nullptr;

I18N &I18N::create() {
    if (mSINGLETON)
        throw ::core::IllegalStateException("There is a text catalogue already");
    mSINGLETON = new I18N;
    return *mSINGLETON;
}

void I18N::destroy() {
    delete mSINGLETON;
    mSINGLETON = nullptr;
}

I18N &I18N::getSingleton() {
    if (!mSINGLETON)
        throw ::core::IllegalStateException("There is no text catalogue");
    return *mSINGLETON;
}

void I18N::addBundle(Bundle *bundle) {
    if (!bundle || std::find(mBundles.begin(), mBundles.end(), bundle) != mBundles.end())
        return;
    mBundles.emplace_back(bundle);
    rebuildOrder();
}

bool I18N::removeBundle(Bundle *bundle) {
    const auto found = std::find(mBundles.begin(), mBundles.end(), bundle);
    if (!bundle || found == mBundles.end())
        return false;
    mBundles.erase(found);
    rebuildOrder();
    return true;
}

void I18N::setLocale(const char *locale) {
    mLocale = Bundle::normaliseLocale(locale);
    rebuildOrder();
}

const char *I18N::operator[](const char *key) const {
    if (!key)
        return "";
    const char *text = find(key);
    return text ? text : key;
}

const char *I18N::resolve(const char *text, std::string &buffer, bool markUnknown) const {
    std::string resolved; // apart from the buffer, since the text may lie in it
    const char *rest = text ? text : "";
    const char *opening;
    const char *closing;
    while ((opening = std::strstr(rest, "${")) && (closing = std::strchr(opening, '}'))) {
        const std::string_view key(opening + 2, static_cast<std::size_t>(closing - opening - 2));
        resolved.append(rest, opening);
        if (const char *found = find(key))
            resolved += found;
        else if (markUnknown)
            resolved.append("!").append(key).append("!");
        else
            resolved += key;
        rest = closing + 1;
    }
    resolved += rest;
    buffer.swap(resolved);
    return buffer.c_str();
}

const char *I18N::find(std::string_view key) const {
    for (const Bundle *bundle : mOrder) {
        if (const char *text = bundle->get(key))
            return text;
    }
    return nullptr;
}

void I18N::rebuildOrder() {
    mOrder.clear();
    std::string_view locale = mLocale;
    for (;;) {
        for (auto bundle = mBundles.rbegin(); bundle != mBundles.rend(); ++bundle) {
            if (locale == (*bundle)->getLocale())
                mOrder.push_back(bundle->get());
        }
        if (locale.empty())
            return;
        const std::size_t region = locale.rfind('_');
        locale = locale.substr(0, region == locale.npos ? 0 : region);
    }
}

} // namespace nurel::i18n
