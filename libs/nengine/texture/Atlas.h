#pragma once

#include "foundation/core/SmartPtr.h"
#include "nengine/texture/RenderData.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace nurel::texture {

class AtlasPage;

/// Packs glyphs and small images into a few textures of the backend, so that what stands on one screen mostly shares
/// one.
///
/// Pixels are premultiplied RGBA8. They are kept here and sent to the backend by `flush`, which the renderer calls once
/// a frame before it submits: one rectangle for each page that changed. Pages are made as they are needed and stay; a
/// place that has been released is used again once all of its shelf (a row of equally high places) is free. Render
/// thread.
class Atlas {
public:
    /// What stands together on one kind of page.
    enum Kind : std::uint8_t {
        K_COMMON,     ///< glyphs, small images, the white texel
        K_COLOR_GLYPH ///< glyphs with colours of their own
    };

    /// What stands in the ring of one pixel around a region, where linear filtering reaches.
    enum Border : std::uint8_t {
        B_CLEAR, ///< transparent black: glyphs
        B_EXTEND ///< the region's outermost pixels once more: images whose edges must stay solid
    };

    /// A place on a page. The page lives as long as the atlas.
    struct Region {
        RenderData *page = nullptr; ///< null: no place
        unsigned int x = 0, y = 0;  ///< of the first pixel, the border left out
        unsigned int w = 0, h = 0;
        float u0 = 0, v0 = 0, u1 = 0, v1 = 0; ///< the outer edges of the region's pixels
    };

    /// A page's side, unless the backend's textures must be smaller.
    static constexpr unsigned int PAGE_SIZE = 1024;

    /// Makes the first common page. The backend must outlive the atlas.
    explicit Atlas(renderer::Backend &backend);
    ~Atlas();
    Atlas(const Atlas &) = delete;
    Atlas &operator=(const Atlas &) = delete;

    /// Finds a place for w × h pixels and copies them there: rows without gaps, premultiplied; null gives transparent
    /// black. Returns false, and leaves `out` without a page, when a side is 0 or greater than `getMaximumSide()`, or
    /// when the backend cannot make another page. `out` must be given back by `release`.
    bool allocate(unsigned int w, unsigned int h, const void *rgba, Kind kind, Region &out, Border border = B_CLEAR);

    /// Replaces the pixels of a region, and its border.
    void update(const Region &region, const void *rgba, Border border = B_CLEAR);

    /// Copies the pixels of a region to `rgba`: w × h × 4 bytes, rows without gaps.
    void read(const Region &region, void *rgba) const;

    /// Gives a place back and leaves `region` without a page; one that has none is ignored. The white region stays.
    void release(Region &region);

    /// A white texel on the first common page; u0 = u1 and v0 = v1 are its middle.
    const Region &getWhite() const { return mWhite; }

    /// The longest side of a region.
    unsigned int getMaximumSide() const { return mPageSize - 2; }

    unsigned int getPageSize() const { return mPageSize; }
    unsigned int getPageCount() const { return static_cast<unsigned int>(mPages.size()); }

    /// Pages in order of making; null past the end. The first is the first common one.
    RenderData *getPage(unsigned int index) const;

    /// Rises when released places have become free to be used again. Whoever draws with a region of his own need not
    /// look: a region stays as it is until its release.
    std::uint64_t getRevision() const { return mRevision; }

    /// Sends what has changed to the backend. Costs one comparison when nothing has.
    void flush();

private:
    AtlasPage *addPage(Kind kind);
    AtlasPage *findPage(const RenderData *data) const;

    std::shared_ptr<BackendLink> mLink;
    std::vector<std::unique_ptr<AtlasPage>> mPages;
    std::vector<std::uint8_t> mScratch; ///< the rectangle that is being sent
    Region mWhite;
    std::uint64_t mRevision = 0;
    const unsigned int mPageSize;
    bool mDirty = false;
};

} // namespace nurel::texture
