#include "nui/ui/handlers/NavigationHandler.h"

#include "nui/ui/handlers/NavigationFixture.h"

using namespace nurel::ui;
using namespace nurel::ui::handlers;
using nurel::math::Vector2;

namespace {

class NavigationHandlerTest : public test::NavigationTest {};

} // namespace

TEST_F(NavigationHandlerTest, NumbersItsActionsAndAnswers) {
    EXPECT_EQ(NAVIGATION_PUSH_BEGIN, 0);
    EXPECT_EQ(NAVIGATION_POP_BEGIN, 1);
    EXPECT_EQ(NAVIGATION_PUSH_END, 2);
    EXPECT_EQ(NAVIGATION_POP_END, 3);
    EXPECT_EQ(POP_QUERY_DENY, 0);
    EXPECT_EQ(POP_QUERY_ALLOW, 1);
}

TEST_F(NavigationHandlerTest, PutsABarOverABodyContainer) {
    EXPECT_STREQ(mHandler->getType().getName(), "NavigationHandler");
    EXPECT_TRUE(mHandler->instanceOf(ComponentHandler::TYPE));
    Component *target = mHandler->getTarget();
    ASSERT_TRUE(target->instanceOf(Panel::TYPE));
    EXPECT_EQ(target->getHandler(), mHandler.get());
    EXPECT_STREQ(target->getName(), "");
    EXPECT_EQ(target->getSize(), Vector2(800, 600));
    auto &root = *static_cast<Panel *>(target);
    ASSERT_EQ(root.getChildCount(), 2U);
    EXPECT_EQ(root.getChildAt(0), mHandler->getNavigationBar());
    EXPECT_EQ(root.getChildAt(1), mHandler->getBodyContainer());

    EXPECT_TRUE(bar().hasClass("navigation-bar"));
    EXPECT_TRUE(left().hasClass("navigation-bar"));
    EXPECT_EQ(bar().getBorder(), nurel::math::Vector4(5, 5, 5, 5));
    EXPECT_EQ(bar().getAnchor(), 9U);
    EXPECT_EQ(bar().getSize(), Vector2(800, 50));
    EXPECT_EQ(place(bar()), "0,-275");
    EXPECT_EQ(left().getComponentSize().absolute, Vector2(100, 30));

    Container &bodies = *mHandler->getBodyContainer();
    EXPECT_STREQ(bodies.getName(), "");
    EXPECT_EQ(bodies.getAnchor(), 0xcU);
    EXPECT_EQ(bodies.getSize(), Vector2(800, 550));
    EXPECT_EQ(place(bodies), "0,25");
}

TEST_F(NavigationHandlerTest, StartsWithNothing) {
    EXPECT_EQ(mHandler->getBody(), nullptr);
    EXPECT_EQ(mHandler->getStackSize(), 0U);
    EXPECT_EQ(mHandler->getBodyAt(0), nullptr);
    EXPECT_FALSE(mHandler->containsBody(a.get()));
    EXPECT_FALSE(mHandler->isAnimating());
    EXPECT_FALSE(mHandler->isAnimating(a.get()));
    EXPECT_EQ(mHandler->getBodyAnimation(nullptr), nullptr);
    EXPECT_EQ(title(), "Title bar");
    EXPECT_EQ(back(), "-");
    EXPECT_EQ(told(), Lines());
}

TEST_F(NavigationHandlerTest, TheFirstPushTellsOfItsBodyAlone) {
    mHandler->pushBody(a.get(), "Menu", nullptr, nullptr, nullptr);
    EXPECT_EQ(told(), (Lines{"a push-begin -1", "a push-end 0"}));
    EXPECT_EQ(mHandler->getBody(), a.get());
    EXPECT_EQ(mHandler->getBodyAt(0), a.get());
    EXPECT_EQ(shown(), "a");
    EXPECT_EQ(title(), "Menu");
    EXPECT_EQ(back(), "-");
    EXPECT_TRUE(mHandler->containsBody(a.get()));
}

TEST_F(NavigationHandlerTest, ASecondPushTellsOfTheBodyUnderItToo) {
    push(a);
    told();
    mHandler->pushBody(b.get(), "Options", nullptr, nullptr, nullptr);
    EXPECT_EQ(told(), (Lines{"a push-begin 0", "b push-begin -1", "a push-end 1", "b push-end 0"}));
    EXPECT_EQ(mHandler->getBody(), b.get());
    EXPECT_EQ(stack(), "a b");
    EXPECT_EQ(shown(), "b");
    EXPECT_FALSE(a->hasParent());
    EXPECT_EQ(title(), "Options");
    EXPECT_EQ(back(), "a");
}

TEST_F(NavigationHandlerTest, CountsBodiesFromTheTop) {
    push(a);
    push(b);
    push(c);
    EXPECT_EQ(mHandler->getStackSize(), 3U);
    EXPECT_EQ(mHandler->getBodyAt(0), c.get());
    EXPECT_EQ(mHandler->getBodyAt(2), a.get());
    EXPECT_EQ(mHandler->getBodyAt(3), nullptr);
    EXPECT_EQ(mHandler->getBodyAt(0xffffffffU), nullptr);
}

TEST_F(NavigationHandlerTest, ATitleThatIsNotGivenIsTheNameOfTheBody) {
    push(a);
    EXPECT_EQ(title(), "a");
    mHandler->pushBody(b.get(), "", "", nullptr, nullptr);
    EXPECT_EQ(title(), "");
    EXPECT_EQ(back(), "a");
}

TEST_F(NavigationHandlerTest, TheBackButtonShowsTheBackTextBeforeTheTitleBelow) {
    push(a);
    mHandler->pushBody(b.get(), nullptr, "Return", nullptr, nullptr);
    EXPECT_EQ(back(), "Return");
    push(c);
    EXPECT_EQ(back(), "b");
    mHandler->popBody(nullptr);
    EXPECT_EQ(back(), "Return");
    mHandler->popBody(nullptr);
    EXPECT_EQ(back(), "-");
}

TEST_F(NavigationHandlerTest, APopTellsOfTheBodyThatComesBack) {
    push(a);
    push(b);
    told();
    mHandler->popBody(nullptr);
    EXPECT_EQ(told(), (Lines{"b pop-begin 0", "a pop-begin 1", "b pop-end -1", "a pop-end 0"}));
    EXPECT_EQ(mHandler->getBody(), a.get());
    EXPECT_EQ(shown(), "a");
    EXPECT_EQ(title(), "a");
    EXPECT_EQ(back(), "-");
    EXPECT_EQ(b->getRefCount(), 1U);
}

TEST_F(NavigationHandlerTest, APopDownToAStackOfTwoTellsOfTheBodyUnderTheNewTop) {
    push(a);
    push(b);
    push(c);
    told();
    mHandler->popBody(nullptr);
    EXPECT_EQ(told(), (Lines{"c pop-begin 0", "b pop-begin 1", "c pop-end -1", "a pop-end 1", "b pop-end 0"}));
}

TEST_F(NavigationHandlerTest, TheLastPopLeavesNothing) {
    push(a);
    told();
    mHandler->popBody(nullptr);
    EXPECT_EQ(told(), (Lines{"a pop-begin 0", "a pop-end -1", "null pop-end 0"}));
    EXPECT_EQ(mHandler->getBody(), nullptr);
    EXPECT_EQ(mHandler->getStackSize(), 0U);
    EXPECT_EQ(shown(), "");
    EXPECT_EQ(title(), "a"); // there is none to take its place
    EXPECT_EQ(a->getRefCount(), 1U);
}

TEST_F(NavigationHandlerTest, APopOfNothingDoesNothing) {
    mHandler->popBody(nullptr);
    const core::SmartPtr<AnimationContext> animation(new AnimationContext);
    mHandler->popBody(animation.get());
    EXPECT_EQ(told(), Lines());
    EXPECT_FALSE(mHandler->isAnimating());
    EXPECT_EQ(animation->getStatus(), AnimationContext::CREATED);
    EXPECT_FALSE(animation->isResverse());
}

TEST_F(NavigationHandlerTest, HoldsTheBodiesUnderTheTop) {
    mHandler->pushBody(newBody("menu").get(), nullptr, nullptr, nullptr, nullptr);
    push(b);
    EXPECT_STREQ(mHandler->getBodyAt(1)->getName(), "menu");
    EXPECT_FALSE(mHandler->getBodyAt(1)->hasParent());
    mHandler->popBody(nullptr);
    EXPECT_EQ(shown(), "menu");
}

// --- The bar

TEST_F(NavigationHandlerTest, TheRightElementIsThatOfTheTop) {
    const core::SmartPtr<Panel> right = newBody("right");
    Component *button = bar().getElement(Bar::ELEMENT_RIGHT);
    push(a);
    EXPECT_FALSE(button->isVisible());
    mHandler->pushBody(b.get(), nullptr, nullptr, right.get(), nullptr);
    EXPECT_EQ(bar().getElement(Bar::ELEMENT_RIGHT), right.get());
    EXPECT_EQ(right->getParent(), &bar());
    EXPECT_TRUE(right->isVisible());
    EXPECT_EQ(bar().isElementEnabled(2), 2U);
    mHandler->popBody(nullptr);
    EXPECT_EQ(bar().getElement(Bar::ELEMENT_RIGHT), button);
    EXPECT_FALSE(button->isVisible());
    EXPECT_EQ(bar().isElementEnabled(2), 0U);
    EXPECT_EQ(right->getRefCount(), 1U);
}

TEST_F(NavigationHandlerTest, BodiesMayShareARightElement) {
    const core::SmartPtr<Panel> right = newBody("right");
    mHandler->pushBody(a.get(), nullptr, nullptr, right.get(), nullptr);
    mHandler->pushBody(b.get(), nullptr, nullptr, right.get(), nullptr);
    EXPECT_EQ(bar().getElement(Bar::ELEMENT_RIGHT), right.get());
    mHandler->popBody(nullptr);
    EXPECT_EQ(bar().getElement(Bar::ELEMENT_RIGHT), right.get());
    EXPECT_EQ(right->getParent(), &bar());
}

TEST_F(NavigationHandlerTest, ANewTitleIsShownAtOnceWhereItCounts) {
    push(a);
    push(b);
    push(c);
    mHandler->setBodyTitle(c.get(), "Top");
    EXPECT_EQ(title(), "Top");
    mHandler->setBodyTitle(b.get(), "Under");
    EXPECT_EQ(back(), "Under");
    EXPECT_EQ(title(), "Top");
    mHandler->setBodyTitle(a.get(), "Bottom");
    EXPECT_EQ(back(), "Under");
    mHandler->setBodyTitle(c.get(), nullptr);
    EXPECT_EQ(title(), "c");
    mHandler->popBody(nullptr);
    EXPECT_EQ(title(), "Under");
    EXPECT_EQ(back(), "Bottom");
}

TEST_F(NavigationHandlerTest, ANewTitleBelowDoesNotReplaceABackText) {
    push(a);
    mHandler->pushBody(b.get(), nullptr, "Return", nullptr, nullptr);
    mHandler->setBodyTitle(a.get(), "Menu");
    EXPECT_EQ(back(), "Return");
    mHandler->setBodyBackText(b.get(), nullptr);
    EXPECT_EQ(back(), "Menu");
    mHandler->setBodyBackText(b.get(), "Home");
    EXPECT_EQ(back(), "Home");
    mHandler->setBodyBackText(b.get(), "");
    EXPECT_EQ(back(), "Menu");
}

TEST_F(NavigationHandlerTest, ABackTextBelowTheTopIsKeptForLater) {
    push(a);
    push(b);
    push(c);
    mHandler->setBodyBackText(b.get(), "Home");
    EXPECT_EQ(back(), "b");
    mHandler->popBody(nullptr);
    EXPECT_EQ(back(), "Home");
}

TEST_F(NavigationHandlerTest, TheOnlyBodyHasNothingToGoBackTo) {
    push(a);
    mHandler->setBodyBackText(a.get(), "Home");
    EXPECT_STREQ(left().getText(), "Home");
    mHandler->setBodyBackText(a.get(), nullptr);
    EXPECT_STREQ(left().getText(), "");
    EXPECT_EQ(back(), "-");
}

TEST_F(NavigationHandlerTest, StrangersHaveNoTexts) {
    push(a);
    mHandler->setBodyTitle(b.get(), "Title");
    mHandler->setBodyTitle(nullptr, "Title");
    mHandler->setBodyBackText(b.get(), "Text");
    mHandler->setBodyBackText(nullptr, "Text");
    EXPECT_EQ(title(), "a");
    EXPECT_STREQ(left().getText(), "Left");
}

// --- The back button

TEST_F(NavigationHandlerTest, TheBackButtonPops) {
    push(a);
    push(b);
    frame();
    told();
    click(60, 25);
    EXPECT_EQ(mHandler->getBody(), a.get());
    EXPECT_EQ(told(), (Lines{"b pop-begin 0", "a pop-begin 1", "b pop-end -1", "a pop-end 0"}));
    clickOn(left()); // hidden, so the click passes by
    EXPECT_EQ(mHandler->getBody(), a.get());
}

TEST_F(NavigationHandlerTest, ASubscriberMayDenyThePop) {
    push(a);
    push(b);
    Lines asked;
    PopQueryResult answer = POP_QUERY_DENY;
    mHandler->Handler::PopQueryCallbacks::subscribeCallback(
        [&](Handler *handler, Component *body, PopQueryResult &result) {
            EXPECT_EQ(handler, mHandler.get());
            asked.push_back(body->getName() + std::string(" ") + std::to_string(result));
            result = answer;
            return false;
        });
    clickOn(left());
    EXPECT_EQ(stack(), "a b");
    EXPECT_EQ(mHandler->getBody(), b.get());
    answer = static_cast<PopQueryResult>(7); // anything but yes
    clickOn(left());
    EXPECT_EQ(stack(), "a b");
    answer = POP_QUERY_ALLOW;
    clickOn(left());
    EXPECT_EQ(stack(), "a");
    EXPECT_EQ(asked, (Lines{"b 1", "b 1", "b 1"}));
}

TEST_F(NavigationHandlerTest, PopsOfTheProgramAreNotAskedFor) {
    push(a);
    mHandler->Handler::PopQueryCallbacks::subscribeCallback([](Handler *, Component *, PopQueryResult &result) {
        result = POP_QUERY_DENY;
        return false;
    });
    mHandler->popBody(nullptr);
    EXPECT_EQ(stack(), "");
}

TEST_F(NavigationHandlerTest, WithoutABodyTheBackButtonAsksNobody) {
    bar().enableElement(1);
    int asked = 0;
    mHandler->Handler::PopQueryCallbacks::subscribeCallback([&asked](Handler *, Component *, PopQueryResult &) {
        ++asked;
        return false;
    });
    clickOn(left());
    clickOn(left());
    EXPECT_EQ(asked, 0);
    push(a);
    push(b);
    clickOn(left()); // the subscription stands
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(stack(), "a");
}

// --- Removing from below

TEST_F(NavigationHandlerTest, TakesABodyOutFromUnderTheTop) {
    push(a);
    push(b);
    push(c);
    told();
    mHandler->removeBodyAt(1, true);
    EXPECT_EQ(told(), (Lines{"b pop-begin 1", "b pop-end -1"}));
    EXPECT_EQ(stack(), "a c");
    EXPECT_EQ(mHandler->getBody(), c.get());
    EXPECT_EQ(back(), "a");
    EXPECT_EQ(b->getRefCount(), 1U);
    mHandler->popBody(nullptr);
    EXPECT_EQ(shown(), "a");
}

TEST_F(NavigationHandlerTest, TheBackTextFollowsOnlyWhenAskedFor) {
    push(a);
    push(b);
    push(c);
    mHandler->removeBodyAt(1, false);
    EXPECT_EQ(back(), "b");
    mHandler->pushBody(d.get(), nullptr, nullptr, nullptr, nullptr);
    mHandler->popBody(nullptr);
    EXPECT_EQ(back(), "a"); // asked anew
}

TEST_F(NavigationHandlerTest, TakesOutTheBottom) {
    push(a);
    push(b);
    push(c);
    told();
    mHandler->removeBodyAt(2, true);
    EXPECT_EQ(told(), (Lines{"a pop-begin 2", "a pop-end -1"}));
    EXPECT_EQ(stack(), "b c");
    EXPECT_EQ(back(), "b");
}

TEST_F(NavigationHandlerTest, RemovingPastTheEndDoesNothing) {
    push(a);
    told();
    mHandler->removeBodyAt(1, true);
    mHandler->removeBodyAt(0xffffffffU, true);
    EXPECT_EQ(told(), Lines());
    EXPECT_EQ(stack(), "a");
}

TEST_F(NavigationHandlerTest, RemovingTheTopLeavesItOnShow) {
    push(a);
    push(b);
    told();
    mHandler->removeBodyAt(0, true);
    EXPECT_EQ(told(), (Lines{"b pop-begin 0", "a pop-begin 1"}));
    EXPECT_EQ(stack(), "a");
    EXPECT_EQ(mHandler->getBody(), b.get());
    EXPECT_EQ(shown(), "b");
    push(c);
    EXPECT_EQ(told(), (Lines{"b push-begin 0", "c push-begin -1", "b pop-end -1", "a push-end 1", "c push-end 0"}));
    EXPECT_EQ(shown(), "c");
    EXPECT_EQ(b->getRefCount(), 1U);
}

// --- Its end

TEST_F(NavigationHandlerTest, EmptiesItsTargetWhenItGoes) {
    push(a);
    push(b);
    const core::SmartPtr<Component> target(mHandler->getTarget());
    mHandler = nullptr;
    EXPECT_EQ(target->getHandler(), nullptr);
    EXPECT_EQ(static_cast<Panel *>(target.get())->getChildCount(), 0U);
    EXPECT_EQ(target->getParent(), mWidget.get());
    EXPECT_EQ(a->getRefCount(), 1U);
    EXPECT_EQ(b->getRefCount(), 1U);
    EXPECT_FALSE(b->hasParent());
    frame();
}

TEST_F(NavigationHandlerTest, ABackButtonThatOutlivesItDoesNothing) {
    push(a);
    push(b);
    const core::SmartPtr<Component> button(&left());
    mHandler = nullptr;
    mWidget->addChild(button.get());
    clickOn(*button);
    EXPECT_EQ(told(), (Lines{"a push-begin -1", "a push-end 0", "a push-begin 0", "b push-begin -1", "a push-end 1",
                             "b push-end 0"}));
}
