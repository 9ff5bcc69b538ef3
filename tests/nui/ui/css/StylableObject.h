#pragma once

#include "nui/ui/css/SelectorElement.h"
#include "nui/ui/css/Stylable.h"

#include <set>
#include <string>
#include <vector>

namespace test {

/// Something that sheets can style and that the toolkit knows nothing of.
class StylableObject : public nurel::ui::css::Stylable {
public:
    std::string name;
    std::string element;
    std::set<std::string> classes;
    unsigned int state = 0;
    std::vector<const nurel::ui::css::Property *> applied;

    bool isID(const char *text) const override { return name == text; }
    bool isElement(const char *text) const override { return element == text; }
    bool hasClass(const char *text) const override { return classes.count(text) != 0; }
    bool hasState(unsigned int bits) const override { return (state & bits) == bits; }
    void apply(const nurel::ui::css::Property *property) override { applied.push_back(property); }
};

/// Lets tests at what only selectors may do.
class OpenElement : public nurel::ui::css::SelectorElement {
public:
    explicit OpenElement(nurel::ui::css::SelectorState state) : SelectorElement(state) {}
    OpenElement(ElementType type, const char *text) : SelectorElement(type, text) {}

    using SelectorElement::addClass;
    using SelectorElement::enableState;
    using SelectorElement::setElement;
    using SelectorElement::setID;
};

} // namespace test
