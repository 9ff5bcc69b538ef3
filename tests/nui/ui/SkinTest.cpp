#include "nui/ui/Skin.h"

#include "nui/ui/ManagerTest.h"

#include "foundation/core/Exception.h"
#include "nui/ui/components/Radio.h"

using namespace nurel::ui;

namespace {

/// Tells by which overload it was called.
class NotingSkin : public test::BlankSkin {
public:
    View *visit(components::Image *image) override { return note("Image", BlankSkin::visit(image)); }
    View *visit(components::TextField *field) override { return note("TextField", BlankSkin::visit(field)); }
    View *visit(components::Selector *selector) override { return note("Selector", BlankSkin::visit(selector)); }
    View *visit(components::Progress *progress) override { return note("Progress", BlankSkin::visit(progress)); }
    View *visit(components::Slider *slider) override { return note("Slider", BlankSkin::visit(slider)); }
    View *visit(components::Checkbox *checkbox) override { return note("Checkbox", BlankSkin::visit(checkbox)); }
    View *visit(components::Button *button) override { return note("Button", BlankSkin::visit(button)); }
    View *visit(components::Panel *panel) override { return note("Panel", BlankSkin::visit(panel)); }
    View *visit(components::Label *label) override { return note("Label", BlankSkin::visit(label)); }
    View *visit(Widget *widget) override { return note("Widget", BlankSkin::visit(widget)); }
    using BlankSkin::visit;

    std::string mCalls;

private:
    View *note(const char *name, View *view) {
        mCalls += std::string(name) + "(" + view->getComponent()->getName() + ") ";
        return view;
    }
};

class SkinTest : public test::ManagerTest {
public:
    /// Calls the entry for a component of unknown class; the view is disposed of.
    std::string visited(Component *component) {
        const core::SmartPtr<Component> kept(component);
        mNoting.mCalls.clear();
        const core::SmartPtr<ComponentView> view(mNoting.skin(component));
        return mNoting.mCalls;
    }

    static const Lines childNames(ComponentView *view) {
        Lines names;
        for (const auto &child : view->getContent()->getChildren())
            names.push_back(static_cast<ComponentView &>(*child).getComponent()->getName());
        return names;
    }

    NotingSkin &mNoting = *new NotingSkin;
    const core::SmartPtr<NotingSkin> mKept{&mNoting};
};

/// Belongs to none of the skinnable classes.
class Stranger : public Component {
public:
    static const core::Type TYPE;
    const core::Type &getType() const override { return TYPE; }
    Stranger() : Component("stranger", "stranger") {}

protected:
    ComponentView *visit(Skin *) override { return nullptr; }
};

constinit const core::Type Stranger::TYPE("Stranger", &Component::TYPE);

class SpecialPanel : public components::Panel {
public:
    static const core::Type TYPE;
    const core::Type &getType() const override { return TYPE; }
    SpecialPanel() : Panel("special") {}
};

constinit const core::Type SpecialPanel::TYPE("SpecialPanel", &components::Panel::TYPE);

} // namespace

TEST_F(SkinTest, CallsTheOverloadOfTheComponentsClass) {
    EXPECT_EQ(visited(new Widget("w")), "Widget(w) ");
    EXPECT_EQ(visited(new components::Label("l")), "Label(l) ");
    EXPECT_EQ(visited(new components::Panel("p")), "Panel(p) ");
    EXPECT_EQ(visited(new components::Image("i")), "Image(i) ");
    EXPECT_EQ(visited(new components::Button("b")), "Button(b) ");
    EXPECT_EQ(visited(new components::Checkbox("c")), "Panel(check) Checkbox(c) ");
    EXPECT_EQ(visited(new components::Slider("s")), "Panel(thumb) Slider(s) ");
    EXPECT_EQ(visited(new components::Progress("p")), "Panel(bar) Progress(p) ");
    EXPECT_EQ(visited(new components::Selector("s")), "Label(item) Panel(left) Panel(right) Selector(s) ");
    EXPECT_EQ(visited(new components::TextField("t")), "TextField(t) ");
}

TEST_F(SkinTest, SkinsADerivedClassAsTheFirstOfItsBasesInTheTestsOrder) {
    EXPECT_EQ(visited(new SpecialPanel), "Panel(special) ");
    EXPECT_EQ(visited(new components::Radio("r")), "Panel(check) Checkbox(r) ");
}

TEST_F(SkinTest, RefusesNull) {
    try {
        mNoting.skin(nullptr);
        FAIL() << "no exception";
    } catch (const core::IllegalArgumentException &e) {
        EXPECT_STREQ(e.what(), "Cannot skin NULL component");
    }
}

TEST_F(SkinTest, RefusesAComponentOfNoneOfTheClasses) {
    const core::SmartPtr<Stranger> stranger(new Stranger);
    try {
        mNoting.skin(stranger.get());
        FAIL() << "no exception";
    } catch (const core::IllegalArgumentException &e) {
        EXPECT_STREQ(e.what(), "Unsupported skinnable type: Stranger");
    }
}

TEST_F(SkinTest, MakesTheViewsOfAWholeTreeFromItsRootDownInChildOrder) {
    const core::SmartPtr<Widget> widget(new Widget("w"));
    const auto a = addPanel(*widget, "a", 0, 0, 10, 10);
    const auto b = addPanel(*widget, "b", 0, 0, 10, 10);
    const auto inner = addPanel(*a, "inner", 0, 0, 5, 5);
    const core::SmartPtr<ComponentView> view(mNoting.skin(widget.get()));
    EXPECT_EQ(mNoting.mCalls, "Panel(inner) Panel(a) Panel(b) Widget(w) ");
    EXPECT_EQ(childNames(view.get()), (Lines{"a", "b"}));
    EXPECT_EQ(childNames(a->getView()), (Lines{"inner"}));
    EXPECT_EQ(view->getSkin(), &mNoting);
    EXPECT_FALSE(widget->hasView()); // the root's view is the caller's to set
}

TEST_F(SkinTest, GivesScrollBarsInUseTheirViewsAfterTheChildren) {
    const core::SmartPtr<Panel> panel(new Panel("p"));
    panel->setSize({100, 100});
    const auto child = addPanel(*panel, "child", 0, 0, 300, 300);
    panel->update(); // makes both bars
    ASSERT_NE(panel->getScrollInfoH().bar, nullptr);
    ASSERT_NE(panel->getScrollInfoV().bar, nullptr);
    const core::SmartPtr<ComponentView> view(mNoting.skin(panel.get()));
    EXPECT_EQ(childNames(view.get()), (Lines{"child", "scroll-h", "scroll-v"}));
}

TEST_F(SkinTest, LeavesScrollBarsOutOfUseWithoutAView) {
    const core::SmartPtr<Panel> panel(new Panel("p"));
    panel->setSize({100, 100});
    const auto child = addPanel(*panel, "child", 0, 0, 300, 300);
    panel->update();
    place(*child, 0, 0, 50, 50);
    panel->update();
    ASSERT_NE(panel->getScrollInfoH().bar, nullptr);
    const core::SmartPtr<ComponentView> view(mNoting.skin(panel.get()));
    EXPECT_EQ(childNames(view.get()), (Lines{"child"}));
}

TEST_F(SkinTest, SkipsContainersAndViewsThatAreNotThere) {
    const core::SmartPtr<Panel> panel(new Panel("p"));
    addPanel(*panel, "child", 0, 0, 300, 300);
    mNoting.visitContainer(nullptr, nullptr);
    mNoting.visitContainer(panel.get(), nullptr);
    EXPECT_EQ(mNoting.mCalls, "");
}
