#include "ScreenKeyboard.h"

#include "KeyboardKeys.h"

#include "nui/ui/UIEvent.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/TextField.h"

#include <string>

namespace gallery {

namespace ui = nurel::ui;

using nurel::math::Vector2;
using ui::Component;
using ui::UIManager;

namespace {

constexpr float EDGE = 12; ///< how far the keyboard stays off the edge of the stage

} // namespace

/// The keys while they are on the stage.
class ScreenKeyboard::Platform final : public PlatformData, private KeyboardKeys::Client {
public:
    explicit Platform(ScreenKeyboard *overlay) : PlatformData(overlay), mKeys(*this) {}
    ~Platform() override { takeDown(); }

    void bringUp(unsigned int options);
    void takeDown();
    bool isUp() const { return mIsUp; }
    void begin(unsigned int options);

private:
    void typeText(const char *text) override;
    void pressKey(int key) override;
    void enter() override;
    void hide() override;

    void update();
    void place(const Component &owner);

    KeyboardKeys mKeys;
    bool mIsUp = false;
    bool mIsOnTop = false;
    int mStageId = 0;
};

void ScreenKeyboard::Platform::bringUp(unsigned int options) {
    UIManager &manager = UIManager::getSingleton();
    mIsUp = true;
    mIsOnTop = false;
    begin(options);
    // Hidden at first: what comes up under the cursor takes the focus from the field.
    mKeys.getWidget().setVisible(false);
    manager.addWidget(&mKeys.getWidget());
    mStageId = manager.getStageCallbacks().subscribeCallback([this](UIManager::StageEvent stage) {
        if (stage == UIManager::STAGE_UPDATE)
            update();
        return false;
    });
}

void ScreenKeyboard::Platform::begin(unsigned int options) {
    mKeys.showLayer((options & OPTION_DIGITS) != 0 ? KeyboardKeys::SYMBOLS : KeyboardKeys::LETTERS);
}

void ScreenKeyboard::Platform::takeDown() {
    if (!mIsUp)
        return;
    mIsUp = false;
    UIManager &manager = UIManager::getSingleton();
    manager.getStageCallbacks().unsubscribeCallback(mStageId);
    manager.removeWidget(&mKeys.getWidget());
}

/// Once a frame.
void ScreenKeyboard::Platform::update() {
    const UIManager &manager = UIManager::getSingleton();
    Component *owner = getOwner()->getOwner();
    if (!owner)
        return takeDown();
    if (owner != manager.getFocus() || !manager.hasWidget(manager.getWidget(owner))) {
        getOwner()->resign(owner);
        return; // a subscriber may have ended the keyboard
    }
    if (!manager.hasWidget(&mKeys.getWidget()))
        return;
    place(*owner);
    mKeys.getWidget().setVisible(true);
}

/// It changes sides only for one where it leaves the field free.
void ScreenKeyboard::Platform::place(const Component &owner) {
    const auto stage = static_cast<float>(UIManager::getSingleton().getScreenHeight());
    const float depth = KeyboardKeys::HEIGHT + EDGE;
    const bool isBelowTop = owner.getMinBound().y >= depth;
    const bool isAboveBottom = owner.getMaxBound().y <= stage - depth;
    if (mIsOnTop ? !isBelowTop && isAboveBottom : !isAboveBottom && isBelowTop)
        mIsOnTop = !mIsOnTop;
    ui::Widget &widget = mKeys.getWidget();
    widget.setAnchor(mIsOnTop ? Component::ANCHOR_TOP_CENTER : Component::ANCHOR_BOTTOM_CENTER);
    widget.setPosition(Vector2(0, mIsOnTop ? EDGE : -EDGE), Vector2::ZERO);
}

void ScreenKeyboard::Platform::typeText(const char *text) {
    const core::SmartPtr<Component> owner(getOwner()->getOwner());
    if (owner)
        owner->handleEvent(ui::TextEvent(text));
}

void ScreenKeyboard::Platform::pressKey(int key) {
    const core::SmartPtr<Component> owner(getOwner()->getOwner());
    if (!owner)
        return;
    owner->handleEvent(ui::KeyEvent(key, true));
    owner->handleEvent(ui::KeyEvent(key, false));
}

void ScreenKeyboard::Platform::enter() {
    const core::SmartPtr<Component> owner(getOwner()->getOwner());
    const bool isField = owner && owner->instanceOf(ui::components::TextField::TYPE);
    const std::string text = isField ? static_cast<ui::components::TextField &>(*owner).getText() : "";
    takeDown();
    textEditingFinished(isField ? TEXT_ACCEPTED : OVERLAY_DISMISSED, text.c_str());
}

void ScreenKeyboard::Platform::hide() {
    takeDown();
    textEditingFinished(OVERLAY_DISMISSED, nullptr);
}

ScreenKeyboard::ScreenKeyboard() = default;

ScreenKeyboard::~ScreenKeyboard() {
    end();
}

void ScreenKeyboard::setEnabled(bool enabled) {
    if (enabled == mEnabled)
        return;
    mEnabled = enabled;
    resign(nullptr);
}

ScreenKeyboard::PlatformData *ScreenKeyboard::_init() {
    mPlatform = std::make_unique<Platform>(this);
    return mPlatform.get();
}

void ScreenKeyboard::_shutdown(PlatformData *) {
    mPlatform.reset();
}

void ScreenKeyboard::_show(unsigned int options, const char *) {
    if (mEnabled)
        mPlatform->bringUp(options);
}

void ScreenKeyboard::_refresh(unsigned int options, const char *) {
    if (mPlatform->isUp())
        mPlatform->begin(options);
    else
        _show(options, nullptr);
}

void ScreenKeyboard::_dismiss() {
    mPlatform->takeDown();
}

} // namespace gallery
