#include "nxml/i18n/Bundle.h"

#include "nmain/stream/InputStream.h"

#include <algorithm>
#include <cstring>

namespace nurel::i18n {

Bundle::Bundle(const char *locale) : mLocale(normaliseLocale(locale)) {}

Bundle *Bundle::parse(stream::InputStream &stream) {
    return std::string_view(stream.getName()).ends_with(".po") ? parsePO(stream) : parseXML(stream);
}

void Bundle::put(const char *key, const char *text) {
    mTexts.insert_or_assign(key ? key : "", text ? text : "");
}

const char *Bundle::get(std::string_view key) const {
    const auto found = mTexts.find(key);
    return found == mTexts.end() ? nullptr : found->second.c_str();
}

bool Bundle::needsResolving(const char *text) {
    return text && std::strstr(text, "${");
}

std::string Bundle::normaliseLocale(const char *locale) {
    std::string normal(locale ? locale : "");
    normal.erase(std::min(normal.find_first_of(".@"), normal.size()));
    std::replace(normal.begin(), normal.end(), '-', '_');
    return normal == "C" || normal == "POSIX" ? std::string() : normal;
}

} // namespace nurel::i18n
