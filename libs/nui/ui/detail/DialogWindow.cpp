#include "nui/ui/detail/DialogWindow.h"

#include "foundation/core/Exception.h"
#include "foundation/core/Type.h"
#include "nui/ui/Dialog.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/components/Image.h"
#include "nui/ui/detail/CloneTarget.h"
#include "nui/ui/detail/ManagerAccess.h"

#include <cstring>

namespace nurel::ui::detail {

constinit const core::Type CustomDialog::TYPE("CustomDialog", &components::Panel::TYPE);
constinit const core::Type IconDialog::TYPE("IconDialog", &CustomDialog::TYPE);

namespace {

/// What is left free between the body and its bounds.
constexpr float BODY_INSET = 10;

/// Bits with an icon. One of them has no class of its own.
constexpr unsigned int ICON_MASK = 0x1f0;

float declaredHeight(const Component *part) {
    return part ? part->getComponentSize().absolute.y : 0;
}

float visibleHeight(const Component *part) {
    return part && part->isVisible() ? declaredHeight(part) : 0;
}

} // namespace

Component *findPart(const Container *window, const char *name, const core::Type &type) {
    const unsigned int count = window ? window->getChildCount() : 0;
    for (unsigned int i = 0; i < count; ++i) {
        Component *child = window->getChildAt(i);
        if (std::strcmp(child->getName(), name) == 0 && child->instanceOf(type))
            return child;
        if (!child->isContainer())
            continue;
        if (Component *found = findPart(static_cast<Container *>(child), name, type))
            return found;
    }
    return nullptr;
}

Component &requirePart(const Container *window, const char *name, const core::Type &type) {
    Component *part = findPart(window, name, type);
    if (!part)
        throw core::IllegalStateException("Dialog window %s has no %s %s", window ? window->getName() : "",
                                          type.getName(), name);
    return *part;
}

void CustomDialog::setFlags(unsigned int flags) {
    if (flags == mFlags)
        return;
    mFlags = flags;
    showButtons();
    stretchBody();
    limitBody();
    flagsApplied(flags);
}

void CustomDialog::flagsApplied(unsigned int) {}

/// 1. and 2.
void CustomDialog::showButtons() {
    if (Component *close = findPart<Component>(this, "bClose"))
        close->setVisible((mFlags & Dialog::FLAG_CLOSE) != 0);
    requirePart<Container>(this, "pButtons").setVisible((mFlags & ANSWER_MASK) != 0);
    struct Answer {
        const char *part;
        Dialog::Flag flag;
    };
    constexpr Answer ANSWERS[] = {{"bOK", Dialog::FLAG_OK},
                                  {"bYes", Dialog::FLAG_YES},
                                  {"bNo", Dialog::FLAG_NO},
                                  {"bCancel", Dialog::FLAG_CANCEL}};
    for (const Answer &answer : ANSWERS)
        requirePart<components::Button>(this, answer.part).setVisible((mFlags & answer.flag) != 0);
}

/// 3. and 4. Where the window has a size of its own, the body fills it.
void CustomDialog::stretchBody() {
    const unsigned int automatic = getAutoSizeFlags();
    if ((automatic & AUTO_SIZE_WIDTH) == 0) {
        Container &body = requirePart<Container>(this, "pBody");
        const ComponentSize &size = body.getComponentSize();
        body.setAutoSize(size.autoSize & AUTO_SIZE_HEIGHT, math::Vector2(0, size.autoSizeOffset.y));
        body.setSize(math::Vector2(-BODY_INSET, size.absolute.y), math::Vector2(1, size.relative.y));
    }
    if ((automatic & AUTO_SIZE_HEIGHT) == 0) {
        const float height = visibleHeight(findPart<Component>(this, "pTitle")) +
                             visibleHeight(&requirePart<Container>(this, "pButtons"));
        Container &body = requirePart<Container>(this, "pBody");
        const ComponentSize &size = body.getComponentSize();
        body.setAutoSize(size.autoSize & AUTO_SIZE_WIDTH, math::Vector2(size.autoSizeOffset.x, 0));
        body.setSize(math::Vector2(size.absolute.x, -height), math::Vector2(size.relative.x, 1));
    }
}

/// 5. Where the body follows its content, the stage or the window bounds it.
void CustomDialog::limitBody() {
    Container &body = requirePart<Container>(this, "pBody");
    if ((body.getAutoSizeFlags() & (AUTO_SIZE_WIDTH | AUTO_SIZE_HEIGHT)) == 0)
        return;
    body.setMaximumSize(math::Vector2(calculateMaximumWidth(body), calculateMaximumHeight(body)));
}

float CustomDialog::calculateMaximumWidth(const Container &body) const {
    if (body.getMaximumWidth() > 0)
        return body.getMaximumWidth();
    const UIManager *manager = findManager();
    const float stage = manager ? static_cast<float>(manager->getScreenWidth()) : 0;
    const ComponentSize &size = getComponentSize();
    float width = size.relative.x > 0 ? size.relative.x * stage + size.absolute.x : getMaximumWidth();
    // A body that has a maximum height, in a window that gives no width, is not bounded by the stage: the -10 that
    // comes out makes it as good as invisible, unless the template gives the body or the window a maximum width as
    // well.
    if (!(width > 0) && !(body.getMaximumHeight() > 0))
        width = stage / 2;
    return width - BODY_INSET;
}

float CustomDialog::calculateMaximumHeight(const Container &body) const {
    if (body.getMaximumHeight() > 0)
        return body.getMaximumHeight();
    const UIManager *manager = findManager();
    const float stage = manager ? static_cast<float>(manager->getScreenHeight()) : 0;
    const ComponentSize &size = getComponentSize();
    float height = size.relative.y > 0 ? size.relative.y * stage + size.absolute.y : getMaximumHeight();
    // The title counts here even when it is hidden.
    height -=
        visibleHeight(&requirePart<Container>(this, "pButtons")) + declaredHeight(findPart<Component>(this, "pTitle"));
    if (!(height > 0))
        height = stage / 2;
    return height - BODY_INSET;
}

core::Object *CustomDialog::clone(core::CloningOptions &options) const {
    core::SmartPtr<CustomDialog> copy(new CustomDialog(getName()));
    _clone(copy.get(), options);
    return copy.release();
}

void CustomDialog::_clone(core::Object *object, core::CloningOptions &options) const {
    requireCloneTarget(*this, object, TYPE);
    Panel::_clone(object, options);
    static_cast<CustomDialog *>(object)->mFlags = mFlags;
}

void IconDialog::flagsApplied(unsigned int flags) {
    components::Image &icon = requirePart<components::Image>(this, "iIcon");
    icon.setVisible((flags & ICON_MASK) != 0);
    if (flags & Dialog::FLAG_INFO)
        icon.addClass("info");
    if (flags & Dialog::FLAG_QUESTION)
        icon.addClass("question");
    else if (flags & Dialog::FLAG_WARNING)
        icon.addClass("warning");
    else if (flags & Dialog::FLAG_ERROR)
        icon.addClass("error");
}

core::Object *IconDialog::clone(core::CloningOptions &options) const {
    core::SmartPtr<IconDialog> copy(new IconDialog(getName()));
    _clone(copy.get(), options);
    return copy.release();
}

} // namespace nurel::ui::detail
