#pragma once

#include "nui/ui/Fwd.h"
#include "nui/ui/css/SelectorState.h"
#include "nui/ui/css/Stylable.h"

#include <deque>
#include <memory>
#include <string>

namespace nurel::ui::css {

class CSSView;

/// Styles a component for its view: answers from the component's name, element word and classes and from states of its
/// own, and collects the properties until the view applies them.
///
/// The component is only pointed at and must be there whenever a question is asked. Without one nothing matches but
/// what matches everything.
class StylableHelper : public Stylable {
public:
    explicit StylableHelper(Component *component);
    StylableHelper(const StylableHelper &) = delete;
    StylableHelper &operator=(const StylableHelper &) = delete;
    ~StylableHelper() override;

    bool isID(const char *name) const override;
    bool isElement(const char *word) const override;
    bool hasClass(const char *name) const override;
    bool hasState(unsigned int bits) const override { return (mState & bits) == bits; }

    /// Collects the property, unless the component's view is told to leave its kind alone. It is not held.
    void apply(const Property *property) override;

    /// As "element.class.class#name:state:state"; without "#" for an empty name.
    const char *toString(std::string &text, bool clear = true) const override;

    /// Bits of `SelectorState`. The component's own state word is another one.
    void enableState(unsigned int bits) { mState |= bits; }
    void disableState(unsigned int bits) { mState &= ~bits; }
    void clearState() { mState = SELECTOR_STATE_NONE; }
    unsigned int getState() const { return mState; }

    /// The component's element word and name; "" without one.
    const char *getElement() const;
    const char *getID() const;
    Component *getComponent() const { return mComponent; }

    /// What was collected, in the order of application. The reference is good until clearProperties().
    const std::deque<const Property *> &getProperties() const;
    void clearProperties();

private:
    friend class CSS; // findView, collect

    using Properties = std::deque<const Property *>;

    Properties &obtainProperties() const;
    const CSSView *findView() const;
    void collect(const CSSView *view, const Property *const *begin, const Property *const *end);

    Component *mComponent;
    unsigned int mState = SELECTOR_STATE_NONE;

    /// A deque takes half a kilobyte even when it is empty, so that only who collects has one.
    mutable std::unique_ptr<Properties> mProperties;
};

} // namespace nurel::ui::css
