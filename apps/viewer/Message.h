#pragma once

#include "foundation/core/SmartPtr.h"

#include <string>

namespace nurel::ui {
class Skin;
class Widget;
} // namespace nurel::ui

namespace viewer {

/// A text at the lower edge of the stage, on top of everything, in a look that no sheet has a say in. It takes no input
/// and leaves the focus alone.
class Message {
public:
    Message();
    ~Message();
    Message(const Message &) = delete;
    Message &operator=(const Message &) = delete;

    /// An empty text hides the message; one that is shown already stays as it is.
    void show(const std::string &text);

    /// Puts the message, if there is one, above widgets that were added since.
    void raise();

    const std::string &getText() const { return mText; }

private:
    void add();
    void remove();

    core::SmartPtr<nurel::ui::Skin> mSkin; ///< of its own
    core::SmartPtr<nurel::ui::Widget> mWidget;
    std::string mText;
};

} // namespace viewer
