#pragma once

#include "nui/ui/KeyboardOverlay.h"

#include <memory>

namespace gallery {

/// An on-screen keyboard that the toolkit draws itself, as a program brings one where its platform has none. It comes
/// up with the edit, over everything else, at the bottom of the stage, or at the top where it would stand over the
/// field. What is typed goes to the field at once, as from a real keyboard.
///
/// Enter accepts the text, the key with the arrow down dismisses the keyboard, and a field that loses the focus or
/// leaves the stage gives it up.
class ScreenKeyboard : public nurel::ui::KeyboardOverlay {
public:
    /// What a field's keyboard options may hold.
    enum Option : unsigned int {
        OPTION_DIGITS = 0x1 ///< begin with the digits
    };

    ScreenKeyboard();
    ~ScreenKeyboard() override;

    /// Whether it comes up; true at first. While it does not, fields acquire it all the same. A change ends the edit.
    void setEnabled(bool enabled);
    bool isEnabled() const { return mEnabled; }

private:
    class Platform;

    PlatformData *_init() override;
    void _shutdown(PlatformData *data) override;
    void _show(unsigned int options, const char *text) override;
    void _refresh(unsigned int options, const char *text) override;
    void _dismiss() override;

    std::unique_ptr<Platform> mPlatform;
    bool mEnabled = true;
};

} // namespace gallery
