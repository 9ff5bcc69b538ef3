#include "nui/ui/Dialog.h"

#include "foundation/core/Exception.h"
#include "foundation/core/Lock.h"
#include "foundation/core/Type.h"
#include "ninput/input/Keyboard.h"
#include "nmain/core/CloningOptions.h"
#include "nui/ui/AnimationContext.h"
#include "nui/ui/HermiteInterpolator.h"
#include "nui/ui/UIComponentFactory.h"
#include "nui/ui/animation/AnimatedScale.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/components/Image.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/detail/DialogWindow.h"
#include "nui/ui/detail/ManagerAccess.h"
#include "nxml/i18n/I18N.h"

#include <algorithm>
#include <string>

namespace nurel::ui {

constinit const core::Type Dialog::TYPE("Dialog", &Widget::TYPE);

std::deque<core::SmartPtr<Dialog>> Dialog::mMODAL_STACK;
constinit core::CriticalSection Dialog::mMODAL_STACK_SECTION;

using detail::CustomDialog;
using detail::findPart;
using detail::IconDialog;
using detail::requirePart;

namespace {

constexpr const char *DEFAULT_TEMPLATE = "dialog";
constexpr const char *ICON_BODY_TEMPLATE = "dialog-icon-body";

constexpr float ANIMATION_DURATION = 0.2f;
constexpr float BACKDROP_OPACITY = 0.7f;
constexpr float SMALL_SCALE = 0.1f;
constexpr float OVERSHOOT = 1.2f; ///< slope of the scale's curve where the window is at full size

/// An answer button's text is that of a translation key.
struct AnswerText {
    Dialog::Flag flag;
    const char *part;
    std::string key;
};

AnswerText *answerTexts() {
    static AnswerText texts[] = {
        {Dialog::FLAG_OK, "bOK", "OK"},
        {Dialog::FLAG_YES, "bYes", "YES"},
        {Dialog::FLAG_NO, "bNo", "NO"},
        {Dialog::FLAG_CANCEL, "bCancel", "CANCEL"},
    };
    return texts;
}
constexpr std::size_t ANSWER_COUNT = 4;

/// How many opening and closing animations run. All of them are forgotten at once when the count starts anew.
struct RunningAnimations {
    int count = 0;
    unsigned int generation = 0;
};
constinit RunningAnimations sRunning;

/// Told of one animation: counts it while it runs, and has input off as long as any of them does. Every start that it
/// counts it also takes back, once and within the same generation.
class AnimationCounter {
public:
    explicit AnimationCounter(Component *window) : mWindow(window) {}

    bool operator()(AnimationContext *context, const AnimationEvent &event) {
        if (event.getType() == AnimationEvent::STEP)
            return false;
        const bool isStart = event.getType() == AnimationEvent::STARTED;
        if (isStart && mWindow && context->getAnimation(mWindow.get(), Animation::TYPE)) {
            ++sRunning.count;
            mCounted = true;
            mGeneration = sRunning.generation;
        } else if (!isStart && mCounted) {
            if (mGeneration == sRunning.generation)
                --sRunning.count;
            mCounted = false;
        }
        if (UIManager *manager = detail::findManager())
            manager->setEnabled(sRunning.count == 0);
        return false;
    }

private:
    core::SmartPtr<Component> mWindow;
    bool mCounted = false;
    unsigned int mGeneration = 0;
};

void bendScale(const AnimationContext &context, const Component *window, float tangentOut, float tangentIn) {
    if (Animation *scale = context.getAnimation(window, animation::AnimatedScale::TYPE))
        scale->setInterpolator(new HermiteInterpolator(tangentOut, tangentIn));
}

void setAnswerTexts(Container &window) {
    const i18n::I18N *translations = i18n::I18N::getSingletonPtr();
    for (std::size_t i = 0; i < ANSWER_COUNT; ++i) {
        const AnswerText &text = answerTexts()[i];
        const char *key = text.key.c_str();
        requirePart<components::Button>(&window, text.part).setText(translations ? (*translations)[key] : key);
    }
}

const char *partOf(Dialog::ButtonType type) {
    switch (type) {
    case Dialog::BUTTON_YES:
        return "bYes";
    case Dialog::BUTTON_NO:
        return "bNo";
    case Dialog::BUTTON_CANCEL:
        return "bCancel";
    case Dialog::BUTTON_CLOSE:
        return "bClose";
    case Dialog::BUTTON_OK:
        break;
    }
    return "bOK";
}

/// A new window with all that the prototype has.
template <class Window>
core::SmartPtr<Window> makeWindow(const Component *prototype) {
    if (!prototype || !prototype->instanceOf(components::Panel::TYPE))
        throw core::IllegalArgumentException("Cannot clone %s as %s",
                                             prototype ? prototype->getType().getName() : "nothing",
                                             components::Panel::TYPE.getName());
    core::SmartPtr<Window> window(new Window(prototype->getName()));
    core::CloningOptions options;
    prototype->_clone(window.get(), options);
    return window;
}

} // namespace

Dialog::Dialog(const char *name) : Widget(name) {
    enableEvents(UIEvent::ET_KEY_EVENT);
}

Dialog::~Dialog() {
    addRef(); // as in ~Component()
    for (const auto &[part, id] : mAnswers)
        part->ClickCallbacks::unsubscribeCallback(id);
    mAnswers.clear();
    completeFutures(DIALOG_CANCELLED);
}

// --- Making one

Dialog *Dialog::newDialog(const char *name, const char *title, Component *body, unsigned int flags) {
    return newDialog(DEFAULT_TEMPLATE, name, title, body, flags);
}

Dialog *Dialog::newDialog(const char *templateName, const char *name, const char *title, Component *body,
                          unsigned int flags) {
    const core::SmartPtr<Component> keptBody(body);
    // 1.
    const core::SmartPtr<CustomDialog> window = makeWindow<CustomDialog>(obtainPrototype(templateName).get());
    // 2.
    setAnswerTexts(*window);
    // 3.
    window->setName(name);
    requirePart<components::Label>(window.get(), "lTitle").setText(title);
    // 4.
    if (body)
        requirePart<Container>(window.get(), "pBody").addChild(body, true);
    // 5. and 6.
    core::SmartPtr<Dialog> dialog = wrap(*window, name, flags);
    // 7.
    dialog->answerByButtons();
    dialog->answerBy(requirePart<Component>(window.get(), "bClose"), DIALOG_CANCELLED);
    return dialog.release();
}

Dialog *Dialog::newDialog(const char *name, const char *title, const char *text, unsigned int flags) {
    return newDialog(DEFAULT_TEMPLATE, name, title, text, flags);
}

Dialog *Dialog::newDialog(const char *templateName, const char *name, const char *title, const char *text,
                          unsigned int flags) {
    // 1.
    const core::SmartPtr<IconDialog> window = makeWindow<IconDialog>(obtainPrototype(templateName).get());
    // 2.
    setAnswerTexts(*window);
    const core::SmartPtr<Component> body(UIComponentFactory::getSingleton().newInstance(ICON_BODY_TEMPLATE));
    if (body)
        requirePart<Container>(window.get(), "pBody").addChild(body.get(), true);
    // 3.
    window->setName(name);
    requirePart<components::Label>(window.get(), "lTitle").setText(title);
    requirePart<components::Label>(window.get(), "lText").setText(text);
    // 5. and 6.
    core::SmartPtr<Dialog> dialog = wrap(*window, name, flags);
    // 7. Other than with a body of its own, a dialog does without a close button
    dialog->answerByButtons();
    if (Component *close = findPart<Component>(window.get(), "bClose"))
        dialog->answerBy(*close, DIALOG_CANCELLED);
    return dialog.release();
}

core::SmartPtr<Component> Dialog::obtainPrototype(const char *templateName) {
    return UIComponentFactory::getSingleton().obtainTemplate(templateName ? templateName : "");
}

core::SmartPtr<Dialog> Dialog::wrap(Container &window, const char *name, unsigned int flags) {
    core::SmartPtr<Dialog> dialog(new Dialog(name));
    dialog->addClass("modal");
    dialog->setSize(math::Vector2(0, 0), math::Vector2::ONE);
    dialog->addChild(&window, true);
    dialog->setFlags(flags);
    return dialog;
}

void Dialog::answerBy(Component &part, DialogResult result) {
    const int id = part.ClickCallbacks::subscribeCallback(this, &Dialog::click, result);
    mAnswers.emplace_back(&part, id);
}

void Dialog::answerByButtons() {
    struct Answer {
        const char *part;
        DialogResult result;
    };
    constexpr Answer ANSWERS[] = {
        {"bOK", DIALOG_ACCEPTED}, {"bYes", DIALOG_ACCEPTED}, {"bNo", DIALOG_DECLINED}, {"bCancel", DIALOG_CANCELLED}};
    for (const Answer &answer : ANSWERS)
        answerBy(requirePart<components::Button>(getWindow(), answer.part), answer.result);
}

bool Dialog::click(UIEventHandler *, const ClickEvent &, DialogResult result) {
    close(result);
    return false;
}

void Dialog::setI18N(Flag flag, const char *key) {
    for (std::size_t i = 0; i < ANSWER_COUNT; ++i) {
        if (answerTexts()[i].flag == flag)
            answerTexts()[i].key = key ? key : "";
    }
}

// --- The stack

Dialog *Dialog::getCurrentModal() {
    const core::Lock lock(mMODAL_STACK_SECTION);
    return mMODAL_STACK.empty() ? nullptr : mMODAL_STACK.back().get();
}

void Dialog::shutdown() {
    std::deque<core::SmartPtr<Dialog>> forgotten;
    {
        const core::Lock lock(mMODAL_STACK_SECTION);
        forgotten.swap(mMODAL_STACK);
    }
    sRunning.count = 0;
    ++sRunning.generation;
    for (const core::SmartPtr<Dialog> &dialog : forgotten)
        dialog->completeFutures(DIALOG_CANCELLED);
}

core::Future<DialogResult> Dialog::newFuture() {
    core::Future<DialogResult> future;
    mFutures.push_back(future);
    if (mIsAnswering) // a subscriber from now on would still be told of the answer that is being given
        return future;
    ResultCallbacks::subscribeCallback([future](Dialog *, DialogResult result) mutable {
        future.set(result);
        return true;
    });
    return future;
}

/// Those that have their value already keep it.
void Dialog::completeFutures(DialogResult result) {
    std::vector<core::Future<DialogResult>> futures;
    futures.swap(mFutures);
    for (core::Future<DialogResult> &future : futures)
        future.set(result);
}

// --- Opening and closing

core::Future<DialogResult> Dialog::showModal(ButtonType focus) {
    const Keeper self(this);
    UIManager &manager = UIManager::getSingleton();
    // 7. comes ahead: a listener of the focus may answer already
    core::Future<DialogResult> future = newFuture();
    {
        const core::Lock lock(mMODAL_STACK_SECTION);
        if (std::find(mMODAL_STACK.begin(), mMODAL_STACK.end(), this) != mMODAL_STACK.end())
            return future;
    }
    // 1. to 4.
    startOpening();
    // 5. One that is still closing comes up anew
    if (mExit)
        manager.removeWidget(this);
    mExit = nullptr;
    manager.addWidget(this, nullptr);
    {
        const core::Lock lock(mMODAL_STACK_SECTION);
        mMODAL_STACK.emplace_back(this);
    }
    // 6.
    Component *button = focus == BUTTON_CLOSE ? nullptr : getButton(focus);
    if (button)
        button->setFocus();
    return future;
}

void Dialog::startOpening() {
    UIManager &manager = UIManager::getSingleton();
    Container *window = getWindow();
    // 1. At once: so no animation may be open, and the next step drops one anyway
    if (manager.getCurrentAnimation()) {
        manager.beginAnimation();
        manager.cancelAnimation();
    }
    setOpacity(0, false);
    if (window)
        window->setScale(math::Vector2(SMALL_SCALE, SMALL_SCALE));
    // 2.
    AnimationContext *context = manager.beginAnimation();
    context->setDuration(ANIMATION_DURATION);
    // 3.
    setOpacity(BACKDROP_OPACITY, false);
    if (window)
        window->setScale(math::Vector2::ONE);
    // 4.
    bendScale(*context, window, 0, -OVERSHOOT);
    context->subscribeCallback(AnimationCounter(window));
    manager.commitAnimation();
}

void Dialog::close(DialogResult result) {
    // 3. in part: what is off the stack cannot be answered again
    core::SmartPtr<Dialog> self;
    {
        const core::Lock lock(mMODAL_STACK_SECTION);
        const auto found = std::find(mMODAL_STACK.begin(), mMODAL_STACK.end(), this);
        if (found == mMODAL_STACK.end())
            return;
        self = *found;
        mMODAL_STACK.erase(found);
    }
    // 1. and 2.
    startClosing();
    // 3. The futures get the answer also when a callback fails, or has removed the others
    struct Answering {
        ~Answering() {
            isAnswering = wasAnswering;
            for (core::Future<DialogResult> &future : futures)
                future.set(result);
        }
        std::vector<core::Future<DialogResult>> futures;
        const DialogResult result;
        bool &isAnswering;
        const bool wasAnswering;
    };
    const Answering answering{std::exchange(mFutures, {}), result, mIsAnswering, std::exchange(mIsAnswering, true)};
    ResultCallbacks::triggerCallbacks(this, result);
}

void Dialog::startClosing() {
    UIManager *manager = detail::findManager();
    if (!manager)
        return;
    // 1.
    Container *window = getWindow();
    AnimationContext *context = manager->beginAnimation();
    setOpacity(0, false);
    if (window)
        window->setScale(math::Vector2(SMALL_SCALE, SMALL_SCALE));
    bendScale(*context, window, OVERSHOOT, 0);
    context->setDuration(ANIMATION_DURATION);
    // 2.
    context->subscribeCallback(AnimationCounter(window));
    context->subscribeCallback(
        [dialog = core::SmartPtr<Dialog>(this)](AnimationContext *exit, const AnimationEvent &event) {
            return dialog->endAnimationExit(exit, event);
        });
    mExit = context;
    manager->commitAnimation();
}

/// Takes the widget down, unless the dialog has been shown again meanwhile.
bool Dialog::endAnimationExit(AnimationContext *context, const AnimationEvent &event) {
    if (event.getType() != AnimationEvent::FINISHED)
        return false;
    if (mExit == context) {
        mExit = nullptr;
        UIManager::getSingleton().removeWidget(this);
    }
    return true;
}

// --- Keys

UIEventHandler *Dialog::filterEvent(const UIEvent &event, UIEventHandler *handler) {
    const Keeper self(this);
    // One aimed at the dialog itself is processed once more after this, which does no harm.
    if (event.getType() == UIEvent::ET_KEY_EVENT)
        processEvent(static_cast<const KeyEvent &>(event));
    return handler;
}

UIEventHandler *Dialog::processEvent(const KeyEvent &event) {
    if (event.isPressed() && event.getKey() == input::Keyboard::K_ESCAPE) {
        const unsigned int flags = getFlags();
        if ((flags & (FLAG_CANCEL | FLAG_CLOSE)) != 0 || (flags & CustomDialog::ANSWER_MASK) == FLAG_OK)
            close(DIALOG_CANCELLED);
    }
    return this;
}

// --- What it shows

Container *Dialog::getWindow() const {
    Component *child = getChildCount() > 0 ? getChildAt(0) : nullptr;
    return child && child->isContainer() ? static_cast<Container *>(child) : nullptr;
}

unsigned int Dialog::getFlags() const {
    const CustomDialog *window = CustomDialog::cast(getWindow());
    return window ? window->getFlags() : 0;
}

void Dialog::setFlags(unsigned int flags) {
    CustomDialog *window = CustomDialog::cast(getWindow());
    if (!window)
        throw core::IllegalStateException("Dialog %s has no window", getName());
    window->setFlags(flags);
}

Container *Dialog::getBody() const {
    return findPart<Container>(getWindow(), "pBody");
}

components::Image *Dialog::getIcon() const {
    return findPart<components::Image>(getWindow(), "iIcon");
}

components::Image *Dialog::getTitleIcon() const {
    return findPart<components::Image>(getWindow(), "iTitleIcon");
}

void Dialog::setIconClass(const char *name) {
    requirePart<components::Image>(getWindow(), "iIcon").addClass(name);
}

void Dialog::setTitleIconClass(const char *name) {
    requirePart<components::Image>(getWindow(), "iTitleIcon").addClass(name);
}

const char *Dialog::getTitle() const {
    const components::Label *title = findPart<components::Label>(getWindow(), "lTitle");
    return title ? title->getText() : nullptr;
}

void Dialog::setTitle(const char *title) {
    requirePart<components::Label>(getWindow(), "lTitle").setText(title);
}

Component *Dialog::getButton(ButtonType type) const {
    if (type == BUTTON_CLOSE)
        return findPart<Component>(getWindow(), partOf(type));
    return findPart<components::Button>(getWindow(), partOf(type));
}

void Dialog::setButtonText(ButtonType type, const char *text) {
    Component *part = getButton(type);
    if (part && part->instanceOf(components::Button::TYPE))
        static_cast<components::Button *>(part)->setText(text);
}

const char *Dialog::getButtonText(ButtonType type) const {
    Component *part = getButton(type);
    return part && part->instanceOf(components::Button::TYPE) ? static_cast<components::Button *>(part)->getText()
                                                              : nullptr;
}

} // namespace nurel::ui
