#pragma once

#include "nui/ui/components/Panel.h"

#include <map>

namespace nurel::ui::components {

class Button;
class Label;

/// The title bar of a `handlers::NavigationHandler`: a title in the middle, an element at the left and one at the
/// right, both hidden at first. It has no logic of its own.
///
/// It is a panel to style sheets, which reach it, the title and the buttons through the class that it is given. A clone
/// is a plain panel. Make it, and show or hide elements, outside of an open animation, which would record that.
class NavigationBar : public Panel {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    /// The places at the sides; also the bits of the element mask.
    enum ElementFlag : unsigned int {
        ELEMENT_LEFT = 1, ///< a button with the text "Left" at first
        ELEMENT_RIGHT = 2 ///< a button with the text "Right" unless another element was set
    };

    /// As wide as its parent, and as high as the buttons with the border and the padding of now. The first argument has
    /// no effect. The border is (top, right, bottom, left).
    NavigationBar(float height, const math::Vector4 &border, const math::Vector2 &buttonSize, const char *className);
    NavigationBar(const NavigationBar &) = delete;
    NavigationBar &operator=(const NavigationBar &) = delete;
    ~NavigationBar() override;

    /// The title; "Title bar" at first. Null counts as empty.
    void setText(const char *text);
    const char *getText() const;
    Label *getLabel() const { return mLabel.get(); }

    using Panel::getElement;
    using Panel::setElement;

    /// Null for what is no flag.
    Component *getElement(ElementFlag flag) const;

    /// Puts an element into the place of the one before, whose visibility it does not take over. Null puts the button
    /// "Right" there. What is no flag is ignored. An element that is another container's child raises
    /// `core::IllegalStateException` "Component already has a parent", and nothing changes.
    // All of them are anchored at the right, also one for the left.
    void setElement(ElementFlag flag, Component *element);

    /// Which elements are shown. Does nothing when told what it knows: an element that was set since stays as it is.
    void setElementMask(unsigned int mask);
    unsigned int getElementMask() const { return mElementMask; }

    void enableElement(unsigned int bits) { setElementMask(mElementMask | bits); }
    void disableElement(unsigned int bits) { setElementMask(mElementMask & ~bits); }

    /// The bits of the mask that are among the given ones.
    unsigned int isElementEnabled(unsigned int bits) const { return mElementMask & bits; }

private:
    void makeLabel(const char *className);
    core::SmartPtr<Button> makeButton(const math::Vector2 &size, Anchor anchor, const char *text,
                                      const char *className);

    unsigned int mElementMask = 0;
    std::map<ElementFlag, core::SmartPtr<Component>> mElements; ///< held: one may be taken out behind the bar's back
    core::SmartPtr<Button> mRightButton;
    core::SmartPtr<Label> mLabel;
};

} // namespace nurel::ui::components
