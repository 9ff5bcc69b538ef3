#include "nmain/json/JSObject.h"

#include "nmain/json/detail/JSMembers.h"

#include <algorithm>
#include <array>
#include <cfloat>
#include <climits>
#include <cstring>

namespace nurel::json {

constinit const JSObject JSObject::NONE;

namespace {

constexpr std::array<const char *, JSObject::T_NONE + 1> WORDS{"T_OBJECT", "T_ARRAY", "T_STRING", "T_INT",
                                                               "T_FLOAT",  "T_BOOL",  "T_NONE"};

} // namespace

JSObject::JSObject(JSObject &&other) noexcept : mNumber(0), mLength(other.mLength), mType(other.mType) {
    switch (mType) {
    case T_OBJECT:
        mMembers = other.mMembers;
        break;
    case T_ARRAY:
        mElements = other.mElements;
        break;
    case T_STRING:
        mText = other.mText;
        break;
    case T_INT:
        mInt = other.mInt;
        break;
    case T_FLOAT:
        mNumber = other.mNumber;
        break;
    case T_BOOL:
        mBool = other.mBool;
        break;
    case T_NONE:
        break;
    }
    other.mType = T_NONE;
}

JSObject::~JSObject() {
    switch (mType) {
    case T_OBJECT:
        delete mMembers;
        break;
    case T_ARRAY:
        delete[] mElements;
        break;
    case T_STRING:
        delete[] mText;
        break;
    case T_INT:
    case T_FLOAT:
    case T_BOOL:
    case T_NONE:
        break;
    }
}

const char *JSObject::unparse(Type type) {
    return WORDS[type >= T_OBJECT && type <= T_NONE ? type : T_NONE];
}

const JSObject *JSObject::get(const char *key) const {
    const JSObject *found = find(key);
    return found ? found : &NONE;
}

const char *JSObject::getKey(unsigned index) const {
    return mType == T_OBJECT && index < mLength ? mMembers->list[index].key.get() : nullptr;
}

int JSObject::asInt(int otherwise) const {
    if (mType == T_INT)
        return mInt;
    if (mType == T_FLOAT && mNumber > INT_MIN - 1.0 && mNumber < INT_MAX + 1.0)
        return static_cast<int>(mNumber);
    return otherwise;
}

float JSObject::asFloat(float otherwise) const {
    if (mType == T_INT)
        return static_cast<float>(mInt);
    if (mType == T_FLOAT)
        return static_cast<float>(std::clamp(mNumber, static_cast<double>(-FLT_MAX), static_cast<double>(FLT_MAX)));
    return otherwise;
}

const JSObject *JSObject::at(std::size_t index) const {
    if (index >= getLength())
        return &NONE;
    return mType == T_ARRAY ? &mElements[index] : &mMembers->list[index].value;
}

const JSObject *JSObject::find(const char *key) const {
    if (mType != T_OBJECT || !key)
        return nullptr;
    const std::vector<Member> &list = mMembers->list;
    const std::vector<std::uint32_t> &order = mMembers->order;
    if (order.empty()) {
        const auto found = std::find_if(
            list.begin(), list.end(), [key](const Member &member) { return std::strcmp(member.key.get(), key) == 0; });
        return found == list.end() ? nullptr : &found->value;
    }
    const auto found =
        std::lower_bound(order.begin(), order.end(), key, [&list](std::uint32_t index, const char *text) {
            return std::strcmp(list[index].key.get(), text) < 0;
        });
    return found == order.end() || std::strcmp(list[*found].key.get(), key) != 0 ? nullptr : &list[*found].value;
}

} // namespace nurel::json
