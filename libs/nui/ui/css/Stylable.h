#pragma once

#include <string>

namespace nurel::ui::css {

class Property;

/// Anything that a sheet can style: it answers the questions of selectors, and takes the properties of the rules that
/// match it.
///
/// The texts are never null; they are valid during the call only.
class Stylable {
public:
    virtual ~Stylable() = default;

    /// Whether the object bears this name.
    virtual bool isID(const char *name) const = 0;
    /// Whether it is an element of this word. "*" does not get here: it fits every object.
    virtual bool isElement(const char *word) const = 0;
    /// Whether it carries this class.
    virtual bool hasClass(const char *name) const = 0;
    /// Whether it has all these bits of `SelectorState`; always true for 0.
    virtual bool hasState(unsigned int bits) const = 0;

    /// Takes one property of a matching rule. It belongs to the rule. Properties come from the least to the most
    /// specific rule, so that of two of one kind the later one counts.
    virtual void apply(const Property *property) = 0;

    /// Writes the object as a selector would name it, behind what stands in the text unless `clear` is set, and returns
    /// the whole text. The base writes nothing.
    virtual const char *toString(std::string &text, bool clear = true) const;
};

} // namespace nurel::ui::css
