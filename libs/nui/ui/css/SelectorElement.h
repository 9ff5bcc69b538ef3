#pragma once

#include "nui/ui/css/SelectorState.h"

#include <string>

namespace nurel::ui::css {

class Stylable;

/// One simple selector: the pseudo-classes, the element word, the classes or the ID of a `Selector`, which owns it.
class SelectorElement {
public:
    enum ElementType : unsigned int { TYPE_NONE = 0, TYPE_STATE = 1, TYPE_ELEMENT = 2, TYPE_CLASS = 3, TYPE_ID = 4 };

    SelectorElement(const SelectorElement &other);
    SelectorElement &operator=(const SelectorElement &) = delete;
    virtual ~SelectorElement() = default;

    /// Whether the object has all the states; is of the element word, where a word that begins with "*" fits every
    /// object; has all the classes; or bears the name. No object fits the type 0.
    bool matches(const Stylable *stylable) const;

    ElementType getType() const { return mType; }

    /// The share of the specificity: 10 for each of the six states and for each class, 1 for an element, 100 for an ID.
    unsigned int getPriority() const { return mPriority; }

    /// The bits of `SelectorState`; 0 for the other types.
    unsigned int getState() const { return mState; }

    /// The element word or the name. For classes, every class name with a NUL behind it.
    const std::string &getValue() const { return mValue; }

    /// Whether it fits every object for its word.
    bool isAnyElement() const;

    /// Appends the element as it is written in a sheet, classes with a "." behind each. The type 0 is "!unsupported".
    /// Returns the text.
    const char *toString(std::string &text, bool clear = true) const;

protected:
    friend class Selector;

    explicit SelectorElement(SelectorState state);
    /// The text of a class element may be empty: it fits every object then.
    SelectorElement(ElementType type, const char *text);

    /// The following do nothing on elements of other types, or for an empty text.
    void enableState(unsigned int bits);
    void setElement(const char *word);
    void setID(const char *name);
    void addClass(const char *name);

private:
    bool takes(ElementType type, const char *text) const;
    bool matchesClasses(const Stylable &stylable) const;
    void changed() const;

    ElementType mType;
    unsigned int mPriority = 0;
    unsigned int mState = 0;
    std::string mValue;
    bool mInRule = false; ///< set by the selector, and never cleared
};

} // namespace nurel::ui::css
