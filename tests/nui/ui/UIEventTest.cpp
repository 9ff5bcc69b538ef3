#include "nui/ui/UIEvent.h"

#include <gtest/gtest.h>

#include <ostream>

namespace nurel::ui {

namespace {

struct TypeCase {
    unsigned int value;
    const char *text;
};

std::ostream &operator<<(std::ostream &out, const TypeCase &tested) {
    return out << tested.text;
}

class UIEventType : public testing::TestWithParam<TypeCase> {};

} // namespace

TEST_P(UIEventType, HasItsText) {
    EXPECT_STREQ(UIEvent::unparse(GetParam().value), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(UIEvent, UIEventType,
                         testing::Values(TypeCase{0, "ET_NONE_EVENT"}, TypeCase{0x001, "ET_FOCUS_EVENT"},
                                         TypeCase{0x002, "ET_HOVER_EVENT"}, TypeCase{0x008, "ET_MOUSE_EVENT"},
                                         TypeCase{0x010, "ET_WHEEL_EVENT"}, TypeCase{0x020, "ET_DRAG_EVENT"},
                                         TypeCase{0x040, "ET_KEY_EVENT"}, TypeCase{0x080, "ET_CLICK_EVENT"},
                                         TypeCase{0x100, "ET_TEXT_EVENT"}, TypeCase{0x004, "unknown"},
                                         TypeCase{0x200, "unknown"}, TypeCase{0x003, "unknown"},
                                         TypeCase{0xffffffffU, "unknown"}));

TEST(UIEvent, EveryClassHasItsTypeAndFields) {
    const Ray ray{math::Vector3(1, 2, 3), math::Vector4(0, 0, 1, 0)};
    const CursorPosition cursor{4, 5};
    const math::Vector2 delta(6, 7);

    EXPECT_EQ(FocusEvent(1).getType(), UIEvent::ET_FOCUS_EVENT);
    EXPECT_EQ(FocusEvent(1).getAction(), FocusEvent::FOCUS_LOST);

    const HoverEvent hover(ray, cursor, 2);
    EXPECT_EQ(hover.getType(), UIEvent::ET_HOVER_EVENT);
    EXPECT_EQ(hover.getAction(), HoverEvent::HOVER_MOVE);
    EXPECT_EQ(&hover.getRay(), &ray);
    EXPECT_EQ(&hover.getCursor(), &cursor);

    const MouseEvent mouse(ray, cursor, 1, 0, 1);
    EXPECT_EQ(mouse.getType(), UIEvent::ET_MOUSE_EVENT);
    EXPECT_EQ(mouse.getAction(), MouseEvent::MOUSE_PRESS);
    EXPECT_EQ(mouse.getButton(), 0);
    EXPECT_EQ(mouse.getCount(), 1);

    const ClickEvent click(ray, cursor, CursorPosition{8, 9});
    EXPECT_EQ(click.getType(), UIEvent::ET_CLICK_EVENT);
    EXPECT_EQ(click.getPressPosition(), (CursorPosition{8, 9}));

    const WheelEvent wheel(ray, cursor, -3);
    EXPECT_EQ(wheel.getType(), UIEvent::ET_WHEEL_EVENT);
    EXPECT_EQ(wheel.getDelta(), -3);

    const DragEvent drag(ray, cursor, 3, delta);
    EXPECT_EQ(drag.getType(), UIEvent::ET_DRAG_EVENT);
    EXPECT_EQ(drag.getAction(), DragEvent::DRAG_CANCEL);
    EXPECT_EQ(&drag.getDelta(), &delta);

    const KeyEvent key(0x1c, true);
    EXPECT_EQ(key.getType(), UIEvent::ET_KEY_EVENT);
    EXPECT_EQ(key.getKey(), 0x1c);
    EXPECT_TRUE(key.isPressed());

    const TextEvent text("ä");
    EXPECT_EQ(text.getType(), UIEvent::ET_TEXT_EVENT);
    EXPECT_STREQ(text.getText(), "ä");
}

TEST(UIEvent, ARayPointsIntoTheScreenAtFirst) {
    const Ray ray;
    EXPECT_EQ(ray.origin, math::Vector3(0, 0, 0));
    EXPECT_EQ(ray.direction, math::Vector4(0, 0, 1, 0));
}

} // namespace nurel::ui
