#pragma once

#include "nui/ui/Container.h"

namespace nurel::ui::components {

class Label;
class Panel;

/// A bar that shows how far something has come, with an optional text. Whole numbers; nobody but the application
/// changes the value.
///
/// The bar is a child, a panel with the name "bar" whose width is the fraction of the progress. The text is a label
/// with the name "label", made when it is first shown. Both have the element of the progress and take no events; what
/// is done to the progress' classes is done to theirs.
///
/// A clone has the value fields of its source, a clone of the label, and a bar of its own as it is when new: the look
/// of the source's bar is not taken over.
class Progress : public Container {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    /// "progress"
    static const char *const ELEMENT;

    explicit Progress(const char *name = "");
    Progress(const Progress &other);
    Progress &operator=(const Progress &other);
    ~Progress() override;

    /// Makes the bar as wide as the value's part of the range, from nothing to all, and renews the text. The value
    /// itself is stored as it comes, also when it lies outside the range. In a range of a single value that and what
    /// lies below it show an empty bar, what lies above a full one.
    void setValue(int value);

    /// 0 at first.
    int getValue() const { return mValue; }

    /// 0 at first. Bar and text follow with the next setValue().
    void setMinValue(int minimum) { mMinimum = minimum; }
    int getMinValue() const { return mMinimum; }

    /// 100 at first. Bar and text follow with the next setValue().
    void setMaxValue(int maximum) { mMaximum = maximum; }
    int getMaxValue() const { return mMaximum; }

    /// False at first. Shows the label, which is made if there is none, or hides it.
    void setShowText(bool show);
    bool getShowText() const { return mShowText; }

    /// What the text says: each "%d" in it becomes the percentage, from 0 to 100, whatever the range; "%%" becomes a
    /// percent sign; all else is shown as it stands. "%d%%" at first; null counts as empty.
    void setTextFormat(const char *format);
    const char *getTextFormat() const { return mTextFormat.c_str(); }

    /// The label, which is made if there is none. One that was taken out with removeChild() counts as none.
    Label *ensureLabel();

    /// Null when none was made.
    Label *getLabel() const;

    /// It lives as long as the progress.
    Panel *getBar() const { return mBar.get(); }

    void addClass(const char *name) override;
    void removeClass(const char *name) override;
    void removeClasses() override;

    using core::Object::clone;
    core::Object *clone(core::CloningOptions &options) const override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

protected:
    ComponentView *visit(Skin *skin) override;

private:
    double computePart(int value, double whole) const;

    core::SmartPtr<Label> mLabel;
    core::SmartPtr<Panel> mBar;
    int mMinimum = 0;
    int mMaximum = 100;
    int mValue = 0;
    bool mShowText = false;
    std::string mTextFormat = "%d%%";
};

} // namespace nurel::ui::components
