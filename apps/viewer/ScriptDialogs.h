#pragma once

#include "nui/ui/Component.h"
#include "nui/ui/Dialog.h"

#include "foundation/core/SmartPtr.h"

#include <deque>
#include <string>

namespace nurel::json {
class JSObject;
}

namespace viewer {

/// The dialogs that a script opens, at once or whenever a component is clicked, and their answers. docs/viewer.md tells
/// how they are described. Has to end before the `UIManager` does.
class ScriptDialogs {
public:
    ScriptDialogs() = default;
    ~ScriptDialogs();
    ScriptDialogs(const ScriptDialogs &) = delete;
    ScriptDialogs &operator=(const ScriptDialogs &) = delete;

    /// What is wrong with a description; empty when nothing is.
    static std::string findFault(const nurel::json::JSObject &description);

    /// Opens the dialog that is described or, when it says on what, binds it to the clicks of that component; the
    /// description has to live as long as this object then. Raises a `core::Exception` when a template cannot be loaded
    /// or has not what a dialog needs, or when the component is not there.
    void play(const nurel::json::JSObject &description);

    /// To be called before each frame: gives the focus to the button that is to have it as soon as its dialog stands,
    /// and back to what had it once the dialog is gone.
    void beginFrame();

    /// To be called when the components of the screen are others: binds what is bound to components of the same names.
    void bindAgain();

    /// The answer to the dialog of this name that was opened last: "accepted", "declined" or "cancelled", and "none" as
    /// long as it is open. Null when none of that name was opened.
    const char *getAnswer(const char *name) const;

private:
    /// A dialog that was opened.
    struct Entry {
        const nurel::json::JSObject *description = nullptr;
        core::SmartPtr<nurel::ui::Dialog> dialog;     ///< null once it has been answered and is gone
        core::SmartPtr<nurel::ui::Component> focused; ///< before it was opened
        int subscription = 0;                         ///< to the answer; 0 once it has come
        int focus = 0;                                ///< the button that waits for the focus; 0 for none
        std::string name;
        const char *answer = "none";

        bool isAnswered() const { return subscription == 0; }
    };
    /// A component whose clicks open a dialog.
    struct Binding {
        const nurel::json::JSObject *description = nullptr;
        core::SmartPtr<nurel::ui::Component> component;
        int subscription = 0; ///< to its clicks
    };

    void open(const nurel::json::JSObject &description);
    void end(Entry &entry);
    void openByClick(const nurel::json::JSObject &description);
    void bind(Binding &binding);
    static void release(Binding &binding);

    std::deque<Entry> mEntries; ///< their places stay while others are added
    std::deque<Binding> mBindings;
};

} // namespace viewer
