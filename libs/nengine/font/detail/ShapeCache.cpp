#include "nengine/font/detail/ShapeCache.h"

#include <algorithm>
#include <functional>
#include <iterator>

namespace nurel::font::detail {

ShapeCache::ShapeCache() = default;

ShapeCache::~ShapeCache() = default;

std::size_t ShapeCache::KeyHash::operator()(const Key &key) const {
    return std::hash<std::string_view>()(key.text) ^ (static_cast<std::size_t>(key.fontId) * 0x9e3779b97f4a7c15u);
}

ShapedParagraph *ShapeCache::find(std::uint32_t fontId, std::string_view utf8) {
    const auto found = mIndex.find(Key{fontId, utf8});
    if (found == mIndex.end())
        return nullptr;
    mEntries.splice(mEntries.begin(), mEntries, found->second);
    return found->second->paragraph.get();
}

void ShapeCache::put(ShapedParagraph *paragraph) {
    const std::size_t cost = paragraph->getCost() + sizeof(Entry) + sizeof(Key) + 8 * sizeof(void *);
    mEntries.push_front({paragraph, cost});
    mIndex.emplace(Key{paragraph->fontId, paragraph->text}, mEntries.begin());
    mCost += cost;
    if (mCost > mSweepAt)
        sweep();
}

void ShapeCache::sweep() {
    // What is in use costs nothing to keep, since its user holds it anyway. To pass over it not with each new
    // paragraph, more goes than has to, and where that is not to be had the next sweep waits until there is a quarter
    // more.
    constexpr std::size_t ENOUGH = LIMIT - LIMIT / 4;
    for (auto it = mEntries.end(); it != mEntries.begin() && mCost > ENOUGH;) {
        --it;
        if (it == mEntries.begin() || it->paragraph->getRefCount() > 1)
            continue;
        mIndex.erase(Key{it->paragraph->fontId, it->paragraph->text});
        mCost -= it->cost;
        it = mEntries.erase(it);
    }
    mSweepAt = std::max(LIMIT, mCost + mCost / 4);
}

void ShapeCache::clear() {
    mIndex.clear();
    mEntries.clear();
    mCost = 0;
    mSweepAt = LIMIT;
}

} // namespace nurel::font::detail
