// The caret of a text field: where it goes, what it takes away, and how it is kept in sight.
#include "nui/ui/components/TextField.h"

#include "nengine/font/Font.h"
#include "nengine/scene/meshes/TextMesh.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/detail/InnerOffset.h"

#include <cmath>
#include <limits>

namespace nurel::ui::components {

namespace {

constexpr float CARET_WIDTH = 2;

} // namespace

unsigned int TextField::getCaretCharacter(unsigned int characters) const {
    return mCaretIndex < 0 ? characters : static_cast<unsigned int>(mCaretIndex);
}

/// Scrolls so far that the caret is seen, with room for one more character at the right edge.
void TextField::ensureCaret() {
    // 1. From the label's left edge, and that of the text as it is now: else right-to-left text would be taken to begin
    // left of it
    Label *label = ensureLabel();
    label->update();
    const float x =
        label->getCharacterPosition(getCaretCharacter(label->getTextLength())).x + label->getSize().x * 0.5f;
    // 2.
    const float width = getContainerSize().x;
    const float start = getScrollMin().x;
    // 3.
    float scroll = start;
    if (x < 0)
        scroll = start - x;
    else if (x > width - mCharWidth)
        scroll = start - (x - width + mCharWidth);
    // 4.
    setScrollOffset(math::Vector2(std::floor(scroll), getScrollOffset().y));
}

void TextField::caretMoved() {
    ensureCaret();
    setDirty(DIRTY_VIEW);
}

void TextField::caretLeft() {
    if (mCaretIndex == 0)
        return;
    mCaretIndex = (mCaretIndex < 0 ? static_cast<int>(getTextLength()) : mCaretIndex) - 1;
    caretMoved();
}

void TextField::caretRight() {
    if (mCaretIndex != -1 && mCaretIndex < std::numeric_limits<int>::max())
        ++mCaretIndex; // past the end, too
    caretMoved();
}

void TextField::caretStart() {
    mCaretIndex = 0;
    caretMoved();
}

void TextField::caretEnd() {
    mCaretIndex = -1;
    caretMoved();
}

/// The character ahead of the caret.
void TextField::deleteCaretChar() {
    if (mCaretIndex == 0)
        return;
    const unsigned int characters = getTextLength();
    unsigned int index = characters - 1; // past every end in an empty field
    if (mCaretIndex > 0)
        index = static_cast<unsigned int>(--mCaretIndex);
    if (index >= characters)
        return;
    eraseCharacter(index);
    textEdited();
}

/// The character behind the caret.
void TextField::removeCaretChar() {
    if (mCaretIndex < 0 || static_cast<unsigned int>(mCaretIndex) >= getTextLength())
        return;
    eraseCharacter(static_cast<unsigned int>(mCaretIndex));
    if (static_cast<unsigned int>(mCaretIndex) == getTextLength())
        mCaretIndex = -1;
    textEdited();
}

void TextField::getCaretBounds(math::Vector2 &minimum, math::Vector2 &maximum) const {
    const Label &label = *ensureLabel();
    const math::Vector3 &center = label.getWorldPosition();
    const math::Vector2 position =
        label.getCharacterPosition(getCaretCharacter(label.getTextLength())) + detail::getInnerOffset(label);
    minimum = math::Vector2(center.x, center.y) + position * label.getWorldScale();
    const font::Font *font = label.getFont();
    const float height = font ? font->getHeight() * label.getTextMesh()->getScale() : 0;
    maximum = minimum + math::Vector2(CARET_WIDTH, height) * label.getWorldScale();
}

} // namespace nurel::ui::components
