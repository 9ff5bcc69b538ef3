// Any bytes are either one JSON document, whose tree can be walked, or a JSONException.
#include "nmain/json/JSONException.h"
#include "nmain/json/JSObject.h"
#include "nmain/stream/InputStream.h"

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

using nurel::json::JSObject;

namespace {

void require(bool condition) {
    if (!condition)
        std::abort();
}

void walk(const JSObject &value, unsigned depth) {
    require(depth <= JSObject::MAXIMUM_DEPTH + 1);
    const unsigned length = value.getLength();
    for (unsigned i = 0; i < length; ++i) {
        if (value.getType() == JSObject::T_OBJECT) {
            const char *key = value.getKey(i);
            require(key && value.hasKey(key) && value.get(key) == value.get(i));
        }
        walk(*value.get(i), depth + 1);
    }
    require(value.get(length)->getType() == JSObject::T_NONE && !value.getKey(length));
    require((value.asString(nullptr) != nullptr) == (value.getType() == JSObject::T_STRING));
    require(value.asBool(true) || value.getType() == JSObject::T_BOOL);
    require(value.asFloat(0) == value.asFloat(0)); // never NaN
    static_cast<void>(value.asInt(0));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    nurel::stream::MemoryInputStream stream("fuzz.json", std::string(data, data + size));
    try {
        const std::unique_ptr<const JSObject> root(JSObject::parse(&stream));
        walk(*root, 1);
    } catch (const nurel::json::JSONException &error) {
        require(std::string(error.what()).starts_with("fuzz.json:"));
    }
    return 0;
}
