#include "JsonWriter.h"

#include <charconv>
#include <cmath>

namespace viewer {

void JsonWriter::separate() {
    if (!mFirst)
        mOut += ',';
    mFirst = false;
}

JsonWriter &JsonWriter::beginObject() {
    separate();
    mOut += '{';
    mFirst = true;
    return *this;
}

JsonWriter &JsonWriter::endObject() {
    mOut += '}';
    mFirst = false;
    return *this;
}

JsonWriter &JsonWriter::beginArray() {
    separate();
    mOut += '[';
    mFirst = true;
    return *this;
}

JsonWriter &JsonWriter::endArray() {
    mOut += ']';
    mFirst = false;
    return *this;
}

JsonWriter &JsonWriter::key(const char *name) {
    value(name);
    mOut += ':';
    mFirst = true;
    return *this;
}

template <class T>
JsonWriter &JsonWriter::number(T content) {
    separate();
    char digits[64];
    const auto result = std::to_chars(digits, digits + sizeof digits, content);
    mOut.append(digits, result.ptr);
    return *this;
}

JsonWriter &JsonWriter::value(float content) {
    return std::isfinite(content) ? number(content + 0.0F) : null();
}

JsonWriter &JsonWriter::value(double content) {
    return std::isfinite(content) ? number(content + 0.0) : null();
}

JsonWriter &JsonWriter::value(int content) {
    return number(content);
}

JsonWriter &JsonWriter::value(unsigned int content) {
    return number(content);
}

JsonWriter &JsonWriter::value(bool flag) {
    separate();
    mOut += flag ? "true" : "false";
    return *this;
}

JsonWriter &JsonWriter::null() {
    separate();
    mOut += "null";
    return *this;
}

JsonWriter &JsonWriter::value(const char *text) {
    if (!text)
        return null();
    separate();
    mOut += '"';
    for (const char *c = text; *c; ++c) {
        const auto byte = static_cast<unsigned char>(*c);
        constexpr const char *HEX = "0123456789abcdef";
        if (*c == '"' || *c == '\\') {
            mOut += '\\';
            mOut += *c;
        } else if (*c == '\n') {
            mOut += "\\n";
        } else if (byte < 0x20) {
            mOut += "\\u00";
            mOut += HEX[byte >> 4U];
            mOut += HEX[byte & 0xFU];
        } else {
            mOut += *c;
        }
    }
    mOut += '"';
    return *this;
}

} // namespace viewer
