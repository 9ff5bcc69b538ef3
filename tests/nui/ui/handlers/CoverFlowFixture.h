#pragma once

#include "nui/ui/ManagerTest.h"
#include "nui/ui/handlers/CoverFlowHandler.h"
#include "nui/ui/handlers/DataProvider.h"

#include <cmath>
#include <functional>

namespace test {

/// A number of entries; notes which one went where.
class Entries : public nurel::ui::handlers::DataProvider {
public:
    explicit Entries(unsigned int count) : mCount(count) {}

    unsigned int getCount() override {
        ++mCountsRead;
        return mCount;
    }

    void update(unsigned int index, nurel::ui::Component *item) override {
        mUpdates.push_back(index);
        item->setTabStop(static_cast<int>(index)); // what the item shows
        if (mOnUpdate)
            mOnUpdate(index, item);
    }

    /// The entries that were asked for since the last call.
    std::vector<unsigned int> updates() { return std::exchange(mUpdates, {}); }

    unsigned int mCount;
    int mCountsRead = 0;
    std::function<void(unsigned int, nurel::ui::Component *)> mOnUpdate;

private:
    std::vector<unsigned int> mUpdates;
};

/// A panel that is counted, and whose clones are.
class Cover : public nurel::ui::components::Panel {
public:
    explicit Cover(const char *name = "cover") : Panel(name) { ++ALIVE; }
    ~Cover() override { --ALIVE; }

    using nurel::core::Object::clone;
    nurel::core::Object *clone(core::CloningOptions &options) const override {
        core::SmartPtr<Cover> copy(new Cover(getName()));
        _clone(copy.get(), options);
        return copy.release();
    }

    static inline int ALIVE = 0;
};

/// A carousel on a stage of 800 pixels' width, of covers that are 200 wide: a drag of 100 pixels moves it on by one.
/// Nothing moves but by the clock and the drags of the test.
class CoverFlowFixture : public ManagerTest {
public:
    using CoverFlowHandler = nurel::ui::handlers::CoverFlowHandler;
    using DragEvent = nurel::ui::DragEvent;
    using Indexes = std::vector<unsigned int>;
    using Numbers = std::vector<float>;

    CoverFlowFixture() : mWidget(addWidget()), mTemplate(new Cover), mEntries(new Entries(10)) {
        mTemplate->setSize({200, 100});
        mFlow = new CoverFlowHandler("covers");
        mWidget->addChild(mFlow->getContainer());
        mFlow->setExtraCount(2);
        frame();
        mFlow->SelectionCallbacks::subscribeCallback([this](CoverFlowHandler *flow) {
            mSelected.push_back(flow->getCurrent());
            return false;
        });
    }

    /// Makes the items, with that entry in the centre: slots at -400, -200, 0, 200 and 400.
    void fill(unsigned int current = 0) {
        mFlow->setItemTemplate(mTemplate.get());
        mFlow->setDataProvider(mEntries.get());
        mFlow->setCurrent(current, false);
        frame();
        mEntries->updates();
    }

    Container &container() { return *mFlow->getContainer(); }

    // The finger. A move is to the right, or below 0 to the left.

    void begin(int x = 400) { send(DragEvent::DRAG_BEGIN, x, 0); }
    void move(float x) { send(DragEvent::DRAG_MOVE, 0, -x); }
    void end() { send(DragEvent::DRAG_END, 0, 0); }

    void send(int action, int x, float delta) {
        const nurel::ui::Ray ray;
        const nurel::ui::CursorPosition cursor{x, 300};
        const nurel::math::Vector2 way(delta, 0);
        container().handleEvent(DragEvent(ray, cursor, action, way));
    }

    void pressContainer() {
        const nurel::ui::Ray ray;
        const nurel::ui::CursorPosition cursor{400, 300};
        container().handleEvent(nurel::ui::MouseEvent(ray, cursor, nurel::ui::MouseEvent::MOUSE_PRESS, 0, 1));
    }

    /// Drags for an eighth of a second and lets go at once. Eighths are exact, also as floats.
    void fling(float x) {
        begin();
        tick(0.125);
        advance(0.125);
        move(x);
        end();
    }

    void tick(double seconds) {
        if (seconds > 0)
            advance(seconds);
        frame();
    }

    /// Runs until the carousel rests; says whether it came to rest within ten seconds.
    bool rest() {
        for (int i = 0; i < 80 && mFlow->getState() != CoverFlowHandler::COVER_IDLE; ++i)
            tick(0.125);
        return mFlow->getState() == CoverFlowHandler::COVER_IDLE;
    }

    /// The component that shows the entry, spare one included; null when none does.
    Component *find(int entry) { return findNamed(std::to_string(entry)); }

    Component *findNamed(const std::string &name) {
        for (unsigned int i = 0; i < container().getChildCount(); ++i) {
            if (container().getChildAt(i)->getName() == name)
                return container().getChildAt(i);
        }
        return nullptr;
    }

    /// Checks where the component of the entry is declared to be.
    void expectPlace(int entry, float x, float rotation, float scale) {
        const Component *item = find(entry);
        ASSERT_NE(item, nullptr) << entry;
        SCOPED_TRACE(entry);
        expectPlace(*item, x, rotation, scale);
    }

    static void expectPlace(const Component &item, float x, float rotation, float scale) {
        EXPECT_NEAR(item.getComponentPosition().absolute.x, x, 1e-3);
        EXPECT_EQ(item.getComponentPosition().absolute.y, 0);
        EXPECT_EQ(item.getComponentPosition().relative, nurel::math::Vector2(0, 0));
        EXPECT_NEAR(item.getScale().x, scale, 1e-5);
        EXPECT_NEAR(item.getScale().y, scale, 1e-5);
        // About the vertical axis x turns towards -z.
        EXPECT_NEAR(item.getRotation()(0, 0), std::cos(rotation), 1e-5);
        EXPECT_NEAR(item.getRotation()(0, 2), -std::sin(rotation), 1e-5);
        EXPECT_NEAR(item.getRotation()(1, 1), 1, 1e-5);
    }

    float centreX() { return mFlow->getCurrentElement()->getComponentPosition().absolute.x; }

    /// How far the carousel is, from -1, one to the right, to 1, one to the left.
    float progress() { return -centreX() / 200; }

    /// The names of the container's children.
    Lines children() {
        Lines names;
        for (unsigned int i = 0; i < container().getChildCount(); ++i)
            names.push_back(container().getChildAt(i)->getName());
        return names;
    }

    /// The names of the components as they are drawn, the lowest first; hidden ones too.
    Lines drawn() {
        Lines names;
        for (const auto &child : container().getView()->getContent()->getChildren()) {
            const auto *view = static_cast<const nurel::ui::ComponentView *>(child.get());
            names.push_back(view->getComponent()->getName());
        }
        return names;
    }

    Indexes selected() { return std::exchange(mSelected, {}); }

    static constexpr float SIDE = 1.2217295f;
    static constexpr float BEYOND = 3.14159f;

    core::SmartPtr<Widget> mWidget;
    core::SmartPtr<Cover> mTemplate;
    core::SmartPtr<Entries> mEntries;
    core::SmartPtr<CoverFlowHandler> mFlow;

private:
    Indexes mSelected;
};

} // namespace test
