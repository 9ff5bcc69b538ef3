#include "Sheets.h"

#include "nui/ui/css/CSS.h"
#include "nui/ui/css/StylableHelper.h"

#include <array>
#include <cstddef>

namespace bench {

namespace {

constexpr std::array MATCHING = {"panel", ".marked", "panel.row",        ".row",        ".row.marked",
                                 "*",     "#row",    "panel#row.marked", "panel:hover", ".row.marked:hover"};

/// What stands around the number in the selectors of rules for which there is nothing.
constexpr std::array<std::array<const char *, 2>, 8> OTHERS = {{{".style", ""},
                                                                {"panel.style", ""},
                                                                {"button.style", ":hover"},
                                                                {"#name", ""},
                                                                {"label.style", ".marked"},
                                                                {".row.style", ""},
                                                                {"panel.row.style", ":active"},
                                                                {".style", ":checked"}}};

std::string makeSelector(unsigned int rule, unsigned int rules) {
    const std::size_t part = rules / MATCHING.size();
    if (part == 0 || rule % part == 0)
        return MATCHING[(part == 0 ? rule : rule / part) % MATCHING.size()];
    const auto &[before, behind] = OTHERS[rule % OTHERS.size()];
    return before + std::to_string(rule) + behind;
}

} // namespace

std::string makeSheetText(unsigned int rules) {
    std::string text;
    for (unsigned int rule = 0; rule < rules; ++rule) {
        const std::string shade = std::to_string(10 + rule % 200);
        text += makeSelector(rule, rules);
        text += " {\n    background-color: rgb(";
        text.append(shade).append(",").append(shade);
        text += ",64);\n    border-radius: 2px;\n    padding: 0px;\n    opacity: 1.0;\n    color: #ffffff;\n";
        text += "    text-align: left;\n}\n";
    }
    return text;
}

void measuredMatching(const nurel::ui::css::CSS &sheet,
                      const std::vector<std::unique_ptr<nurel::ui::css::StylableHelper>> &helpers) {
    for (const auto &helper : helpers) {
        sheet.style(helper.get());
        helper->clearProperties();
    }
}

} // namespace bench
