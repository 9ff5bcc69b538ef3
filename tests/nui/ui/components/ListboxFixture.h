#pragma once

#include "nui/ui/ManagerTest.h"

#include <string>

namespace test {

/// A listbox on the stage, at (100, 100) and 200 x 100 large, and what a user does to it. A row is 100 wide and begins
/// 19 below the one before it.
class ListboxFixture : public ManagerTest {
public:
    using Listbox = nurel::ui::components::Listbox;
    using Label = nurel::ui::components::Label;
    using Keyboard = nurel::input::Keyboard;
    using Vector2 = nurel::math::Vector2;

    static constexpr unsigned int HOVER = Component::STATE_HOVER;
    static constexpr unsigned int CHECKED = Component::STATE_CHECKED;
    static constexpr unsigned int FOCUSED = Component::STATE_FOCUSED;

    /// Lets tests at the protected operations.
    class OpenListbox : public Listbox {
    public:
        using Listbox::getHitChildIndex;
        using Listbox::Listbox;
        using Listbox::processEvent;
        using Listbox::setChildState;
        using Listbox::setClean;
        using Listbox::updateContent;

        static void clean(Component &component) { (component.*&OpenListbox::setClean)(DIRTY_ALL); }
    };

    class CountedData : public Listbox::ItemData {
    public:
        CountedData() { ++sAlive; }
        ~CountedData() override { --sAlive; }

        static inline int sAlive = 0;
    };

    ListboxFixture() {
        mWidget = addWidget("w");
        mList = new OpenListbox("list");
        place(*mList, 100, 100, 200, 100);
        mWidget->addChild(mList.get());
        frame();
        mList->SelectionCallbacks::subscribeCallback([this](Listbox *list, int index) {
            mSeen.push_back(std::string(list->getName()) + " " + std::to_string(index) + " is " +
                            std::to_string(list->getSelectedIndex()));
            return false;
        });
    }

    void add(std::initializer_list<const char *> texts) {
        for (const char *text : texts)
            mList->addItem(text, nullptr);
        frame();
    }

    static std::string textsOf(const Listbox &list) {
        std::string texts;
        for (int i = 0; i < static_cast<int>(list.getItemCount()); ++i)
            texts += std::string(i == 0 ? "" : " ") + list.getItemText(i);
        return texts;
    }

    /// The texts of the rows that have any of the states.
    static std::string rowsWith(const Listbox &list, unsigned int states) {
        std::string texts;
        for (int i = 0; i < static_cast<int>(list.getItemCount()); ++i) {
            if (list.getItemEntry(i)->item->hasState(states))
                texts += (texts.empty() ? "" : " ") + std::string(list.getItemText(i));
        }
        return texts;
    }
    std::string checked() const { return rowsWith(*mList, CHECKED); }
    std::string focused() const { return rowsWith(*mList, FOCUSED); }

    Label *row(int index) const { return mList->getItemEntry(index)->item.get(); }

    static int yOf(int index) { return 100 + 19 * index + 10; }
    static void clickRow(int index) { click(150, yOf(index)); }

    /// A key goes down and up again, with the focus on the list.
    void tap(int code, int times = 1) {
        for (int i = 0; i < times; ++i) {
            mList->handleEvent(nurel::ui::KeyEvent(code, true));
            mList->handleEvent(nurel::ui::KeyEvent(code, false));
        }
    }

    void gainFocus() { mList->handleEvent(nurel::ui::FocusEvent(nurel::ui::FocusEvent::FOCUS_GAINED)); }
    void loseFocus() { mList->handleEvent(nurel::ui::FocusEvent(nurel::ui::FocusEvent::FOCUS_LOST)); }

    Lines seen() { return std::exchange(mSeen, {}); }

    static core::SmartPtr<Listbox> cloneOf(const Listbox &list) { return static_cast<Listbox *>(list.clone()); }

    core::SmartPtr<Widget> mWidget;
    core::SmartPtr<OpenListbox> mList;
    Lines mSeen;
};

} // namespace test
