#pragma once

#include "foundation/core/SmartPtr.h"
#include "nmain/core/Names.h"

#include <cstddef>
#include <memory>
#include <set>
#include <vector>

namespace nurel::ui::css {

class Rule;
class Stylable;

namespace detail {
class RuleIndex;
} // namespace detail

/// A style sheet: rules in the order in which they take effect. Sheets share rules; a rule lives as long as a sheet or
/// somebody else holds it.
///
/// Nothing here looks at an object's surroundings, and there is no computed style: the object gets every property of
/// every matching rule, and the last one of a kind counts.
///
/// The views of the toolkit are matched through an index, which is built when they first ask after a change. One sheet
/// is used by one thread at a time.
class CSS {
public:
    struct RuleOrder {
        bool operator()(const core::SmartPtr<Rule> &a, const core::SmartPtr<Rule> &b) const {
            return ruleCompare(a, b);
        }
    };
    using Rules = std::set<core::SmartPtr<Rule>, RuleOrder>;
    using const_iterator = Rules::const_iterator;

    CSS();
    /// Shares the rules.
    CSS(const CSS &other);
    CSS &operator=(const CSS &other);
    ~CSS();

    /// Whether a takes effect before b: by priority, then by ID.
    static bool ruleCompare(const core::SmartPtr<Rule> &a, const core::SmartPtr<Rule> &b);

    /// Holds the rule. Of two rules with the same priority and ID, as a rule and its copy, the first stays. Null is
    /// ignored.
    void add(Rule *rule);

    /// Adds all rules of the other sheet, each where it belongs. Null is ignored.
    void merge(const CSS *other);

    /// Gives the object the properties of every rule that matches it, rule by rule in order, each rule's properties by
    /// ascending `Property::Name`. Null is ignored.
    void style(Stylable *stylable) const;

    /// The rules that match the object, in order. They belong to the sheet.
    std::vector<const Rule *> getMatches(const Stylable &stylable) const;

    const_iterator begin() const { return mRules.begin(); }
    const_iterator end() const { return mRules.end(); }
    std::size_t size() const { return mRules.size(); }
    bool empty() const { return mRules.empty(); }

private:
    detail::RuleIndex &getIndex() const;

    Rules mRules;
    mutable std::unique_ptr<detail::RuleIndex> mIndex;
};

} // namespace nurel::ui::css
