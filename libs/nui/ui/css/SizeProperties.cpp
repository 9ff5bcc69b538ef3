#include "nui/ui/css/SizeProperties.h"

namespace nurel::ui::css {

Property *Width::clone() const {
    return cloneOf(*this);
}

Property *Height::clone() const {
    return cloneOf(*this);
}

Property *Left::clone() const {
    return cloneOf(*this);
}

Property *Top::clone() const {
    return cloneOf(*this);
}

Property *MinWidth::clone() const {
    return cloneOf(*this);
}

Property *MaxWidth::clone() const {
    return cloneOf(*this);
}

Property *MinHeight::clone() const {
    return cloneOf(*this);
}

Property *MaxHeight::clone() const {
    return cloneOf(*this);
}

} // namespace nurel::ui::css
