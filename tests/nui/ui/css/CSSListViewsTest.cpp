// The views of lists, combos, selectors, sliders and progress bars under a sheet, and what a long list costs.
#include "nui/ui/css/StyleTest.h"

#include "nengine/font/FontManager.h"
#include "nengine/font/ShapingStatistics.h"
#include "nengine/renderer/FrameStatistics.h"
#include "nengine/renderer/RenderPass.h"
#include "nui/ui/components/Combo.h"

using namespace nurel::ui;
using components::Combo;
using components::Label;
using components::Listbox;
using components::Panel;

namespace {

constexpr const char *SHEET = R"(
    listbox#list, listbox#combo { width: 200px; height: 100px; background-color: #202020; }
    listbox#item { width: 100%; color: #ffffff; }
    listbox#item:checked { color: #ff0000; }
    listbox#item:focus { color: #00ff00; }
    listbox#check { width: 100%; height: 20px; background-color: #0000ff40; }
    listbox#list.wide { width: 300px; }
)";

class CSSListViewsTest : public test::StyleTest {
public:
    CSSListViewsTest() : StyleTest(SHEET) { mWidget = addStyledWidget(); }

    core::SmartPtr<Listbox> addList(int rows) {
        core::SmartPtr<Listbox> list(new Listbox("list"));
        for (int i = 0; i < rows; ++i)
            list->addItem(("Row " + std::to_string(i % 100)).c_str(), nullptr);
        list->setAnchor(Component::ANCHOR_TOP_LEFT);
        mWidget->addChild(list.get());
        settle();
        return list;
    }

    void settle() {
        for (int i = 0; i < 4; ++i) {
            frame();
            render();
        }
    }

    static const nurel::renderer::FrameStatistics &statistics() { return manager().getRenderPass()->getStatistics(); }

    static std::uint64_t shaped() { return nurel::font::FontManager::getSingleton().getStatistics().shapedParagraphs; }

    static Vector3 colorOf(const Listbox &list, int index) { return list.getItemEntry(index)->item->getColor(); }
};

} // namespace

TEST_F(CSSListViewsTest, EveryControlHasAViewOfItsKindWithThoseOfItsParts) {
    struct Row {
        core::SmartPtr<Component> component;
        const char *view;
        unsigned int parts;
    };
    const core::SmartPtr<Listbox> list(new Listbox("l"));
    list->addItem("a", nullptr);
    const core::SmartPtr<Combo> combo(new Combo("c"));
    combo->getList()->addItem("a", nullptr);
    const Row rows[] = {
        {list, "CSSListboxView", 2},
        {core::SmartPtr<Component>(combo->getList()), "CSSListboxView", 2},
        {combo, "CSSButtonView", 2},
        {new components::Selector("s"), "CSSSelectorView", 3},
        {new components::Slider("s"), "CSSSliderView", 1},
        {new components::Progress("p"), "CSSProgressView", 1},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.view);
        const core::SmartPtr<ComponentView> view(mStyle->skin(row.component.get()));
        ASSERT_NE(view.get(), nullptr);
        EXPECT_STREQ(view->getName(), row.view);
        EXPECT_STREQ(view->getType().getName(), row.view);
        EXPECT_EQ(view->getComponent(), row.component.get());
        EXPECT_EQ(view->getSkin(), mStyle.get());
        EXPECT_TRUE(view->instanceOf(css::CSSView::TYPE));
        EXPECT_EQ(view->getContent()->getChildCount(), row.parts);
    }
}

TEST_F(CSSListViewsTest, ASheetSizesRowsAndMarkAndShowsTheirStates) {
    const auto list = addList(3);
    EXPECT_EQ(list->getSize(), Vector2(200, 100));
    EXPECT_EQ(list->getItemEntry(1)->item->getSize(), Vector2(200, 20));
    list->setSelectedIndex(1, false);
    settle();
    EXPECT_EQ(list->getCheck()->getMinBound(), list->getItemEntry(1)->item->getMinBound());
    EXPECT_EQ(list->getCheck()->getMaxBound(), list->getItemEntry(1)->item->getMaxBound());
    list->handleEvent(KeyEvent(nurel::input::Keyboard::K_DOWN, false));
    settle();
    EXPECT_EQ(colorOf(*list, 0), Vector3(1, 1, 1));
    EXPECT_EQ(colorOf(*list, 1), Vector3(1, 0, 0));
    EXPECT_EQ(colorOf(*list, 2), Vector3(0, 1, 0));
    list->addClass("wide");
    settle();
    EXPECT_EQ(list->getSize(), Vector2(300, 100));
}

TEST_F(CSSListViewsTest, RowsOutsideTheListCostNoVertices) {
    const auto vertices = [this](int rows) {
        const auto list = addList(rows);
        list->scrollVerticalAbsolute(95);
        settle();
        const std::size_t count = statistics().vertices;
        mWidget->removeChild(list.get());
        settle();
        return count;
    };
    const std::size_t few = vertices(30);
    EXPECT_GT(few, 0u);
    EXPECT_EQ(vertices(2000), few);
}

TEST_F(CSSListViewsTest, ScrollingShapesNoTextAnew) {
    const auto list = addList(300); // a hundred texts
    for (int step = 0; step <= 60; ++step) {
        list->scrollVerticalAbsolute(static_cast<float>(step * 90));
        frame();
        render();
    }
    const std::uint64_t before = shaped();
    for (int step = 60; step >= 0; --step) {
        list->scrollVerticalAbsolute(static_cast<float>(step * 90 + 7));
        frame();
        render();
        EXPECT_LT(list->getItemEntry(step * 90 / 19)->item->getMinBound().y, 20) << step;
    }
    EXPECT_EQ(shaped(), before);
}

TEST_F(CSSListViewsTest, AComboOpensItsListUnderTheSheet) {
    const core::SmartPtr<Combo> combo(new Combo("combo"));
    place(*combo, 10, 10, 100, 30);
    mWidget->addChild(combo.get());
    combo->getList()->addItem("one", nullptr);
    combo->getList()->addItem("two", nullptr);
    settle();
    click(50, 20);
    settle();
    ASSERT_EQ(manager().getWidgetCount(), 2u);
    EXPECT_EQ(combo->getList()->getSize(), Vector2(200, 100)); // the sheet's, in the middle of the stage
    EXPECT_EQ(combo->getList()->getMinBound(), Vector2(300, 250));
    click(350, 250 + 19 + 10);
    settle();
    EXPECT_EQ(manager().getWidgetCount(), 1u);
    EXPECT_STREQ(combo->getText(), "two");
}
