#pragma once

#include "nui/core/CallbackSubscriptor.h"
#include "nui/ui/ComponentHandler.h"
#include "nui/ui/UIManager.h"

#include <cstdint>
#include <vector>

namespace nurel::scene {
class Node;
} // namespace nurel::scene

namespace nurel::ui::components {
class Panel;
} // namespace nurel::ui::components

namespace nurel::ui::handlers {

class DataProvider;

/// Shows a long list of data as a carousel of a few components: one in the centre, a fixed number of turned and smaller
/// ones on each side, and a spare one that slides in at whichever end needs it. All are clones of one template, which
/// change places, and a `DataProvider` fills each of them anew when it comes to show another entry.
///
/// The user drags the carousel sideways. Released, it coasts on at the speed that it was thrown with, slows down, and
/// settles on a whole position. The handler moves the components on every `UIManager::update()` by itself, without an
/// `AnimationContext`, and allocates nothing while it does.
///
///     core::SmartPtr<CoverFlowHandler> covers(new CoverFlowHandler);
///     page->addChild(covers->getContainer());
///     page->update();
///     covers->setItemTemplate(cover);
///     covers->setDataProvider(albums);
///     covers->SelectionCallbacks::subscribeCallback(...);
///
/// The handler holds the container, the template, the provider and the components; whoever made the handler holds the
/// handler, and with its end the container is empty. Callbacks and providers may do anything, the end of the handler
/// included. While an animation is open the components' places are recorded into it like everybody's. The handler moves
/// for as long as the manager lives that was there when it was made.
class CoverFlowHandler : public ComponentHandler,
                         public core::CallbackSubscriptor<CoverFlowHandler, 1, bool, CoverFlowHandler *> {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    /// Told when another entry has come to the centre.
    using SelectionCallbacks = core::CallbackSubscriptor<CoverFlowHandler, 1, bool, CoverFlowHandler *>;

    enum ShiftDirection {
        SHIFT_FORWARD = 0,  ///< items move to the left, the current index grows
        SHIFT_BACKWARD = 1, ///< items move to the right, the current index falls
    };

    enum State {
        COVER_IDLE = 0,     ///< at rest on a whole position
        COVER_DRAGGING = 1, ///< the finger is down
        COVER_RELEASED = 2, ///< until the next update, which decides between the two that follow
        COVER_COASTING = 3, ///< thrown
        COVER_SETTLING = 4, ///< on the last way to a whole position
    };

    /// The most items on each side; more than a screen has room for.
    static constexpr unsigned int MAXIMUM_EXTRA_COUNT = 1000;

    /// Makes the container: a panel that fills its parent, does not scroll, and takes drags.
    explicit CoverFlowHandler(const char *name = "");
    ~CoverFlowHandler() override;

    components::Panel *getContainer() const { return mContainer.get(); }

    // --- What is shown. As long as template or provider are missing the container is empty.

    /// What all items are clones of; it is not shown itself. Another one goes back to the first entry.
    void setItemTemplate(Component *itemTemplate);
    Component *getItemTemplate() const { return mItemTemplate.get(); }

    /// Another one goes back to the first entry.
    void setDataProvider(DataProvider *provider);
    DataProvider *getDataProvider() const { return mDataProvider.get(); }

    /// The items on each side of the centre, 1 at first. More than MAXIMUM_EXTRA_COUNT raise
    /// `core::IllegalArgumentException`. With none, the next item comes in from the container's edge.
    void setExtraCount(unsigned int count);
    unsigned int getExtraCount() const { return mExtraCount; }

    /// To be called when the data has changed: reads the count again and fills all visible items. Where entries have
    /// gone from the end, the last one becomes the current one, and no callback runs.
    void refresh();

    /// To be called when the container has another width, and has been updated: the places of the items are made for
    /// the one that it has when the items are made.
    void updateSlots();

    /// An extra child above all items, such as a frame around the centre; null takes it away. One that has a parent
    /// raises `core::IllegalStateException`, and all stays as it was. It is in the container only while that has items,
    /// or until template, provider or extra count are set.
    void setCustomComponent(Component *component);
    Component *getCustomComponent() const { return mCustomComponent.get(); }

    // --- The entry in the centre

    /// Shows the entry at once; one past the end is the last. `notify` runs the callbacks if it is another one than
    /// before. Returns the resulting index. With no entries at all that is the largest number, as -1 would be.
    unsigned int setCurrent(unsigned int index, bool notify);
    unsigned int getCurrent() const { return mCurrent; }

    /// The component in the centre; null when there are no items.
    Component *getCurrentElement() const;

    // --- Motion. Speeds are in UI pixels a second. Half of the centre item's width at rest, dragged, goes on by one
    // entry; a throw counts by the item that was let go, however wide the others are.

    State getState() const { return mState; }

    /// The seconds of settling; 0.2 at first. At 0 it takes one update.
    void setElasticRecoveryTime(float seconds) { mElasticRecoveryTime = seconds; }
    float getElasticRecoveryTime() const { return mElasticRecoveryTime; }

    /// What is thrown faster than the maximum, 1000 at first, goes at that speed. Below the minimum, 50 at first, the
    /// coasting stops.
    void setElasticSpeed(float minimum, float maximum);
    void setElasticSpeedMin(float minimum) { mElasticSpeedMin = minimum; }
    float getElasticSpeedMin() const { return mElasticSpeedMin; }
    void setElasticSpeedMax(float maximum) { mElasticSpeedMax = maximum; }
    float getElasticSpeedMax() const { return mElasticSpeedMax; }

    /// What coasting loses of its speed, in pixels per second squared; 1000 at first. At 0 it goes on to the end of the
    /// data.
    void setElasticDeceleration(float deceleration) { mElasticDeceleration = deceleration; }
    float getElasticDeceleration() const { return mElasticDeceleration; }

    /// Takes the drags that go to the container or come from an item, but not those that a child takes for itself, and
    /// lets every event go on.
    UIEventHandler *filterEvent(const UIEvent &event, UIEventHandler *target) override;

private:
    /// One component of the carousel and what it shows.
    struct Item {
        core::SmartPtr<Component> component;
        int index = 0;       ///< of the entry that it was filled with; as long as it has not been, any number
        bool isStale = true; ///< it has not been filled, or the data has changed since
    };

    /// A place of the carousel.
    struct Slot {
        float x = 0;        ///< of the centre, from the container's centre
        float rotation = 0; ///< radians about the vertical axis
        float scale = 1;
    };

    // what is shown
    void createItems();
    bool makeItems(std::vector<Item> &items, Item &spare) const;
    void addItems(const std::vector<Item> &items, const Item &spare);
    void makeSlots();
    void placeItems();
    void readCount();
    void fillItems();
    float getStep() const;
    bool isInData(std::int64_t index) const { return index >= 0 && index < std::int64_t(mCount); }
    bool isAtEnd(ShiftDirection direction) const;

    // motion
    void dragged(const DragEvent &event);
    void dragMove(float delta, double now);
    bool uiUpdate(UIManager::StageEvent stage);
    void release(double now);
    void coast(double now, float elapsed);
    void settle(double now);
    float getAge(double now) const;
    float getCentreWidth() const;
    static float countSteps(float distance, float width);
    float getCentreX() const;
    void processDrag(ShiftDirection direction, float t);
    void slideIn(ShiftDirection direction, float t);
    bool showSpare(ShiftDirection direction);
    void shift(ShiftDirection direction);

    // order of drawing
    void sortViews();
    void sortViews(ShiftDirection direction);
    void bringNextToFront(ShiftDirection direction);
    scene::Node *getViewsParent() const;
    void drawNext(const Item &item);
    void drawNextLeft(unsigned int count);
    void drawNextRight();
    void writeDrawOrder();

    core::SmartPtr<components::Panel> mContainer;
    core::SmartPtr<Component> mItemTemplate;
    Item mSpare;
    core::SmartPtr<DataProvider> mDataProvider;
    unsigned int mExtraCount = 1;
    unsigned int mCount = 0; ///< of the entries, as last read
    unsigned int mCurrent = 0;
    std::vector<Item> mItems; ///< one for each slot, from left to right
    std::vector<Slot> mSlots;
    unsigned int mRevision = 0;                    ///< raised whenever the items are made anew
    bool mFilling = false;                         ///< a refresh is under way
    bool mFillAgain = false;                       ///< and was asked for once more meanwhile
    std::vector<const ComponentView *> mDrawOrder; ///< the lowest first; scratch, kept for its memory

    float mDragStart = 0;    ///< x where the present step of the motion began
    float mDragPosition = 0; ///< running x of the motion
    float mRatio = 0;        ///< of the way to the next whole position
    float mSpeed = 0;        ///< at the release; above 0 to the left
    State mState = COVER_IDLE;
    unsigned int mStartIndex = 0; ///< the current one at the release
    float mThrowWidth = 0;        ///< of the centre item at the release; 0: to be measured
    double mStateTime = 0;        ///< when the state began; seconds of the frame clock, as exact as that is
    double mPreviousTime = 0;     ///< of the last update in motion
    float mElasticRecoveryTime = 0.2f;
    float mElasticSpeedMin = 50;
    float mElasticSpeedMax = 1000;
    float mElasticDeceleration = 1000;
    core::SmartPtr<Component> mCustomComponent;
};

} // namespace nurel::ui::handlers
