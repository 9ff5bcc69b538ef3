#include "nui/ui/handlers/CoverFlowHandler.h"

#include "foundation/core/Exception.h"
#include "foundation/core/Type.h"
#include "foundation/logging/Logger.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/detail/UIManagerScopes.h"
#include "nui/ui/handlers/DataProvider.h"
#include "nui/ui/handlers/detail/CoverFlow.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace nurel::ui::handlers {

constinit const core::Type CoverFlowHandler::TYPE("CoverFlowHandler", &ComponentHandler::TYPE);

namespace {

/// How often a refresh starts over that a provider asks for while it fills an item.
constexpr int MAXIMUM_FILL_PASSES = 8;

} // namespace

CoverFlowHandler::CoverFlowHandler(const char *name)
    : ComponentHandler(name, nullptr), mContainer(new components::Panel("")) {
    mContainer->setPosition(math::Vector2::ZERO, math::Vector2::ZERO);
    mContainer->setSize(math::Vector2::ZERO, math::Vector2::ONE);
    mContainer->setScrollMask(Container::SCROLL_NONE);
    mContainer->enableEvents(UIEvent::ET_DRAG_EVENT);
    setTarget(mContainer.get());
    UIManager::getSingleton().getStageCallbacks().subscribeCallback(this, &CoverFlowHandler::uiUpdate);
}

CoverFlowHandler::~CoverFlowHandler() {
    addRef(); // what the children's removal sets off may hold the handler for a while
    if (UIManager::isSingletonCreated()) {
        using StageCallbacks = UIManager::StageCallbacks;
        const std::unique_ptr<StageCallbacks::CallbackType> own(
            StageCallbacks::newCallback(this, &CoverFlowHandler::uiUpdate));
        UIManager::getSingleton().getStageCallbacks().unsubscribeCreatedCallback(*own);
    }
    try {
        mItemTemplate = nullptr; // no callback makes items any more
        createItems();
    } catch (const std::exception &exception) {
        logging::Logger::mROOT_LOGGER.error("A callback failed while %s was destroyed", exception, getName());
    } catch (...) {
        logging::Logger::mROOT_LOGGER.error("A callback failed while %s was destroyed", getName());
    }
}

// --- what is shown ---

void CoverFlowHandler::setItemTemplate(Component *itemTemplate) {
    if (mItemTemplate == itemTemplate)
        return;
    const Keeper self(this);
    mItemTemplate = itemTemplate;
    mCurrent = 0;
    createItems();
    refresh();
}

void CoverFlowHandler::setDataProvider(DataProvider *provider) {
    if (mDataProvider == provider)
        return;
    const Keeper self(this);
    mDataProvider = provider;
    mCurrent = 0;
    createItems();
    refresh();
}

void CoverFlowHandler::setExtraCount(unsigned int count) {
    if (count > MAXIMUM_EXTRA_COUNT)
        throw core::IllegalArgumentException("%u extra items are more than the %u that there can be", count,
                                             MAXIMUM_EXTRA_COUNT);
    if (mExtraCount == count)
        return;
    const Keeper self(this);
    mExtraCount = count;
    createItems();
    refresh();
}

void CoverFlowHandler::createItems() {
    const unsigned int revision = ++mRevision;
    {
        // What leaves may call back, and finds no items.
        std::vector<Item> items;
        items.swap(mItems);
        const Item spare = std::exchange(mSpare, Item());
        mSlots.clear();
        mContainer->clearChildren();
    }
    if (revision != mRevision || !mItemTemplate || !mDataProvider)
        return;
    // 1.
    std::vector<Item> items;
    Item spare;
    if (!makeItems(items, spare))
        return;
    // 2.
    addItems(items, spare);
    // 3.
    mContainer->update();
    if (revision != mRevision)
        return;
    mItems.swap(items);
    mSpare = spare;
    mDrawOrder.reserve(mItems.size() + 1);
    // 4. and 5.
    makeSlots();
    placeItems();
    // 6.
    if (mCustomComponent && !mCustomComponent->hasParent())
        mContainer->addChild(mCustomComponent.get(), true);
    refresh();
}

/// Makes the clones; false when the template makes none.
bool CoverFlowHandler::makeItems(std::vector<Item> &items, Item &spare) const {
    const core::SmartPtr<Component> original = mItemTemplate;
    const int count = 2 * static_cast<int>(mExtraCount) + 1;
    items.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i <= count; ++i) {
        const core::SmartPtr<core::Object> copy(static_cast<const core::Object &>(*original).clone());
        if (!copy || !copy->instanceOf(Component::TYPE))
            return false;
        const core::SmartPtr<Component> component(static_cast<Component *>(copy.get()));
        component->setVisible(false);
        component->setAnchor(Component::ANCHOR_CENTER);
        if (i < count) {
            detail::setNumberedName(*component, "", i, "(hidden)");
            items.push_back({component, i});
        } else {
            component->setName("in(hidden)");
            spare = {component, -1};
        }
    }
    return true;
}

/// Their order is that of drawing: what is nearer to the centre lies above.
void CoverFlowHandler::addItems(const std::vector<Item> &items, const Item &spare) {
    const std::size_t n = items.size() / 2;
    for (std::size_t i = 0; i < n; ++i)
        mContainer->addChild(items[i].component.get());
    mContainer->addChild(spare.component.get());
    for (std::size_t i = 2 * n; i > n; --i)
        mContainer->addChild(items[i].component.get());
    mContainer->addChild(items[n].component.get());
}

float CoverFlowHandler::getStep() const {
    // With no items at the sides, from the centre to the container's edge.
    return mContainer->getSize().x * 0.5f / static_cast<float>(std::max(mExtraCount, 1U));
}

void CoverFlowHandler::makeSlots() {
    const float half = mContainer->getSize().x * 0.5f;
    const float step = getStep();
    const std::size_t n = mItems.size() / 2;
    mSlots.assign(mItems.size(), Slot());
    for (std::size_t i = 0; i < n; ++i) {
        const float x = half - static_cast<float>(i) * step;
        mSlots[i] = {-x, -detail::SIDE_ROTATION, detail::SIDE_SCALE};
        mSlots[2 * n - i] = {x, detail::SIDE_ROTATION, detail::SIDE_SCALE};
    }
}

/// Puts every item into its slot. What moves goes on from there.
void CoverFlowHandler::placeItems() {
    for (std::size_t i = 0; i < mItems.size(); ++i)
        detail::place(*mItems[i].component, mSlots[i].x, mSlots[i].rotation, mSlots[i].scale);
    mDragStart = mDragPosition;
    mRatio = 0;
    mStartIndex = mCurrent;
    mThrowWidth = 0;
}

void CoverFlowHandler::updateSlots() {
    if (mItems.empty())
        return;
    const Keeper self(this);
    makeSlots();
    placeItems();
    mSpare.component->setVisible(false); // it comes in again with the next step
}

void CoverFlowHandler::setCustomComponent(Component *component) {
    if (mCustomComponent == component)
        return;
    const Keeper self(this);
    const core::SmartPtr<Component> old = mCustomComponent;
    const core::SmartPtr<Component> kept(component);
    mContainer->addChild(component, true);
    mCustomComponent = kept;
    mContainer->removeChild(old.get());
}

// --- the data ---

void CoverFlowHandler::refresh() {
    if (!mItemTemplate || !mDataProvider)
        return;
    if (mFilling) {
        mFillAgain = true;
        return;
    }
    const Keeper self(this);
    const ui::detail::FlagScope filling(mFilling);
    for (int pass = 0; pass < MAXIMUM_FILL_PASSES; ++pass) {
        mFillAgain = false;
        readCount();
        fillItems();
        if (!mFillAgain)
            return;
    }
}

void CoverFlowHandler::readCount() {
    const core::SmartPtr<DataProvider> provider = mDataProvider;
    const unsigned int count = provider ? provider->getCount() : mCount;
    if (count == mCount)
        return;
    mCount = count;
    if (count <= mCurrent)
        mCurrent = count - 1; // of no entries it is the largest number
}

void CoverFlowHandler::fillItems() {
    const core::SmartPtr<DataProvider> provider = mDataProvider;
    const unsigned int revision = mRevision;
    mSpare.isStale = true;
    for (std::size_t i = 0; i < mItems.size(); ++i) {
        const core::SmartPtr<Component> component = mItems[i].component;
        const std::int64_t index = std::int64_t(mCurrent) - mExtraCount + static_cast<std::int64_t>(i);
        mItems[i].isStale = true;
        component->setVisible(isInData(index));
        if (revision != mRevision)
            return;
        if (!isInData(index) || !component->isSelfVisible()) {
            detail::setNumberedName(*component, "(hidden)", static_cast<int>(index), "");
            continue;
        }
        mItems[i].index = static_cast<int>(index);
        mItems[i].isStale = false;
        provider->update(static_cast<unsigned int>(index), component.get());
        if (revision != mRevision)
            return;
        component->setVisible(true);
        detail::setNumberedName(*component, "", static_cast<int>(index), "");
    }
}

bool CoverFlowHandler::isAtEnd(ShiftDirection direction) const {
    if (mCount == 0)
        return true;
    return direction == SHIFT_BACKWARD ? mCurrent == 0 : std::int64_t(mCurrent) >= std::int64_t(mCount) - 1;
}

unsigned int CoverFlowHandler::setCurrent(unsigned int index, bool notify) {
    const Keeper self(this);
    if (index >= mCount)
        index = mCount - 1; // of no entries it is the largest number
    if (index == mCurrent)
        return mCurrent;
    mCurrent = index;
    refresh();
    sortViews();
    if (notify)
        SelectionCallbacks::triggerCallbacks(this);
    return mCurrent;
}

Component *CoverFlowHandler::getCurrentElement() const {
    return mItems.empty() ? nullptr : mItems[mItems.size() / 2].component.get();
}

void CoverFlowHandler::setElasticSpeed(float minimum, float maximum) {
    mElasticSpeedMin = minimum;
    mElasticSpeedMax = maximum;
}

} // namespace nurel::ui::handlers
