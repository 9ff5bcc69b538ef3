#pragma once

#include "nui/ui/ManagerTest.h"

namespace test {

/// A button on the stage, around (200, 150) and 200 x 100 large.
class ButtonTest : public ManagerTest {
public:
    using Button = nurel::ui::components::Button;

    static constexpr unsigned int HOVER = Component::STATE_HOVER;
    static constexpr unsigned int ACTIVE = Component::STATE_ACTIVE;
    static constexpr unsigned int RELEASED = Component::STATE_RELEASED;
    static constexpr unsigned int CHECKED = Component::STATE_CHECKED;
    static constexpr unsigned int FOCUSED = Component::STATE_FOCUSED;
    static constexpr unsigned int DISABLED = Component::STATE_DISABLED;

    /// Lets tests at the protected operations.
    class OpenButton : public Button {
    public:
        explicit OpenButton(const char *name) : Button(name) {}
        OpenButton(const char *name, const char *element) : Button(name, element) {}

        using Button::processEvent;
        using Button::setChildState;
        using Button::setClean;
        using Button::setState;
        using Button::visit;

        static void clean(Component &component) { (component.*&OpenButton::setClean)(DIRTY_ALL); }
    };

    ButtonTest() {
        mWidget = addWidget("w");
        mPanel = addPanel(*mWidget, "panel", 0, 0, 400, 400);
        mButton = new OpenButton("button");
        place(*mButton, 100, 100, 200, 100);
        mPanel->addChild(mButton.get());
        frame();
    }

    /// Around the middle of the button.
    static void pointAtButton() { moveTo(200, 150); }

    static void setEventsOfButton(Component &icon) {
        icon.setEventMask(Component::EVENT_MASK_DEFAULT);
        icon.setTabStop(0);
    }

    /// Sends a mouse event to the button past the manager.
    void send(int action, int button = 0, int count = 1) {
        const nurel::ui::Ray ray;
        const nurel::ui::CursorPosition cursor;
        mButton->handleEvent(nurel::ui::MouseEvent(ray, cursor, action, button, count));
    }

    unsigned int stateOfLabel() const { return mButton->getLabel()->getState(); }

    core::SmartPtr<Widget> mWidget;
    core::SmartPtr<Panel> mPanel;
    core::SmartPtr<OpenButton> mButton;
};

} // namespace test
