#pragma once

#include "nengine/Engine.h"
#include "nengine/scene/Node.h"
#include "ninput/input/InputSystem.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/Skin.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/UIEvent.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/components/Checkbox.h"
#include "nui/ui/components/Image.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Listbox.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/components/Progress.h"
#include "nui/ui/components/Selector.h"
#include "nui/ui/components/Slider.h"
#include "nui/ui/components/TextField.h"
#include "support/LogCapture.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace test {

/// Gives every component a view that draws nothing, so that it can be hit, and counts the widgets that it was asked
/// for.
class BlankSkin : public nurel::ui::Skin {
public:
    explicit BlankSkin(const char *name = "plain") : Skin(name) {}

    using View = nurel::ui::ComponentView;

    View *visit(nurel::ui::components::Image *image) override { return make(image); }
    View *visit(nurel::ui::components::TextField *field) override { return makeContainer(field); }
    View *visit(nurel::ui::components::Listbox *listbox) override { return makeContainer(listbox); }
    View *visit(nurel::ui::components::Selector *selector) override { return makeContainer(selector); }
    View *visit(nurel::ui::components::Progress *progress) override { return makeContainer(progress); }
    View *visit(nurel::ui::components::Slider *slider) override { return makeContainer(slider); }
    View *visit(nurel::ui::components::Checkbox *checkbox) override { return makeContainer(checkbox); }
    View *visit(nurel::ui::components::Button *button) override { return makeContainer(button); }
    View *visit(nurel::ui::components::Panel *panel) override { return makeContainer(panel); }
    View *visit(nurel::ui::components::Label *label) override { return make(label); }
    View *visit(nurel::ui::Widget *widget) override {
        ++mWidgetsVisited;
        return makeContainer(widget);
    }

    int mWidgetsVisited = 0;

private:
    View *make(nurel::ui::Component *component) { return new View("view", component, this); }

    View *makeContainer(nurel::ui::Container *container) {
        core::SmartPtr<View> view(make(container));
        visitContainer(container, view.get());
        return view.release();
    }
};

/// A headless engine of 800 x 600 with a manual clock, the manager, and a plain skin as the default one.
class ManagerTest : public testing::Test {
public:
    using Panel = nurel::ui::components::Panel;
    using Widget = nurel::ui::Widget;
    using Component = nurel::ui::Component;
    using Container = nurel::ui::Container;
    using UIManager = nurel::ui::UIManager;

    ManagerTest() : ManagerTest(config()) {}

    static nurel::EngineConfig config() {
        nurel::EngineConfig config = nurel::EngineConfig::headless(800, 600);
        config.fontFile = "tests/data/fonts/DejaVuSans.ttf";
        return config;
    }

    explicit ManagerTest(const nurel::EngineConfig &config)
        : mEngine(std::make_unique<nurel::Engine>(config)), mSkin(new BlankSkin) {
        nurel::ui::SkinManager::getSingleton().addSkin(mSkin.get());
        nurel::ui::SkinManager::getSingleton().setDefaultSkin(mSkin.get());
    }

    ~ManagerTest() override {
        UIManager::shutdown();
        nurel::ui::SkinManager::deleteSingleton();
    }

    static UIManager &manager() { return UIManager::getSingleton(); }

    /// A widget that fills the stage, placed.
    core::SmartPtr<Widget> addWidget(const char *name = "widget") {
        core::SmartPtr<Widget> widget(new Widget(name));
        manager().addWidget(widget.get());
        frame();
        return widget;
    }

    /// A panel whose top left corner is at (x, y) of its parent.
    static core::SmartPtr<Panel> addPanel(Container &parent, const char *name, float x, float y, float width,
                                          float height) {
        core::SmartPtr<Panel> panel(new Panel(name));
        place(*panel, x, y, width, height);
        parent.addChild(panel.get());
        return panel;
    }

    static void place(Component &component, float x, float y, float width, float height) {
        component.setPositionData({x, y}, {0, 0}, {width, height}, {0, 0}, Component::ANCHOR_TOP_LEFT);
    }

    static void frame() {
        manager().updateEvents();
        manager().update();
    }

    void advance(double seconds) { mEngine->advance(seconds); }

    static void point(int x, int y) { manager().setMousePos({x, y}); }

    static void moveTo(int x, int y) {
        point(x, y);
        frame();
    }

    static void press() {
        manager().setMouseButton(nurel::input::Mouse::LEFT, nurel::input::Mouse::PRESS);
        frame();
    }

    static void release() {
        manager().setMouseButton(nurel::input::Mouse::LEFT, nurel::input::Mouse::RELEASE);
        frame();
    }

    static void click(int x, int y) {
        moveTo(x, y);
        press();
        release();
    }

    static void key(int code, bool pressed = true) {
        nurel::input::InputSystem::getSingleton().getKeyboard().inject(code, pressed);
    }

    /// Notes every event from here on as "what handler>result".
    void record() {
        manager().getEventObserver().subscribeCallback([this](nurel::ui::UIEventHandler *handler,
                                                              const nurel::ui::UIEvent &event,
                                                              nurel::ui::UIEventHandler *&result) {
            mEvents.push_back(describe(event) + " " + (handler ? handler->getName() : "-") + ">" +
                              (result ? result->getName() : "-"));
            return false;
        });
    }

    /// What was noted since the last call.
    std::vector<std::string> events() { return std::exchange(mEvents, {}); }

    using Lines = std::vector<std::string>;

    static std::string describe(const nurel::ui::UIEvent &event);

    LogCapture mLog;
    std::unique_ptr<nurel::Engine> mEngine;
    core::SmartPtr<BlankSkin> mSkin;
    Lines mEvents;
};

inline std::string ManagerTest::describe(const nurel::ui::UIEvent &event) {
    using namespace nurel::ui;
    const auto number = [](float value) { return std::to_string(static_cast<int>(value)); };
    switch (event.getType()) {
    case UIEvent::ET_FOCUS_EVENT:
        return static_cast<const FocusEvent &>(event).getAction() == FocusEvent::FOCUS_GAINED ? "focus" : "blur";
    case UIEvent::ET_HOVER_EVENT: {
        static const char *const NAMES[] = {"enter", "leave", "move"};
        return NAMES[static_cast<const HoverEvent &>(event).getAction()];
    }
    case UIEvent::ET_MOUSE_EVENT: {
        const auto &mouse = static_cast<const MouseEvent &>(event);
        const std::string name = mouse.getAction() == MouseEvent::MOUSE_PRESS ? "press" : "release";
        return (mouse.getButton() == 0 ? name : name + "?") + (mouse.getCount() == 1 ? "" : "*");
    }
    case UIEvent::ET_WHEEL_EVENT:
        return "wheel:" + std::to_string(static_cast<const WheelEvent &>(event).getDelta());
    case UIEvent::ET_DRAG_EVENT: {
        static const char *const NAMES[] = {"drag", "drop", "dragged", "dragcancel"};
        const auto &drag = static_cast<const DragEvent &>(event);
        std::string text = NAMES[drag.getAction()];
        if (drag.getAction() == DragEvent::DRAG_MOVE || !(drag.getDelta() == nurel::math::Vector2(0, 0)))
            text += ":" + number(drag.getDelta().x) + "," + number(drag.getDelta().y);
        return text;
    }
    case UIEvent::ET_KEY_EVENT: {
        const auto &pressed = static_cast<const KeyEvent &>(event);
        return "key:" + std::to_string(pressed.getKey()) + (pressed.isPressed() ? "+" : "-");
    }
    case UIEvent::ET_CLICK_EVENT: {
        const CursorPosition &at = static_cast<const ClickEvent &>(event).getPressPosition();
        return "click:" + std::to_string(at.x) + "," + std::to_string(at.y);
    }
    case UIEvent::ET_TEXT_EVENT:
        return std::string("text:") + static_cast<const TextEvent &>(event).getText();
    case UIEvent::ET_NONE_EVENT:
        break;
    }
    return "none";
}

} // namespace test
