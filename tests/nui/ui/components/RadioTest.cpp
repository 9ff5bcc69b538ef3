#include "nui/ui/components/Radio.h"

#include "nui/ui/ManagerTest.h"

#include "nmain/core/CloningOptions.h"
#include "nui/ui/components/Label.h"

using namespace nurel::ui;
using components::Checkbox;
using components::Radio;

namespace {

class RadioTest : public test::ManagerTest {
public:
    RadioTest() {
        mWidget = addWidget("w");
        mPanel = addPanel(*mWidget, "panel", 0, 0, 400, 400);
    }

    /// Radios below each other, 50 apart, the first around (100, 20).
    void makeGroup(unsigned int count) {
        for (unsigned int i = 0; i < count; ++i) {
            const core::SmartPtr<Radio> radio(new Radio(std::string(1, static_cast<char>('a' + i)).c_str()));
            place(*radio, 0, static_cast<float>(i) * 50, 200, 40);
            mPanel->addChild(radio.get());
            mRadios.push_back(radio);
        }
        frame();
    }

    /// One letter for each radio: whether it and its mark are checked; "?" where the two disagree.
    std::string group() const {
        std::string text;
        for (const core::SmartPtr<Radio> &radio : mRadios) {
            const bool marked = radio->getCheck()->hasState(Component::STATE_CHECKED);
            text += marked != radio->isChecked() ? '?' : marked ? '1' : '0';
        }
        return text;
    }

    core::SmartPtr<Widget> mWidget;
    core::SmartPtr<Panel> mPanel;
    std::vector<core::SmartPtr<Radio>> mRadios;
};

} // namespace

TEST_F(RadioTest, IsACheckboxOfItsOwnElement) {
    const core::SmartPtr<Radio> radio(new Radio);
    EXPECT_STREQ(Radio::ELEMENT, "radio");
    EXPECT_EQ(radio->getElement(), "radio");
    EXPECT_STREQ(radio->getName(), "");
    EXPECT_STREQ(radio->getType().getName(), "Radio");
    EXPECT_TRUE(radio->instanceOf(Checkbox::TYPE));
    EXPECT_EQ(radio->getEventMask(), Component::EVENT_MASK_DEFAULT | 0x80);
    EXPECT_EQ(radio->getScrollMask(), 0u);
    EXPECT_FALSE(radio->isChecked());
    EXPECT_EQ(radio->getCheck()->getElement(), "radio");
    EXPECT_STREQ(radio->getCheck()->getName(), "check");
    radio->setText("Text");
    EXPECT_EQ(radio->getLabel()->getElement(), "radio");
    EXPECT_STREQ(radio->getLabel()->getName(), "label");
}

TEST_F(RadioTest, AClickChecksItAndUnchecksTheOthers) {
    makeGroup(3);
    click(100, 20);
    EXPECT_EQ(group(), "100");
    click(100, 120);
    EXPECT_EQ(group(), "001");
}

TEST_F(RadioTest, AClickOnACheckedRadioChangesNothing) {
    makeGroup(3);
    mRadios[0]->setChecked(true);
    mRadios[1]->setUnchecked(false);
    int clicks = 0;
    mRadios[0]->ClickCallbacks::subscribeCallback([&](UIEventHandler *, const ClickEvent &) {
        ++clicks;
        return false;
    });
    click(100, 20);
    EXPECT_EQ(group(), "110");
    EXPECT_EQ(clicks, 1);
}

TEST_F(RadioTest, TheFirstOfTwoUnchecksAndChecksTheSecond) {
    makeGroup(2);
    mRadios[1]->setChecked(true);
    mRadios[0]->setChecked(true);
    EXPECT_EQ(group(), "10");
    mRadios[0]->setChecked(false);
    EXPECT_EQ(group(), "01");
}

TEST_F(RadioTest, UncheckingTheCheckedOneOfThreeChecksTheTwoOthers) {
    makeGroup(3);
    mRadios[1]->setChecked(true);
    mRadios[1]->setChecked(false);
    EXPECT_EQ(group(), "101");
    mRadios[1]->setChecked(false); // it is already
    EXPECT_EQ(group(), "101");
}

TEST_F(RadioTest, SetUncheckedLeavesTheOthersAlone) {
    makeGroup(3);
    mRadios[1]->setChecked(true);
    mRadios[1]->setUnchecked(true);
    EXPECT_EQ(group(), "000");
    mRadios[1]->setUnchecked(true);
    EXPECT_EQ(group(), "000");
    mRadios[0]->setUnchecked(false);
    mRadios[2]->setUnchecked(false);
    EXPECT_EQ(group(), "101");
}

TEST_F(RadioTest, ARadioWithoutOthersOrAParentChangesItselfOnly) {
    makeGroup(1);
    const core::SmartPtr<Checkbox> checkbox(new Checkbox("checkbox"));
    mPanel->addChild(checkbox.get());
    checkbox->setChecked(true);
    const core::SmartPtr<Panel> panel = addPanel(*mPanel, "inner", 0, 0, 10, 10);
    const core::SmartPtr<Radio> deeper(new Radio("deeper"));
    panel->addChild(deeper.get());
    deeper->setChecked(true);
    mRadios[0]->setChecked(true);
    EXPECT_TRUE(mRadios[0]->isChecked());
    EXPECT_TRUE(checkbox->isChecked());
    EXPECT_TRUE(deeper->isChecked());
    mRadios[0]->setChecked(false);
    EXPECT_FALSE(mRadios[0]->isChecked());
    const core::SmartPtr<Radio> loose(new Radio("loose"));
    loose->setChecked(true);
    EXPECT_TRUE(loose->isChecked());
    EXPECT_EQ(loose->getCheck()->getState(), Component::STATE_CHECKED);
    loose->setChecked(false);
    EXPECT_FALSE(loose->isChecked());
}

namespace {

/// Counts the calls.
class CountingRadio : public Radio {
public:
    using Radio::Radio;
    void setChecked(bool checked) override {
        ++calls;
        Radio::setChecked(checked);
    }
    int calls = 0;
};

} // namespace

TEST_F(RadioTest, TheOthersAreWrittenWithoutTheirSetter) {
    const core::SmartPtr<CountingRadio> first(new CountingRadio("first"));
    const core::SmartPtr<CountingRadio> second(new CountingRadio("second"));
    mPanel->addChild(first.get());
    mPanel->addChild(second.get());
    first->setChecked(true);
    EXPECT_EQ(second->calls, 0);
    first->setChecked(false);
    EXPECT_TRUE(second->isChecked());
    EXPECT_EQ(second->calls, 0);
    const Ray ray;
    const CursorPosition cursor;
    EXPECT_EQ(first->handleEvent(ClickEvent(ray, cursor, cursor)), first.get());
    EXPECT_EQ(first->calls, 3);
    EXPECT_FALSE(second->isChecked());
}

TEST_F(RadioTest, MayTakeItsGroupAwayInItsClick) {
    makeGroup(3);
    mRadios[1]->ClickCallbacks::subscribeCallback([this](UIEventHandler *, const ClickEvent &) {
        mWidget->clearChildren();
        return false;
    });
    mRadios.clear();
    mPanel = nullptr;
    click(100, 70);
    EXPECT_EQ(mWidget->getChildCount(), 0u);
}

TEST_F(RadioTest, ACloneIsARadioThatIsCheckedAsItsSource) {
    makeGroup(2);
    mRadios[0]->setText("Text");
    mRadios[0]->setChecked(true);
    const core::SmartPtr<Radio> copy(static_cast<Radio *>(mRadios[0]->clone()));
    EXPECT_EQ(&copy->getType(), &Radio::TYPE);
    EXPECT_TRUE(copy->isChecked());
    EXPECT_EQ(copy->getCheck()->getState(), Component::STATE_CHECKED);
    EXPECT_STREQ(copy->getText(), "Text");
    EXPECT_EQ(copy->getElement(), "radio");
    EXPECT_EQ(group(), "10");
    const core::SmartPtr<Panel> panel(static_cast<Panel *>(mPanel->clone()));
    ASSERT_EQ(panel->getChildCount(), 2u);
    EXPECT_TRUE(static_cast<Radio *>(panel->getChildAt(0))->isChecked());
    EXPECT_FALSE(static_cast<Radio *>(panel->getChildAt(1))->isChecked());
    static_cast<Radio *>(panel->getChildAt(1))->setChecked(true);
    EXPECT_FALSE(static_cast<Radio *>(panel->getChildAt(0))->isChecked());
    EXPECT_EQ(group(), "10");
}
