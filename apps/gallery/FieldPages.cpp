// Pages of text fields, and of the keyboard on the screen that types into them.
#include "PageCallbacks.h"

#include "Gallery.h"
#include "OnClick.h"
#include "Page.h"
#include "ScreenKeyboard.h"

#include "nui/ui/components/Button.h"
#include "nui/ui/components/Checkbox.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/TextField.h"

#include <string>

namespace gallery {

using nurel::ui::KeyboardOverlay;
using nurel::ui::components::Button;
using nurel::ui::components::Checkbox;
using nurel::ui::components::Label;
using nurel::ui::components::TextField;

namespace {

/// Runs the action now and after every change.
template <class Action>
void follow(TextField &field, Action action) {
    action();
    field.ChangeCallbacks::subscribeCallback([action](TextField *) {
        action();
        return false;
    });
}

const char *describe(KeyboardOverlay::TextEditingResult result) {
    switch (result) {
    case KeyboardOverlay::TEXT_ACCEPTED:
        return "Entered: ";
    case KeyboardOverlay::OWNER_RESIGNED:
        return "Left with: ";
    case KeyboardOverlay::OVERLAY_DISMISSED:
        return "Put away at: ";
    }
    return "";
}

} // namespace

void connectFields(const PageTools &tools) {
    static constexpr const char *MASK = "•";
    static constexpr unsigned int SHORTEST_PASSWORD = 8;
    TextField &name = tools.find<TextField>("name");
    TextField &password = tools.find<TextField>("password");
    TextField &code = tools.find<TextField>("code");
    Label &greeting = tools.find<Label>("greeting");
    Label &count = tools.find<Label>("count");
    Label &state = tools.find<Label>("state");
    follow(name, [&name, &greeting] {
        greeting.setText(name.getTextLength() == 0 ? "" : (std::string("Hello, ") + name.getText()).c_str());
    });
    follow(code, [&code, &count] {
        const std::string text = std::to_string(code.getTextLength()) + " of " + std::to_string(code.getMaxLength());
        count.setText(text.c_str());
    });
    const auto tell = [&name, &password, &code, &state] {
        if (name.getTextLength() == 0)
            state.setText("A name is missing");
        else if (password.getTextLength() < SHORTEST_PASSWORD)
            state.setText("The password is too short");
        else if (code.getTextLength() < static_cast<unsigned int>(code.getMaxLength()))
            state.setText("The code is not complete");
        else
            state.setText("All is well");
    };
    for (TextField *field : {&name, &password, &code})
        follow(*field, tell);
    Checkbox &reveal = tools.find<Checkbox>("reveal");
    onClick(reveal, [&reveal, &password] {
        password.setPasswordChar(reveal.isChecked() ? nullptr : MASK);
        password.setText(password.getText());
    });
    onClick(tools.find<Button>("clear"), [&name, &password, &code] {
        for (TextField *field : {&name, &password, &code})
            field->clearText();
    });
}

void connectKeyboard(const PageTools &tools) {
    Label &result = tools.find<Label>("result");
    for (const char *name : {"message", "password", "number"}) {
        TextField &field = tools.find<TextField>(name);
        field.FinishCallbacks::subscribeCallback([&result](TextField *edited, KeyboardOverlay::TextEditingResult how) {
            const std::string text = edited->isPassword() ? std::to_string(edited->getTextLength()) + " characters"
                                                          : std::string(edited->getText());
            result.setText((describe(how) + (text.empty() ? "nothing" : text)).c_str());
            return false;
        });
    }
    tools.find<TextField>("number").setKeyboardOptions(ScreenKeyboard::OPTION_DIGITS);
    ScreenKeyboard &keyboard = tools.getGallery().getKeyboard();
    Checkbox &serve = tools.find<Checkbox>("serve");
    serve.setChecked(keyboard.isEnabled());
    onClick(serve, [&serve, &keyboard] { keyboard.setEnabled(serve.isChecked()); });
    tools.getGallery().setFirstFocus(tools.find<TextField>("message"));
}

} // namespace gallery
