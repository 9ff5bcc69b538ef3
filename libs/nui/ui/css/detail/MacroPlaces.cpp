#include "nui/ui/css/detail/MacroPlaces.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace nurel::ui::css::detail {

namespace {

constexpr char SIGN = '$';

// What looking a place up in the table takes, and what moving places does, in steps.
constexpr std::size_t LOOK_UP_WORK = 16;
constexpr std::size_t PLACES_PER_STEP = 8;

std::size_t countCommon(const char *a, const char *b) {
    std::size_t count = 0;
    while (a[count] && a[count] == b[count])
        ++count;
    return count;
}

} // namespace

MacroPlaces::MacroPlaces(const Macros &macros, std::size_t longest, std::string &text)
    : mMacros(macros), mLongest(longest), mText(text) {
    scan(0, mText.size());
}

const MacroPlaces::Place *MacroPlaces::findNext(const char *after) const {
    const auto found = after ? std::upper_bound(mPlaces.begin(), mPlaces.end(), after,
                                                [](const char *name, const Place &place) {
                                                    return core::less_str()(name, place.macro->first);
                                                })
                             : mPlaces.begin();
    return found == mPlaces.end() ? nullptr : &*found;
}

MacroPlaces::Places::iterator MacroPlaces::findPlace(const char *name) {
    return std::lower_bound(mPlaces.begin(), mPlaces.end(), name, [](const Place &place, const char *wanted) {
        return core::less_str()(place.macro->first, wanted);
    });
}

void MacroPlaces::notePlace(Macros::const_iterator macro, std::size_t position) {
    const std::size_t fromEnd = mText.size() - position;
    const auto found = findPlace(macro->first);
    if (found == mPlaces.end() || found->macro != macro) {
        mWork += mPlaces.size() / PLACES_PER_STEP;
        mPlaces.insert(found, {macro, fromEnd});
    } else {
        found->fromEnd = std::max(found->fromEnd, fromEnd);
    }
}

// Notes every name that begins from `begin` up to `end`.
void MacroPlaces::scan(std::size_t begin, std::size_t end) {
    for (std::size_t place = mText.find(SIGN, begin); place < end && !isGivenUp();
         place = mText.find(SIGN, place + 1)) {
        const char *here = mText.c_str() + place;
        for (auto macro = findPrefix(mMacros.begin(), here); macro != mMacros.end();
             macro = findPrefix(std::next(macro), here))
            notePlace(macro, place);
    }
}

// The first place of the name from `begin` on.
std::size_t MacroPlaces::findName(const char *name, std::size_t begin) {
    for (std::size_t place = mText.find(SIGN, begin); place != std::string::npos && !isGivenUp();
         place = mText.find(SIGN, place + 1)) {
        const std::size_t common = countCommon(name, mText.c_str() + place);
        mWork += common + 1;
        if (!name[common])
            return place;
    }
    return std::string::npos;
}

// The first name, from `macro` on in the order of names, with which the text begins.
MacroPlaces::Macros::const_iterator MacroPlaces::findPrefix(Macros::const_iterator macro, const char *text) {
    std::string beginning;
    while (macro != mMacros.end()) {
        const char *name = macro->first;
        const std::size_t common = countCommon(name, text);
        mWork += common + LOOK_UP_WORK;
        if (!name[common])
            return macro;
        // names are ordered by their bytes without sign
        if (static_cast<unsigned char>(name[common]) > static_cast<unsigned char>(text[common]))
            break;
        // this name is too small: one that fits shares at least one character more with the text
        beginning.assign(text, common + 1);
        macro = mMacros.lower_bound(beginning.c_str());
    }
    return mMacros.end();
}

void MacroPlaces::replace(Place place) {
    const std::size_t position = getPosition(place);
    const std::size_t end = position + std::strlen(place.macro->first);
    const std::string &value = place.macro->second;
    mWork += mPlaces.size() / PLACES_PER_STEP;
    // a name that begins before this may reach into what changes
    const std::size_t begin = position - std::min(position, mLongest);
    // 1. Names that begin there may be gone
    const auto isLost = [&](const Place &other) { return getPosition(other) >= begin && getPosition(other) < end; };
    Places lost;
    std::copy_if(mPlaces.begin(), mPlaces.end(), std::back_inserter(lost), isLost);
    std::erase_if(mPlaces, isLost);
    // 2. What stands before moves away from the end of the text
    for (Place &other : mPlaces) {
        if (getPosition(other) < begin)
            other.fromEnd = other.fromEnd - (end - position) + value.size();
    }
    mText.replace(position, end - position, value);
    // 3. Names that begin there now
    scan(begin, position + value.size());
    // 4. Those that are gone and do not begin there again may stand behind it
    for (const Place &other : lost) {
        const auto found = findPlace(other.macro->first);
        if (found != mPlaces.end() && found->macro == other.macro)
            continue;
        const std::size_t next = findName(other.macro->first, position + value.size());
        if (next != std::string::npos)
            mPlaces.insert(found, {other.macro, mText.size() - next});
    }
}

} // namespace nurel::ui::css::detail
