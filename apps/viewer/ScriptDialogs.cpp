#include "ScriptDialogs.h"

#include "ComponentFinder.h"

#include "nmain/json/JSObject.h"
#include "nui/ui/UIComponentFactory.h"
#include "nui/ui/UIEvent.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"

#include "foundation/core/Exception.h"
#include "foundation/logging/Logger.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace viewer {

using logging::Logger;
using nurel::json::JSObject;
using nurel::ui::Component;
using nurel::ui::Dialog;
using nurel::ui::UIComponentFactory;
using nurel::ui::UIManager;
using nurel::ui::Widget;

namespace {

struct AnswerWord {
    const char *word;
    Dialog::Flag flag;
    Dialog::ButtonType button;
};

constexpr AnswerWord ANSWERS[] = {{"ok", Dialog::FLAG_OK, Dialog::BUTTON_OK},
                                  {"yes", Dialog::FLAG_YES, Dialog::BUTTON_YES},
                                  {"no", Dialog::FLAG_NO, Dialog::BUTTON_NO},
                                  {"cancel", Dialog::FLAG_CANCEL, Dialog::BUTTON_CANCEL}};

struct IconWord {
    const char *word;
    Dialog::Flag flag;
};

constexpr IconWord ICONS[] = {{"info", Dialog::FLAG_INFO},
                              {"question", Dialog::FLAG_QUESTION},
                              {"warning", Dialog::FLAG_WARNING},
                              {"error", Dialog::FLAG_ERROR}};

template <class Table>
auto findWord(const Table &table, const char *word) -> decltype(std::begin(table)) {
    const auto found = std::find_if(std::begin(table), std::end(table),
                                    [word](const auto &entry) { return std::strcmp(entry.word, word) == 0; });
    return found == std::end(table) ? nullptr : found;
}

bool isText(const JSObject &value) {
    return value.getType() == JSObject::T_STRING;
}

bool isFlag(const JSObject &value) {
    return value.getType() == JSObject::T_BOOL;
}

bool isAnswer(const JSObject &value) {
    return findWord(ANSWERS, value.asString("")) != nullptr;
}

bool isIcon(const JSObject &value) {
    return findWord(ICONS, value.asString("")) != nullptr;
}

bool areAnswers(const JSObject &value) {
    if (value.getType() != JSObject::T_OBJECT)
        return false;
    for (unsigned int i = 0; i < value.getLength(); ++i) {
        if (!findWord(ANSWERS, value.getKey(i)) || !isText(*value.get(value.getKey(i))))
            return false;
    }
    return true;
}

struct Key {
    const char *word;
    bool (*accepts)(const JSObject &value);
};

constexpr Key KEYS[] = {{"name", isText},    {"on", isText},   {"template", isText}, {"title", isText},
                        {"message", isText}, {"body", isText}, {"icon", isIcon},     {"answers", areAnswers},
                        {"focus", isAnswer}, {"close", isFlag}};

const char *getName(const JSObject &description) {
    return description.getString("name", "dialog");
}

unsigned int getFlags(const JSObject &description) {
    unsigned int flags = description.getBool("close", false) ? static_cast<unsigned int>(Dialog::FLAG_CLOSE) : 0U;
    const JSObject &answers = *description.get("answers");
    for (unsigned int i = 0; i < answers.getLength(); ++i)
        flags |= findWord(ANSWERS, answers.getKey(i))->flag;
    if (const IconWord *icon = findWord(ICONS, description.getString("icon", "")))
        flags |= icon->flag;
    return flags;
}

core::SmartPtr<Dialog> make(const JSObject &description) {
    const char *base = description.getString("template", "dialog");
    const char *title = description.getString("title", "");
    const unsigned int flags = getFlags(description);
    core::SmartPtr<Dialog> dialog;
    if (const char *body = description.getString("body", nullptr)) {
        const core::SmartPtr<Component> content(UIComponentFactory::getSingleton().newInstance(body));
        dialog = Dialog::newDialog(base, getName(description), title, content.get(), flags);
    } else {
        dialog = Dialog::newDialog(base, getName(description), title, description.getString("message", ""), flags);
    }
    const JSObject &answers = *description.get("answers");
    for (const AnswerWord &answer : ANSWERS) {
        if (const char *text = answers.getString(answer.word, nullptr); text && *text)
            dialog->setButtonText(answer.button, text);
    }
    return dialog;
}

const char *toWord(nurel::ui::DialogResult result) {
    switch (result) {
    case nurel::ui::DIALOG_ACCEPTED:
        return "accepted";
    case nurel::ui::DIALOG_DECLINED:
        return "declined";
    case nurel::ui::DIALOG_CANCELLED:
        break;
    }
    return "cancelled";
}

/// It has its place on the stage, and its window is as large as it will be.
bool isOpen(const Dialog &dialog) {
    const UIManager &manager = UIManager::getSingleton();
    return manager.isEnabled() && manager.hasWidget(&dialog) && dialog.getWindow() &&
           dialog.getWindow()->getScale() == nurel::math::Vector2::ONE;
}

bool isOnStage(const Component &component) {
    const Component *root = &component;
    while (root->getParent())
        root = root->getParent();
    return root->instanceOf(Widget::TYPE) && UIManager::getSingleton().hasWidget(static_cast<const Widget *>(root));
}

} // namespace

ScriptDialogs::~ScriptDialogs() {
    for (Binding &binding : mBindings)
        release(binding);
    for (const Entry &entry : mEntries) {
        if (!entry.isAnswered())
            entry.dialog->ResultCallbacks::unsubscribeCallback(entry.subscription);
    }
}

std::string ScriptDialogs::findFault(const JSObject &description) {
    for (unsigned int i = 0; i < description.getLength(); ++i) {
        const char *name = description.getKey(i);
        const Key *key = findWord(KEYS, name);
        if (!key)
            return std::string("'dialog' has no '") + name + "'";
        if (!key->accepts(*description.get(name)))
            return std::string("'") + name + "' has a value of the wrong kind";
    }
    if (description.hasKey("body") && description.hasKey("message"))
        return "'dialog' wants a 'message' or a 'body', not both";
    if (description.hasKey("focus") && !description.get("answers")->hasKey(description.getString("focus", "")))
        return "'focus' is none of the 'answers'";
    return {};
}

void ScriptDialogs::play(const JSObject &description) {
    if (!description.hasKey("on")) {
        open(description);
        return;
    }
    Binding binding;
    binding.description = &description;
    bind(binding);
    if (!binding.component)
        throw core::IllegalArgumentException("expected a component '%s' to open a dialog, actual: there is none",
                                             description.getString("on", ""));
    mBindings.push_back(binding);
}

void ScriptDialogs::open(const JSObject &description) {
    const core::SmartPtr<Dialog> dialog = make(description);
    Entry &entry = mEntries.emplace_back();
    entry.description = &description;
    entry.dialog = dialog;
    entry.name = getName(description);
    if (const AnswerWord *focus = findWord(ANSWERS, description.getString("focus", "")))
        entry.focus = focus->button;
    entry.subscription = dialog->ResultCallbacks::subscribeCallback([&entry](Dialog *, nurel::ui::DialogResult result) {
        entry.answer = toWord(result);
        entry.subscription = 0;
        return true;
    });
    // What stands behind the dialog would look focused all along, since nothing takes the state from it.
    entry.focused = UIManager::getSingleton().getFocus();
    UIManager::getSingleton().setFocus(nullptr);
    dialog->showModal(Dialog::BUTTON_CLOSE);
}

/// A dialog that is open already is not opened once more, and what cannot be opened leaves the screen as it is.
void ScriptDialogs::openByClick(const JSObject &description) {
    const bool isShown = std::any_of(mEntries.begin(), mEntries.end(), [&description](const Entry &entry) {
        return !entry.isAnswered() && entry.description == &description;
    });
    if (isShown)
        return;
    try {
        open(description);
    } catch (const core::Exception &e) {
        Logger::mROOT_LOGGER.error("Cannot open the dialog '%s': %s", getName(description), e.getMessage());
    }
}

void ScriptDialogs::bind(Binding &binding) {
    const JSObject &description = *binding.description;
    binding.component = findComponent(description.getString("on", ""));
    if (!binding.component)
        return;
    binding.subscription = binding.component->ClickCallbacks::subscribeCallback(
        [this, &description](nurel::ui::UIEventHandler *, const nurel::ui::ClickEvent &) {
            openByClick(description);
            return false;
        });
}

void ScriptDialogs::release(Binding &binding) {
    if (binding.component)
        binding.component->ClickCallbacks::unsubscribeCallback(binding.subscription);
    binding.component = nullptr;
}

void ScriptDialogs::bindAgain() {
    for (Binding &binding : mBindings) {
        release(binding);
        bind(binding);
    }
}

void ScriptDialogs::beginFrame() {
    for (Entry &entry : mEntries) {
        if (!entry.dialog)
            continue;
        if (entry.isAnswered()) {
            end(entry);
        } else if (entry.focus && isOpen(*entry.dialog)) {
            if (Component *button = entry.dialog->getButton(static_cast<Dialog::ButtonType>(entry.focus)))
                button->setFocus();
            entry.focus = 0;
        }
    }
}

/// Waits for the end of an answered dialog's animation, during which nothing takes the focus.
void ScriptDialogs::end(Entry &entry) {
    UIManager &manager = UIManager::getSingleton();
    if (!manager.isEnabled() || manager.hasWidget(entry.dialog.get()))
        return;
    if (entry.focused && !manager.getFocus() && isOnStage(*entry.focused))
        entry.focused->setFocus();
    entry.focused = nullptr;
    entry.dialog = nullptr;
}

const char *ScriptDialogs::getAnswer(const char *name) const {
    const auto found =
        std::find_if(mEntries.rbegin(), mEntries.rend(), [name](const Entry &entry) { return entry.name == name; });
    return found == mEntries.rend() ? nullptr : found->answer;
}

} // namespace viewer
