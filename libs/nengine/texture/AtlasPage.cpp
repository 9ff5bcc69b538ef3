#include "nengine/texture/detail/AtlasPage.h"

#include "nengine/renderer/Backend.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace nurel::texture {

namespace {

/// Heights of shelves are multiples of this, so that glyphs of nearly one height share a shelf.
constexpr unsigned int HEIGHT_STEP = 4;

unsigned int roundUp(unsigned int height) {
    return (height + HEIGHT_STEP - 1) / HEIGHT_STEP * HEIGHT_STEP;
}

} // namespace

AtlasPage::AtlasPage(RenderData *data, Atlas::Kind kind)
    : mData(data), mPixels(static_cast<std::uint8_t *>(std::calloc(std::size_t{4} * data->width, data->height))),
      mDirtyX0(data->width), mDirtyY0(data->height), mKind(kind) {
    if (!mPixels)
        throw std::bad_alloc();
}

std::uint8_t *AtlasPage::at(unsigned int x, unsigned int y) const {
    return mPixels.get() + (std::size_t{y} * mData->width + x) * 4;
}

bool AtlasPage::fits(const Shelf &shelf, unsigned int w, unsigned int h) const {
    return shelf.height >= h && mData->width - shelf.used >= w;
}

AtlasPage::Shelf *AtlasPage::findSnugShelf(unsigned int w, unsigned int h) {
    const unsigned int highest = roundUp(h) + roundUp(h) / 4;
    Shelf *best = nullptr;
    for (Shelf &shelf : mShelves) {
        if (fits(shelf, w, h) && shelf.height <= highest && (!best || shelf.height < best->height))
            best = &shelf;
    }
    return best;
}

AtlasPage::Shelf *AtlasPage::splitEmptyShelf(unsigned int h) {
    for (std::size_t i = 0; i < mShelves.size(); ++i) {
        Shelf &shelf = mShelves[i];
        if (shelf.live != 0 || shelf.height < h)
            continue;
        const unsigned int height = std::min(roundUp(h), shelf.height);
        const Shelf rest{shelf.y + height, shelf.height - height, 0, 0};
        shelf.height = height;
        if (rest.height != 0)
            mShelves.insert(mShelves.begin() + static_cast<std::ptrdiff_t>(i) + 1, rest);
        return &mShelves[i];
    }
    return nullptr;
}

AtlasPage::Shelf *AtlasPage::addShelf(unsigned int h) {
    const unsigned int room = mData->height - mTop;
    if (room < h)
        return nullptr;
    mShelves.push_back({mTop, std::min(roundUp(h), room), 0, 0});
    mTop += mShelves.back().height;
    return &mShelves.back();
}

/// In order: a shelf of about this height, an empty one, a new one, and any that is high enough.
AtlasPage::Shelf *AtlasPage::findShelf(unsigned int w, unsigned int h) {
    if (Shelf *shelf = findSnugShelf(w, h))
        return shelf;
    if (Shelf *shelf = splitEmptyShelf(h))
        return shelf;
    if (Shelf *shelf = addShelf(h))
        return shelf;
    const auto found = std::find_if(mShelves.begin(), mShelves.end(), [&](const Shelf &s) { return fits(s, w, h); });
    return found == mShelves.end() ? nullptr : &*found;
}

bool AtlasPage::take(unsigned int w, unsigned int h, Place &out) {
    if (w > mData->width || h > mData->height)
        return false;
    Shelf *shelf = findShelf(w, h);
    if (!shelf)
        return false;
    out = {shelf->used, shelf->y, w, h};
    shelf->used += w;
    ++shelf->live;
    return true;
}

bool AtlasPage::giveBack(const Place &place) {
    const auto found =
        std::find_if(mShelves.begin(), mShelves.end(), [&](const Shelf &shelf) { return shelf.y == place.y; });
    if (found == mShelves.end() || found->live == 0 || --found->live != 0)
        return false;
    found->used = 0;
    mergeEmptyShelves(static_cast<std::size_t>(found - mShelves.begin()));
    return true;
}

/// Joins an empty shelf with empty neighbours, and gives the last one's room back to the page.
void AtlasPage::mergeEmptyShelves(std::size_t index) {
    const auto swallowNext = [this](std::size_t i) {
        if (i + 1 >= mShelves.size() || mShelves[i].live != 0 || mShelves[i + 1].live != 0)
            return;
        mShelves[i].height += mShelves[i + 1].height;
        mShelves.erase(mShelves.begin() + static_cast<std::ptrdiff_t>(i) + 1);
    };
    swallowNext(index);
    if (index > 0)
        swallowNext(index - 1);
    if (mShelves.back().live == 0) {
        mTop = mShelves.back().y;
        mShelves.pop_back();
    }
}

void AtlasPage::write(const Place &place, const std::uint8_t *rgba, Atlas::Border border) {
    const std::size_t rowBytes = std::size_t{4} * (place.w - 2);
    for (unsigned int row = 0; row < place.h; ++row) {
        std::uint8_t *to = at(place.x, place.y + row);
        if (!rgba || row == 0 || row + 1 == place.h) {
            std::memset(to, 0, rowBytes + 8);
            continue;
        }
        std::memset(to, 0, 4);
        std::memcpy(to + 4, rgba + (row - 1) * rowBytes, rowBytes);
        std::memset(to + 4 + rowBytes, 0, 4);
    }
    if (border == Atlas::B_EXTEND)
        extendEdges(place);
    mDirtyX0 = std::min(mDirtyX0, place.x);
    mDirtyY0 = std::min(mDirtyY0, place.y);
    mDirtyX1 = std::max(mDirtyX1, place.x + place.w);
    mDirtyY1 = std::max(mDirtyY1, place.y + place.h);
}

void AtlasPage::extendEdges(const Place &place) {
    for (unsigned int row = 1; row + 1 < place.h; ++row) {
        std::uint8_t *first = at(place.x, place.y + row);
        std::uint8_t *last = at(place.x + place.w - 1, place.y + row);
        std::memcpy(first, first + 4, 4);
        std::memcpy(last, last - 4, 4);
    }
    const unsigned int bottom = place.y + place.h - 1;
    std::memcpy(at(place.x, place.y), at(place.x, place.y + 1), std::size_t{4} * place.w);
    std::memcpy(at(place.x, bottom), at(place.x, bottom - 1), std::size_t{4} * place.w);
}

void AtlasPage::read(const Place &place, std::uint8_t *rgba) const {
    const std::size_t rowBytes = std::size_t{4} * (place.w - 2);
    for (unsigned int row = 1; row + 1 < place.h; ++row)
        std::memcpy(rgba + (row - 1) * rowBytes, at(place.x + 1, place.y + row), rowBytes);
}

void AtlasPage::flush(renderer::Backend &backend, std::vector<std::uint8_t> &scratch) {
    if (mDirtyX1 == 0)
        return;
    const unsigned int w = mDirtyX1 - mDirtyX0;
    const unsigned int h = mDirtyY1 - mDirtyY0;
    const std::size_t rowBytes = std::size_t{4} * w;
    scratch.resize(std::max(scratch.size(), rowBytes * h));
    for (unsigned int row = 0; row < h; ++row)
        std::memcpy(scratch.data() + row * rowBytes, at(mDirtyX0, mDirtyY0 + row), rowBytes);
    backend.updateTexture(mData->id, mDirtyX0, mDirtyY0, w, h, scratch.data());
    mDirtyX0 = mData->width;
    mDirtyY0 = mData->height;
    mDirtyX1 = mDirtyY1 = 0;
}

} // namespace nurel::texture
