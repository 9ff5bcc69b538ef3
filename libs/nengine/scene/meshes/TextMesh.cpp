#include "nengine/scene/meshes/TextMesh.h"

#include "foundation/text/Utf8.h"
#include "nengine/font/Font.h"
#include "nengine/font/FontManager.h"
#include "nengine/font/detail/TextSystem.h"
#include "nengine/geometry/LocalGeometry.h"
#include "nengine/scene/meshes/detail/TextContent.h"
#include "nengine/scene/meshes/detail/TextRaster.h"
#include "nengine/scene/properties/AlphaProperty.h"
#include "nengine/scene/properties/MaterialProperty.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace nurel::scene::meshes {

constinit const ::core::Type TextMesh::TYPE("TextMesh", &TriangleMesh::TYPE);

namespace {

constexpr unsigned int ALIGNMENT_COUNT = 3;

// What is measured to be this little over a whole number of pixels is that number.
constexpr float WHOLE = 1.0f / 1024;

font::detail::TextSystem *getSystem() {
    font::FontManager *manager = font::FontManager::getSingletonPtr();
    return manager ? &manager->getTextSystem() : nullptr;
}

unsigned int toAlignment(unsigned int alignment) {
    return alignment < ALIGNMENT_COUNT ? alignment : 0;
}

float toLimit(float limit) {
    return limit >= 0.0f ? limit : -1.0f;
}

// How much of the free space is in front: none, half or all of it.
float toShare(unsigned int alignment) {
    return 0.5f * static_cast<float>(alignment);
}

float roundUp(float value) {
    return std::max(0.0f, std::ceil(value - WHOLE));
}

} // namespace

TextMesh::TextMesh(const char *name, font::Font *font) : TriangleMesh(name), mFont(font) {
    auto *alpha = new properties::AlphaProperty();
    alpha->setBlending(true);
    setProperty(alpha);
    setProperty(new properties::MaterialProperty());
}

TextMesh::~TextMesh() = default;

core::Object *TextMesh::clone(core::CloningOptions &options) const {
    auto *copy = new TextMesh(getName(), mFont.get());
    _clone(copy, options);
    return copy;
}

void TextMesh::_clone(core::Object *target, core::CloningOptions &options) const {
    TriangleMesh::_clone(target, options);
    if (!target || target == this || !target->instanceOf(TYPE))
        return;
    auto &mesh = *static_cast<TextMesh *>(target);
    // Each text has its own colour, even where the options let other frames share theirs.
    for (const unsigned int index : {Property::ALPHA, Property::MATERIAL}) {
        Property *own = getPropertySet()[index];
        if (own && mesh.getPropertySet()[index] == own)
            mesh.setProperty(static_cast<Property *>(own->clone(options)));
    }
    mesh.setFont(mFont.get());
    mesh.setScale(mScale);
    mesh.setText(getText());
    mesh.copyLayout(*this);
}

// Content

void TextMesh::setText(const char *text) {
    const char *given = text ? text : "";
    if (mText == given)
        return;
    const std::less_equal<const char *> notAfter;
    const bool isOwn = notAfter(mText.data(), given) && notAfter(given, mText.data() + mText.size());
    if (isOwn)
        mText = std::string(given);
    else
        mText = given;
    mCharacterCount = ::text::getUTF8Length(mText.c_str());
    contentChanged();
}

void TextMesh::setFont(font::Font *font) {
    if (mFont == font)
        return;
    mFont = font;
    contentChanged();
}

void TextMesh::setScale(float scale) {
    const float used = scale > 0.0f && std::isfinite(scale) ? scale : 0.0f;
    if (mScale == used)
        return;
    mScale = used;
    layoutChanged();
}

void TextMesh::setRebuild(bool rebuild) {
    if (rebuild)
        contentChanged();
}

void TextMesh::contentChanged() {
    mContent.reset();
    layoutChanged();
}

void TextMesh::layoutChanged() {
    setChanged(true);
}

const detail::TextContent *TextMesh::needContent() const {
    font::detail::TextSystem *system = getSystem();
    const bool current = mContent && mContent->getGeneration() == font::detail::TextSystem::getShapeGeneration();
    if (mFont && !current && (system || !mContent))
        mContent = std::make_unique<detail::TextContent>(*mFont, mText, system);
    return mContent.get();
}

// Layout

void TextMesh::setSizeLimit(const math::Vector2 &limit) {
    const math::Vector2 used(toLimit(limit.x), toLimit(limit.y));
    if (mLayout.sizeLimit == used)
        return;
    mLayout.sizeLimit = used;
    layoutChanged();
}

void TextMesh::setHorizontalAlignment(unsigned int alignment) {
    if (mLayout.horizontalAlignment == toAlignment(alignment))
        return;
    mLayout.horizontalAlignment = toAlignment(alignment);
    layoutChanged();
}

void TextMesh::setVerticalAlignment(unsigned int alignment) {
    if (mLayout.verticalAlignment == toAlignment(alignment))
        return;
    mLayout.verticalAlignment = toAlignment(alignment);
    layoutChanged();
}

void TextMesh::setLineSpacing(float spacing) {
    if (!std::isfinite(spacing) || mLayout.lineSpacing == spacing)
        return;
    mLayout.lineSpacing = spacing;
    layoutChanged();
}

void TextMesh::setParagraphSpacing(float spacing) {
    if (!std::isfinite(spacing) || mLayout.paragraphSpacing == spacing)
        return;
    mLayout.paragraphSpacing = spacing;
    layoutChanged();
}

void TextMesh::copyLayout(const TextMesh &source) {
    mLayout = source.mLayout;
    setRebuild(true);
}

const detail::TextLayout *TextMesh::needLayout() const {
    if (!needContent())
        return nullptr;
    const float em = getPixelSize();
    const float limit = mLayout.sizeLimit.x < 0.0f || em <= 0.0f ? -1.0f : mLayout.sizeLimit.x / em;
    return &mContent->getLayout(limit, getSystem());
}

float TextMesh::getPixelSize() const {
    return mFont ? mFont->getSize() * mScale : 0.0f;
}

math::Vector2 TextMesh::getExtents() const {
    const detail::TextLayout *layout = needLayout();
    if (!layout)
        return math::Vector2::ZERO;
    return {roundUp(layout->width * getPixelSize()), roundUp(getTextHeight(*layout))};
}

float TextMesh::getTextHeight(const detail::TextLayout &layout) const {
    const float line = mFont->getHeight() * mScale;
    const std::size_t last = layout.lines.size() - 1;
    return line + static_cast<float>(last) * line * mLayout.lineSpacing +
           static_cast<float>(layout.lines[last].paragraph) * line * mLayout.paragraphSpacing;
}

detail::TextPlacement TextMesh::getPlacement(const detail::TextLayout &layout) const {
    detail::TextPlacement placement;
    const float height = getTextHeight(layout);
    const float line = mFont->getHeight() * mScale;
    placement.em = getPixelSize();
    placement.boxWidth = mLayout.sizeLimit.x < 0.0f ? roundUp(layout.width * placement.em) : mLayout.sizeLimit.x;
    const float boxHeight = mLayout.sizeLimit.y < 0.0f ? roundUp(height) : mLayout.sizeLimit.y;
    placement.left = -0.5f * placement.boxWidth;
    placement.top = -0.5f * boxHeight + (boxHeight - height) * toShare(mLayout.verticalAlignment);
    placement.alignment = toShare(mLayout.horizontalAlignment);
    placement.ascent = mFont->getAscent() * mScale;
    placement.linePitch = line * mLayout.lineSpacing;
    placement.paragraphGap = line * mLayout.paragraphSpacing;
    return placement;
}

math::Vector2 TextMesh::getCharacterPosition(unsigned int index) const {
    const detail::TextLayout *layout = needLayout();
    if (!layout)
        return math::Vector2::ZERO;
    const detail::TextContent::Place place = mContent->findPlace(*layout, std::min(index, mCharacterCount));
    const detail::TextPlacement placement = getPlacement(*layout);
    return {placement.getLineLeft(*place.line) + mContent->getCaret(*place.line, place.character) * placement.em,
            placement.getLineTop(*place.line, place.lineIndex)};
}

math::Vector2 TextMesh::getEndPosition() const {
    return getCharacterPosition(mCharacterCount);
}

// Drawing

bool TextMesh::updateInternal(float time, bool parentChanged) {
    const bool changed = TriangleMesh::updateInternal(time, parentChanged);
    if (mRaster) {
        const bool shapedBefore =
            mContent && mContent->getGeneration() != font::detail::TextSystem::getShapeGeneration();
        if (mRaster->update() || shapedBefore)
            setChanged(true);
    }
    return changed;
}

void TextMesh::viewChanged(const DrawContext &context) {
    if (!mRaster)
        mRaster = std::make_unique<detail::TextRaster>();
    if (mRaster->noticeView(detail::DeviceView::compute(getWorldTransform(), context)))
        setChanged(true);
}

bool TextMesh::buildGeometry(geometry::LocalGeometry &out) {
    font::detail::TextSystem *system = getSystem();
    const detail::TextLayout *layout = needLayout();
    if (!layout || !system || !system->getGlyphs())
        return false;
    if (!mRaster)
        mRaster = std::make_unique<detail::TextRaster>();
    return mRaster->build(*mContent, *layout, getPlacement(*layout), *system->getGlyphs(), out);
}

} // namespace nurel::scene::meshes
