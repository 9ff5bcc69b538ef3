#include "nui/ui/Component.h"

#include "TestComponents.h"
#include "support/EngineFixture.h"

#include "nui/ui/UIManager.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/skins/DefaultSkin.h"

#include <string>

namespace test {

namespace {

/// Notes the hooks that are called.
class Hooked : public Box {
public:
    using Box::Box;

    void onMouseUp(const CursorPosition &cursor) override { note("up", cursor); }
    void onMouseWheel(const CursorPosition &cursor, int delta) override {
        note("wheel", cursor);
        hooks += std::to_string(delta);
    }
    void onMouseDown(const CursorPosition &cursor) override { note("down", cursor); }
    void onMouseEnter(const CursorPosition &cursor) override { note("enter", cursor); }
    void onMouseMove(const CursorPosition &cursor) override { note("move", cursor); }
    void onMouseLeave() override { hooks += "leave"; }
    void onDragBegin(const CursorPosition &cursor) override { note("begin", cursor); }
    void onDragMove(const Vector2 &delta, const CursorPosition &cursor) override {
        note("drag", cursor);
        hooks += std::to_string(static_cast<int>(delta.x));
    }
    void onDragEnd() override { hooks += "end"; }
    void onDragCancel() override { hooks += "cancel"; }

    void note(const char *hook, const CursorPosition &cursor) {
        hooks += hook;
        hooks += "(" + std::to_string(cursor.x) + "," + std::to_string(cursor.y) + ")";
    }

    std::string take() { return std::exchange(hooks, {}); }

    std::string hooks;
};

class ComponentEvents : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        parent = new Hooked("parent");
        child = new Hooked("child");
        parent->addChild(child.get());
        clean();
    }

    void TearDown() override {
        child = nullptr;
        parent = nullptr;
        EngineFixture::TearDown();
    }

    void clean() {
        parent->clean();
        child->clean();
    }

    MouseEvent press() const { return MouseEvent(ray, cursor, MouseEvent::MOUSE_PRESS, 0, 1); }
    MouseEvent release() const { return MouseEvent(ray, cursor, MouseEvent::MOUSE_RELEASE, 0, 1); }
    HoverEvent hover(int action) const { return HoverEvent(ray, cursor, action); }
    ClickEvent click() const { return ClickEvent(ray, cursor, cursor); }
    DragEvent drag(int action) const { return DragEvent(ray, cursor, action, delta); }

    /// Subscribes a filter that answers with the handler, and counts.
    void filterTo(UIEventHandler &handler, UIEventHandler *answer) {
        handler.FilterCallbacks::subscribeCallback(
            [this, answer](UIEventHandler *, const UIEvent &, UIEventHandler *&to) {
                ++filtered;
                to = answer;
                return false;
            });
    }

    Ray ray;
    CursorPosition cursor{3, 4};
    Vector2 delta = Vector2(7, 8);
    int filtered = 0;
    core::SmartPtr<Hooked> parent;
    core::SmartPtr<Hooked> child;
};

} // namespace

TEST_F(ComponentEvents, TheMaskOfANewComponentAdmitsFocusHoverAndMouse) {
    const Leaf leaf("leaf");
    EXPECT_EQ(leaf.getEventMask(), 0x20bU);
    for (const unsigned int bit : {0x40U, 0x100U, 0x10U, 0x20U, 0x80U})
        EXPECT_EQ(leaf.acceptsEvent(bit), 0U) << bit;
    EXPECT_EQ(parent->getEventMask(), 0x28bU);
}

TEST_F(ComponentEvents, TheHandlerConsumesWhatItsMaskAdmits) {
    EXPECT_EQ(child->handleEvent(press()), child.get());
    EXPECT_EQ(child->take(), "down(3,4)");
    EXPECT_EQ(parent->take(), "");
}

TEST_F(ComponentEvents, WhatTheMaskDoesNotAdmitGoesToTheNextHandler) {
    child->setEventMask(0);
    EXPECT_EQ(child->handleEvent(press()), parent.get());
    EXPECT_EQ(child->take(), "");
    EXPECT_EQ(parent->take(), "down(3,4)");
    EXPECT_EQ(child->handleEvent(KeyEvent(1, true)), nullptr);
}

TEST_F(ComponentEvents, ALabelWithoutAMaskGivesTheClickToWhatItLiesIn) {
    const core::SmartPtr<components::Label> label(new components::Label("label"));
    label->setEventMask(0);
    child->addChild(label.get());
    int clicks = 0;
    child->ClickCallbacks::subscribeCallback([&](UIEventHandler *handler, const ClickEvent &) {
        EXPECT_EQ(handler, child.get());
        ++clicks;
        return false;
    });
    EXPECT_EQ(label->handleEvent(click()), child.get());
    EXPECT_EQ(clicks, 1);
}

TEST_F(ComponentEvents, DisabledAndInvisibleComponentsAreSkipped) {
    int calls = 0;
    child->MouseCallbacks::subscribeCallback([&](UIEventHandler *, const MouseEvent &) {
        ++calls;
        return false;
    });
    child->setEnabled(false);
    EXPECT_EQ(child->handleEvent(press()), parent.get());
    child->setEnabled(true);
    child->setVisible(false);
    EXPECT_EQ(child->handleEvent(press()), parent.get());
    child->setVisible(true);
    child->setParentEnabled(false);
    EXPECT_EQ(child->handleEvent(press()), parent.get());
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(child->take(), "");
}

TEST_F(ComponentEvents, TheCallbackComesAfterTheHookWithHandlerAndEvent) {
    std::string order;
    child->MouseCallbacks::subscribeCallback([&](UIEventHandler *handler, const MouseEvent &event) {
        order = child->take() + "callback";
        EXPECT_EQ(handler, child.get());
        EXPECT_EQ(event.getAction(), MouseEvent::MOUSE_PRESS);
        return false;
    });
    child->handleEvent(press());
    EXPECT_EQ(order, "down(3,4)callback");
}

TEST_F(ComponentEvents, ACallbackThatReturnsTrueIsCalledOnce) {
    int calls = 0;
    child->CallbackSubscriptor<MouseEvent, 1, bool, UIEventHandler *, const MouseEvent &>::subscribeCallback(
        [&](UIEventHandler *, const MouseEvent &) {
            ++calls;
            return true;
        });
    EXPECT_EQ(child->handleEvent(press()), child.get());
    EXPECT_EQ(child->handleEvent(press()), child.get());
    EXPECT_EQ(calls, 1);
}

TEST_F(ComponentEvents, EveryEventClassHasItsSignal) {
    child->setEventMask(0xffff);
    child->setTabStop(0);
    std::string signals;
    const auto noting = [&](const char *name) {
        return [&signals, name](UIEventHandler *, const auto &) {
            signals += name;
            return false;
        };
    };
    child->ClickCallbacks::subscribeCallback(noting("click "));
    child->MouseCallbacks::subscribeCallback(noting("mouse "));
    child->HoverCallbacks::subscribeCallback(noting("hover "));
    child->FocusCallbacks::subscribeCallback(noting("focus "));
    child->DragCallbacks::subscribeCallback(noting("drag "));
    child->KeyCallbacks::subscribeCallback(noting("key "));
    child->TextCallbacks::subscribeCallback(noting("text "));
    child->WheelCallbacks::subscribeCallback(noting("wheel "));
    EXPECT_EQ(child->handleEvent(click()), child.get());
    EXPECT_EQ(child->handleEvent(press()), child.get());
    EXPECT_EQ(child->handleEvent(hover(2)), child.get());
    EXPECT_EQ(child->handleEvent(FocusEvent(0)), child.get());
    EXPECT_EQ(child->handleEvent(drag(0)), child.get());
    EXPECT_EQ(child->handleEvent(KeyEvent(1, true)), child.get());
    EXPECT_EQ(child->handleEvent(TextEvent("a")), child.get());
    EXPECT_EQ(child->handleEvent(WheelEvent(ray, cursor, 1)), child.get());
    EXPECT_EQ(signals, "click mouse hover focus drag key text wheel ");
}

TEST_F(ComponentEvents, HooksAreCalledByTheirActions) {
    child->setEventMask(0xffff);
    child->handleEvent(hover(HoverEvent::HOVER_ENTER));
    EXPECT_EQ(child->take(), "enter(3,4)");
    child->handleEvent(hover(HoverEvent::HOVER_MOVE));
    EXPECT_EQ(child->take(), "move(3,4)");
    child->handleEvent(hover(HoverEvent::HOVER_LEAVE));
    EXPECT_EQ(child->take(), "leave");
    child->handleEvent(press());
    EXPECT_EQ(child->take(), "down(3,4)");
    child->handleEvent(release());
    EXPECT_EQ(child->take(), "up(3,4)");
    child->handleEvent(WheelEvent(ray, cursor, -2));
    EXPECT_EQ(child->take(), "wheel(3,4)-2");
    child->handleEvent(drag(DragEvent::DRAG_BEGIN));
    EXPECT_EQ(child->take(), "begin(3,4)");
    child->handleEvent(drag(DragEvent::DRAG_MOVE));
    EXPECT_EQ(child->take(), "drag(3,4)7");
    child->handleEvent(drag(DragEvent::DRAG_END));
    EXPECT_EQ(child->take(), "end");
    child->handleEvent(drag(DragEvent::DRAG_CANCEL));
    EXPECT_EQ(child->take(), "cancel");
}

TEST_F(ComponentEvents, HoverSetsAndClearsStates) {
    child->handleEvent(hover(HoverEvent::HOVER_ENTER));
    EXPECT_EQ(child->getState(), 0x01U);
    EXPECT_EQ(child->dirty(), 0x10U);
    clean();
    child->handleEvent(hover(HoverEvent::HOVER_ENTER)); // marks the view whether or not the state changes
    EXPECT_EQ(child->dirty(), 0x10U);
    clean();
    child->handleEvent(hover(HoverEvent::HOVER_MOVE));
    EXPECT_EQ(child->dirty(), 0U);
    child->setState(0x77);
    clean();
    child->processEvent(hover(HoverEvent::HOVER_LEAVE));
    EXPECT_EQ(child->getState(), 0x74U);
    EXPECT_EQ(child->dirty(), 0x10U);
}

TEST_F(ComponentEvents, PressAndReleaseSetAndClearStates) {
    child->setState(0x04);
    clean();
    child->handleEvent(press());
    EXPECT_EQ(child->getState(), 0x02U);
    EXPECT_EQ(child->dirty(), 0x10U);
    clean();
    child->handleEvent(release());
    EXPECT_EQ(child->getState(), 0x04U);
    EXPECT_EQ(child->dirty(), 0x10U);
}

namespace {

class Losing : public Hooked {
public:
    using Hooked::Hooked;
    using Hooked::processEvent;
    UIEventHandler *processEvent(const FocusEvent &event) override {
        hooks += event.getAction() == FocusEvent::FOCUS_LOST ? "lost " : "gained ";
        return Hooked::processEvent(event);
    }
    Component *hitTest(const Ray &, Vector3 &) override { return hit; }
    Component *hit = nullptr;
};

} // namespace

TEST_F(ComponentEvents, AReleaseOutsideDropsTheHoverAndTellsTheFocusedComponentAlone) {
    const core::SmartPtr<Losing> losing(new Losing("losing"));
    losing->setTabStop(0);
    losing->setFocus();
    losing->take();
    losing->enableState(Component::STATE_HOVER);
    losing->hit = losing.get();
    losing->handleEvent(release());
    EXPECT_EQ(losing->take(), "up(3,4)"); // still over it
    EXPECT_TRUE(losing->hasState(Component::STATE_HOVER));

    losing->hit = nullptr;
    losing->handleEvent(release());
    EXPECT_EQ(losing->take(), "lost up(3,4)");
    EXPECT_FALSE(losing->hasState(Component::STATE_HOVER));
    EXPECT_TRUE(losing->hasState(Component::STATE_FOCUSED)); // the manager's focus stays
    EXPECT_TRUE(losing->hasFocus());

    losing->handleEvent(release());
    EXPECT_EQ(losing->take(), "up(3,4)"); // no hover, no matter
    UIManager::getSingleton().setFocus(nullptr);
    losing->take();
    losing->enableState(Component::STATE_HOVER);
    losing->handleEvent(release());
    EXPECT_EQ(losing->take(), "up(3,4)"); // without the focus
}

TEST_F(ComponentEvents, WithoutATabStopTheFocusIsNotTaken) {
    int calls = 0;
    child->FocusCallbacks::subscribeCallback([&](UIEventHandler *, const FocusEvent &) {
        ++calls;
        return false;
    });
    EXPECT_EQ(child->handleEvent(FocusEvent(FocusEvent::FOCUS_GAINED)), nullptr);
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(child->dirty(), 0x10U);
    child->setTabStop(0);
    EXPECT_EQ(child->handleEvent(FocusEvent(FocusEvent::FOCUS_GAINED)), child.get());
    EXPECT_EQ(calls, 1);
}

namespace {

/// Leaves focus and clicks to another handler.
class Delegating : public Hooked {
public:
    using Hooked::Hooked;
    using Hooked::processEvent;
    UIEventHandler *processEvent(const FocusEvent &) override { return to; }
    UIEventHandler *processEvent(const ClickEvent &) override { return to; }
    UIEventHandler *to = nullptr;
};

} // namespace

TEST_F(ComponentEvents, FocusCallbacksGetTheHandlerThatTookItAndOthersTheComponent) {
    const core::SmartPtr<Delegating> delegating(new Delegating("delegating"));
    delegating->to = parent.get();
    UIEventHandler *focused = nullptr;
    UIEventHandler *clicked = nullptr;
    delegating->FocusCallbacks::subscribeCallback([&](UIEventHandler *handler, const FocusEvent &) {
        focused = handler;
        return false;
    });
    delegating->ClickCallbacks::subscribeCallback([&](UIEventHandler *handler, const ClickEvent &) {
        clicked = handler;
        return false;
    });
    EXPECT_EQ(delegating->handleEvent(FocusEvent(0)), parent.get());
    EXPECT_EQ(focused, parent.get());
    EXPECT_EQ(delegating->handleEvent(click()), parent.get());
    EXPECT_EQ(clicked, delegating.get());
    delegating->to = nullptr;
    clicked = nullptr;
    EXPECT_EQ(delegating->handleEvent(click()), nullptr);
    EXPECT_EQ(clicked, nullptr);
}

TEST_F(ComponentEvents, AFilterMayGiveTheEventToAnotherHandler) {
    const core::SmartPtr<Hooked> other(new Hooked("other"));
    filterTo(*parent, other.get());
    std::string order;
    other->FilterCallbacks::subscribeCallback([&](UIEventHandler *, const UIEvent &, UIEventHandler *&to) {
        order += std::string("filter:") + to->getName();
        return false;
    });
    EXPECT_EQ(child->handleEvent(press()), other.get());
    EXPECT_EQ(filtered, 1);
    EXPECT_EQ(order, "filter:other"); // the pass runs again from there
    EXPECT_EQ(other->take(), "down(3,4)");
    EXPECT_EQ(child->take(), "");
}

TEST_F(ComponentEvents, ARedirectedEventStillHasToBeAdmitted) {
    const core::SmartPtr<Hooked> other(new Hooked("other"));
    const core::SmartPtr<Hooked> above(new Hooked("above"));
    above->addChild(other.get());
    other->setEventMask(0);
    filterTo(*parent, other.get());
    EXPECT_EQ(child->handleEvent(press()), above.get());
}

TEST_F(ComponentEvents, AFilterThatGivesNullDropsTheEvent) {
    filterTo(*parent, nullptr);
    EXPECT_EQ(child->handleEvent(press()), nullptr);
    EXPECT_EQ(child->take(), "");
    EXPECT_EQ(parent->take(), "");
}

TEST_F(ComponentEvents, FiltersThatRedirectInARingEndWithNull) {
    const core::SmartPtr<Hooked> other(new Hooked("other"));
    filterTo(*child, other.get());
    filterTo(*other, child.get());
    EXPECT_EQ(child->handleEvent(press()), nullptr);
    EXPECT_EQ(filtered, 65); // one more than there are redirects
    filtered = 0;
    EXPECT_EQ(child->handleEvent(press()), nullptr); // and is ready for the next
    EXPECT_EQ(filtered, 65);
    EXPECT_EQ(child->take() + other->take(), "");
}

TEST_F(ComponentEvents, AnEventOfNoTypePassesOn) {
    class Nothing : public UIEvent {
    public:
        explicit Nothing(Type type) : UIEvent(type) {}
    };
    child->setEventMask(0xffffffffU);
    EXPECT_EQ(child->handleEvent(Nothing(UIEvent::ET_NONE_EVENT)), nullptr);
    EXPECT_EQ(child->handleEvent(Nothing(static_cast<UIEvent::Type>(0x04))), nullptr);
}

TEST_F(ComponentEvents, AHandlerStandsBetweenAComponentAndItsParent) {
    EXPECT_EQ(child->nextHandler(), parent.get());
    {
        PlainHandler handler("handler", child.get());
        EXPECT_EQ(child->nextHandler(), &handler);
        child->setEventMask(0);
        EXPECT_EQ(child->handleEvent(press()), parent.get());
        filterTo(handler, nullptr);
        child->setEventMask(0x20b);
        EXPECT_EQ(child->handleEvent(press()), nullptr);
        EXPECT_EQ(filtered, 1);
    }
    EXPECT_EQ(child->nextHandler(), parent.get());
}

TEST_F(ComponentEvents, AComponentMayBeDestroyedByItsOwnCallback) {
    int calls = 0;
    core::SmartPtr<Leaf> leaf(new Leaf("leaf"));
    leaf->MouseCallbacks::subscribeCallback([&](UIEventHandler *, const MouseEvent &) {
        leaf = nullptr;
        ++calls;
        return false;
    });
    leaf->MouseCallbacks::subscribeCallback([&](UIEventHandler *handler, const MouseEvent &) {
        EXPECT_STREQ(handler->getName(), "leaf"); // kept alive for the pass
        ++calls;
        return false;
    });
    EXPECT_EQ(leaf->handleEvent(press()), nullptr); // nobody is left to be pressed
    EXPECT_EQ(calls, 2);
}

TEST_F(ComponentEvents, AComponentMayBeRemovedWithItsParentByItsOwnCallback) {
    core::SmartPtr<Hooked> outer(new Hooked("outer"));
    const core::SmartPtr<Leaf> inner(new Leaf("inner"));
    outer->addChild(inner.get());
    inner->setEventMask(0);
    outer->MouseCallbacks::subscribeCallback([&](UIEventHandler *, const MouseEvent &) {
        outer = nullptr;
        return false;
    });
    EXPECT_EQ(inner->handleEvent(press()), nullptr);
    EXPECT_FALSE(inner->hasParent());
}

TEST_F(ComponentEvents, AConsumerThatDiesInTheSameEventIsNotGivenBack) {
    core::SmartPtr<Hooked> consumer(new Hooked("consumer"));
    const core::SmartPtr<Delegating> delegating(new Delegating("delegating"));
    delegating->to = consumer.get();
    delegating->ClickCallbacks::subscribeCallback([&](UIEventHandler *, const ClickEvent &) {
        consumer = nullptr;
        return false;
    });
    EXPECT_EQ(delegating->handleEvent(click()), nullptr);
}

TEST_F(ComponentEvents, AnObjectThatNobodyCountsIsNotDestroyedByItsEvents) {
    Leaf leaf("leaf");
    int calls = 0;
    leaf.MouseCallbacks::subscribeCallback([&](UIEventHandler *handler, const MouseEvent &) {
        const core::SmartPtr<UIEventHandler> held(handler);
        ++calls;
        return false;
    });
    EXPECT_EQ(leaf.handleEvent(press()), &leaf);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(leaf.getRefCount(), 0U);
}

TEST_F(ComponentEvents, AFilterMayDestroyTheComponent) {
    core::SmartPtr<Leaf> leaf(new Leaf("leaf"));
    leaf->FilterCallbacks::subscribeCallback([&](UIEventHandler *, const UIEvent &, UIEventHandler *&) {
        leaf = nullptr;
        return false;
    });
    EXPECT_EQ(leaf->handleEvent(press()), nullptr);
}

namespace {

/// Notes the state bits and the dirty flags that its hooks and its focus callbacks find.
class Probing : public Box {
public:
    using Box::Box;

    void onMouseUp(const CursorPosition &) override { note(); }
    void onMouseDown(const CursorPosition &) override { note(); }
    void onMouseEnter(const CursorPosition &) override { note(); }
    void onMouseLeave() override { note(); }

    void note() {
        ++notes;
        stateSeen = getState();
        dirtySeen = dirty();
    }

    int notes = 0;
    unsigned int stateSeen = 0;
    unsigned int dirtySeen = 0;
};

} // namespace

TEST_F(ComponentEvents, HooksFindTheNewStateAndTheMarkedView) {
    const core::SmartPtr<Probing> probing(new Probing("probing"));
    const auto expectSeen = [&](const UIEvent &event, unsigned int before, unsigned int state) {
        probing->setState(before);
        probing->clean();
        probing->notes = 0;
        EXPECT_EQ(probing->handleEvent(event), probing.get());
        EXPECT_EQ(probing->notes, 1);
        EXPECT_EQ(probing->stateSeen, state);
        EXPECT_EQ(probing->dirtySeen, 0x10U);
    };
    expectSeen(hover(HoverEvent::HOVER_ENTER), 0, 0x01);
    expectSeen(hover(HoverEvent::HOVER_LEAVE), 0x07, 0x04);
    expectSeen(press(), 0x05, 0x03);
    expectSeen(release(), 0x03, 0x04); // without a view nothing is hit, so that the hover goes too
}

TEST_F(ComponentEvents, FocusCallbacksFindTheMarkedView) {
    const core::SmartPtr<Probing> probing(new Probing("probing"));
    probing->setTabStop(0);
    probing->FocusCallbacks::subscribeCallback([&](UIEventHandler *, const FocusEvent &) {
        probing->note();
        return false;
    });
    probing->clean();
    EXPECT_EQ(probing->handleEvent(FocusEvent(FocusEvent::FOCUS_GAINED)), probing.get());
    EXPECT_EQ(probing->notes, 1);
    EXPECT_EQ(probing->dirtySeen, 0x10U);
}

TEST_F(ComponentEvents, AComponentHiddenByItsParentAlonePassesEventsOn) {
    child->setParentVisible(false);
    EXPECT_EQ(child->handleEvent(press()), parent.get());
    EXPECT_EQ(child->take(), "");
    EXPECT_EQ(parent->take(), "down(3,4)");
    child->setParentVisible(true);
    EXPECT_EQ(child->handleEvent(press()), child.get());
}

} // namespace test
