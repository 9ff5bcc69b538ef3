#include "nxml/i18n/CatalogueException.h"

namespace nurel::i18n {

CatalogueException::CatalogueException(const char *format, ...) {
    va_list arguments;
    va_start(arguments, format);
    setMessage(format, arguments);
    va_end(arguments);
}

CatalogueException *CatalogueException::clone() const {
    return new CatalogueException(*this);
}

void CatalogueException::raise() const {
    throw *this;
}

} // namespace nurel::i18n
