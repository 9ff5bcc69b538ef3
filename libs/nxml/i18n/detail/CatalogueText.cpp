#include "nxml/i18n/detail/CatalogueText.h"

#include "foundation/text/Format.h"
#include "foundation/text/Utf8.h"
#include "nmain/stream/InputStream.h"
#include "nxml/i18n/CatalogueException.h"

#include <algorithm>
#include <cstdarg>
#include <string_view>

namespace nurel::i18n {

CatalogueText::CatalogueText(stream::InputStream &stream) : mName(stream.getName()), mText(stream::readAll(stream)) {
    constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";
    if (mText.starts_with(BYTE_ORDER_MARK))
        mText.erase(0, BYTE_ORDER_MARK.size());
    checkEncoding();
}

void CatalogueText::fail(std::size_t index, const char *format, ...) const {
    const std::string_view before = std::string_view(mText).substr(0, index);
    const auto line = std::count(before.begin(), before.end(), '\n') + 1;
    const std::string lineBefore(before.substr(before.rfind('\n') + 1));
    va_list arguments;
    va_start(arguments, format);
    const std::string reason = text::formatV(format, arguments);
    va_end(arguments);
    throw CatalogueException("%s:%d:%u: %s", mName.c_str(), static_cast<int>(line),
                             text::getUTF8Length(lineBefore.c_str()) + 1, reason.c_str());
}

void CatalogueText::checkEncoding() const {
    if (const std::size_t index = mText.find('\0'); index != mText.npos)
        fail(index, "the character U+0000 can't stand in a text");
    if (const std::size_t index = text::findMalformedUTF8(mText); index != mText.npos)
        fail(index, "the byte 0x%02X is no UTF-8; save the catalogue as UTF-8",
             static_cast<unsigned>(static_cast<unsigned char>(mText[index])));
}

} // namespace nurel::i18n
