#include "nui/ui/components/Progress.h"

#include "foundation/core/Type.h"
#include "nengine/scene/meshes/BorderedRectangleMesh.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/Skin.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/detail/CloneTarget.h"
#include "nui/ui/detail/ClonedPart.h"

#include <cstdint>

namespace nurel::ui::components {

using scene::meshes::BorderedRectangleMesh;

constinit const core::Type Progress::TYPE("Progress", &Container::TYPE);

const char *const Progress::ELEMENT = "progress";

namespace {

// Panel and label in all but what they start with: their clones are a plain panel and a plain label.

class ProgressBar : public Panel {
public:
    ProgressBar() : Panel("bar", Progress::ELEMENT) {
        initializeSize(math::Vector2(0, DEFAULT_SIZE.y), math::Vector2(0, 0)); // the value 0
        setAnchor(ANCHOR_CENTER_LEFT);
        setEventMask(0);
    }
};

class ProgressLabel : public Label {
public:
    explicit ProgressLabel(const core::CKHashMapValue<bool> &classes) : Label("label", Progress::ELEMENT) {
        setClasses(classes);
        setEventMask(0);
    }
};

/// The format comes from outside, so no function of printf's kind may see it.
std::string formatPercentage(const std::string &format, int percentage) {
    const std::string number = std::to_string(percentage);
    std::string text;
    for (std::size_t i = 0; i < format.size(); ++i) {
        const char conversion = format[i] == '%' && i + 1 < format.size() ? format[i + 1] : '\0';
        if (conversion == 'd')
            text += number;
        else
            text += format[i];
        if (conversion == 'd' || conversion == '%')
            ++i;
    }
    return text;
}

} // namespace

Progress::Progress(const char *name) : Container(name, ELEMENT), mBar(new ProgressBar) {
    setScrollMask(SCROLL_NONE);
    disableEvents(UIEvent::ET_DRAG_EVENT);
    enableEvents(UIEvent::ET_CLICK_EVENT | UIEvent::ET_FOCUS_EVENT);
    // A bar that is hardly begun is shorter than its rounded ends
    static_cast<BorderedRectangleMesh *>(mBar->getMesh())->setBorderFixMode(BorderedRectangleMesh::BORDER_FIX_FIT);
    Container::_addChild(mBar.get(), true);
}

Progress::Progress(const Progress &) = default;
Progress &Progress::operator=(const Progress &) = default;
Progress::~Progress() = default;

double Progress::computePart(int value, double whole) const {
    const auto done = static_cast<double>(std::int64_t(value) - mMinimum);
    const auto range = static_cast<double>(std::int64_t(mMaximum) - mMinimum);
    // A range of a single value divides by zero: 0/0 counts as 0, and an infinity as the end on its side.
    const double part = done * whole / range;
    const double raised = part > 0 ? part : 0;
    return raised < whole ? raised : whole;
}

void Progress::setValue(int value) {
    // 1. and 2.
    const auto fraction = static_cast<float>(computePart(value, 1));
    const ComponentSize &size = mBar->getComponentSize();
    mBar->setSize(math::Vector2(0, size.absolute.y), math::Vector2(fraction, size.relative.y));
    // 3.
    mValue = value;
    // 4. Not from the fraction, which as a float lies below some of the whole percents
    if (!mShowText)
        return;
    const std::string text = formatPercentage(mTextFormat, static_cast<int>(computePart(value, 100)));
    Label *label = ensureLabel();
    if (text != label->getText()) // a label is laid out again with every text
        label->setText(text.c_str());
}

void Progress::setShowText(bool show) {
    if (show == mShowText)
        return;
    if (show)
        ensureLabel();
    else if (Label *label = getLabel())
        label->setVisible(false);
    mShowText = show;
    if (show) {
        setValue(mValue);
        ensureLabel()->setVisible(true);
    }
}

void Progress::setTextFormat(const char *format) {
    mTextFormat = std::string(format ? format : ""); // it may be a part of the format in use
    setValue(mValue);
}

Label *Progress::ensureLabel() {
    if (Label *label = getLabel())
        return label;
    mLabel = new ProgressLabel(getClasses());
    _addChild(mLabel.get(), true);
    shareDisabled(*mLabel);
    return mLabel.get();
}

// It may have been taken out behind the progress' back. It is held, so that it can be asked.
Label *Progress::getLabel() const {
    return mLabel && mLabel->isDescendantOf(this) ? mLabel.get() : nullptr;
}

void Progress::addClass(const char *name) {
    Container::addClass(name);
    if (Label *label = getLabel())
        label->addClass(name);
    mBar->addClass(name);
}

void Progress::removeClass(const char *name) {
    Container::removeClass(name);
    if (Label *label = getLabel())
        label->removeClass(name);
    mBar->removeClass(name);
}

void Progress::removeClasses() {
    Container::removeClasses();
    if (Label *label = getLabel())
        label->removeClasses();
    mBar->removeClasses();
}

ComponentView *Progress::visit(Skin *skin) {
    if (hasView() || !skin)
        return getView();
    const core::SmartPtr<ComponentView> view(skin->visit(this));
    setView(view.get());
    return getView();
}

core::Object *Progress::clone(core::CloningOptions &options) const {
    core::SmartPtr<Progress> copy(new Progress(getName()));
    _clone(copy.get(), options);
    return copy.release();
}

void Progress::_clone(core::Object *object, core::CloningOptions &options) const {
    detail::requireCloneTarget(*this, object, TYPE);
    if (object == this)
        return;
    Progress &target = *static_cast<Progress *>(object);
    // 1.
    target.mMinimum = mMinimum;
    target.mMaximum = mMaximum;
    target.mValue = mValue;
    target.mShowText = mShowText;
    target.mTextFormat = mTextFormat;
    // 2. and 3. The bar of the copy stays and gets the classes of the source
    const core::SmartPtr<Panel> bar = target.mBar;
    target.removeClasses();
    target.clearChildren();
    target.mLabel = nullptr;
    Container::_clone(object, options);
    // 4. and 5. It takes the place of the one that came with the children; the label that came with them is adopted
    detail::replaceClonedPart(target, mBar.get(), bar.get(), options);
    target.mLabel = static_cast<Label *>(detail::findClonedPart(target, mLabel.get(), options));
    // 6.
    target.setValue(mValue);
}

} // namespace nurel::ui::components
