// The page of the cover flow: ten thousand entries, of which a handful exist.
#include "MotionPages.h"

#include "Gallery.h"
#include "OnClick.h"
#include "Page.h"

#include "nui/ui/UIComponentFactory.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/handlers/CoverFlowHandler.h"
#include "nui/ui/handlers/DataProvider.h"

#include <algorithm>
#include <memory>
#include <string>

namespace gallery {

namespace ui = nurel::ui;

using nurel::math::Vector2;
using ui::UIManager;
using ui::components::Button;
using ui::components::Label;
using ui::components::Panel;
using ui::handlers::CoverFlowHandler;

namespace {

constexpr unsigned int ENTRIES = 10000;
constexpr unsigned int FIRST_EXTRA_COUNT = 3;
constexpr unsigned int MOST_EXTRA_COUNT = 5;

constexpr float SIDE_ROOM = 60; ///< for the outermost covers, whose centres stand on the container's edges

// A throw over the whole width goes some thirty entries far.
constexpr float FASTEST = 2400;
constexpr float SLOWEST = 50;
constexpr float DECELERATION = 1200;

/// Ends every throw with the next frame.
constexpr float BRAKE = 1e9F;

std::string groupDigits(unsigned int number) {
    std::string digits = std::to_string(number);
    for (std::size_t i = digits.size(); i > 3; i -= 3)
        digits.insert(i - 3, 1, ',');
    return digits;
}

std::string getTitle(unsigned int index) {
    static constexpr const char *FIRST[] = {"Quiet",  "Amber",   "Hidden", "Winter", "Paper",
                                            "Silver", "Distant", "Velvet", "Early",  "Hollow"};
    static constexpr const char *SECOND[] = {"Harbour", "Signal", "Garden", "Engine",  "Letters",
                                             "Orbit",   "Meadow", "Window", "Lantern", "River"};
    return std::string(FIRST[index % std::size(FIRST)]) + " " + SECOND[index / std::size(FIRST) % std::size(SECOND)];
}

/// Fills covers: a number, a title and a colour.
class Covers : public ui::handlers::DataProvider {
public:
    explicit Covers(Gallery &gallery) : mGallery(gallery) {}

    unsigned int getCount() override { return ENTRIES; }

    void update(unsigned int index, ui::Component *item) override {
        static constexpr const char *COLORS[] = {"coral", "amber", "leaf", "sea", "violet", "night"};
        const PageTools parts(mGallery, *item);
        Panel &face = parts.find<Panel>("face");
        for (const char *color : COLORS)
            face.removeClass(color);
        face.addClass(COLORS[index % std::size(COLORS)]);
        parts.find<Label>("number").setText(groupDigits(index + 1).c_str());
        parts.find<Label>("name").setText(getTitle(index).c_str());
    }

private:
    Gallery &mGallery;
};

/// Lives as long as the page.
class CoverFlowPage {
public:
    explicit CoverFlowPage(const PageTools &tools);
    ~CoverFlowPage();
    CoverFlowPage(const CoverFlowPage &) = delete;
    CoverFlowPage &operator=(const CoverFlowPage &) = delete;

private:
    void connectButtons(const PageTools &tools);
    void fill();
    void beginFrame();
    void goTo(unsigned int index);
    void goBy(int pages);
    void setExtraCount(unsigned int count);
    void tell() const;

    Gallery &mGallery;
    core::SmartPtr<ui::Component> mPage;
    core::SmartPtr<Panel> mFlow;
    core::SmartPtr<Label> mCurrent;
    core::SmartPtr<Label> mPlace;
    core::SmartPtr<Label> mExtra;
    core::SmartPtr<Button> mFewer;
    core::SmartPtr<Button> mMore;
    core::SmartPtr<CoverFlowHandler> mCovers;
    float mWidth = 0; ///< of the container, for which the covers stand; 0: there are none yet
    int mFrameCallback;
};

CoverFlowPage::CoverFlowPage(const PageTools &tools)
    : mGallery(tools.getGallery()), mPage(&tools.getRoot()), mFlow(&tools.find<Panel>("flow")),
      mCurrent(&tools.find<Label>("current")), mPlace(&tools.find<Label>("place")),
      mExtra(&tools.find<Label>("extra/count")), mFewer(&tools.find<Button>("fewer")),
      mMore(&tools.find<Button>("more")), mCovers(new CoverFlowHandler("covers")) {
    Panel &container = *mCovers->getContainer();
    container.setName("covers");
    container.setSize(Vector2(-2 * SIDE_ROOM, 0), Vector2::ONE);
    container.setClipChildren(false); // the outermost covers stand half outside
    mFlow->addChild(&container);
    mCovers->setElasticSpeed(SLOWEST, FASTEST);
    mCovers->SelectionCallbacks::subscribeCallback([this](CoverFlowHandler *) {
        tell();
        return false;
    });
    connectButtons(tools);
    setExtraCount(FIRST_EXTRA_COUNT);
    mFrameCallback =
        UIManager::getSingleton().getStageCallbacks().subscribeCallback([this](UIManager::StageEvent stage) {
            if (stage == UIManager::STAGE_UPDATE)
                beginFrame();
            return false;
        });
}

CoverFlowPage::~CoverFlowPage() {
    if (UIManager::isSingletonCreated())
        UIManager::getSingleton().getStageCallbacks().unsubscribeCallback(mFrameCallback);
}

void CoverFlowPage::connectButtons(const PageTools &tools) {
    onClick(tools.find<Button>("first"), [this] { goTo(0); });
    onClick(tools.find<Button>("page-back"), [this] { goBy(-1); });
    onClick(tools.find<Button>("page-on"), [this] { goBy(1); });
    onClick(tools.find<Button>("last"), [this] { goTo(ENTRIES - 1); });
    onClick(*mFewer, [this] { setExtraCount(mCovers->getExtraCount() - 1); });
    onClick(*mMore, [this] { setExtraCount(mCovers->getExtraCount() + 1); });
}

/// Once there is a width to place covers in.
void CoverFlowPage::fill() {
    const core::SmartPtr<ui::Component> cover(ui::UIComponentFactory::getSingleton().newInstance("cover-flow-cover"));
    const core::SmartPtr<Covers> covers(new Covers(mGallery));
    mCovers->setItemTemplate(cover.get());
    mCovers->setDataProvider(covers.get());
    goTo(ENTRIES / 2);
}

void CoverFlowPage::beginFrame() {
    if (!mPage->hasParent()) // it is not on the stage
        return;
    if (mWidth == 0)
        mPage->update();
    const float width = mCovers->getContainer()->getSize().x;
    if (width != mWidth && width > 0) {
        const bool isFirst = mWidth == 0;
        mWidth = width;
        if (isFirst)
            fill();
        else
            mCovers->updateSlots();
    }
    const CoverFlowHandler::State state = mCovers->getState();
    if (state == CoverFlowHandler::COVER_IDLE || state == CoverFlowHandler::COVER_DRAGGING)
        mCovers->setElasticDeceleration(DECELERATION);
}

/// Shows an entry, and ends a throw that is under way.
void CoverFlowPage::goTo(unsigned int index) {
    mCovers->setElasticDeceleration(BRAKE);
    mCovers->setCurrent(index, false);
    mCovers->updateSlots();
    tell();
}

/// A page is what is seen at once.
void CoverFlowPage::goBy(int pages) {
    const int seen = 2 * static_cast<int>(mCovers->getExtraCount()) + 1;
    const int wanted = static_cast<int>(mCovers->getCurrent()) + pages * seen;
    goTo(static_cast<unsigned int>(std::clamp(wanted, 0, static_cast<int>(ENTRIES) - 1)));
}

void CoverFlowPage::setExtraCount(unsigned int count) {
    count = std::clamp(count, 1U, MOST_EXTRA_COUNT);
    mCovers->setExtraCount(count);
    mGallery.forgetRemoved();
    mExtra->setText(std::to_string(count).c_str());
    mFewer->setEnabled(count > 1);
    mMore->setEnabled(count < MOST_EXTRA_COUNT);
}

void CoverFlowPage::tell() const {
    const unsigned int current = mCovers->getCurrent();
    mCurrent->setText(getTitle(current).c_str());
    mPlace->setText((groupDigits(current + 1) + " of " + groupDigits(ENTRIES)).c_str());
}

} // namespace

void connectCoverFlow(const PageTools &tools) {
    tools.getGallery().keep(std::make_shared<CoverFlowPage>(tools));
}

} // namespace gallery
