#pragma once

#include "nui/ui/ManagerTest.h"

#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace test {

/// A selector on the stage, around (200, 120) and 200 wide, with buttons of 40. Its changes are told by seen().
class ComponentsSelectorTest : public ManagerTest {
public:
    using Selector = nurel::ui::components::Selector;

    static constexpr int LARGEST = std::numeric_limits<int>::max();
    static constexpr int SMALLEST = std::numeric_limits<int>::min();
    static constexpr unsigned int STYLE = Component::DIRTY_STYLE | Component::DIRTY_VIEW;

    /// Lets tests at the protected operations.
    class OpenSelector : public Selector {
    public:
        using Selector::onLeftClick;
        using Selector::onRightClick;
        using Selector::Selector;
        using Selector::setClean;

        static void clean(Component &component) { (component.*&OpenSelector::setClean)(DIRTY_ALL); }
    };

    class CountedData : public Selector::ItemData {
    public:
        CountedData() { ++sAlive; }
        ~CountedData() override { --sAlive; }

        inline static int sAlive = 0;
    };

    ComponentsSelectorTest() {
        mWidget = addWidget("w");
        mPanel = addPanel(*mWidget, "panel", 0, 0, 400, 400);
        mSelector = new OpenSelector("selector");
        for (Component *part : parts(*mSelector))
            part->setSize({40, 40});
        place(*mSelector, 100, 100, 200, 40);
        mPanel->addChild(mSelector.get());
        frame();
        mSelector->SelectionCallbacks::subscribeCallback([this](Selector *selector, int old) {
            mSeen.push_back(std::string(selector->getName()) + " " + std::to_string(old) + ">" +
                            std::to_string(selector->getSelectedIndex()));
            return false;
        });
    }

    static std::vector<Component *> parts(const Selector &selector) {
        return {selector.getItem(), selector.getLeft(), selector.getRight()};
    }

    void addThree() {
        for (const char *text : {"one", "two", "three"})
            mSelector->addItem(text, nullptr);
    }

    Lines seen() { return std::exchange(mSeen, {}); }

    static std::string shownBy(const Selector &selector) { return selector.getItem()->getText(); }
    std::string shown() const { return shownBy(*mSelector); }

    static void clickLeft() { click(110, 120); }
    static void clickRight() { click(290, 120); }

    static core::SmartPtr<Selector> cloneOf(const Selector &selector) {
        return static_cast<Selector *>(selector.clone());
    }

    core::SmartPtr<Widget> mWidget;
    core::SmartPtr<Panel> mPanel;
    core::SmartPtr<OpenSelector> mSelector;
    Lines mSeen;
};

} // namespace test
