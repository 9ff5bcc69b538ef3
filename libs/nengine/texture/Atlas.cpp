#include "nengine/texture/Atlas.h"

#include "foundation/core/Exception.h"
#include "nengine/renderer/Backend.h"
#include "nengine/texture/detail/AtlasPage.h"

#include <algorithm>

namespace nurel::texture {

namespace {

AtlasPage::Place getPlace(const Atlas::Region &region) {
    return {region.x - 1, region.y - 1, region.w + 2, region.h + 2};
}

} // namespace

Atlas::Atlas(renderer::Backend &backend)
    : mLink(std::make_shared<BackendLink>(BackendLink{&backend})),
      mPageSize(std::clamp(backend.getMaximumTextureSize(), 16u, PAGE_SIZE)) {
    const std::uint8_t white[] = {255, 255, 255, 255};
    if (!allocate(1, 1, white, K_COMMON, mWhite, B_EXTEND))
        throw ::core::IllegalStateException("Cannot make a texture of %u x %u pixels", mPageSize, mPageSize);
    mWhite.u0 = mWhite.u1 = (mWhite.u0 + mWhite.u1) / 2;
    mWhite.v0 = mWhite.v1 = (mWhite.v0 + mWhite.v1) / 2;
}

Atlas::~Atlas() {
    mPages.clear();
    mLink->backend = nullptr;
}

AtlasPage *Atlas::addPage(Kind kind) {
    const renderer::TextureId id =
        mLink->backend->createTexture(mPageSize, mPageSize, renderer::PixelFormat::RGBA8, nullptr);
    if (id == renderer::NO_TEXTURE)
        return nullptr;
    const ::core::SmartPtr<RenderData> data(new RenderData(mLink, id, mPageSize, mPageSize));
    return mPages.emplace_back(std::make_unique<AtlasPage>(data.get(), kind)).get();
}

AtlasPage *Atlas::findPage(const RenderData *data) const {
    const auto found =
        std::find_if(mPages.begin(), mPages.end(), [data](const auto &page) { return &page->getData() == data; });
    return found == mPages.end() ? nullptr : found->get();
}

RenderData *Atlas::getPage(unsigned int index) const {
    return index < mPages.size() ? &mPages[index]->getData() : nullptr;
}

bool Atlas::allocate(unsigned int w, unsigned int h, const void *rgba, Kind kind, Region &out, Border border) {
    out = {};
    if (w == 0 || h == 0 || w > getMaximumSide() || h > getMaximumSide())
        return false;
    AtlasPage::Place place{};
    AtlasPage *page = nullptr;
    for (std::size_t i = 0; i < mPages.size() && !page; ++i) {
        if (mPages[i]->getKind() == kind && mPages[i]->take(w + 2, h + 2, place))
            page = mPages[i].get();
    }
    if (!page) {
        page = addPage(kind);
        if (!page || !page->take(w + 2, h + 2, place))
            return false;
    }

    const float size = static_cast<float>(mPageSize);
    out.page = &page->getData();
    out.x = place.x + 1;
    out.y = place.y + 1;
    out.w = w;
    out.h = h;
    out.u0 = static_cast<float>(out.x) / size;
    out.v0 = static_cast<float>(out.y) / size;
    out.u1 = static_cast<float>(out.x + w) / size;
    out.v1 = static_cast<float>(out.y + h) / size;
    page->write(place, static_cast<const std::uint8_t *>(rgba), border);
    mDirty = true;
    return true;
}

void Atlas::update(const Region &region, const void *rgba, Border border) {
    AtlasPage *page = findPage(region.page);
    if (!page)
        return;
    page->write(getPlace(region), static_cast<const std::uint8_t *>(rgba), border);
    mDirty = true;
}

void Atlas::read(const Region &region, void *rgba) const {
    if (const AtlasPage *page = findPage(region.page))
        page->read(getPlace(region), static_cast<std::uint8_t *>(rgba));
}

void Atlas::release(Region &region) {
    AtlasPage *page = findPage(region.page);
    const bool white = region.page == mWhite.page && region.x == mWhite.x && region.y == mWhite.y;
    if (page && !white && page->giveBack(getPlace(region)))
        ++mRevision;
    region = {};
}

void Atlas::flush() {
    if (!mDirty)
        return;
    for (const auto &page : mPages)
        page->flush(*mLink->backend, mScratch);
    mDirty = false;
}

} // namespace nurel::texture
