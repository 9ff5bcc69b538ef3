#pragma once

#include "foundation/core/SmartPtr.h"
#include "nmain/math/Vector2.h"
#include "nui/ui/Layout.h"

#include <vector>

namespace nurel::ui::layouts {

/// Arranges components as a form of two columns: the first, third, fifth … is a label, the one after it is its field.
/// Each pair takes a row as high as the higher of the two, and the label is stretched to it. A pair of which one half
/// is hidden is hidden as a whole, by setVisible() on both: it stays hidden until the application shows both again.
///
/// A label gets the anchor top-left for good. A field keeps its anchor: one that is anchored left stands in its column
/// and gets the column's width; any other stands by its anchor across the whole container, in its own width. A last
/// label without a field gets a row as high as the row before. Rows do not shrink, since the label has been stretched,
/// and the margins of a field in its column take from its height at every pass: give such fields none above and below.
///
/// The setters mark nothing dirty: a change takes effect at the owner's next layout pass. Template keys: "width" and
/// "spacing", each an array of one or two numbers.
class FormLayout : public Layout {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    enum FieldIndex { LABEL = 0, FIELD = 1 };

    using Layout::clone;
    core::Object *clone(core::CloningOptions &options) const override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

    /// The width of a column: up to and including 1 a fraction of the owner's container size, above that pixels. A
    /// fraction gives up room for the spacing, and for the other column if that is in pixels.
    float getWidth(FieldIndex index) const { return index == LABEL ? mLabelWidth : mFieldWidth; }
    void setWidth(FieldIndex index, float width) { (index == LABEL ? mLabelWidth : mFieldWidth) = width; }

    /// Pixels between the columns (x) and between the rows (y).
    const math::Vector2 &getSpacing() const { return mSpacing; }
    void setSpacing(const math::Vector2 &spacing) { mSpacing = spacing; }
    float getHSpacing() const { return mSpacing.x; }
    void setHSpacing(float spacing) { mSpacing.x = spacing; }
    float getVSpacing() const { return mSpacing.y; }
    void setVSpacing(float spacing) { mSpacing.y = spacing; }

protected:
    using Components = std::list<Component *>;

    void _layout(const Components &components) const override;
    void _setParameters(const json::JSObject *parameters) override;

private:
    /// What a column's width comes to: pixels, and a fraction of the container that is added.
    struct Column {
        float fixed;
        float fraction;
    };

    /// What a pass walks over. It holds what is counted, so that nothing new can take the place of what goes meanwhile.
    struct Walk {
        void start(const Components &list);
        void end();

        std::vector<Component *> components;
        std::vector<core::SmartPtr<Component>> held;
    };

    Column column(float own, float other) const;
    bool hasPair(const Component *label, const Component *field) const;
    void show(Component *component, bool visible) const;
    void placeLabels(const std::vector<Component *> &walk, const Column &column) const;
    void placeFields(const std::vector<Component *> &walk, const Column &column, float x) const;

    float mLabelWidth = 0.5f;
    float mFieldWidth = 0.5f;
    math::Vector2 mSpacing = math::Vector2(10, 5);
    mutable Walk mBuffer; ///< kept between passes, so that a pass does not allocate
};

} // namespace nurel::ui::layouts
