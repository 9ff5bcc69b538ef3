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

namespace nurel::ui::css {

using components::TextField;
using scene::handlers::BlinkHandler;
using scene::meshes::SizeableRectangleMesh;

constinit const core::Type CSSTextFieldView::TYPE("CSSTextFieldView", &CSSView::TYPE);

namespace {

constexpr float CARET_WIDTH = 2;
constexpr float CARET_ALPHA = 0.5f;

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
    followLabel();
    // 3.
    const bool hasFocus =
        mTextMesh && UIManager::isSingletonCreated() && UIManager::getSingleton().getFocus() == getComponent();
    mCaret->setHidden(!hasFocus);
    static_cast<BlinkHandler *>(mCaret->getHandler(BlinkHandler::TYPE))->setEnabled(hasFocus);
    mCaretPending = hasFocus;
}

/// The field may get another label. What lies in it besides, the placeholder for one, is not where the caret stands.
void CSSTextFieldView::followLabel() {
    const auto &field = static_cast<const TextField &>(*getComponent());
    mLabel = field.hasLabel() ? field.getLabel() : nullptr;
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
    // 3. The label's padding moves its text
    const math::Vector3 &label = mLabel->getParentRelativePosition();
    const math::Vector3 &inside = mTextMesh->getTranslation();
    mCaret->setTranslation(math::Vector3(label.x + inside.x + position.x + size.x * 0.5f,
                                         label.y + inside.y + position.y + size.y * 0.5f, label.z));
    // 4. It is cut off where the text is
    mCaret->setProperty(mLabel->getView()->getProperty(scene::Property::STENCIL));
}

} // namespace nurel::ui::css
