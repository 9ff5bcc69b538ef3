// Edits of a text field against a plain model: whatever the operations, the field's text, what it shows and its caret
// are those of a vector of characters.
//
// The input is a row of operations, a byte each, with what they need behind it: a number takes a byte, a text one for
// its length and that many more.
#include "nengine/Engine.h"
#include "ninput/input/InputSystem.h"
#include "nui/ui/KeyboardOverlay.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/UIEvent.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/TextField.h"
#include "nui/ui/skins/DefaultSkin.h"

#include "foundation/text/Utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

namespace {

using nurel::input::Keyboard;
using nurel::ui::UIManager;
using nurel::ui::components::TextField;

constexpr std::size_t LONGEST_TEXT = 4096; ///< that is still doubled

void require(bool condition, const char *what) {
    if (condition)
        return;
    std::fprintf(stderr, "The field differs from its model: %s\n", what);
    std::abort();
}

/// What the field promises, on plain texts whose characters are counted anew each time.
class Model {
public:
    std::string text;  ///< the real one
    std::string shown; ///< by the label
    int caret = -1;
    int maximum = -1;
    std::string mask; ///< empty for none
    unsigned int changes = 0;

    static std::size_t at(const std::string &text, std::size_t character) {
        std::size_t position = 0;
        while (character-- > 0 && position < text.size())
            position += text::getUTF8Index(text.c_str() + position, 1);
        return position;
    }
    static std::size_t count(const std::string &text) { return text::decodeUTF8(text).size(); }

    void set(const std::string &value) {
        const bool isOver = maximum >= 0 && count(shown) > static_cast<std::size_t>(maximum);
        text = isOver ? "" : value;
        shown = value;
        if (!mask.empty())
            shown = repeatMask(count(value));
        ++changes;
    }

    void setOwn() {
        if (maximum >= 0 && count(shown) > static_cast<std::size_t>(maximum))
            text.clear();
        shown = mask.empty() ? text : repeatMask(count(text));
        ++changes;
    }

    void insert(const std::string &value) {
        const std::size_t length = count(shown);
        const std::size_t index = caret < 0 ? length : static_cast<std::size_t>(caret);
        std::size_t room = count(value);
        if (maximum >= 0) {
            const auto most = static_cast<std::size_t>(maximum);
            room = std::min(room, most - std::min(length, most));
        }
        const std::string stored = value.substr(0, at(value, room));
        if (stored.empty())
            return;
        text.insert(index < length ? at(text, index) : text.size(), stored);
        shown.insert(index < length ? at(shown, index) : shown.size(), mask.empty() ? value : repeatMask(1));
        if (caret >= 0)
            ++caret;
        ++changes;
    }

    void erase(std::size_t index) {
        const std::size_t start = at(text, index);
        text.erase(start, at(text, index + 1) - start);
        const std::size_t shownStart = at(shown, index);
        shown.erase(shownStart, at(shown, index + 1) - shownStart);
        ++changes;
    }

    void backspace() {
        if (caret == 0)
            return;
        const std::size_t length = count(shown);
        if (caret < 0 && length == 0)
            return;
        const std::size_t index = caret < 0 ? length - 1 : static_cast<std::size_t>(--caret);
        if (index < length)
            erase(index);
    }

    void remove() {
        if (caret < 0 || static_cast<std::size_t>(caret) >= count(shown))
            return;
        erase(static_cast<std::size_t>(caret));
        if (static_cast<std::size_t>(caret) == count(shown))
            caret = -1;
    }

    void left() {
        if (caret != 0)
            caret = (caret < 0 ? static_cast<int>(count(shown)) : caret) - 1;
    }

    void right() {
        if (caret >= 0)
            ++caret;
    }

    void limit(int value) {
        maximum = value;
        if (value < 0)
            return;
        if (static_cast<std::size_t>(value) < count(shown))
            setOwn();
        if (value < caret)
            caret = -1;
    }

private:
    std::string repeatMask(std::size_t times) const {
        std::string result;
        for (; times > 0; --times)
            result += mask.substr(0, at(mask, 1));
        return result;
    }
};

/// A field on the stage, for the time of the program.
class Stage {
public:
    Stage() : mEngine(nurel::EngineConfig::headless(640, 480)), mSkin(new nurel::ui::skins::DefaultSkin) {
        nurel::ui::SkinManager::getSingleton().addSkin(mSkin.get());
        nurel::ui::SkinManager::getSingleton().setDefaultSkin(mSkin.get());
        mWidget = new nurel::ui::Widget("fuzz");
        UIManager::getSingleton().setView(mWidget.get());
        UIManager::getSingleton().addWidget(mWidget.get());
        frame();
    }
    ~Stage() {
        mWidget = nullptr;
        UIManager::shutdown();
    }
    Stage(const Stage &) = delete;
    Stage &operator=(const Stage &) = delete;

    void frame() {
        mEngine.advance(1.0 / 60);
        UIManager::getSingleton().updateEvents();
        UIManager::getSingleton().update();
        mEngine.renderFrame(*UIManager::getSingleton().getRenderPass());
    }

    static void tap(int key) {
        Keyboard &keyboard = nurel::input::InputSystem::getSingleton().getKeyboard();
        keyboard.inject(key, true);
        keyboard.inject(key, false);
    }

    nurel::ui::Widget &widget() { return *mWidget; }

private:
    nurel::Engine mEngine;
    core::SmartPtr<nurel::ui::Skin> mSkin;
    core::SmartPtr<nurel::ui::Widget> mWidget;
};

/// The bytes of the input, from the front.
class Input {
public:
    Input(const std::uint8_t *data, std::size_t size) : mData(data), mSize(size) {}

    bool isEmpty() const { return mSize == 0; }

    unsigned int takeNumber() {
        if (isEmpty())
            return 0;
        --mSize;
        return *mData++;
    }

    /// Up to the first NUL, as the field takes it.
    std::string takeText() {
        const std::size_t length = std::min<std::size_t>(takeNumber(), mSize);
        const std::string text(reinterpret_cast<const char *>(mData), length);
        mData += length;
        mSize -= length;
        return text.c_str();
    }

private:
    const std::uint8_t *mData;
    std::size_t mSize;
};

/// Lets the program end an edit.
class OpenKeyboard : public nurel::ui::KeyboardOverlay {
public:
    using KeyboardOverlay::textEditingFinished;
};

class Editing {
public:
    explicit Editing(Stage &stage) : mStage(stage), mField(new TextField("field")), mKeyboard(*new OpenKeyboard) {
        UIManager::getSingleton().setKeyboardOverlay(std::unique_ptr<nurel::ui::KeyboardOverlay>(&mKeyboard));
        mField->ChangeCallbacks::subscribeCallback([this](TextField *) {
            ++mChanges;
            return false;
        });
        mStage.widget().addChild(mField.get());
        mField->setFocus();
    }
    ~Editing() {
        UIManager::getSingleton().setFocus(nullptr);
        UIManager::getSingleton().setKeyboardOverlay(nullptr);
        mStage.widget().clearChildren();
    }
    Editing(const Editing &) = delete;
    Editing &operator=(const Editing &) = delete;

    void run(Input &input) {
        switch (input.takeNumber() % 20) {
        case 0:
            press(Keyboard::K_BACKSPACE, &Model::backspace);
            break;
        case 1:
            press(Keyboard::K_DELETE, &Model::remove);
            break;
        case 2:
            press(Keyboard::K_LEFT, &Model::left);
            break;
        case 3:
            press(Keyboard::K_RIGHT, &Model::right);
            break;
        case 4:
            Stage::tap(Keyboard::K_HOME);
            mModel.caret = 0;
            break;
        case 5:
            Stage::tap(Keyboard::K_END);
            mModel.caret = -1;
            break;
        case 6:
            setText(input.takeText());
            break;
        case 7:
            setMask(input.takeText());
            break;
        case 8:
            setMaximum(static_cast<int>(input.takeNumber()) - 8);
            break;
        case 9:
            mField->setText(mField->getText());
            mModel.setOwn();
            break;
        case 10:
            if (mModel.text.size() < LONGEST_TEXT) {
                mField->insertText(mField->getText());
                mModel.insert(std::string(mModel.text));
            }
            break;
        case 11:
            type(input.takeText());
            break;
        case 12:
            mStage.frame();
            break;
        case 13:
            mField->setPlaceholderText(input.takeText().c_str());
            break;
        case 14:
            acceptFromKeyboard(input.takeText());
            break;
        case 15:
            checkClone();
            break;
        default:
            insert(input.takeText());
            break;
        }
    }

    void check() const {
        require(mModel.text == mField->getText(), "text");
        require(mModel.shown == mField->getLabel()->getText(), "what is shown");
        require(Model::count(mModel.shown) == mField->getTextLength(), "length");
        require(mModel.caret == mField->getCaretIndex(), "caret");
        require(mModel.maximum == mField->getMaxLength(), "maximum");
        require(mModel.mask == mField->getPasswordChar(), "mask");
        require(mModel.changes == mChanges, "number of changes");
        checkPlaceholder(*mField);
    }

private:
    /// It shows while nothing else does.
    void checkPlaceholder(const TextField &field) const {
        for (unsigned int i = 0; i < field.getChildCount(); ++i) {
            const nurel::ui::Component &child = *field.getChildAt(i);
            if (std::strcmp(child.getName(), "placeholder") == 0)
                require(child.isSelfVisible() == mModel.shown.empty(), "whether the placeholder is visible");
        }
    }

    void checkClone() const {
        const core::SmartPtr<nurel::core::Object> object(mField->clone());
        const auto &clone = static_cast<const TextField &>(*object);
        require(mModel.text == clone.getText(), "text of the clone");
        require(mModel.shown == clone.getLabel()->getText(), "what the clone shows");
        require(clone.getCaretIndex() == -1, "caret of the clone");
        require(mModel.maximum == clone.getMaxLength(), "maximum of the clone");
        require(mModel.mask == clone.getPasswordChar(), "mask of the clone");
        checkPlaceholder(clone);
    }

    /// The field takes the keyboard by a click and gets what was typed on it.
    void acceptFromKeyboard(const std::string &text) {
        const nurel::ui::CursorPosition cursor;
        mField->handleEvent(nurel::ui::ClickEvent(nurel::ui::Ray(), cursor, cursor));
        mKeyboard.textEditingFinished(nurel::ui::KeyboardOverlay::TEXT_ACCEPTED, text.c_str());
        mModel.set(text);
    }

    void press(int key, void (Model::*act)()) {
        Stage::tap(key);
        (mModel.*act)();
    }

    void setText(const std::string &text) {
        mField->setText(text.c_str());
        mModel.set(text);
    }

    void setMask(const std::string &mask) {
        mField->setPasswordChar(mask.c_str());
        mModel.mask = mask.substr(0, 4);
    }

    void setMaximum(int maximum) {
        mField->setMaxLength(maximum);
        mModel.limit(maximum);
    }

    void insert(const std::string &text) {
        mField->insertText(text.c_str());
        mModel.insert(text);
    }

    void type(const std::string &text) {
        UIManager::getSingleton().textInput(text.c_str());
        mStage.frame();
        if (!text.empty() && !std::strchr("\b\t\r\n", text[0]))
            mModel.insert(text);
    }

    Stage &mStage;
    const core::SmartPtr<TextField> mField;
    OpenKeyboard &mKeyboard; ///< the manager's
    Model mModel;
    unsigned int mChanges = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    constexpr unsigned int MOST_OPERATIONS = 200;
    static Stage stage;
    Editing editing(stage);
    Input input(data, size);
    for (unsigned int i = 0; i < MOST_OPERATIONS && !input.isEmpty(); ++i) {
        editing.run(input);
        editing.check();
    }
    stage.frame();
    editing.check();
    return 0;
}
