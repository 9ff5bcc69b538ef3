// The screens that lie ready in the assets, played by the program as a user would.
#include "ViewerProgram.h"

#include <tuple>

namespace viewer {

namespace {

class Screens : public ViewerProgram, public testing::WithParamInterface<std::tuple<const char *, const char *>> {
protected:
    /// The viewer with the screen of the test under its look.
    int show(const std::string &arguments) const {
        const std::string screens = ASSETS "/screens/";
        const std::string name = std::get<0>(GetParam());
        return run(screens + name + ".ui --headless --font '" TEST_FONT "' --style " ASSETS "/style/" +
                   std::get<1>(GetParam()) + ".css --style " + screens + name + ".css " + arguments);
    }

    std::string getScript(const std::string &ending) const {
        return std::string(ASSETS "/screens/") + std::get<0>(GetParam()) + ending;
    }
};

std::string nameScreen(const testing::TestParamInfo<Screens::ParamType> &info) {
    return std::string(std::get<0>(info.param)) + "_" + std::get<1>(info.param);
}

} // namespace

TEST_P(Screens, MouseKeysTextAndDialogsAreAsTheScriptExpects) {
    EXPECT_EQ(show("--script " + getScript(".json")), 0);
    EXPECT_EQ(read("err.txt"), "");
}

TEST_P(Screens, AreShownInASmallWindowWithoutAWarning) {
    EXPECT_EQ(show("--size 800x600 --script " + getScript("-dialogs.json")), 0);
    EXPECT_EQ(read("err.txt"), "");
}

INSTANTIATE_TEST_SUITE_P(Ready, Screens,
                         testing::Combine(testing::Values("settings", "login"), testing::Values("light", "dark")),
                         nameScreen);

} // namespace viewer
