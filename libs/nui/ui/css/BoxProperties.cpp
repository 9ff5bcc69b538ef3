#include "nui/ui/css/BoxProperties.h"

namespace nurel::ui::css {

Property *Margin::clone() const {
    return cloneOf(*this);
}

Property *Border::clone() const {
    return cloneOf(*this);
}

Property *Padding::clone() const {
    return cloneOf(*this);
}

} // namespace nurel::ui::css
