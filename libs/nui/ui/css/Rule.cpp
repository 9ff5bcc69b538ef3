#include "nui/ui/css/Rule.h"

#include "nui/ui/css/Stylable.h"

#include <atomic>

namespace nurel::ui::css {

namespace {

constinit std::atomic<unsigned int> gLastID{0};

} // namespace

Rule::Rule() : mID(gLastID.fetch_add(1, std::memory_order_relaxed) + 1) {}

Rule::Rule(const Rule &other)
    : IRefCount(other), mPriority(other.mPriority), mID(other.mID), mLine(other.mLine), mProperties(other.mProperties),
      mFile(other.mFile) {
    mSelectors.reserve(other.mSelectors.size());
    for (const auto &selector : other.mSelectors) {
        mSelectors.push_back(std::make_unique<Selector>(*selector));
        mSelectors.back()->joinRule();
    }
}

Rule::~Rule() = default;

void Rule::changed() const {
    if (mInSheet)
        Selector::noteChange();
}

void Rule::append(Selector *selector) {
    if (!selector)
        return;
    mSelectors.push_back(std::unique_ptr<Selector>(selector));
    mPriority += selector->getPriority();
    selector->joinRule();
    changed();
}

void Rule::add(Property *property) {
    const core::SmartPtr<Property> held(property);
    if (held && mProperties.try_emplace(held->getName(), held).second)
        changed();
}

bool Rule::matches(const Stylable *stylable) const {
    for (auto selector = mSelectors.rbegin(); selector != mSelectors.rend(); ++selector) {
        if (!(*selector)->matches(stylable))
            return false;
    }
    return true;
}

void Rule::style(Stylable *stylable) const {
    if (!stylable)
        return;
    for (const auto &property : mProperties)
        stylable->apply(property.second.get());
}

bool Rule::operator<(const Rule &other) const {
    return mPriority != other.mPriority ? mPriority < other.mPriority : mID < other.mID;
}

void Rule::setSource(const std::shared_ptr<const std::string> &file, int line) {
    mFile = file;
    mLine = line;
}

const char *Rule::toString(std::string &text) const {
    text.clear();
    std::string part;
    for (const auto &selector : mSelectors) {
        if (&selector != &mSelectors.front())
            text += '&';
        text += selector->toString(part);
    }
    return text.c_str();
}

} // namespace nurel::ui::css
