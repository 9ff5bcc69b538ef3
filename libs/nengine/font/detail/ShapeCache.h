#pragma once

#include "foundation/core/SmartPtr.h"
#include "nengine/font/detail/ShapedParagraph.h"

#include <cstddef>
#include <cstdint>
#include <list>
#include <string_view>
#include <unordered_map>

namespace nurel::font::detail {

/// The shaped paragraphs of all texts, by font and text. What no text shows any more stays until LIMIT bytes are
/// reached, and then goes, the longest unused first.
class ShapeCache {
public:
    static constexpr std::size_t LIMIT = 4 * 1024 * 1024;

    ShapeCache();
    ~ShapeCache();
    ShapeCache(const ShapeCache &) = delete;
    ShapeCache &operator=(const ShapeCache &) = delete;

    /// Null when it is not there.
    ShapedParagraph *find(std::uint32_t fontId, std::string_view utf8);

    /// Nothing may be there under the same font and text.
    void put(ShapedParagraph *paragraph);

    void clear();

    std::size_t getCount() const { return mEntries.size(); }
    std::size_t getCost() const { return mCost; }

private:
    struct Key {
        std::uint32_t fontId;
        std::string_view text; ///< of the paragraph itself
        bool operator==(const Key &) const = default;
    };
    struct KeyHash {
        std::size_t operator()(const Key &key) const;
    };
    struct Entry {
        ::core::SmartPtr<ShapedParagraph> paragraph;
        std::size_t cost;
    };
    using Entries = std::list<Entry>;

    void sweep();

    Entries mEntries; ///< the last used one first
    std::unordered_map<Key, Entries::iterator, KeyHash> mIndex;
    std::size_t mCost = 0;
    std::size_t mSweepAt = LIMIT;
};

} // namespace nurel::font::detail
