#pragma once

#include "nui/ui/Component.h"

namespace nurel::scene::meshes {
class TextMesh;
} // namespace nurel::scene::meshes

namespace nurel::font {
class Font;
} // namespace nurel::font

namespace nurel::ui::components {

/// A text. The label keeps none of it: text, font, colour and alignment are those of the text mesh that it owns and
/// that its view puts into the scene. Indexes count characters (code points), not bytes.
///
/// A label takes no focus events, so a press on it leaves the focus alone. A copy shares the text mesh of its source; a
/// clone has its own.
class Label : public Component {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    /// "label"
    static const char *const ELEMENT;

    explicit Label(const char *name = "");
    Label(const Label &other);
    Label &operator=(const Label &other);
    ~Label() override;

    /// UTF-8; null counts as empty. Every change of the text goes through here.
    virtual void setText(const char *text);
    const char *getText() const;
    unsigned int getTextLength() const;

    /// An index past the end appends.
    void insertTextAt(const char *text, unsigned int index);

    /// Removes to the end where there are fewer characters; an index past the end removes nothing.
    void removeTextAt(unsigned int index, unsigned int count);

    void setFont(font::Font *font);
    font::Font *getFont() const;

    /// The top left corner of a character's cell, relative to the centre of the text box; at the end of the text and
    /// past it, where the next character would start.
    math::Vector2 getCharacterPosition(unsigned int index) const;

    /// Colour and alpha of the text, in force at once. The first form leaves the alpha alone.
    void setColor(const math::Vector3 &color);
    void setColor(const math::Vector4 &color);
    math::Vector3 getColor() const;

    /// The alpha of the text alone. What a component's opacity is otherwise is Component::setOpacity(value, recursive).
    void setOpacity(float opacity);
    float getOpacity() const;
    using Component::setOpacity;

    scene::meshes::TextMesh *getTextMesh() const { return mTextMesh.get(); }

    using core::Object::clone;
    core::Object *clone(core::CloningOptions &options) const override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

protected:
    Label(const char *name, const char *element);

    ComponentView *visit(Skin *skin) override;

    /// The extents of the text. It wraps at the maximum size, and a minimum size is a width to wrap at, not a padding.
    math::Vector2 getAutoSize(const math::Vector2 &current) override;
    void updatePosition() override;
    void applyOpacity(float value, bool recursive) override;

private:
    void init();

    core::SmartPtr<scene::meshes::TextMesh> mTextMesh;
};

} // namespace nurel::ui::components
