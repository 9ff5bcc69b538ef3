#include "LayerRules.h"

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string_view>

namespace layers {

namespace {

// The language's library, C's own header names included.
const char *const STANDARD_HEADERS =
    "algorithm any array atomic barrier bit bitset cassert cctype cerrno cfenv cfloat charconv chrono cinttypes "
    "climits clocale cmath codecvt compare complex concepts condition_variable coroutine csetjmp csignal cstdarg "
    "cstddef cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype deque exception execution filesystem "
    "format forward_list fstream functional future initializer_list iomanip ios iosfwd iostream istream iterator "
    "latch limits list locale map memory memory_resource mutex new numbers numeric optional ostream queue random "
    "ranges ratio regex scoped_allocator semaphore set shared_mutex source_location span sstream stack stdexcept "
    "stop_token streambuf string string_view syncstream system_error thread tuple type_traits typeindex typeinfo "
    "unordered_map unordered_set utility valarray variant vector version "
    "assert.h ctype.h errno.h fenv.h float.h inttypes.h limits.h locale.h math.h setjmp.h signal.h stdarg.h "
    "stdbool.h stddef.h stdint.h stdio.h stdlib.h string.h tgmath.h time.h uchar.h wchar.h wctype.h ";

std::vector<std::string> splitWords(const std::string &text) {
    std::istringstream in(text);
    std::vector<std::string> words;
    for (std::string word; in >> word;)
        words.push_back(word);
    return words;
}

bool isStandardHeader(const std::string &name) {
    static const std::vector<std::string> words = splitWords(STANDARD_HEADERS);
    static const std::set<std::string> names(words.begin(), words.end());
    return names.contains(name);
}

bool isHeader(std::string_view file) {
    return file.ends_with(".h");
}

bool isDetail(std::string_view file) {
    return file.find("/detail/") != std::string_view::npos;
}

bool isPublicHeader(std::string_view file) {
    return isHeader(file) && !isDetail(file);
}

std::string libraryOf(std::string_view file) {
    return std::string(file.substr(0, file.find('/')));
}

std::string readFile(const std::filesystem::path &file) {
    std::ifstream in(file, std::ios::binary);
    if (!in)
        throw std::runtime_error("cannot read " + file.string());
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

/// The text with its comments turned into blanks, line ends kept. Literals stay: an include never stands in one here.
std::string blankComments(std::string text) {
    enum { CODE, LINE_COMMENT, BLOCK_COMMENT, STRING } state = CODE;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const char next = i + 1 < text.size() ? text[i + 1] : '\0';
        switch (state) {
        case CODE:
            if (c == '/' && (next == '/' || next == '*')) {
                state = next == '/' ? LINE_COMMENT : BLOCK_COMMENT;
                text[i] = text[i + 1] = ' ';
                ++i;
            } else if (c == '"') {
                state = STRING;
            }
            break;
        case STRING:
            if (c == '\\')
                ++i;
            else if (c == '"' || c == '\n')
                state = CODE;
            break;
        case LINE_COMMENT:
            if (c == '\n')
                state = CODE;
            else
                text[i] = ' ';
            break;
        case BLOCK_COMMENT:
            if (c == '*' && next == '/') {
                state = CODE;
                text[i] = text[i + 1] = ' ';
                ++i;
            } else if (c != '\n') {
                text[i] = ' ';
            }
            break;
        }
    }
    return text;
}

/// All headers and sources below `libs`, as seen from there, sorted.
std::vector<std::string> listFiles(const std::filesystem::path &libs) {
    std::vector<std::string> files;
    for (const auto &entry : std::filesystem::recursive_directory_iterator(libs)) {
        const std::string extension = entry.path().extension().string();
        if (entry.is_regular_file() && (extension == ".h" || extension == ".cpp"))
            files.push_back(entry.path().lexically_relative(libs).generic_string());
    }
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

LayerRules::LayerRules(const std::filesystem::path &file) {
    std::istringstream in(readFile(file));
    const std::string thirdParty = "third-party ";
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line[0] == '#')
            continue;
        const std::size_t colon = line.find(':');
        if (colon == std::string::npos)
            throw std::runtime_error(file.string() + ": no colon in '" + line + "'");
        const std::string left = line.substr(0, colon);
        const std::vector<std::string> right = splitWords(line.substr(colon + 1));
        if (left.starts_with(thirdParty))
            mThirdParty[left.substr(thirdParty.size())] = right;
        else
            mBelow[left] = right;
    }
}

std::vector<std::string> LayerRules::checkIncludes(const std::filesystem::path &libs) const {
    std::vector<std::string> offences;
    for (const std::string &file : listFiles(libs)) {
        if (!mBelow.contains(libraryOf(file))) {
            offences.push_back(file + ":1: " + libraryOf(file) + " is no library of the layers");
            continue;
        }
        for (const Include &include : readIncludes(libs / file)) {
            const std::string reason = checkInclude(file, include, libs);
            if (!reason.empty())
                offences.push_back(file + ":" + std::to_string(include.line) + ": " + reason);
        }
    }
    return offences;
}

std::vector<std::string> LayerRules::checkFiles(const std::filesystem::path &libs,
                                                const std::vector<std::string> &publicHeaders,
                                                const std::vector<std::string> &sources) {
    std::vector<std::string> offences;
    const std::set<std::string> headerSet(publicHeaders.begin(), publicHeaders.end());
    const std::set<std::string> sourceSet(sources.begin(), sources.end());
    const std::vector<std::string> files = listFiles(libs);
    for (const std::string &file : files) {
        if (isPublicHeader(file) && !headerSet.contains(file))
            offences.push_back(file + ":1: a public header that is not in its library's list of headers");
        if (!isPublicHeader(file) && !sourceSet.contains(file))
            offences.push_back(file + ":1: a file that is not in its library's list of sources");
    }
    for (const std::string &header : headerSet) {
        if (isDetail(header))
            offences.push_back(header + ":1: a header of a detail folder in the list of public headers");
        else if (!std::binary_search(files.begin(), files.end(), header))
            offences.push_back(header + ":1: listed as a header, but there is no such file");
    }
    return offences;
}

std::vector<std::string> LayerRules::checkWholeHeader(const std::filesystem::path &libs, const std::string &header,
                                                      const std::vector<std::string> &publicHeaders) {
    std::set<std::string> included;
    for (const Include &include : readIncludes(libs / header))
        included.insert(include.name);
    std::vector<std::string> offences;
    for (const std::string &other : publicHeaders) {
        if (other != header && libraryOf(other) == libraryOf(header) && !included.contains(other))
            offences.push_back(header + ":1: does not include \"" + other + "\"");
    }
    return offences;
}

std::vector<LayerRules::Include> LayerRules::readIncludes(const std::filesystem::path &file) {
    std::vector<Include> includes;
    std::istringstream in(blankComments(readFile(file)));
    unsigned int number = 0;
    for (std::string line; std::getline(in, line);) {
        ++number;
        std::istringstream words(line);
        char hash = 0;
        std::string directive;
        if (!(words >> hash) || hash != '#' || !(words >> std::ws))
            continue;
        while (words && words.peek() >= 'a' && words.peek() <= 'z')
            directive += static_cast<char>(words.get());
        std::string rest;
        if (directive != "include" || !(words >> std::ws) || !std::getline(words, rest))
            continue;
        const bool quoted = rest[0] == '"';
        const std::size_t end = quoted ? rest.find('"', 1) : rest[0] == '<' ? rest.find('>') : std::string::npos;
        includes.push_back({number, quoted, end == std::string::npos ? rest : rest.substr(1, end - 1)});
    }
    return includes;
}

std::string LayerRules::checkInclude(const std::string &file, const Include &include,
                                     const std::filesystem::path &libs) const {
    return include.quoted ? checkQuoted(file, include.name, libs) : checkAngled(file, include.name);
}

std::string LayerRules::checkQuoted(const std::string &file, const std::string &name,
                                    const std::filesystem::path &libs) const {
    const std::string library = libraryOf(file);
    const std::string other = libraryOf(name);
    if (!std::filesystem::exists(libs / name))
        return "\"" + name + "\" is no file below libs/";
    if (other != library) {
        const std::vector<std::string> &below = mBelow.at(library);
        if (std::find(below.begin(), below.end(), other) == below.end())
            return library + " may not include " + other + ", \"" + name + "\"";
        if (isDetail(name))
            return "\"" + name + "\" belongs to " + other + " alone";
    }
    if (isDetail(name) && isPublicHeader(file))
        return "a public header may not include \"" + name + "\", which is not installed";
    return {};
}

std::string LayerRules::checkAngled(const std::string &file, const std::string &name) const {
    if (isStandardHeader(name))
        return {};
    if (isHeader(file))
        return "a header may not include <" + name + ">: third parties stay in sources";
    if (!allowsThirdParty(file, name))
        return "<" + name + "> may not be included here";
    return {};
}

bool LayerRules::allowsThirdParty(const std::string &file, const std::string &name) const {
    for (const auto &[folder, headers] : mThirdParty) {
        if (!file.starts_with(folder + "/"))
            continue;
        for (const std::string &header : headers) {
            if (name == header || (header.ends_with('/') && name.starts_with(header)))
                return true;
        }
    }
    return false;
}

} // namespace layers
