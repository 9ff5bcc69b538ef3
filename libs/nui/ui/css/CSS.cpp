#include "nui/ui/css/CSS.h"

#include "nui/ui/css/Rule.h"
#include "nui/ui/css/StylableHelper.h"
#include "nui/ui/css/detail/RuleIndex.h"

#include <typeinfo>

namespace nurel::ui::css {

namespace {

/// The toolkit's own object, of which the index knows all answers. A class derived from it may answer otherwise.
const StylableHelper *toHelper(const Stylable &stylable) {
    return typeid(stylable) == typeid(StylableHelper) ? static_cast<const StylableHelper *>(&stylable) : nullptr;
}

} // namespace

CSS::CSS() = default;

CSS::CSS(const CSS &other) : mRules(other.mRules) {}

CSS &CSS::operator=(const CSS &other) {
    mIndex.reset();
    mRules = other.mRules;
    return *this;
}

CSS::~CSS() = default;

bool CSS::ruleCompare(const core::SmartPtr<Rule> &a, const core::SmartPtr<Rule> &b) {
    return *a < *b;
}

void CSS::add(Rule *rule) {
    const core::SmartPtr<Rule> held(rule);
    if (!held)
        return;
    held->joinSheet();
    mIndex.reset();
    mRules.insert(held);
}

void CSS::merge(const CSS *other) {
    if (!other || other == this)
        return;
    mIndex.reset();
    mRules.insert(other->begin(), other->end());
}

detail::RuleIndex &CSS::getIndex() const {
    if (!mIndex || mIndex->getRevision() != Selector::getRevision())
        mIndex = std::make_unique<detail::RuleIndex>(*this);
    return *mIndex;
}

void CSS::style(Stylable *stylable) const {
    if (!stylable)
        return;
    if (toHelper(*stylable)) {
        auto &helper = static_cast<StylableHelper &>(*stylable);
        detail::RuleIndex &index = getIndex();
        const CSSView *view = helper.findView();
        for (const std::uint32_t place : index.match(helper.getComponent(), helper.getState()))
            helper.collect(view, index.beginProperties(place), index.endProperties(place));
        return;
    }
    for (const core::SmartPtr<Rule> &rule : mRules) {
        if (rule->matches(stylable))
            rule->style(stylable);
    }
}

std::vector<const Rule *> CSS::getMatches(const Stylable &stylable) const {
    std::vector<const Rule *> matches;
    if (const StylableHelper *helper = toHelper(stylable)) {
        detail::RuleIndex &index = getIndex();
        for (const std::uint32_t place : index.match(helper->getComponent(), helper->getState()))
            matches.push_back(index.getRule(place));
        return matches;
    }
    for (const core::SmartPtr<Rule> &rule : mRules) {
        if (rule->matches(&stylable))
            matches.push_back(rule.get());
    }
    return matches;
}

} // namespace nurel::ui::css
