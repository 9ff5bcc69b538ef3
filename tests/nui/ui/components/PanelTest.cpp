#include "nui/ui/components/Panel.h"

#include "../TestComponents.h"
#include "support/EngineFixture.h"

namespace test {

namespace {

class TestPanel : public components::Panel {
public:
    using Panel::Panel;
    using Panel::visit;
};

class PanelTest : public EngineFixture {};

} // namespace

TEST_F(PanelTest, ANewOneIsAContainer) {
    const components::Panel panel("panel");
    EXPECT_STREQ(panel.getName(), "panel");
    EXPECT_STREQ(components::Panel().getName(), "");
    EXPECT_EQ(panel.getElement(), "panel");
    EXPECT_EQ(&panel.getType(), &components::Panel::TYPE);
    EXPECT_TRUE(panel.instanceOf(Container::TYPE));
    EXPECT_EQ(panel.getEventMask(), 0x28bU);
    EXPECT_TRUE(panel.isContainer());
}

TEST_F(PanelTest, NeverMakesASecondView) {
    const core::SmartPtr<PlainSkin> plain(new PlainSkin);
    TestPanel panel("panel");
    const core::SmartPtr<components::Panel> child(new components::Panel("child"));
    panel.addChild(child.get());
    ComponentView *view = panel.visit(plain.get());
    EXPECT_TRUE(child->hasView());
    EXPECT_EQ(panel.visit(plain.get()), view);
    EXPECT_EQ(plain->made, 2);
    TestPanel bare("bare");
    EXPECT_EQ(bare.visit(nullptr), nullptr);
}

TEST_F(PanelTest, IsClonedWithItsChildren) {
    components::Panel source("source");
    const core::SmartPtr<components::Label> label(new components::Label("label"));
    label->setText("text");
    source.addChild(label.get());
    const core::SmartPtr<components::Panel> copy(static_cast<components::Panel *>(source.clone()));
    EXPECT_EQ(&copy->getType(), &components::Panel::TYPE);
    ASSERT_EQ(copy->getChildCount(), 1U);
    EXPECT_STREQ(static_cast<components::Label *>(copy->getChildAt(0))->getText(), "text");
}

} // namespace test
