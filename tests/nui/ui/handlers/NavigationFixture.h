#pragma once

#include "nui/ui/Scenario.h"

#include "nui/ui/AnimationContext.h"
#include "nui/ui/components/NavigationBar.h"
#include "nui/ui/handlers/NavigationHandler.h"

#include <string>

namespace test {

/// A handler with a bar of 50 on a stage of 800 x 600, and bodies that fill what is left: 800 x 550.
class NavigationTest : public ScenarioTest {
public:
    using Handler = nurel::ui::handlers::NavigationHandler;
    using Bar = nurel::ui::components::NavigationBar;
    using Button = nurel::ui::components::Button;
    using AnimationContext = nurel::ui::AnimationContext;
    using Transition = nurel::ui::Transition;
    using Action = nurel::ui::handlers::NavigationAction;

    static constexpr auto SLIDE = Transition::T_SLIDEIN_HORIZONTAL_RIGHT_TO_LEFT;

    NavigationTest() : mHandler(new Handler(50, 30)) {
        mWidget = addWidget();
        mWidget->addChild(mHandler->getTarget());
        note(*mHandler);
        frame();
    }

    static core::SmartPtr<Panel> newBody(const char *name) {
        core::SmartPtr<Panel> body(new Panel(name));
        body->setSize(nurel::math::Vector2(0, 0), nurel::math::Vector2(1, 1));
        return body;
    }

    /// Pushes without an animation.
    void push(const core::SmartPtr<Panel> &body) { mHandler->pushBody(body.get(), nullptr, nullptr, nullptr, nullptr); }

    /// Pushes with a slide of a tenth of a second.
    AnimationContext *slide(const core::SmartPtr<Panel> &body) {
        return mHandler->pushBody(body.get(), nullptr, nullptr, nullptr, 0.1f, SLIDE);
    }

    /// Lets the running transition of a tenth of a second end.
    void settle() {
        frame();
        after(100);
    }

    /// Notes what the handler tells, as "body what place".
    void note(Handler &handler) {
        handler.Handler::NavigationCallbacks::subscribeCallback(
            [this](Handler *, Component *body, Action action, int place) {
                static const char *const NAMES[] = {"push-begin", "pop-begin", "push-end", "pop-end"};
                mTold.push_back(std::string(body ? body->getName() : "null") + " " + NAMES[action] + " " +
                                std::to_string(place));
                return false;
            });
    }

    /// What was told since the last call.
    Lines told() { return std::exchange(mTold, {}); }

    Bar &bar() { return *mHandler->getNavigationBar(); }
    std::string title() { return bar().getText(); }
    std::string shown() { return children(*mHandler->getBodyContainer()); }

    Button &left() { return *static_cast<Button *>(bar().getElement(Bar::ELEMENT_LEFT)); }

    /// The back button's text; "-" while it is hidden.
    std::string back() { return left().isVisible() ? left().getText() : "-"; }

    /// Presses the back button, wherever it is.
    static void clickOn(Component &component) {
        const nurel::ui::Ray ray;
        const nurel::ui::CursorPosition at;
        component.handleEvent(nurel::ui::ClickEvent(ray, at, at));
    }

    /// The names of the stack's bodies, the top last.
    std::string stack() {
        std::string names;
        for (unsigned int i = mHandler->getStackSize(); i-- > 0;)
            names += (names.empty() ? "" : " ") + std::string(mHandler->getBodyAt(i)->getName());
        return names;
    }

    core::SmartPtr<Widget> mWidget;
    Lines mTold;
    const core::SmartPtr<Panel> a = newBody("a");
    const core::SmartPtr<Panel> b = newBody("b");
    const core::SmartPtr<Panel> c = newBody("c");
    const core::SmartPtr<Panel> d = newBody("d");
    core::SmartPtr<Handler> mHandler;
};

} // namespace test
