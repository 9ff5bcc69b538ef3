#include "nui/ui/css/SelectorElement.h"

#include "nui/ui/css/Selector.h"
#include "nui/ui/css/Stylable.h"

#include <algorithm>
#include <cstring>

namespace nurel::ui::css {

namespace {

constexpr unsigned int STATE_PRIORITY = 10;
constexpr unsigned int ELEMENT_PRIORITY = 1;
constexpr unsigned int CLASS_PRIORITY = 10;
constexpr unsigned int ID_PRIORITY = 100;

constexpr char ANY_ELEMENT = '*';
constexpr char CLASS_END = '.';

} // namespace

SelectorElement::SelectorElement(SelectorState state) : mType(TYPE_STATE) {
    enableState(state);
}

SelectorElement::SelectorElement(ElementType type, const char *text) : mType(type) {
    switch (type) {
    case TYPE_NONE:
    case TYPE_STATE:
        break;
    case TYPE_ELEMENT:
        mPriority = ELEMENT_PRIORITY;
        setElement(text);
        break;
    case TYPE_CLASS:
        addClass(text);
        break;
    case TYPE_ID:
        mPriority = ID_PRIORITY;
        setID(text);
        break;
    }
}

SelectorElement::SelectorElement(const SelectorElement &other)
    : mType(other.mType), mPriority(other.mPriority), mState(other.mState), mValue(other.mValue) {}

bool SelectorElement::takes(ElementType type, const char *text) const {
    return mType == type && text && *text;
}

void SelectorElement::changed() const {
    if (mInRule)
        Selector::noteChange();
}

void SelectorElement::enableState(unsigned int bits) {
    if (mType != TYPE_STATE)
        return;
    mState |= bits;
    mPriority = STATE_PRIORITY * countSelectorStates(mState);
    changed();
}

void SelectorElement::setElement(const char *word) {
    if (!takes(TYPE_ELEMENT, word))
        return;
    mValue = word;
    changed();
}

void SelectorElement::setID(const char *name) {
    if (!takes(TYPE_ID, name))
        return;
    mValue = name;
    changed();
}

void SelectorElement::addClass(const char *name) {
    if (!takes(TYPE_CLASS, name))
        return;
    const auto first = static_cast<std::ptrdiff_t>(mValue.size());
    mValue.append(name).append(1, '\0');
    std::replace(mValue.begin() + first, mValue.end(), CLASS_END, '\0');
    mPriority += CLASS_PRIORITY;
    changed();
}

bool SelectorElement::matchesClasses(const Stylable &stylable) const {
    const char *const end = mValue.data() + mValue.size();
    for (const char *name = mValue.data(); name != end; name += std::strlen(name) + 1) {
        if (!stylable.hasClass(name))
            return false;
    }
    return true;
}

bool SelectorElement::matches(const Stylable *stylable) const {
    if (!stylable)
        return false;
    switch (mType) {
    case TYPE_NONE:
        return false;
    case TYPE_STATE:
        return stylable->hasState(mState);
    case TYPE_ELEMENT:
        return isAnyElement() || stylable->isElement(mValue.c_str());
    case TYPE_CLASS:
        return matchesClasses(*stylable);
    case TYPE_ID:
        return stylable->isID(mValue.c_str());
    }
    return false;
}

bool SelectorElement::isAnyElement() const {
    return mType == TYPE_ELEMENT && mValue.starts_with(ANY_ELEMENT);
}

const char *SelectorElement::toString(std::string &text, bool clear) const {
    if (clear)
        text.clear();
    switch (mType) {
    case TYPE_NONE:
        text += "!unsupported";
        break;
    case TYPE_STATE:
        appendSelectorStates(text, mState);
        break;
    case TYPE_ELEMENT:
        text += mValue;
        break;
    case TYPE_CLASS:
        // every class has its "." behind it too, so that the text ends in one
        text += CLASS_END;
        for (const char c : mValue)
            text += c == '\0' ? CLASS_END : c;
        break;
    case TYPE_ID:
        text.append(1, '#').append(mValue);
        break;
    }
    return text.c_str();
}

} // namespace nurel::ui::css
