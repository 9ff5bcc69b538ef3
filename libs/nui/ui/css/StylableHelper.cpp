#include "nui/ui/css/StylableHelper.h"

#include "nui/ui/Component.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/css/CSSView.h"
#include "nui/ui/css/Property.h"

#include <cstring>
#include <utility>

namespace nurel::ui::css {

namespace {

/// The empty deque of the last helper that was cleared: views collect one after another, and so share one.
thread_local std::unique_ptr<std::deque<const Property *>> tSpare;

} // namespace

StylableHelper::StylableHelper(Component *component) : mComponent(component) {}

StylableHelper::~StylableHelper() = default;

const char *StylableHelper::getElement() const {
    return mComponent ? mComponent->getElement().c_str() : "";
}

const char *StylableHelper::getID() const {
    return mComponent ? mComponent->getName() : "";
}

bool StylableHelper::isID(const char *name) const {
    return mComponent && name && std::strcmp(mComponent->getName(), name) == 0;
}

bool StylableHelper::isElement(const char *word) const {
    return mComponent && word && mComponent->getElement() == word;
}

bool StylableHelper::hasClass(const char *name) const {
    return mComponent && mComponent->hasClass(name);
}

const CSSView *StylableHelper::findView() const {
    const ComponentView *view = mComponent ? mComponent->getView() : nullptr;
    return view && view->getType().instanceOf(CSSView::TYPE) ? static_cast<const CSSView *>(view) : nullptr;
}

void StylableHelper::apply(const Property *property) {
    if (property)
        collect(findView(), &property, &property + 1);
}

void StylableHelper::collect(const CSSView *view, const Property *const *begin, const Property *const *end) {
    Properties &properties = obtainProperties();
    for (; begin != end; ++begin) {
        if (!view || !view->isOverridden((*begin)->getName()))
            properties.push_back(*begin);
    }
}

StylableHelper::Properties &StylableHelper::obtainProperties() const {
    if (!mProperties)
        mProperties = tSpare ? std::move(tSpare) : std::make_unique<Properties>();
    return *mProperties;
}

const std::deque<const Property *> &StylableHelper::getProperties() const {
    return obtainProperties();
}

void StylableHelper::clearProperties() {
    if (!mProperties)
        return;
    mProperties->clear();
    tSpare = std::move(mProperties);
}

const char *StylableHelper::toString(std::string &text, bool clear) const {
    Stylable::toString(text, clear);
    text += getElement();
    if (mComponent) {
        for (const auto &entry : mComponent->getClasses())
            text.append(1, '.').append(entry.first);
    }
    if (*getID())
        text.append(1, '#').append(getID());
    appendSelectorStates(text, mState);
    return text.c_str();
}

} // namespace nurel::ui::css
