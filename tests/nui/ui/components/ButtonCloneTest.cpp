// Copies of buttons, and their views.
#include "nui/ui/components/ButtonFixture.h"

#include "nmain/core/CloningOptions.h"
#include "support/MessageOf.h"

using namespace nurel::ui;
using components::Button;
using components::Image;
using components::Label;
using test::ButtonTest;
using test::messageOf;

// --- clones ---

TEST_F(ButtonTest, ACloneHasPartsOfItsOwn) {
    mButton->addChild(new Panel("child"));
    mButton->setText("Text");
    mButton->setIconVisible(false);
    mButton->addClass("big");
    mButton->setFlags(0x81);
    mButton->setChecked(true);
    const core::SmartPtr<Button> copy(static_cast<Button *>(mButton->clone()));
    EXPECT_EQ(&copy->getType(), &Button::TYPE);
    EXPECT_STREQ(copy->getName(), "button");
    EXPECT_EQ(copy->getFlags(), 0x81u);
    EXPECT_TRUE(copy->isChecked());
    EXPECT_EQ(copy->getChildCount(), 3u);
    EXPECT_EQ(copy->getEventMask(), mButton->getEventMask());
    ASSERT_NE(copy->getLabel(), nullptr);
    EXPECT_NE(copy->getLabel(), mButton->getLabel());
    EXPECT_EQ(copy->getChildIndex(copy->getLabel()), mButton->getChildIndex(mButton->getLabel()));
    EXPECT_EQ(copy->getChildIndex(copy->getIcon()), mButton->getChildIndex(mButton->getIcon()));
    EXPECT_EQ(&copy->getLabel()->getType(), &Label::TYPE);
    EXPECT_STREQ(copy->getText(), "Text");
    EXPECT_EQ(copy->getLabel()->getState(), CHECKED);
    EXPECT_EQ(copy->getLabel()->getEventMask(), 0u);
    EXPECT_EQ(copy->getLabel()->getElement(), "button");
    EXPECT_TRUE(copy->getLabel()->hasClass("big"));
    ASSERT_NE(copy->getIcon(), nullptr);
    EXPECT_STREQ(copy->getIcon()->getName(), "icon");
    EXPECT_FALSE(copy->isIconVisible());
    copy->setText("other");
    copy->setPressed(true);
    copy->removeClasses();
    EXPECT_STREQ(mButton->getText(), "Text");
    EXPECT_EQ(stateOfLabel(), CHECKED);
    EXPECT_TRUE(mButton->getLabel()->hasClass("big"));
    EXPECT_EQ(copy->getLabel()->getState(), ACTIVE | CHECKED);
    EXPECT_FALSE(copy->getLabel()->hasClass("big"));
}

TEST_F(ButtonTest, ACloneWithoutPartsMakesThemWhenAsked) {
    const core::SmartPtr<Button> copy(static_cast<Button *>(mButton->clone()));
    EXPECT_EQ(copy->getLabel(), nullptr);
    EXPECT_EQ(copy->getIcon(), nullptr);
    copy->setText("own");
    EXPECT_STREQ(copy->getText(), "own");
    EXPECT_EQ(mButton->getLabel(), nullptr);
}

TEST_F(ButtonTest, ACloneHasNoPartThatWasTakenOut) {
    mButton->addChild(new Label("first"));
    mButton->setText("Text");
    mButton->setIconVisible(true);
    const core::SmartPtr<Label> label(mButton->getLabel());
    mButton->removeChild(label.get());
    mButton->removeChild(mButton->getIcon());
    const core::SmartPtr<Button> copy(static_cast<Button *>(mButton->clone()));
    EXPECT_EQ(copy->getChildCount(), 1u);
    EXPECT_EQ(copy->getLabel(), nullptr);
    EXPECT_EQ(copy->getIcon(), nullptr);
}

TEST_F(ButtonTest, ACloneDoesNotTakePartsThatAreNoChildrenOfItsOwn) {
    mButton->setText("Text");
    mButton->setIconVisible(true);
    const core::SmartPtr<Label> label(mButton->getLabel());
    const core::SmartPtr<Image> icon(mButton->getIcon());
    const core::SmartPtr<Panel> inside(new Panel("inside"));
    mButton->clearChildren();
    inside->addChild(label.get());
    inside->addChild(icon.get());
    mButton->addChild(inside.get());
    ASSERT_EQ(mButton->getLabel(), label.get());
    const core::SmartPtr<Button> copy(static_cast<Button *>(mButton->clone()));
    ASSERT_EQ(copy->getChildCount(), 1u);
    EXPECT_EQ(static_cast<Panel *>(copy->getChildAt(0))->getChildCount(), 2u);
    EXPECT_EQ(copy->getLabel(), nullptr);
    EXPECT_EQ(copy->getIcon(), nullptr);
}

TEST_F(ButtonTest, ACloneFindsItsPartsWhileTheChildrenWaitToBeSorted) {
    mButton->setText("Text");
    mButton->setIconVisible(true);
    mButton->getIcon()->setZIndex(-5);
    const core::SmartPtr<Button> copy(static_cast<Button *>(mButton->clone()));
    ASSERT_NE(copy->getLabel(), nullptr);
    EXPECT_STREQ(copy->getLabel()->getText(), "Text");
    ASSERT_NE(copy->getIcon(), nullptr);
    EXPECT_EQ(copy->getIcon()->getZIndex(), -5);
}

TEST_F(ButtonTest, AClonesTargetLosesWhatItHad) {
    mButton->setText("Text");
    const core::SmartPtr<Button> target(new Button("target"));
    target->setText("old");
    target->setIconVisible(true);
    target->addChild(new Panel("child"));
    const core::SmartPtr<Label> old(target->getLabel());
    nurel::core::CloningOptions options;
    mButton->_clone(target.get(), options);
    EXPECT_EQ(target->getChildCount(), 1u);
    EXPECT_STREQ(target->getText(), "Text");
    EXPECT_EQ(target->getIcon(), nullptr);
    EXPECT_FALSE(old->hasParent());
    mButton->_clone(mButton.get(), options);
    EXPECT_STREQ(mButton->getText(), "Text");
}

TEST_F(ButtonTest, IsNotClonedIntoSomethingElse) {
    nurel::core::CloningOptions options;
    EXPECT_EQ(messageOf([&] { mButton->_clone(mPanel.get(), options); }), "Button cannot be cloned into Panel");
    EXPECT_EQ(messageOf([&] { mButton->_clone(nullptr, options); }), "Button cannot be cloned into nothing");
}

TEST_F(ButtonTest, ACopyHasNoPartsOfItsOwn) {
    mButton->setText("Text");
    mButton->setFlags(1);
    Button copy(*mButton);
    EXPECT_EQ(copy.getLabel(), nullptr);
    EXPECT_EQ(copy.getFlags(), 1u);
    copy.setPressed(true);
    EXPECT_EQ(stateOfLabel(), 0u);
    copy = *mButton;
    EXPECT_EQ(copy.getLabel(), nullptr);
    EXPECT_STREQ(mButton->getText(), "Text");
}

// --- views ---

TEST_F(ButtonTest, IsSkinnedAsAButtonWithItsParts) {
    mButton->setText("Text");
    ASSERT_NE(mButton->getView(), nullptr);
    ASSERT_NE(mButton->getLabel()->getView(), nullptr);
    EXPECT_EQ(mButton->getLabel()->getView()->getParent(), mButton->getView()->getContent());
    ComponentView *view = mButton->getView();
    EXPECT_EQ(mButton->visit(mSkin.get()), view); // never a second one
    const core::SmartPtr<OpenButton> loose(new OpenButton("loose"));
    EXPECT_EQ(loose->visit(nullptr), nullptr);
    const core::SmartPtr<ComponentView> made(mSkin->skin(loose.get()));
    EXPECT_EQ(made->getComponent(), loose.get());
}
