// Whole screens of components.
#include "GoldenFixture.h"

#include "nmain/math/Matrix3.h"
#include "nmain/stream/InputStream.h"
#include "nui/ui/UIComponentParser.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Label.h"

namespace golden {

using nurel::math::Matrix3;
using nurel::math::Vector2;
using nurel::math::Vector3;
using nurel::ui::Widget;
using nurel::ui::components::Label;

namespace {

class ScreenGolden : public GoldenFixture {
protected:
    static void addLabel(Widget &widget, const char *text, const Vector2 &position, float depth, float turn) {
        const core::SmartPtr<Label> label = new Label(text);
        label->setText(text);
        label->setSize(Vector2(120, 60));
        label->setPosition(position, Vector2::ZERO);
        label->setDepth(depth);
        label->setRotation(Matrix3(turn, Vector3::AXIS_Y));
        widget.addChild(label.get(), false);
    }
};

} // namespace

TEST_F(ScreenGolden, ComponentsAtADepthAreDrawnInPerspective) {
    const core::SmartPtr<Widget> widget = new Widget("stage");
    addLabel(*widget, "near", Vector2(-70, 0), -300, 0);
    addLabel(*widget, "in the plane", Vector2(100, -100), 0, 0);
    addLabel(*widget, "far", Vector2(200, 0), 600, 0);
    addLabel(*widget, "turned", Vector2(80, 90), 0, 0.9F);
    show(widget.get());
    expectPicture("screen-depth");
}

TEST_F(ScreenGolden, TheHelloScreen) {
    nurel::stream::FileInputStream stream(SCREENS "/hello.ui");
    show(nurel::ui::UIComponentParser().parse(&stream));
    nurel::ui::UIManager::getSingleton().setScale(Vector2(2, 2));
    expectPicture("screen-hello");
}

} // namespace golden
