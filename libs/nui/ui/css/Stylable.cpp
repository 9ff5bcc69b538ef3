#include "nui/ui/css/Stylable.h"

namespace nurel::ui::css {

const char *Stylable::toString(std::string &text, bool clear) const {
    if (clear)
        text.clear();
    return text.c_str();
}

} // namespace nurel::ui::css
