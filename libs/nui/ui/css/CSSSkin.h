#pragma once

#include "nui/ui/Skin.h"

#include <memory>

namespace nurel::vfs {
class File;
} // namespace nurel::vfs

namespace nurel::ui::css {

class CSS;
class Stylable;

/// The skin whose views take their look from a style sheet. It owns the sheet and makes a `CSSView` for each component;
/// the views style themselves from it.
///
/// Replacing or merging a sheet restyles nothing that is shown: views use the new one the next time their state or
/// their classes change. `UIManager::refresh()` shows it at once. Used on the thread that drives the `UIManager`;
/// sheets are parsed one at a time.
class CSSSkin : public Skin {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    explicit CSSSkin(const char *name);

    /// Shares the sheet, which goes with the last skin that has it.
    CSSSkin(const CSSSkin &other);
    CSSSkin &operator=(const CSSSkin &other);
    ~CSSSkin() override;

    /// Parses the file and puts its sheet in place of the one before. What the parser or the stream raises is logged,
    /// "CSSSkin::setStyleSheet: unable to parse CSS", and raised on; the sheet before stays then.
    void setStyleSheet(vfs::File *file);

    /// Takes the sheet over and drops the one before; null only drops that.
    void setStyleSheet(CSS *sheet);

    /// Null without one.
    CSS *getStyleSheet() { return mSheet.get(); }
    const CSS *getStyleSheet() const { return mSheet.get(); }

    /// The sheet lives as long as the result, whatever becomes of the skin.
    std::shared_ptr<const CSS> shareStyleSheet() const { return mSheet; }

    /// Adds the rules of the other skin's sheet, shared with it, to the sheet of this one and of all that share it.
    /// Null raises `core::IllegalArgumentException`, and so does a skin without a sheet on either side.
    void merge(const CSSSkin *other);

    /// Gives the object the properties of the rules that match it; nothing without a sheet.
    void style(Stylable *stylable) const;

    using Skin::visit;
    ComponentView *visit(components::Image *image) override;
    ComponentView *visit(components::TextField *field) override;
    ComponentView *visit(components::Listbox *listbox) override;
    ComponentView *visit(components::Selector *selector) override;
    ComponentView *visit(components::Progress *progress) override;
    ComponentView *visit(components::Slider *slider) override;
    ComponentView *visit(components::Checkbox *checkbox) override;
    ComponentView *visit(components::Button *button) override;
    ComponentView *visit(components::Panel *panel) override;
    ComponentView *visit(components::Label *label) override;
    ComponentView *visit(Widget *widget) override;

private:
    std::shared_ptr<CSS> mSheet;
};

} // namespace nurel::ui::css
