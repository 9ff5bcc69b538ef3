#include "nui/ui/Widget.h"

#include "foundation/core/Type.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/Layout.h"
#include "nui/ui/Skin.h"
#include "nui/ui/detail/CloneTarget.h"

namespace nurel::ui {

constinit const core::Type Widget::TYPE("Widget", &Container::TYPE);

const char *const Widget::ELEMENT = "widget";

Widget::Widget(const char *name) : Container(name, ELEMENT) {
    initializeSize(math::Vector2(0, 0), math::Vector2(1, 1));
}

Widget::Widget(const char *name, const math::Vector2 &absoluteSize, const math::Vector2 &relativeSize)
    : Container(name, ELEMENT) {
    initializeSize(absoluteSize, relativeSize);
}

Widget::Widget(const Widget &) = default;
Widget &Widget::operator=(const Widget &) = default;
Widget::~Widget() = default;

ComponentView *Widget::visit(Skin *skin) {
    // setView() under a parent with a view comes back here; making yet another view then would never end.
    if (mSettingView)
        return getView();
    if (!skin)
        return nullptr;
    const core::SmartPtr<ComponentView> view(skin->visit(this));
    setView(view.get());
    return getView();
}

void Widget::setView(ComponentView *view) {
    struct Scope {
        explicit Scope(bool &flag) : mFlag(flag), mBefore(flag) { mFlag = true; }
        ~Scope() { mFlag = mBefore; }
        bool &mFlag;
        const bool mBefore;
    };
    const Scope scope(mSettingView);
    Container::setView(view);
}

core::Object *Widget::clone(core::CloningOptions &options) const {
    core::SmartPtr<Widget> copy(new Widget(getName()));
    _clone(copy.get(), options);
    return copy.release();
}

void Widget::_clone(core::Object *target, core::CloningOptions &options) const {
    detail::requireCloneTarget(*this, target, TYPE);
    Container::_clone(target, options);
    static_cast<Widget *>(target)->mSkinName = mSkinName;
}

} // namespace nurel::ui
