#include "nui/ui/components/TextField.h"

#include "foundation/core/Type.h"
#include "foundation/text/Utf8.h"
#include "nengine/font/Font.h"
#include "nengine/font/Glyph.h"
#include "ninput/input/Keyboard.h"
#include "nmain/core/CloningOptions.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/Skin.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/detail/CloneTarget.h"
#include "nui/ui/detail/ClonedPart.h"
#include "nui/ui/detail/ManagerAccess.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <memory>

namespace nurel::ui::components {

constinit const core::Type TextField::TYPE("TextField", &Container::TYPE);

const char *const TextField::ELEMENT = "text";

namespace {

/// A label in all but what it starts with: its clone is a plain label.
class TextFieldLabel : public Label {
public:
    explicit TextFieldLabel(const char *name) : Label(name, TextField::ELEMENT) { setEventMask(0); }
};

/// The part, when it is still in the field's tree: it may have been taken out behind the field's back. It is held, so
/// that it can be asked.
Label *findPart(const core::SmartPtr<Label> &part, const Container &field) {
    return part && part->isDescendantOf(&field) ? part.get() : nullptr;
}

Label *findClonedLabel(const Container &copy, const Label *label, const core::CloningOptions &options) {
    Component *found = label ? detail::findClonedPart(copy, label, options) : nullptr;
    return found && found->instanceOf(Label::TYPE) ? static_cast<Label *>(found) : nullptr;
}

} // namespace

TextField::TextField(const char *name) : Container(name, ELEMENT) {
    enableEvents(UIEvent::ET_TEXT_EVENT | UIEvent::ET_CLICK_EVENT | UIEvent::ET_KEY_EVENT | UIEvent::ET_DRAG_EVENT |
                 UIEvent::ET_FOCUS_EVENT);
    setScrollMask(SCROLL_HORIZONTAL);
    setTabStop(0);
}

TextField::TextField(const TextField &) = default;
TextField &TextField::operator=(const TextField &) = default;

TextField::~TextField() {
    endSubscription();
}

// --- Text

void TextField::setText(const char *text) {
    const Keeper self(this);
    Label *label = ensureLabel();
    // 1. The argument may be this text, or a part of what is shown
    const bool isOwnText = text == mText.c_str();
    std::string shown(text ? text : "");
    mText = shown;
    // 2. It is the old text whose length counts, and all goes
    if (mMaxLength >= 0 && label->getTextLength() > static_cast<unsigned int>(mMaxLength)) {
        mText.erase(text::getUTF8Index(mText.c_str(), 0));
        if (isOwnText)
            shown.clear();
    }
    // 3.
    label->setText(shown.c_str());
    // 4.
    if (isPassword())
        label->setText(getMask(label->getTextLength()).c_str());
    // 5.
    checkPlaceholder();
    // 6.
    setDirty(DIRTY_VIEW);
    // 7.
    ChangeCallbacks::triggerCallbacks(this);
}

unsigned int TextField::getTextLength() const {
    return ensureLabel()->getTextLength();
}

void TextField::insertText(const char *argument) {
    const std::string text(argument ? argument : ""); // it may be a part of this text, or of the label's
    Label *label = ensureLabel();
    const unsigned int characters = label->getTextLength();
    // 1.
    const unsigned int caret = getCaretCharacter(characters);
    std::size_t position = mText.size();
    if (caret < characters)
        position = text::getUTF8Index(mText.c_str(), caret);
    // 2.
    unsigned int count = text::getUTF8Length(text.c_str());
    if (mMaxLength >= 0) {
        const auto maximum = static_cast<unsigned int>(mMaxLength);
        count = std::min(count, maximum > characters ? maximum - characters : 0);
    }
    // 3.
    const unsigned int bytes = text::getUTF8Index(text.c_str(), count);
    if (bytes == 0)
        return;
    // 4.
    mText.insert(std::min(position, mText.size()), text, 0, bytes);
    // 5. Made for the text of one key: one mask character whatever the length, and nothing of the cut
    label->insertTextAt(isPassword() ? getMask(1).c_str() : text.c_str(), caret);
    // 6.
    if (mCaretIndex != -1 && mCaretIndex < std::numeric_limits<int>::max())
        ++mCaretIndex;
    // 7.
    textEdited();
}

/// The real text and the label lose the character; the label may have more of them.
void TextField::eraseCharacter(unsigned int index) {
    const std::size_t start = text::getUTF8Index(mText.c_str(), index);
    mText.erase(start, text::getUTF8Index(mText.c_str() + start, 1));
    ensureLabel()->removeTextAt(index, 1);
}

void TextField::textEdited() {
    const Keeper self(this);
    ensureCaret();
    checkPlaceholder();
    setDirty(DIRTY_VIEW);
    ChangeCallbacks::triggerCallbacks(this);
}

// --- Parts

Label *TextField::findLabel() const {
    return findPart(mLabel, *this);
}

Label *TextField::findPlaceholder() const {
    return findPart(mPlaceholder, *this);
}

Label *TextField::makePart(const char *name) const {
    core::SmartPtr<Label> part(new TextFieldLabel(name));
    part->setClasses(getClasses());
    const_cast<TextField *>(this)->_addChild(part.get(), false);
    shareDisabled(*part);
    return part.get();
}

Label *TextField::ensureLabel() const {
    if (Label *label = findLabel())
        return label;
    mLabel = makePart("label");
    if (!mText.empty()) // the one before was taken out
        mLabel->setText(isPassword() ? getMask(text::getUTF8Length(mText.c_str())).c_str() : mText.c_str());
    refreshCharWidth();
    return mLabel.get();
}

Label *TextField::ensurePlaceholder() const {
    if (Label *placeholder = findPlaceholder())
        return placeholder;
    ensureLabel(); // ahead of it: a view takes the first label that it finds for the text
    mPlaceholder = makePart("placeholder");
    checkPlaceholder();
    return mPlaceholder.get();
}

void TextField::checkPlaceholder() const {
    if (Label *placeholder = findPlaceholder())
        placeholder->setVisible(ensureLabel()->getTextLength() == 0);
}

void TextField::setPlaceholderText(const char *text) {
    ensurePlaceholder()->setText(text);
}

const char *TextField::getPlaceholderText() const {
    const Label *placeholder = findPlaceholder();
    return placeholder ? placeholder->getText() : "";
}

void TextField::setFont(font::Font *font) {
    ensureLabel()->setFont(font);
    refreshCharWidth();
}

font::Font *TextField::getFont() const {
    return ensureLabel()->getFont();
}

void TextField::refreshCharWidth() const {
    const font::Font *font = ensureLabel()->getFont();
    const font::Glyph *glyph = font ? font->getGlyph(U'm') : nullptr;
    mCharWidth = glyph ? std::floor(glyph->advance) : 0;
}

// --- Options

void TextField::setPasswordChar(const char *character) {
    char copied[sizeof mPasswordChar] = {};
    if (character)
        std::strncpy(copied, character, sizeof copied - 1);
    std::memcpy(mPasswordChar, copied, sizeof copied);
    setKeyboardOptions(mKeyboardOptions);
}

/// The first character of what was set, so that the label has one for each of the text.
std::string TextField::getMask(unsigned int characters) const {
    const unsigned int bytes = text::getUTF8Index(mPasswordChar, 1);
    std::string mask;
    mask.reserve(std::size_t{bytes} * characters);
    for (unsigned int i = 0; i < characters; ++i)
        mask.append(mPasswordChar, bytes);
    return mask;
}

void TextField::setMaxLength(int length) {
    mMaxLength = length;
    if (length < 0)
        return;
    const Keeper self(this);
    if (static_cast<unsigned int>(length) < getTextLength())
        setText(getText()); // which empties the field
    if (length < mCaretIndex)
        mCaretIndex = -1;
    setDirty(DIRTY_VIEW);
}

void TextField::setKeyboardOptions(unsigned int options) {
    mKeyboardOptions = isPassword() ? options | KEYBOARD_PASSWORD : options & ~KEYBOARD_PASSWORD;
}

// --- Events

UIEventHandler *TextField::handleEvent(const UIEvent &event) {
    Keeper self(this);
    UIEventHandler *consumer = Container::handleEvent(event);
    const unsigned int state = getState() & ~STATE_FOCUSED;
    if (Label *label = findLabel())
        setChildState(*label, state);
    if (Label *placeholder = findPlaceholder())
        setChildState(*placeholder, state);
    if (consumer == this)
        return self.release();
    Keeper kept(consumer);
    self.release();
    return kept.release();
}

UIEventHandler *TextField::processEvent(const KeyEvent &event) {
    static constexpr struct {
        int key;
        void (TextField::*act)();
    } ACTIONS[] = {
        {input::Keyboard::K_BACKSPACE, &TextField::deleteCaretChar},
        {input::Keyboard::K_DELETE, &TextField::removeCaretChar},
        {input::Keyboard::K_LEFT, &TextField::caretLeft},
        {input::Keyboard::K_RIGHT, &TextField::caretRight},
        {input::Keyboard::K_HOME, &TextField::caretStart},
        {input::Keyboard::K_END, &TextField::caretEnd},
    };
    if (!event.isPressed())
        return this;
    for (const auto &action : ACTIONS) {
        if (action.key == event.getKey())
            (this->*action.act)();
    }
    return this;
}

UIEventHandler *TextField::processEvent(const TextEvent &event) {
    static constexpr char CONTROLS[] = "\b\t\r\n"; // and the terminator
    if (event.getText() && !std::memchr(CONTROLS, *event.getText(), sizeof CONTROLS))
        insertText(event.getText());
    return this;
}

UIEventHandler *TextField::processEvent(const ClickEvent &event) {
    acquireKeyboard();
    return Container::processEvent(event);
}

UIEventHandler *TextField::processEvent(const FocusEvent &event) {
    if (event.getAction() == FocusEvent::FOCUS_GAINED) {
        ensureLabel(); // the caret stands in it
        acquireKeyboard();
    }
    return Container::processEvent(event);
}

// --- On-screen keyboard

void TextField::acquireKeyboard() {
    UIManager *manager = detail::findManager();
    if (!manager)
        return;
    const Keeper self(this);
    KeyboardOverlay *overlay = manager->acquireKeyboard(this, mText.c_str(), mKeyboardOptions);
    if (!overlay)
        return;
    endSubscription(); // one only, however often it takes the focus
    mFinishesBefore = overlay->getFinishCount();
    overlay->getFinishedSignal().subscribeCallback(this, &TextField::inputFinished);
}

void TextField::endSubscription() {
    KeyboardOverlay *overlay =
        UIManager::isSingletonCreated() ? UIManager::getSingleton().getKeyboardOverlay() : nullptr;
    if (!overlay)
        return;
    using Signal = KeyboardOverlay::FinishedCallbacks;
    const std::unique_ptr<Signal::CallbackType> own(Signal::newCallback(this, &TextField::inputFinished));
    overlay->getFinishedSignal().unsubscribeCreatedCallback(*own);
}

bool TextField::inputFinished(KeyboardOverlay *overlay, Component *component, KeyboardOverlay::TextEditingResult result,
                              const char *text) {
    const unsigned int current = overlay->getCurrentFinish();
    if (current != 0 && current <= mFinishesBefore)
        return false; // it was under way already when this field subscribed: the next one is meant
    if (component != this)
        return true;
    const Keeper self(this);
    if (result == KeyboardOverlay::TEXT_ACCEPTED)
        setText(text);
    FinishCallbacks::triggerCallbacks(this, result);
    return true;
}

// --- Classes

void TextField::addClass(const char *name) {
    Container::addClass(name);
    if (Label *label = findLabel())
        label->addClass(name);
    if (Label *placeholder = findPlaceholder())
        placeholder->addClass(name);
}

void TextField::removeClass(const char *name) {
    if (!name)
        return Container::removeClass(name);
    const std::string kept(name); // it may be a key of one of the sets
    Container::removeClass(kept.c_str());
    if (Label *label = findLabel())
        label->removeClass(kept.c_str());
    if (Label *placeholder = findPlaceholder())
        placeholder->removeClass(kept.c_str());
}

void TextField::removeClasses() {
    Container::removeClasses();
    if (Label *label = findLabel())
        label->removeClasses();
    if (Label *placeholder = findPlaceholder())
        placeholder->removeClasses();
}

// --- View and clone

ComponentView *TextField::visit(Skin *skin) {
    if (hasView() || !skin)
        return getView();
    const core::SmartPtr<ComponentView> view(skin->visit(this));
    setView(view.get());
    return getView();
}

core::Object *TextField::clone(core::CloningOptions &options) const {
    core::SmartPtr<TextField> copy(new TextField(getName()));
    _clone(copy.get(), options);
    return copy.release();
}

void TextField::_clone(core::Object *object, core::CloningOptions &options) const {
    detail::requireCloneTarget(*this, object, TYPE);
    if (object == this)
        return;
    TextField &target = *static_cast<TextField *>(object);
    target.clearChildren();
    target.mLabel = nullptr;
    target.mPlaceholder = nullptr;
    Container::_clone(object, options);
    target.mLabel = findClonedLabel(target, mLabel.get(), options);
    target.mPlaceholder = findClonedLabel(target, mPlaceholder.get(), options);
    target.setPasswordChar(mPasswordChar);
    target.setKeyboardOptions(mKeyboardOptions);
    target.mCharWidth = mCharWidth;
    target.mMaxLength = mMaxLength;
    target.mText = mText;
    target.mCaretIndex = -1;
}

} // namespace nurel::ui::components
