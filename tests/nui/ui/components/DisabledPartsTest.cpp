// Parts that a control makes while it is disabled look disabled with it, whichever comes first: a template tells
// "enabled" ahead of texts and items.
#include "nui/ui/ManagerTest.h"

namespace {

using namespace nurel::ui;
using components::Listbox;
using components::Progress;
using components::TextField;

using DisabledPartsTest = test::ManagerTest;

template <class T>
core::SmartPtr<T> makeDisabled() {
    core::SmartPtr<T> control(new T("control"));
    control->setEnabled(false);
    return control;
}

/// What is seen inside, all of it.
void expectAll(const Container &control, bool disabled) {
    unsigned int seen = 0;
    for (unsigned int i = 0; i < control.getChildCount(); ++i) {
        const Component &part = *control.getChildAt(i);
        if (!part.isVisible())
            continue; // a hidden part keeps the bit when its parent is enabled
        EXPECT_EQ(part.hasState(Component::STATE_DISABLED), disabled) << i;
        ++seen;
    }
    EXPECT_GT(seen, 0U);
}

} // namespace

TEST_F(DisabledPartsTest, RowsOfAListAndItsMark) {
    const core::SmartPtr<Listbox> list = makeDisabled<Listbox>();
    list->addItem("one", nullptr);
    list->addItem("two", nullptr);
    list->setSelectedIndex(1, false);
    expectAll(*list, true);
    list->setEnabled(true);
    expectAll(*list, false);
}

TEST_F(DisabledPartsTest, TheLabelOfAProgressBar) {
    const core::SmartPtr<Progress> progress = makeDisabled<Progress>();
    progress->setShowText(true);
    expectAll(*progress, true);
    progress->setEnabled(true);
    expectAll(*progress, false);
}

TEST_F(DisabledPartsTest, TheTextOfAField) {
    const core::SmartPtr<TextField> field = makeDisabled<TextField>();
    field->setText("text");
    expectAll(*field, true);
    field->setEnabled(true);
    expectAll(*field, false);
}

TEST_F(DisabledPartsTest, ThePlaceholderOfAField) {
    const core::SmartPtr<TextField> field = makeDisabled<TextField>();
    field->setPlaceholderText("placeholder");
    expectAll(*field, true);
    field->setEnabled(true);
    expectAll(*field, false);
}
