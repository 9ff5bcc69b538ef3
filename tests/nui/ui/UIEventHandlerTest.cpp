#include "nui/ui/UIEventHandler.h"

#include "foundation/core/Exception.h"
#include "nmain/core/CloningOptions.h"

#include <gtest/gtest.h>

#include <string>

namespace nurel::ui {

namespace {

/// A link of a chain; notes what reaches it.
class Link : public UIEventHandler {
public:
    explicit Link(const char *name, UIEventHandler *next = nullptr) : UIEventHandler(name), mNext(next) {}

    using UIEventHandler::processEvent;
    UIEventHandler *nextHandler() override { return mNext; }

    UIEventHandler *mNext;
};

/// The end of a chain, which consumes.
class End : public Link {
public:
    using Link::Link;
    using Link::processEvent;

    UIEventHandler *handleEvent(const UIEvent &event) override {
        handled = event.getType();
        return this;
    }
    UIEventHandler *processEvent(const TextEvent &) override { return note("text"); }
    UIEventHandler *processEvent(const KeyEvent &) override { return note("key"); }
    UIEventHandler *processEvent(const DragEvent &) override { return note("drag"); }
    UIEventHandler *processEvent(const WheelEvent &) override { return note("wheel"); }
    UIEventHandler *processEvent(const ClickEvent &) override { return note("click"); }
    UIEventHandler *processEvent(const MouseEvent &) override { return note("mouse"); }
    UIEventHandler *processEvent(const HoverEvent &) override { return note("hover"); }
    UIEventHandler *processEvent(const FocusEvent &) override { return note("focus"); }

    UIEventHandler *note(const char *what) {
        processed += what;
        processed += ' ';
        return this;
    }

    unsigned int handled = 0;
    std::string processed;
};

const Ray RAY;
const CursorPosition CURSOR;
const math::Vector2 DELTA(0, 0);

} // namespace

TEST(UIEventHandler, AdmitsFocusHoverAndMouseEventsAndIsHittableAtFirst) {
    EXPECT_EQ(Link("a").getEventMask(), 0x20bU);
    EXPECT_EQ(UIEventHandler::EVENT_MASK_HITTABLE, 0x200U);
}

TEST(UIEventHandler, ChangesItsMaskBitByBit) {
    Link link("a");
    link.setEventMask(0x02);
    EXPECT_FALSE(link.isEventEnabled(0x0a));
    EXPECT_EQ(link.acceptsEvent(0x0a), 0x02U);
    link.enableEvents(0x08);
    EXPECT_TRUE(link.isEventEnabled(0x0a));
    link.enableEvents(0x30);
    link.disableEvents(0x12);
    EXPECT_EQ(link.getEventMask(), 0x28U);
}

TEST(UIEventHandler, ForwardsEveryEventUnchanged) {
    End end("end");
    Link middle("middle", &end);
    Link first("first", &middle);
    EXPECT_EQ(first.handleEvent(KeyEvent(1, true)), &end);
    EXPECT_EQ(end.handled, 0x40U);
    EXPECT_EQ(first.processEvent(TextEvent("a")), &end);
    EXPECT_EQ(first.processEvent(KeyEvent(1, true)), &end);
    EXPECT_EQ(first.processEvent(DragEvent(RAY, CURSOR, 0, DELTA)), &end);
    EXPECT_EQ(first.processEvent(WheelEvent(RAY, CURSOR, 1)), &end);
    EXPECT_EQ(first.processEvent(ClickEvent(RAY, CURSOR, CURSOR)), &end);
    EXPECT_EQ(first.processEvent(MouseEvent(RAY, CURSOR, 1, 0, 1)), &end);
    EXPECT_EQ(first.processEvent(HoverEvent(RAY, CURSOR, 0)), &end);
    EXPECT_EQ(first.processEvent(FocusEvent(0)), &end);
    EXPECT_EQ(end.processed, "text key drag wheel click mouse hover focus ");
}

TEST(UIEventHandler, GivesNullAtTheEndOfTheChain) {
    Link link("a");
    EXPECT_EQ(link.nextHandler(), nullptr);
    EXPECT_EQ(link.handleEvent(KeyEvent(1, true)), nullptr);
    EXPECT_EQ(link.processEvent(TextEvent("a")), nullptr);
}

TEST(UIEventHandler, TheFilterPassRunsFromTheLeafToTheRootAndTheRootDecides) {
    Link root("root");
    Link middle("middle", &root);
    Link leaf("leaf", &middle);
    std::string order;
    const auto noting = [&](UIEventHandler *answer) {
        return [&order, answer](UIEventHandler *self, const UIEvent &, UIEventHandler *&handler) {
            order += std::string(self->getName()) + ":" + (handler ? handler->getName() : "-") + " ";
            handler = answer;
            return false;
        };
    };
    leaf.subscribeCallback(noting(nullptr));
    middle.FilterCallbacks::subscribeCallback(noting(&leaf));
    root.FilterCallbacks::subscribeCallback(noting(&middle));
    EXPECT_EQ(leaf.filterEvent(KeyEvent(1, true), &leaf), &middle);
    EXPECT_EQ(order, "leaf:leaf middle:- root:leaf ");
}

TEST(UIEventHandler, WithoutSubscribersTheFilterPassGivesTheHandlerBack) {
    Link root("root");
    Link leaf("leaf", &root);
    EXPECT_EQ(leaf.filterEvent(KeyEvent(1, true), &leaf), &leaf);
    EXPECT_EQ(leaf.filterEvent(KeyEvent(1, true), nullptr), nullptr);
}

TEST(UIEventHandler, AFilterMayDestroyItsHandler) {
    Link root("root");
    core::SmartPtr<Link> leaf(new Link("leaf", &root));
    leaf->subscribeCallback([&](UIEventHandler *, const UIEvent &, UIEventHandler *&) {
        leaf = nullptr;
        return false;
    });
    EXPECT_EQ(leaf->filterEvent(KeyEvent(1, true), &root), &root);
    EXPECT_EQ(leaf.get(), nullptr);
}

TEST(UIEventHandler, CloningCopiesNameAndMaskButNoSubscriptions) {
    Link source("source");
    source.setEventMask(0x123);
    int calls = 0;
    source.subscribeCallback([&](UIEventHandler *, const UIEvent &, UIEventHandler *&) {
        ++calls;
        return false;
    });
    Link target("target");
    core::CloningOptions options;
    source._clone(&target, options);
    EXPECT_STREQ(target.getName(), "source");
    EXPECT_EQ(target.getEventMask(), 0x123U);
    EXPECT_EQ(options.getCloned(&source), &target);
    target.filterEvent(KeyEvent(1, true), nullptr);
    EXPECT_EQ(calls, 0);
}

TEST(UIEventHandler, CloningIntoAnotherClassIsRefused) {
    const Link source("source");
    core::NamedObject other("other");
    core::CloningOptions options;
    try {
        source._clone(&other, options);
        FAIL();
    } catch (const core::IllegalArgumentException &e) {
        EXPECT_STREQ(e.getMessage(), "UIEventHandler cannot be cloned into NamedObject");
    }
    try {
        source._clone(nullptr, options);
        FAIL();
    } catch (const core::IllegalArgumentException &e) {
        EXPECT_STREQ(e.getMessage(), "UIEventHandler cannot be cloned into nothing");
    }
}

} // namespace nurel::ui
