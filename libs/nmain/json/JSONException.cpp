#include "nmain/json/JSONException.h"

namespace nurel::json {

JSONException::JSONException(const char *format, ...) {
    va_list arguments;
    va_start(arguments, format);
    setMessage(format, arguments);
    va_end(arguments);
}

JSONException *JSONException::clone() const {
    return new JSONException(*this);
}

void JSONException::raise() const {
    throw *this;
}

} // namespace nurel::json
