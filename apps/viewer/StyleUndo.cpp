#include "StyleUndo.h"

#include "nengine/font/Font.h"
#include "nengine/scene/meshes/BorderedRectangleMesh.h"
#include "nengine/scene/meshes/TextMesh.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nengine/scene/properties/TextureProperty.h"
#include "nengine/texture/Texture.h"
#include "nui/ui/Container.h"
#include "nui/ui/components/Image.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/css/CSS.h"
#include "nui/ui/css/CSSView.h"
#include "nui/ui/css/Property.h"
#include "nui/ui/css/Rule.h"
#include "nui/ui/css/Stylable.h"

#include <set>
#include <vector>

namespace viewer {

using nurel::math::Matrix3;
using nurel::math::Vector2;
using nurel::math::Vector4;
using nurel::scene::meshes::BorderedRectangleMesh;
using nurel::scene::meshes::TextMesh;
using nurel::ui::Component;
using nurel::ui::Container;
using nurel::ui::UIEvent;
using nurel::ui::components::Image;
using nurel::ui::components::Label;
using nurel::ui::css::CSS;
using nurel::ui::css::CSSView;
using nurel::ui::css::Property;
using nurel::ui::css::Rule;
using nurel::ui::css::Stylable;

namespace {

/// The component of a view with every state at once: what matches it can match the component at some time.
class AnyState : public Stylable {
public:
    explicit AnyState(const Stylable &stylable) : mStylable(stylable) {}
    bool isID(const char *name) const override { return mStylable.isID(name); }
    bool isElement(const char *word) const override { return mStylable.isElement(word); }
    bool hasClass(const char *name) const override { return mStylable.hasClass(name); }
    bool hasState(unsigned int) const override { return true; }
    void apply(const Property *) override {}

private:
    const Stylable &mStylable;
};

std::set<Property::Name> findStyledKinds(const CSS &sheet, const CSSView &view) {
    std::set<Property::Name> kinds;
    for (const Rule *rule : sheet.getMatches(AnyState(view.getStylable()))) {
        for (const auto &entry : rule->getProperties())
            kinds.insert(entry.first);
    }
    return kinds;
}

bool isScrollBar(const Component &component) {
    const Container *parent = component.getParent();
    return parent && (parent->getScrollInfoH().bar == &component || parent->getScrollInfoV().bar == &component);
}

/// A scroll bar is declared as thick as it was before; one that was never styled has no thickness.
void undoThickness(Component &bar) {
    bar.setSize(Vector2::ZERO);
    bar.update();
}

BorderedRectangleMesh *findBox(Component &component) {
    nurel::scene::Mesh *mesh = component.getMesh();
    return mesh->instanceOf(BorderedRectangleMesh::TYPE) ? static_cast<BorderedRectangleMesh *>(mesh) : nullptr;
}

TextMesh *findText(Component &component) {
    return component.instanceOf(Label::TYPE) ? static_cast<Label &>(component).getTextMesh() : nullptr;
}

Vector4 readColor(nurel::scene::Frame &frame) {
    using nurel::scene::properties::MaterialProperty;
    return static_cast<MaterialProperty *>(frame.getProperty(nurel::scene::Property::MATERIAL))->getColor();
}

nurel::texture::Texture *readTexture(const nurel::scene::Frame &frame) {
    using nurel::scene::properties::TextureProperty;
    const nurel::scene::Property *property = frame.getPropertySet()[nurel::scene::Property::TEXTURE];
    return property ? static_cast<const TextureProperty *>(property)->getTexture(0) : nullptr;
}

} // namespace

/// What a sheet can set.
struct StyleUndo::Look {
    explicit Look(Component &component);

    void undo(Property::Name kind, Component &component) const;
    void undoBackground(Component &component) const;
    void undoSkins(Component &component) const;
    void undoFont(Component &component) const;
    void undoOverflow(Component &component) const;
    void undoTransform(Component &component) const;
    void undoWidth(Component &component) const;
    void undoHeight(Component &component) const;

    Component::ComponentPosition position;
    Component::ComponentSize size;
    Component::Anchor anchor;
    nurel::ui::BoxModel box;
    Vector2 scale;
    Matrix3 rotation;
    float opacity;
    int zIndex;
    int childIndex;
    unsigned int dragEvents;

    // of a container
    unsigned int scrollMask = 0;
    bool clipChildren = false;

    // of the box
    Vector4 color = Vector4(1, 1, 1, 1);
    core::SmartPtr<nurel::texture::Texture> texture;
    Vector4 corners = Vector4(0, 0, 0, 0);
    Vector2 skinOffset = Vector2(0, 0);
    Vector2 skinSize = Vector2(0, 0);
    unsigned int skinCountU = 1;
    unsigned int skinCountV = 1;
    int currentSkin = 0;
    int skinSpacing = 0;

    // of a text
    core::SmartPtr<nurel::font::Font> font;
    Vector4 textColor = Vector4(1, 1, 1, 1);
    float textScale = 1;
    unsigned int horizontalAlignment = 0;
    unsigned int verticalAlignment = 0;
};

struct StyleUndo::Entry {
    core::SmartPtr<Component> component;
    Look look;
};

StyleUndo::Look::Look(Component &component)
    : position(component.getComponentPosition()), size(component.getComponentSize()), anchor(component.getAnchor()),
      box(component.getBox()), scale(component.getScale()), rotation(component.getRotation()),
      opacity(component.Component::getOpacity()), zIndex(component.getZIndex()),
      childIndex(component.hasParent() ? component.getParent()->getChildIndex(&component) : 0),
      dragEvents(component.acceptsEvent(UIEvent::ET_DRAG_EVENT)) {
    if (component.isContainer()) {
        const auto &container = static_cast<const Container &>(component);
        scrollMask = container.getScrollMask();
        clipChildren = container.getClipChildren();
    }
    if (BorderedRectangleMesh *mesh = findBox(component)) {
        color = readColor(*mesh);
        texture = readTexture(*mesh);
        corners = mesh->getBorder();
        skinOffset = mesh->getSkinOffset();
        skinSize = mesh->getSkinSize();
        skinCountU = mesh->getSkinCountU();
        skinCountV = mesh->getSkinCountV();
        currentSkin = mesh->getCurrentSkin();
        skinSpacing = mesh->getSkinSpacing();
    }
    if (TextMesh *text = findText(component)) {
        font = text->getFont();
        textColor = readColor(*text);
        textScale = text->getScale();
        horizontalAlignment = text->getHorizontalAlignment();
        verticalAlignment = text->getVerticalAlignment();
    }
}

void StyleUndo::Look::undoBackground(Component &component) const {
    BorderedRectangleMesh *mesh = findBox(component);
    if (!mesh)
        return;
    const bool isImage = component.instanceOf(Image::TYPE);
    CSSView::setColor(mesh, color);
    mesh->setHidden(!isImage);
    if (readTexture(*mesh) != texture.get())
        component.setMeshTexture(texture.get(), 0);
    // A change of texture has made an image with an automatic size declare a larger one.
    if (isImage && component.getAutoSizeFlags() != Component::AUTO_SIZE_NONE) {
        undoWidth(component);
        undoHeight(component);
    }
}

void StyleUndo::Look::undoSkins(Component &component) const {
    BorderedRectangleMesh *mesh = findBox(component);
    if (!mesh)
        return;
    mesh->setSkinCount(skinCountU, skinCountV);
    mesh->setCurrentSkin(currentSkin);
    mesh->setSkinOffset(skinOffset);
    mesh->setSkinSize(skinSize);
    mesh->setSkinSpacing(skinSpacing);
}

void StyleUndo::Look::undoFont(Component &component) const {
    TextMesh *text = findText(component);
    if (!text)
        return;
    static_cast<Label &>(component).setFont(font.get());
    text->setScale(textScale);
}

void StyleUndo::Look::undoOverflow(Component &component) const {
    if (!component.isContainer())
        return;
    auto &container = static_cast<Container &>(component);
    container.setClipChildren(clipChildren);
    container.setScrollMask(scrollMask);
    component.disableEvents(UIEvent::ET_DRAG_EVENT);
    component.enableEvents(dragEvents);
}

void StyleUndo::Look::undoTransform(Component &component) const {
    component.setScale(scale);
    component.setRotation(rotation);
    component.setPosition(position.absolute, component.getComponentPosition().relative);
}

void StyleUndo::Look::undoWidth(Component &component) const {
    constexpr unsigned int BIT = Component::AUTO_SIZE_WIDTH;
    component.setWidth(size.absolute.x, size.relative.x);
    component.setAutoSize((component.getAutoSizeFlags() & ~BIT) | (size.autoSize & BIT), size.autoSizeOffset);
}

void StyleUndo::Look::undoHeight(Component &component) const {
    constexpr unsigned int BIT = Component::AUTO_SIZE_HEIGHT;
    component.setHeight(size.absolute.y, size.relative.y);
    component.setAutoSize((component.getAutoSizeFlags() & ~BIT) | (size.autoSize & BIT), size.autoSizeOffset);
}

void StyleUndo::Look::undo(Property::Name kind, Component &component) const {
    const Component::ComponentPosition &now = component.getComponentPosition();
    switch (kind) {
    case Property::NONE:
        break;
    case Property::FONT:
        return undoFont(component);
    case Property::COLOR:
        if (TextMesh *text = findText(component))
            CSSView::setColor(text, textColor);
        break;
    case Property::BACKGROUND:
        return undoBackground(component);
    case Property::WIDTH:
        return undoWidth(component);
    case Property::HEIGHT:
        return undoHeight(component);
    case Property::TOP:
        return component.setPosition(Vector2(now.absolute.x, position.absolute.y),
                                     Vector2(now.relative.x, position.relative.y));
    case Property::LEFT:
        return component.setPosition(Vector2(position.absolute.x, now.absolute.y),
                                     Vector2(position.relative.x, now.relative.y));
    case Property::BORDER_RADIUS:
        if (BorderedRectangleMesh *mesh = findBox(component))
            mesh->setBorder(corners);
        break;
    case Property::NANCHOR:
        return component.setAnchor(anchor);
    case Property::NBACKGROUND:
        return undoSkins(component);
    case Property::OPACITY:
        return component.setOpacity(opacity, false);
    case Property::MARGIN:
        return component.setMargin(box.margin);
    case Property::BORDER:
        return component.setBorder(box.border);
    case Property::PADDING:
        return component.setPadding(box.padding);
    case Property::OVERFLOW:
        return undoOverflow(component);
    case Property::TEXT_ALIGN:
        if (TextMesh *text = findText(component))
            text->setHorizontalAlignment(horizontalAlignment);
        break;
    case Property::MIN_WIDTH:
        return component.setMinimumWidth(size.minimum.x);
    case Property::MAX_WIDTH:
        return component.setMaximumWidth(size.maximum.x);
    case Property::MIN_HEIGHT:
        return component.setMinimumHeight(size.minimum.y);
    case Property::MAX_HEIGHT:
        return component.setMaximumHeight(size.maximum.y);
    case Property::VERTICAL_ALIGN:
        if (TextMesh *text = findText(component))
            text->setVerticalAlignment(verticalAlignment);
        break;
    case Property::TRANSFORM:
        return undoTransform(component);
    case Property::ZINDEX:
        return component.setZIndex(zIndex);
    }
}

StyleUndo::StyleUndo() = default;
StyleUndo::~StyleUndo() = default;

void StyleUndo::remember(Component &component) {
    if (!mEntries.contains(&component))
        mEntries.emplace(&component, Entry{&component, Look(component)});
}

void StyleUndo::forgetUnused() {
    const auto isUnused = [](const auto &entry) { return entry.second.component->getRefCount() == 1; };
    while (std::erase_if(mEntries, isUnused) > 0) // the end of a container leaves its children unused
        continue;
}

void StyleUndo::forget() {
    mEntries.clear();
}

void StyleUndo::undo(const CSS &sheet) {
    forgetUnused();
    std::set<Container *> unsorted;
    for (const auto &[pointer, entry] : mEntries) {
        Component &component = *entry.component;
        if (!component.hasView() || !component.getView()->instanceOf(CSSView::TYPE))
            continue;
        const auto &view = static_cast<const CSSView &>(*component.getView());
        const std::set<Property::Name> kinds = findStyledKinds(sheet, view);
        for (const Property::Name kind : kinds)
            entry.look.undo(kind, component);
        if (kinds.contains(Property::ZINDEX) && component.hasParent())
            unsorted.insert(component.getParent());
        if (!kinds.empty() && isScrollBar(component))
            undoThickness(component);
        component.forceDirty(Component::DIRTY_ALL); // one that is not on the stage is styled when it comes back
    }
    for (Container *container : unsorted)
        undoOrder(*container);
}

void StyleUndo::undoOrder(Container &container) const {
    struct Child {
        Component *component;
        int place;
        int zIndex;
    };
    std::vector<Child> children;
    for (unsigned int i = 0; i < container.getChildCount(); ++i) {
        Component *child = container.getChildAt(i);
        const auto entry = mEntries.find(child);
        const int place = entry != mEntries.end() ? entry->second.look.childIndex : static_cast<int>(i);
        children.push_back({child, place, child->getZIndex()});
    }
    // Sorting by z-index keeps the order of equals, so that two rounds give the places to those with equal ones.
    for (const Child &child : children)
        child.component->setZIndex(child.place);
    container.applyZIndex();
    for (const Child &child : children)
        child.component->setZIndex(child.zIndex);
    container.applyZIndex();
}

} // namespace viewer
