#pragma once

#include "nui/ui/ManagerTest.h"
#include "nui/ui/components/Combo.h"

#include <string>

namespace test {

/// A combo with three choices on the stage, and what a user does to it.
class ComboFixture : public ManagerTest {
public:
    using Combo = nurel::ui::components::Combo;

    ComboFixture() {
        mWidget = addWidget("w");
        mCombo = new Combo("combo1");
        place(*mCombo, 100, 100, 200, 40);
        mWidget->addChild(mCombo.get());
        for (const char *text : {"one", "two", "three"})
            mCombo->getList()->addItem(text, nullptr);
        frame();
    }

    /// What closes a list outlives the combo, so the test must not end with messages of its own.
    ~ComboFixture() override { takeClicks(); }

    static Widget *openWidget() {
        Widget *top = manager().getWidgetAt(manager().getWidgetCount() - 1);
        return std::string(top->getName()) == "combo" ? top : nullptr;
    }

    /// The list opens with the frame after that of the click.
    void open() {
        click(200, 120);
        frame();
    }

    /// The list is half as wide and high as the stage: it begins at (200, 150), and so do its rows.
    static void choose(int index) {
        click(250, yOf(index));
        frame();
    }
    static int yOf(int index) { return 150 + 19 * index + 10; }

    static void clickOutside() {
        click(20, 580);
        frame();
    }

    /// How often a combo has said that it was clicked.
    std::size_t takeClicks() {
        std::size_t count = 0;
        for (const std::string &line : mLog.take(logging::Level::DEBUG))
            count += line == "Combo click!" ? 1 : 0;
        return count;
    }

    static void clickOn(Component &component) {
        const nurel::ui::Ray ray;
        const nurel::ui::CursorPosition cursor;
        component.handleEvent(nurel::ui::ClickEvent(ray, cursor, cursor));
    }

    static core::SmartPtr<Combo> cloneOf(const Combo &combo) { return static_cast<Combo *>(combo.clone()); }

    core::SmartPtr<Widget> mWidget;
    core::SmartPtr<Combo> mCombo; ///< around (200, 120)
};

} // namespace test
