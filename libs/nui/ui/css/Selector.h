#pragma once

#include "nui/ui/css/SelectorElement.h"

#include <atomic>
#include <memory>
#include <string>
#include <vector>

namespace nurel::ui::css {

/// One selector of a rule, as `a.x:hover`: what an object must be, all of it, for the rule to apply. It looks at that
/// object alone, never at what surrounds it.
///
/// A parsed selector has at most one element of each type, in the order of first appearance. More states and classes
/// join the ones before; of several IDs the last counts. An unknown pseudo-class costs nothing and fits every object,
/// without a message: `a:foo` is `a`.
class Selector {
public:
    Selector();
    Selector(const Selector &other);
    Selector &operator=(const Selector &) = delete;
    ~Selector();

    /// A new selector, which is the caller's. An empty text gives one without elements, which matches everything. Null
    /// only for null.
    static Selector *parse(const char *text);

    /// Takes the element, whose priority is added. Null is ignored.
    void append(SelectorElement *element);

    /// The first element of the type; null when there is none.
    const SelectorElement *getElement(SelectorElement::ElementType type) const;
    const std::vector<std::unique_ptr<SelectorElement>> &getElements() const { return mElements; }

    /// Whether all elements match.
    bool matches(const Stylable *stylable) const;

    /// The specificity: the sum over the elements.
    unsigned int getPriority() const { return mPriority; }

    /// Replaces the text by that of all elements, and returns it.
    const char *toString(std::string &text) const;

    /// Grows whenever a selector that is part of a rule changes. Belongs to no selector: a sheet tells by it that what
    /// it worked out about its rules may be out of date.
    static unsigned int getRevision() { return sRevision.load(std::memory_order_relaxed); }

private:
    friend class Rule;            // joinRule, noteChange
    friend class SelectorElement; // noteChange

    static bool parse(const char *chunk, Selector *selector);
    static SelectorState parseState(const char *word) { return parseSelectorState(word); }
    static void noteChange() { sRevision.fetch_add(1, std::memory_order_relaxed); }

    SelectorElement *findElement(SelectorElement::ElementType type) const;
    void computePriority();
    void joinRule();

    static std::atomic<unsigned int> sRevision;

    std::vector<std::unique_ptr<SelectorElement>> mElements;
    unsigned int mPriority = 0;
    bool mInRule = false;
};

} // namespace nurel::ui::css
