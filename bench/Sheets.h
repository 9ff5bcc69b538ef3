#pragma once

#include <memory>
#include <string>
#include <vector>

namespace nurel::ui::css {
class CSS;
class StylableHelper;
} // namespace nurel::ui::css

namespace bench {

/// A sheet of that many rules, each with six declarations. Of the rules 10, spread over the sheet, match a row's panel
/// with the class "marked" while it is hovered (fewer if it has fewer); the others ask for classes and names that
/// nothing has.
std::string makeSheetText(unsigned int rules);

/// Styles all of them once, and forgets what they got. Its name is what instruction counts are collected by.
void measuredMatching(const nurel::ui::css::CSS &sheet,
                      const std::vector<std::unique_ptr<nurel::ui::css::StylableHelper>> &helpers);

} // namespace bench
