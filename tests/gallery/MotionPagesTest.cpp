// The pages of navigation and cover flow, also when something else happens while they move.
#include "Gallery.h"

#include "ComponentFinder.h"
#include "Page.h"
#include "support/LogCapture.h"

#include "nengine/Engine.h"
#include "nengine/renderer/RenderPass.h"
#include "ninput/input/Mouse.h"
#include "nmain/math/Matrix3.h"
#include "nui/ui/Container.h"
#include "nui/ui/UIManager.h"

#include "foundation/core/Exception.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>

namespace {

using gallery::Gallery;
using nurel::input::Mouse;
using nurel::math::Vector2;
using nurel::ui::Component;
using nurel::ui::UIManager;

constexpr int HALF_TRANSITION = 12;
constexpr int TRANSITION = 26;
constexpr int LONG = 200; ///< enough for every throw

class MotionPages : public testing::Test {
protected:
    MotionPages() {
        nurel::EngineConfig config = nurel::EngineConfig::headless(1280, 720);
        config.fontFile = FONT;
        engine = std::make_unique<nurel::Engine>(config);
        shown = std::make_unique<Gallery>(ASSETS);
    }

    ~MotionPages() override {
        shown.reset();
        UIManager::shutdown();
    }

    void runFrames(int count) {
        for (int i = 0; i < count; ++i) {
            engine->advance(1.0 / 60);
            shown->update();
            UIManager::getSingleton().updateEvents();
            UIManager::getSingleton().update();
            engine->renderFrame(*UIManager::getSingleton().getRenderPass());
        }
    }

    void showPage(const char *name) {
        for (std::size_t i = 0; i < gallery::getPages().size(); ++i) {
            if (std::strcmp(gallery::getPages()[i].name, name) == 0)
                shown->showPage(i);
        }
        runFrames(3);
    }

    static bool exists(const std::string &path) { return viewer::findComponent(path.c_str()) != nullptr; }

    static Component &find(const std::string &path) {
        Component *found = viewer::findComponent(path.c_str());
        if (!found)
            throw core::IllegalArgumentException("there is no '%s'", path.c_str());
        return *found;
    }

    static std::string textOf(const std::string &path) { return viewer::getComponentText(find(path)); }

    void moveTo(const Vector2 &point) {
        UIManager::getSingleton().setMousePos({static_cast<int>(point.x), static_cast<int>(point.y)});
        runFrames(1);
    }

    void press() {
        UIManager::getSingleton().setMouseButton(Mouse::LEFT, Mouse::PRESS);
        runFrames(1);
    }

    void release() {
        UIManager::getSingleton().setMouseButton(Mouse::LEFT, Mouse::RELEASE);
        runFrames(1);
    }

    void click(const std::string &path) {
        moveTo(viewer::getScreenCenter(find(path)));
        press();
        release();
    }

    /// Sizes, places and colours of all that is inside.
    static std::string describe(Component &component) {
        const auto &size = component.getSize();
        const auto &place = component.getWorldPosition();
        std::string text = std::to_string(size.x) + " " + std::to_string(size.y) + " " + std::to_string(place.x) + " " +
                           std::to_string(place.y);
        text += " " + std::to_string(component.getMeshColor().x) + "\n";
        if (component.isContainer()) {
            const auto &container = static_cast<nurel::ui::Container &>(component);
            for (unsigned int i = 0; i < container.getChildCount(); ++i)
                text += describe(*container.getChildAt(i));
        }
        return text;
    }

    /// The covers to the left, or with a negative width to the right.
    void throwCovers(float width) {
        const Vector2 centre = viewer::getScreenCenter(find("flow"));
        moveTo(centre);
        press();
        for (int i = 1; i <= 6; ++i)
            moveTo(centre - Vector2(width * static_cast<float>(i) / 6, 0));
        release();
    }

    /// The number that stands in front of " of 10,000".
    static int current() {
        std::string text = textOf("place");
        std::erase(text, ',');
        return std::stoi(text);
    }

    static bool isAtRest(int entry) {
        const Component &cover = find("covers/" + std::to_string(entry - 1));
        return cover.getPosition() == nurel::math::Vector3::ZERO && cover.getScale() == Vector2(1, 1) &&
               cover.isVisible();
    }

    test::LogCapture log; ///< a warning or an error fails the test
    std::unique_ptr<nurel::Engine> engine;
    std::unique_ptr<Gallery> shown;
};

/// What is chosen on the page, and whether there is a transition at all.
class Transitions : public MotionPages, public testing::WithParamInterface<const char *> {
protected:
    void startToEarth() {
        showPage("navigation");
        click(GetParam());
        click("to-Earth");
        runFrames(HALF_TRANSITION);
    }

    static bool isAtOnce() { return std::strcmp(GetParam(), "none") == 0; }
};

} // namespace

TEST_P(Transitions, BringAScreenInAndTheBarTakesItBack) {
    startToEarth();
    EXPECT_EQ(exists("screens/Planets"), !isAtOnce());
    EXPECT_EQ(textOf("stack/row0"), "Earth");
    runFrames(TRANSITION);
    EXPECT_FALSE(exists("screens/Planets"));
    EXPECT_EQ(textOf("bar/title"), "Earth");
    click("bar/back");
    EXPECT_EQ(textOf("stack/row0"), "Planets");
    EXPECT_EQ(textOf("stack/row1"), "");
    runFrames(TRANSITION);
    EXPECT_FALSE(exists("screens/Earth"));
    EXPECT_EQ(textOf("bar/title"), "Planets");
    EXPECT_FALSE(find("bar/back").isVisible());
    EXPECT_NEAR(find("screens/Planets").getRotation()(2, 2), 1, 1e-4);
    EXPECT_FLOAT_EQ(find("screens/Planets").getOpacity(), 1);
}

TEST_P(Transitions, MayBeLeftForAnotherPage) {
    startToEarth();
    showPage("welcome");
    EXPECT_FALSE(exists("screens"));
    runFrames(TRANSITION);
    showPage("navigation");
    EXPECT_EQ(textOf("bar/title"), "Planets");
    EXPECT_EQ(textOf("stack/row1"), "");
    EXPECT_TRUE(find("screens/Planets").isVisible());
}

TEST_P(Transitions, GoOnUnderAnotherLook) {
    startToEarth();
    shown->setDark(true);
    runFrames(TRANSITION);
    EXPECT_FALSE(exists("screens/Planets"));
    EXPECT_EQ(textOf("bar/title"), "Earth");
    EXPECT_FLOAT_EQ(find("screens/Earth/banner").getOpacity(), 1);
    click("bar/back");
    shown->setDark(false);
    runFrames(TRANSITION);
    EXPECT_EQ(textOf("bar/title"), "Planets");
}

TEST_P(Transitions, BringAScreenBackThatHasMissedAChangeOfTheLook) {
    showPage("navigation");
    const std::string look = describe(find("screens/Planets"));
    click(GetParam());
    click("to-Earth");
    runFrames(TRANSITION);
    shown->setDark(true);
    runFrames(3);
    click("bar/back");
    runFrames(TRANSITION);
    const std::string dark = describe(find("screens/Planets"));
    shown->setDark(false);
    runFrames(3);
    EXPECT_EQ(describe(find("screens/Planets")), look);
    shown->setDark(true);
    runFrames(3);
    EXPECT_EQ(describe(find("screens/Planets")), dark);
}

TEST_P(Transitions, MayBeUnderWayWhenAllEnds) {
    startToEarth();
    EXPECT_EQ(textOf("stack/row0"), "Earth");
    EXPECT_EQ(textOf("bar/title"), isAtOnce() ? "Earth" : "Planets");
}

INSTANTIATE_TEST_SUITE_P(OfThePage, Transitions,
                         testing::Values("slide-left", "slide-right", "slide-up", "slide-down", "flip-across",
                                         "flip-over", "fade", "none"),
                         [](const auto &parameter) {
                             std::string name = parameter.param;
                             std::erase(name, '-');
                             return name;
                         });

TEST_F(MotionPages, AScreenIsReplacedAndTheListIsReachedFromFarAbove) {
    showPage("navigation");
    click("to-Saturn");
    runFrames(TRANSITION);
    click("bar/replace");
    runFrames(TRANSITION);
    EXPECT_EQ(textOf("stack/row0"), "Mercury"); // after the last comes the first
    EXPECT_EQ(textOf("stack/row1"), "Planets");
    for (int i = 0; i < 7; ++i) {
        click("further");
        runFrames(TRANSITION);
    }
    EXPECT_EQ(textOf("stack/row0"), "Venus");
    EXPECT_EQ(textOf("stack/row6"), "3 more");
    click("buttons/facts");
    runFrames(TRANSITION);
    EXPECT_EQ(textOf("distance/value"), "0.72 au");
    EXPECT_FALSE(exists("bar/replace"));
    click("to-list");
    runFrames(TRANSITION);
    EXPECT_EQ(textOf("stack/row0"), "Planets");
    EXPECT_EQ(textOf("stack/row1"), "");
    EXPECT_TRUE(find("screens/Planets").isVisible());
}

TEST_F(MotionPages, CoversAreThrownCoastAndSettle) {
    showPage("cover-flow");
    EXPECT_EQ(current(), 5001);
    EXPECT_TRUE(isAtRest(5001));
    throwCovers(180);
    const int thrown = current();
    EXPECT_GT(thrown, 5001);
    for (int i = 0, before = thrown; i < LONG; ++i, before = current()) {
        runFrames(1);
        ASSERT_GE(current(), before);
    }
    EXPECT_GT(current(), thrown + 5);
    EXPECT_TRUE(isAtRest(current()));
    throwCovers(-180);
    runFrames(LONG);
    EXPECT_LT(current(), thrown + 5);
    EXPECT_TRUE(isAtRest(current()));
}

TEST_F(MotionPages, ButtonsGoToEntriesAlsoDuringAThrow) {
    showPage("cover-flow");
    for (const bool moving : {false, true}) {
        const auto go = [this, moving](const char *button) {
            if (moving)
                throwCovers(120);
            click(button);
            runFrames(moving ? LONG : 1);
        };
        go("first");
        EXPECT_EQ(current(), 1);
        EXPECT_TRUE(isAtRest(1));
        EXPECT_EQ(textOf("current"), "Quiet Harbour");
        click("page-on");
        EXPECT_EQ(current(), 8);
        click("page-back");
        click("page-back");
        EXPECT_EQ(current(), 1);
        go("last");
        EXPECT_EQ(current(), 10000);
        EXPECT_TRUE(isAtRest(10000));
        click("page-on");
        EXPECT_EQ(current(), 10000);
    }
}

TEST_F(MotionPages, MoreOrFewerCoversStandAtTheSides) {
    showPage("cover-flow");
    const auto has = [](int entry) { return exists("covers/" + std::to_string(entry - 1)); };
    EXPECT_TRUE(has(5004));
    EXPECT_FALSE(has(5005));
    click("more");
    click("more");
    EXPECT_EQ(textOf("extra/count"), "5");
    EXPECT_FALSE(find("more").isEnabled());
    EXPECT_TRUE(has(5006));
    throwCovers(120);
    for (int i = 0; i < 4; ++i)
        click("fewer");
    EXPECT_EQ(textOf("extra/count"), "1");
    EXPECT_FALSE(find("fewer").isEnabled());
    runFrames(LONG);
    EXPECT_TRUE(isAtRest(current()));
    EXPECT_TRUE(has(current() + 1));
    EXPECT_FALSE(has(current() + 3)); // the next but one may stand ready beyond the edge
}

TEST_F(MotionPages, AThrowMayBeLeftForAnotherPageAndGoesOnUnderAnotherLook) {
    showPage("cover-flow");
    throwCovers(180);
    shown->setDark(true);
    runFrames(5);
    EXPECT_GT(current(), 5002);
    runFrames(LONG);
    EXPECT_TRUE(isAtRest(current()));
    throwCovers(180);
    showPage("welcome");
    EXPECT_FALSE(exists("covers"));
    runFrames(LONG);
    showPage("cover-flow");
    EXPECT_EQ(current(), 5001);
    EXPECT_TRUE(isAtRest(5001));
}

TEST_F(MotionPages, ADragMayBeLeftForAnotherPage) {
    showPage("cover-flow");
    moveTo(viewer::getScreenCenter(find("flow")));
    press();
    moveTo(viewer::getScreenCenter(find("flow")) - Vector2(60, 0));
    showPage("navigation");
    release();
    EXPECT_EQ(textOf("bar/title"), "Planets");
}

TEST_F(MotionPages, CoversFindTheirPlacesInANarrowerStage) {
    showPage("cover-flow");
    const float before = find("covers/5003").getPosition().x;
    engine->resize(1100, 720);
    runFrames(3);
    EXPECT_LT(find("covers/5003").getPosition().x, before);
    EXPECT_TRUE(isAtRest(5001));
}

TEST_F(MotionPages, AThrowMayBeUnderWayWhenAllEnds) {
    showPage("cover-flow");
    throwCovers(180);
    runFrames(5);
    EXPECT_FALSE(isAtRest(current()));
}
