#include "nui/ui/components/Label.h"

#include "foundation/core/Type.h"
#include "foundation/text/Utf8.h"
#include "nengine/font/Font.h"
#include "nengine/font/FontManager.h"
#include "nengine/scene/meshes/TextMesh.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/Skin.h"
#include "nui/ui/detail/CloneTarget.h"

#include <algorithm>
#include <string>

namespace nurel::ui::components {

constinit const core::Type Label::TYPE("Label", &Component::TYPE);

const char *const Label::ELEMENT = "label";

namespace {

scene::properties::MaterialProperty &materialOf(scene::meshes::TextMesh &mesh) {
    return static_cast<scene::properties::MaterialProperty &>(*mesh.getPropertySet()[scene::Property::MATERIAL]);
}

/// The bounds of one axis replace the limit; 0 is no bound. Says whether one did.
bool boundLimit(float &limit, float extent, float minimum, float maximum) {
    const float before = limit;
    if (maximum > 0 && maximum < extent)
        limit = maximum;
    if (minimum > 0 && minimum > extent)
        limit = minimum;
    return limit != before;
}

} // namespace

Label::Label(const char *name) : Label(name, ELEMENT) {}

Label::Label(const char *name, const char *element) : Component(name, element) {
    disableEvents(UIEvent::ET_FOCUS_EVENT);
    init();
}

Label::Label(const Label &) = default;
Label &Label::operator=(const Label &) = default;
Label::~Label() = default;

void Label::init() {
    font::FontManager *fonts = font::FontManager::getSingletonPtr();
    mTextMesh = new scene::meshes::TextMesh("Label.mTXT", fonts ? fonts->getDefaultFont() : nullptr);
    mTextMesh->setText("");
    mTextMesh->setSizeLimit(math::Vector2(-1, -1));
    mTextMesh->setHorizontalAlignment(font::Font::HA_LEFT);
    mTextMesh->setVerticalAlignment(font::Font::VA_CENTER);
    mTextMesh->setLineSpacing(1);
    mTextMesh->setParagraphSpacing(0.25f);
}

void Label::setText(const char *text) {
    mTextMesh->setText(text);
    setDirty(DIRTY_POSITION);
}

const char *Label::getText() const {
    return mTextMesh->getText();
}

unsigned int Label::getTextLength() const {
    return mTextMesh->getCharacterCount();
}

void Label::insertTextAt(const char *text, unsigned int index) {
    std::string changed = getText();
    std::size_t position = changed.size();
    if (index < getTextLength())
        position = text::getUTF8Index(changed.c_str(), index);
    changed.insert(std::min(position, changed.size()), text ? text : "");
    setText(changed.c_str());
}

void Label::removeTextAt(unsigned int index, unsigned int count) {
    if (index >= getTextLength())
        return;
    std::string changed = getText();
    const std::size_t start = text::getUTF8Index(changed.c_str(), index);
    changed.erase(start, text::getUTF8Index(changed.c_str() + start, count));
    setText(changed.c_str());
}

void Label::setFont(font::Font *font) {
    if (font == mTextMesh->getFont())
        return;
    mTextMesh->setFont(font);
    setDirty(DIRTY_POSITION);
}

font::Font *Label::getFont() const {
    return mTextMesh->getFont();
}

math::Vector2 Label::getCharacterPosition(unsigned int index) const {
    return index < getTextLength() ? mTextMesh->getCharacterPosition(index) : mTextMesh->getEndPosition();
}

void Label::setColor(const math::Vector3 &color) {
    materialOf(*mTextMesh).setColor(color);
}

void Label::setColor(const math::Vector4 &color) {
    materialOf(*mTextMesh).setColor(color);
}

math::Vector3 Label::getColor() const {
    const math::Vector4 &color = materialOf(*mTextMesh).getColor();
    return math::Vector3(color.x, color.y, color.z);
}

void Label::setOpacity(float opacity) {
    materialOf(*mTextMesh).setAlpha(opacity);
}

float Label::getOpacity() const {
    return materialOf(*mTextMesh).getAlpha();
}

void Label::applyOpacity(float value, bool recursive) {
    Component::applyOpacity(value, recursive);
    setOpacity(value);
}

math::Vector2 Label::getAutoSize(const math::Vector2 &current) {
    // 1. and 2.
    const unsigned int flags = getAutoSizeFlags();
    math::Vector2 limit(flags & AUTO_SIZE_WIDTH ? -1 : current.x, flags & AUTO_SIZE_HEIGHT ? -1 : current.y);
    mTextMesh->setSizeLimit(limit);
    const math::Vector2 extents = mTextMesh->getExtents();
    // 3.
    if (limit.x >= 0 && limit.y >= 0)
        return extents;
    // 4.
    const bool changedX = boundLimit(limit.x, extents.x, getMinimumWidth(), getMaximumWidth());
    const bool changedY = boundLimit(limit.y, extents.y, getMinimumHeight(), getMaximumHeight());
    if (!changedX && !changedY)
        return extents;
    // 5. Measured once more, and not again
    mTextMesh->setSizeLimit(limit);
    return mTextMesh->getExtents();
}

void Label::updatePosition() {
    Component::updatePosition();
    if (getAutoSizeFlags() != 0)
        return;
    const BoxModel &box = getBox();
    mTextMesh->setSizeLimit(math::Vector2(getSize().x - (box.border.w + box.border.y + box.padding.w + box.padding.y),
                                          getSize().y - (box.border.x + box.border.z + box.padding.x + box.padding.z)));
}

ComponentView *Label::visit(Skin *skin) {
    if (hasView() || !skin)
        return getView();
    const core::SmartPtr<ComponentView> view(skin->visit(this));
    setView(view.get());
    return getView();
}

core::Object *Label::clone(core::CloningOptions &options) const {
    core::SmartPtr<Label> copy(new Label(getName()));
    _clone(copy.get(), options);
    return copy.release();
}

void Label::_clone(core::Object *object, core::CloningOptions &options) const {
    detail::requireCloneTarget(*this, object, TYPE);
    Component::_clone(object, options);
    // The colour and the alpha of the text are not taken over: they start white.
    Label &target = *static_cast<Label *>(object);
    target.setFont(getFont());
    target.setText(getText());
    target.mTextMesh->copyLayout(*mTextMesh);
}

} // namespace nurel::ui::components
