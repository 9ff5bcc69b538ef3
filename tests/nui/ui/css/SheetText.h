#pragma once

#include "nmain/parser/LexerException.h"
#include "nmain/stream/InputStream.h"
#include "nui/ui/css/CSS.h"
#include "nui/ui/css/CSSParser.h"
#include "nui/ui/css/Property.h"
#include "nui/ui/css/Rule.h"

#include <memory>
#include <string>

namespace test {

inline std::unique_ptr<nurel::ui::css::CSS> parseSheetText(const std::string &text) {
    nurel::stream::MemoryInputStream stream("sheet.css", text);
    return std::unique_ptr<nurel::ui::css::CSS>(nurel::ui::css::CSSParser().parse(&stream));
}

/// The rules in order, each as `selector{name name}`, where a kind of property shows by its first name.
inline std::string describeSheet(const nurel::ui::css::CSS &css) {
    std::string result;
    std::string text;
    for (const auto &rule : css) {
        result.append(result.empty() ? "" : " ").append(rule->toString(text)).append("{");
        bool isFirst = true;
        for (const auto &property : rule->getProperties()) {
            result.append(isFirst ? "" : " ").append(nurel::ui::css::Property::unparse(property.first));
            isFirst = false;
        }
        result += "}";
    }
    return result;
}

inline std::string rulesOf(const std::string &text) {
    return describeSheet(*parseSheetText(text));
}

/// The message with which the sheet fails; "none" if it doesn't.
inline std::string failureOf(const std::string &text) {
    try {
        parseSheetText(text);
    } catch (const nurel::parser::LexerException &exception) {
        return exception.what();
    }
    return "none";
}

/// A property of the sheet's only rule; null if it has none of the kind. Lives as long as the sheet.
template <class Kind>
const Kind *findProperty(const nurel::ui::css::CSS &css, nurel::ui::css::Property::Name name) {
    if (css.size() != 1)
        return nullptr;
    const auto &properties = (*css.begin())->getProperties();
    const auto found = properties.find(name);
    return found == properties.end() ? nullptr : dynamic_cast<const Kind *>(found->second.get());
}

} // namespace test
