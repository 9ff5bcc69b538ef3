#include "nui/ui/css/SelectorState.h"

#include <array>
#include <bit>
#include <string_view>

namespace nurel::ui::css {

namespace {

struct StateWord {
    SelectorState bit;
    std::string_view word;
};

constexpr std::array STATE_WORDS = {
    StateWord{SELECTOR_STATE_ACTIVE, "active"},   StateWord{SELECTOR_STATE_HOVER, "hover"},
    StateWord{SELECTOR_STATE_ENABLED, "enabled"}, StateWord{SELECTOR_STATE_DISABLED, "disabled"},
    StateWord{SELECTOR_STATE_FOCUS, "focus"},     StateWord{SELECTOR_STATE_CHECKED, "checked"},
};

} // namespace

SelectorState parseSelectorState(const char *word) {
    if (word) {
        for (const StateWord &state : STATE_WORDS) {
            if (state.word == word)
                return state.bit;
        }
    }
    return SELECTOR_STATE_NONE;
}

unsigned int countSelectorStates(unsigned int bits) {
    return static_cast<unsigned int>(std::popcount(bits & SELECTOR_STATE_ALL));
}

void appendSelectorStates(std::string &text, unsigned int bits) {
    for (const StateWord &state : STATE_WORDS) {
        if ((bits & state.bit) != 0)
            text.append(1, ':').append(state.word);
    }
}

} // namespace nurel::ui::css
