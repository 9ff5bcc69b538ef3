#pragma once

#include "nui/ui/css/Property.h"

#include <string>

namespace nurel::ui::css {

/// Every value of a property in one line, for comparing: numbers with seven digits, enumerations as their numbers.
std::string describeValues(const Property &property);

/// The states of all values, a digit each: "0202".
std::string describeStates(const Property &property);

} // namespace nurel::ui::css
