#include "nengine/font/detail/FontFallback.h"

#include "foundation/logging/Logger.h"
#include "nengine/font/ShapingStatistics.h"
#include "nengine/font/detail/Characters.h"
#include "nengine/font/detail/Face.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace nurel::font::detail {

namespace {

std::string getKey(const FontFile &file) {
    return file.path + ':' + std::to_string(file.index);
}

bool hasAll(const Face &face, std::u32string_view cluster) {
    return std::all_of(cluster.begin(), cluster.end(),
                       [&](char32_t c) { return isInvisible(c) || face.hasCharacter(c); });
}

} // namespace

FontFallback::FontFallback(FontLibrary &library, ShapingStatistics &statistics)
    : mLibrary(library), mStatistics(statistics) {}

FontFallback::~FontFallback() = default;

void FontFallback::addFace(Face *face) {
    if (!face || std::find(mAdded.begin(), mAdded.end(), face) != mAdded.end())
        return;
    mAdded.emplace_back(face);
    forget();
}

void FontFallback::removeFace(Face *face) {
    std::erase_if(mAdded, [face](const ::core::SmartPtr<Face> &added) { return added == face; });
    forget();
}

void FontFallback::setDefaultFace(Face *face) {
    mDefault = face;
    forget();
}

void FontFallback::setSystemFonts(bool enabled) {
    mSystemFonts = enabled;
    forget();
}

void FontFallback::forget() {
    mRemembered.clear();
}

Face &FontFallback::find(Face &primary, std::u32string_view cluster, bool colored) {
    if ((!colored || primary.isColored()) && hasAll(primary, cluster))
        return primary;
    if (colored) {
        if (Face *face = findOther(cluster, true, primary))
            return *face;
        if (hasAll(primary, cluster))
            return primary;
    }
    if (Face *face = findOther(cluster, false, primary))
        return *face;
    return primary;
}

Face *FontFallback::findOther(std::u32string_view cluster, bool colored, const Face &primary) {
    std::u32string key(1, colored ? U'c' : U'm');
    key += cluster;
    const auto found = mRemembered.find(key);
    if (found != mRemembered.end())
        return found->second;

    Face *face = search(cluster, colored);
    if (!face && cluster.size() > 1 && !primary.hasCharacter(cluster.front()))
        face = findOther(cluster.substr(0, 1), colored, primary);
    if (mRemembered.size() >= MAX_REMEMBERED)
        forget();
    mRemembered[std::move(key)] = face;
    return face;
}

Face *FontFallback::search(std::u32string_view cluster, bool colored) {
    if (Face *face = findAdded(cluster, colored))
        return face;
    return mSystemFonts ? findInstalled(cluster, colored) : nullptr;
}

Face *FontFallback::findAdded(std::u32string_view cluster, bool colored) const {
    const auto fits = [&](const Face *face) { return (!colored || face->isColored()) && hasAll(*face, cluster); };
    for (const ::core::SmartPtr<Face> &face : mAdded) {
        if (fits(face.get()))
            return face.get();
    }
    return mDefault && fits(mDefault.get()) ? mDefault.get() : nullptr;
}

Face *FontFallback::findInstalled(std::u32string_view cluster, bool colored) {
    std::u32string visible;
    std::copy_if(cluster.begin(), cluster.end(), std::back_inserter(visible),
                 [](char32_t c) { return !isInvisible(c); });
    if (visible.empty())
        return nullptr;
    const std::size_t count = mDiscovery.getCount();
    for (std::size_t i = mDiscovery.findCharacters(visible, colored, 0); i < count;
         i = mDiscovery.findCharacters(visible, colored, i + 1)) {
        Face *face = openForFallback(mDiscovery.getFile(i));
        if (face && hasAll(*face, visible))
            return face;
    }
    return nullptr;
}

Face *FontFallback::openForFallback(const FontFile &file) {
    const std::size_t known = mInstalled.size();
    if (mOpened >= MAX_INSTALLED && !mInstalled.contains(getKey(file)))
        return nullptr;
    Face *face = openInstalled(file);
    if (mInstalled.size() > known) {
        ++mOpened;
        ++mStatistics.openedFallbackFaces;
    }
    return face;
}

Face *FontFallback::openInstalled(const FontFile &file) {
    std::string key = getKey(file);
    const auto found = mInstalled.find(key);
    if (found != mInstalled.end())
        return found->second.get();
    std::string reason;
    ::core::SmartPtr<Face> face = Face::openFile(mLibrary, file.path.c_str(), file.index, reason);
    if (!face)
        logging::Logger::mROOT_LOGGER.error("Cannot load font %s: %s", file.path.c_str(), reason.c_str());
    return (mInstalled[std::move(key)] = face).get();
}

} // namespace nurel::font::detail
