#pragma once

#include <string>

namespace nurel::ui::css {

/// The pseudo-classes of a selector, as bits.
enum SelectorState : unsigned int {
    SELECTOR_STATE_NONE = 0,
    SELECTOR_STATE_ACTIVE = 0x01,
    SELECTOR_STATE_HOVER = 0x02,
    SELECTOR_STATE_ENABLED = 0x04,
    SELECTOR_STATE_DISABLED = 0x08,
    SELECTOR_STATE_FOCUS = 0x10,
    SELECTOR_STATE_CHECKED = 0x20,
    SELECTOR_STATE_ALL = 0x3f
};

/// The bit of a word, compared exactly; 0 for any other word and for null.
SelectorState parseSelectorState(const char *word);

/// How many of the six bits are set.
unsigned int countSelectorStates(unsigned int bits);

/// Appends ":active", ":hover" and so on for each bit that is set, in the order of the bits. Others are left out.
void appendSelectorStates(std::string &text, unsigned int bits);

} // namespace nurel::ui::css
