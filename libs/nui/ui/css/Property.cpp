#include "nui/ui/css/Property.h"

#include "nui/ui/css/PropertyEntry.h"

#include <cassert>

namespace nurel::ui::css {

static_assert(sizeof(Property) == 16 || sizeof(void *) != 8, "value states fit behind the reference count");

Property::Property(Name name, unsigned int valueCount)
    : mName(static_cast<std::uint8_t>(name)), mValueCount(static_cast<std::uint8_t>(valueCount)) {
    assert(valueCount > 0 && valueCount <= MAX_VALUE_COUNT);
}

Property::~Property() = default;

const char *Property::_getValueString(int) const {
    return nullptr;
}

void Property::_reset() {}

void Property::_clone(Property *copy) const {
    if (isSameKind(copy))
        copy->mValueStates = mValueStates;
}

Property &Property::operator=(const Property &other) {
    other._clone(this);
    return *this;
}

Property::Name Property::parseName(const char *cssName, int &index) {
    const PropertyEntry *const entry = PropertyEntry::find(cssName);
    if (!entry)
        return NONE;
    index = entry->index;
    return entry->name;
}

const char *Property::unparse(Name name) {
    const PropertyEntry *const entry = PropertyEntry::find(name);
    return entry ? entry->cssName : "unknown";
}

Property *Property::create(Name name) {
    const PropertyEntry *const entry = PropertyEntry::find(name);
    return entry ? entry->create() : nullptr;
}

Property *Property::parse(const char *cssName, int &index) {
    const PropertyEntry *const entry = PropertyEntry::find(cssName);
    if (!entry)
        return nullptr;
    Property *const property = entry->create();
    index = entry->index;
    return property;
}

bool Property::setValue(const char *text) {
    int index = 0;
    return setValue(text, index);
}

bool Property::setValue(const char *text, int &index) {
    const int written = index;
    if (!_setValue(text, index))
        return false;
    markValueSet(written);
    return true;
}

bool Property::setValue(const Property *other, int index) {
    if (!_setValue(other, index))
        return false;
    markValueSet(index);
    return true;
}

void Property::reset() {
    _reset();
    mValueStates = 0;
}

void Property::inherit(const Property *other) {
    if (!isSameKind(other))
        return;
    for (int index = 0; hasValue(index); ++index) {
        if (isValueSet(index) || !other->isValueSet(index))
            continue;
        if (_setValue(other, index))
            markValueSet(index);
        addValueState(index, VALUE_INHERITED);
    }
}

} // namespace nurel::ui::css
