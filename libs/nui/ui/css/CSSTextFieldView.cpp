#include "nui/ui/css/CSSTextFieldView.h"

#include "foundation/core/Type.h"
#include "nengine/font/Font.h"
#include "nengine/scene/Node.h"
#include "nengine/scene/handlers/BlinkHandler.h"
#include "nengine/scene/meshes/SizeableRectangleMesh.h"
#include "nengine/scene/meshes/TextMesh.h"
#include "nengine/scene/properties/AlphaProperty.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/TextField.h"
#include "nui/ui/css/CSSLabelView.h"
#include "nui/ui/css/Color.h"
#include "nui/ui/detail/InnerOffset.h"

namespace nurel::ui::css {

using components::TextField;
using scene::handlers::BlinkHandler;
using scene::meshes::SizeableRectangleMesh;

constinit const core::Type CSSTextFieldView::TYPE("CSSTextFieldView", &CSSView::TYPE);

namespace {

constexpr float CARET_WIDTH = 2;
constexpr float CARET_ALPHA = 0.5f;

/// The first label below the container, depth first.
components::Label *findLabel(const Container &container) {
    for (unsigned int i = 0; i < container.getChildCount(); ++i) {
        Component *child = container.getChildAt(i);
        if (child->instanceOf(components::Label::TYPE))
            return static_cast<components::Label *>(child);
        if (!child->isContainer())
            continue;
        if (components::Label *found = findLabel(*static_cast<Container *>(child)))
            return found;
    }
    return nullptr;
}

} // namespace

CSSTextFieldView::CSSTextFieldView(TextField *field, CSSSkin *skin) : CSSView("CSSTextFieldView", field, skin) {}

CSSTextFieldView::~CSSTextFieldView() = default;

void CSSTextFieldView::buildGeometry() {
    // 1.
    geometry::MeshDataAllocator *allocator =
        UIManager::isSingletonCreated() ? UIManager::getSingleton().getGeometryAllocator() : nullptr;
    mCaret = new SizeableRectangleMesh("", math::Vector2(10, 10), allocator);
    // 2.
    const core::SmartPtr<scene::properties::MaterialProperty> material(new scene::properties::MaterialProperty(""));
    material->setDefault(false);
    material->setColor(math::Vector4(1, 1, 1, CARET_ALPHA));
    mCaret->setProperty(material.get());
    // 3.
    const core::SmartPtr<scene::properties::AlphaProperty> alpha(new scene::properties::AlphaProperty(""));
    alpha->setDefault(false);
    alpha->setBlending(true);
    mCaret->setProperty(alpha.get());
    // 4.
    const core::SmartPtr<BlinkHandler> blink(new BlinkHandler);
    mCaret->addHandler(blink.get());
    // 5.
    getOverlay()->appendChild(mCaret);
    // 6. What clips goes behind the caret
    CSSView::buildGeometry();
}

void CSSTextFieldView::apply(const Property *property) {
    CSSView::apply(property);
    if (mCaret && property->getName() == Property::COLOR)
        setColor(mCaret, static_cast<const Color *>(property)->getColor());
}

void CSSTextFieldView::updateView() {
    // 1.
    CSSView::updateView();
    if (!getComponent() || !mCaret)
        return;
    // 2.
    findText();
    // 3.
    const bool hasFocus =
        mTextMesh && UIManager::isSingletonCreated() && UIManager::getSingleton().getFocus() == getComponent();
    mCaret->setHidden(!hasFocus);
    auto *blink = static_cast<BlinkHandler *>(mCaret->getHandler(BlinkHandler::TYPE));
    blink->setEnabled(false); // a caret that was moved is seen first, however far the blinking had come
    blink->setEnabled(hasFocus);
    mCaretPending = hasFocus;
}

/// What is found stays, until it leaves the field or loses its view. It need not be the field's own label: one that
/// stands ahead of that takes the caret.
void CSSTextFieldView::findText() {
    if (mTextMesh && mLabel->hasView() && mLabel->isDescendantOf(getComponent()))
        return;
    mLabel = findLabel(*static_cast<const TextField *>(getComponent()));
    const ComponentView *view = mLabel ? mLabel->getView() : nullptr;
    mTextMesh =
        view && view->instanceOf(CSSLabelView::TYPE) ? static_cast<const CSSLabelView *>(view)->getTextMesh() : nullptr;
}

bool CSSTextFieldView::updateInternal(float time, bool parentChanged) {
    const bool changed = CSSView::updateInternal(time, parentChanged);
    if (mCaretPending && getComponent() && mLabel->hasView()) {
        placeCaret();
        mCaret->updateInternal(time, false); // 5.
    }
    mCaretPending = false;
    return changed;
}

void CSSTextFieldView::placeCaret() {
    // 1.
    const int index = static_cast<const TextField *>(getComponent())->getCaretIndex();
    const bool isInside = index >= 0 && static_cast<unsigned int>(index) < mTextMesh->getCharacterCount();
    const math::Vector2 position =
        isInside ? mTextMesh->getCharacterPosition(static_cast<unsigned int>(index)) : mTextMesh->getEndPosition();
    // 2. As high as a line of the text
    const font::Font *font = mTextMesh->getFont();
    const math::Vector2 size(CARET_WIDTH, font ? font->getHeight() * mTextMesh->getScale() : 0);
    mCaret->setSize(size);
    // 3. The label's padding moves its text; that the text stands on whole pixels is not for the caret
    const math::Vector3 &label = mLabel->getParentRelativePosition();
    const math::Vector2 place = position + detail::getInnerOffset(*mLabel) + size * 0.5f;
    mCaret->setTranslation(math::Vector3(label.x + place.x, label.y + place.y, label.z));
    // 4. It is cut off where the text is
    mCaret->setProperty(mLabel->getView()->getProperty(scene::Property::STENCIL));
}

} // namespace nurel::ui::css
