#pragma once

#include "nengine/texture/Atlas.h"

#include <cstdlib>
#include <memory>
#include <vector>

namespace nurel::texture {

/// One page of an atlas: its pixels, what has to be sent of them, and where there is room.
///
/// The page is cut into shelves from the top, each of one height, and a shelf into places from the left. A place is a
/// region with its border.
class AtlasPage {
public:
    /// A rectangle with its border, in pixels of the page.
    struct Place {
        unsigned int x, y, w, h;
    };

    AtlasPage(RenderData *data, Atlas::Kind kind);

    RenderData &getData() const { return *mData; }
    Atlas::Kind getKind() const { return mKind; }

    /// Finds room for w × h pixels, border included; false when there is none.
    bool take(unsigned int w, unsigned int h, Place &out);

    /// Gives a place back. Says whether that made room.
    bool giveBack(const Place &place);

    /// Writes the inside of a place (null: transparent black) and its border.
    void write(const Place &place, const std::uint8_t *rgba, Atlas::Border border);
    void read(const Place &place, std::uint8_t *rgba) const;

    /// Sends what was written since the last time. `scratch` is used on the way.
    void flush(renderer::Backend &backend, std::vector<std::uint8_t> &scratch);

private:
    struct Shelf {
        unsigned int y;
        unsigned int height;
        unsigned int used; ///< pixels from the left that are taken or wait for the whole shelf to be free
        unsigned int live; ///< places that are taken
    };
    struct Free {
        void operator()(std::uint8_t *pixels) const { std::free(pixels); }
    };

    bool fits(const Shelf &shelf, unsigned int w, unsigned int h) const;
    Shelf *findShelf(unsigned int w, unsigned int h);
    Shelf *findSnugShelf(unsigned int w, unsigned int h);
    Shelf *splitEmptyShelf(unsigned int h);
    Shelf *addShelf(unsigned int h);
    void mergeEmptyShelves(std::size_t index);
    void extendEdges(const Place &place);
    std::uint8_t *at(unsigned int x, unsigned int y) const;

    ::core::SmartPtr<RenderData> mData;
    std::unique_ptr<std::uint8_t[], Free> mPixels;               ///< zeroed by the system as they are touched
    std::vector<Shelf> mShelves;                                 ///< from the top, without gaps
    unsigned int mTop = 0;                                       ///< where the next shelf begins
    unsigned int mDirtyX0, mDirtyY0, mDirtyX1 = 0, mDirtyY1 = 0; ///< empty while X1 is 0
    const Atlas::Kind mKind;
};

} // namespace nurel::texture
