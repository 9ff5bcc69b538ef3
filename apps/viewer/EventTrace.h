#pragma once

#include <cstdio>
#include <memory>
#include <string>

namespace nurel::ui {
class Component;
class UIEvent;
class UIEventHandler;
} // namespace nurel::ui

namespace viewer {

/// Writes one JSON line for every event that the `UIManager` sends, and one for each change of the focus and of the
/// hovered component. It observes while it lives, and has to end before the manager does.
class EventTrace {
public:
    /// Raises `core::IOException` when the file cannot be written.
    explicit EventTrace(const std::string &path);
    ~EventTrace();
    EventTrace(const EventTrace &) = delete;
    EventTrace &operator=(const EventTrace &) = delete;

    /// To be called after every frame: writes the changes of focus and hover, and counts the frame.
    void frameEnded();

private:
    struct CloseFile {
        void operator()(std::FILE *file) const { std::fclose(file); }
    };

    void write(const nurel::ui::UIEventHandler *handler, const nurel::ui::UIEvent &event,
               const nurel::ui::UIEventHandler *result);
    void writeChange(const char *what, const nurel::ui::Component *now, const nurel::ui::Component *&last,
                     std::string &lastName);

    std::unique_ptr<std::FILE, CloseFile> mFile;
    int mSubscription = 0;
    unsigned int mFrame = 0;
    const nurel::ui::Component *mFocus = nullptr;   ///< only compared, never read: it may be gone
    const nurel::ui::Component *mHovered = nullptr; ///< likewise
    std::string mFocusName;
    std::string mHoveredName;
};

} // namespace viewer
