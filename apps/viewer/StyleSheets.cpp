#include "StyleSheets.h"

#include "nmain/parser/LexerException.h"
#include "nmain/stream/InputStream.h"
#include "nui/ui/css/CSS.h"
#include "nui/ui/css/CSSParser.h"

#include "foundation/core/Exception.h"

#include <filesystem>
#include <initializer_list>

namespace viewer {

using nurel::ui::css::CSS;
using nurel::ui::css::CSSParser;

StyleSheets::StyleSheets(std::vector<std::string> paths) : mPaths(std::move(paths)), mFiles({""}) {}

std::vector<std::string> StyleSheets::getFolders() const {
    std::vector<std::string> folders;
    for (const std::string &path : mPaths)
        folders.push_back(std::filesystem::path(path).parent_path().string());
    return folders;
}

std::unique_ptr<CSS> StyleSheets::load() {
    auto merged = std::make_unique<CSS>();
    // Rules that are parsed later count more, so that a sheet that did not change is parsed again behind one that did.
    for (const std::string &path : mPaths) {
        CSSParser parser;
        parser.setFileName(path.c_str());
        try {
            const std::unique_ptr<nurel::stream::InputStream> stream(mFiles.open(path.c_str()));
            const std::unique_ptr<CSS> sheet(parser.parse(stream.get()));
            merged->merge(sheet.get());
        } catch (const nurel::parser::LexerException &e) {
            throw core::IllegalArgumentException("%s", describeFault(path, e.getMessage()).c_str());
        }
    }
    return merged;
}

std::string describeFault(const std::string &file, const std::string &reason) {
    constexpr const char *DIGITS = "0123456789";
    const std::size_t colon = reason.rfind(':');
    if (colon == std::string::npos || colon + 1 == reason.size() || colon == 0 ||
        reason.find_first_not_of(DIGITS, colon + 1) != std::string::npos)
        return file + ": " + reason;
    const std::size_t before = reason.find_last_not_of(DIGITS, colon - 1);
    if (before == std::string::npos || before + 1 == colon)
        return file + ": " + reason;
    std::string sentence = reason.substr(0, before + 1);
    for (const char *ending : {" At position ", ", at ", " at "}) {
        if (sentence.ends_with(ending)) {
            sentence.resize(sentence.size() - std::string(ending).size());
            break;
        }
    }
    return file + ":" + reason.substr(before + 1) + ": " + sentence;
}

} // namespace viewer
