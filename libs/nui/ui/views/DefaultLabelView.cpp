#include "nui/ui/views/DefaultLabelView.h"

#include "nengine/font/FontManager.h"
#include "nengine/scene/meshes/SizeableRectangleMesh.h"
#include "nengine/scene/meshes/TextMesh.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nengine/scene/properties/TextureProperty.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/components/Label.h"

#include <cstring>

namespace nurel::ui::views {

constinit const core::Type DefaultLabelView::TYPE("DefaultLabelView", &LabelView::TYPE);

namespace {

constexpr math::Vector3 COLOR(1, 0, 1);
constexpr float PARAGRAPH_SPACING = 1.5f;

font::Font *getDefaultFont() {
    return font::FontManager::isSingletonCreated() ? font::FontManager::getSingleton().getDefaultFont() : nullptr;
}

} // namespace

DefaultLabelView::DefaultLabelView(const char *name, components::Label *label, Skin *skin)
    : LabelView(name, label, skin), mMesh(new scene::meshes::SizeableRectangleMesh(
                                        "", label->getSize(), UIManager::getSingleton().getGeometryAllocator())),
      mText(nullptr), mTexture(nullptr), mMaterial(new scene::properties::MaterialProperty("")) {
    mMaterial->setSecondColor(COLOR);
    mTexture = new scene::properties::TextureProperty("");
    mMesh->setProperty(mTexture);
    mMesh->setProperty(mMaterial);
    appendChild(mMesh);
    mText = new scene::meshes::TextMesh("TextMesh", getDefaultFont());
    mText->setText(label->getTextMesh()->getText());
    mText->setSizeLimit(label->getSize());
    mText->setHorizontalAlignment(0);
    mText->setVerticalAlignment(0);
    mText->setParagraphSpacing(PARAGRAPH_SPACING);
    appendChild(mText);
    updateProperties();
}

void DefaultLabelView::updateView() {
    const components::Label *label = getLabel();
    if (!label)
        return;
    mTexture->getStage(0).setTexture(nullptr);
    if (mMaterial->getSecondColor() != COLOR)
        mMaterial->setSecondColor(COLOR);
    if (std::strcmp(label->getText(), mText->getText()) != 0)
        mText->setText(label->getText());
    if (label->getSize() != mMesh->getSize()) {
        mMesh->setSize(label->getSize());
        // The view is as a rule made before the label has a size, and text that kept to that one would stand in one
        // column.
        mText->setSizeLimit(label->getSize());
    }
    LabelView::updateView();
}

} // namespace nurel::ui::views
