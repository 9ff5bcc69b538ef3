// The starter looks: boxes, texts, buttons and marks, in their states.
#include "LookFixture.h"

#include "nui/ui/UIManager.h"

namespace golden {

namespace {

class LookGolden : public LookFixture {
protected:
    void showControls(const char *sheet) {
        useSheet(sheet);
        showTemplate("controls.ui");
        find("focused").setFocus();
        nurel::ui::UIManager::getSingleton().setMousePos({156, 46}); // over the button "hovered"
    }
};

} // namespace

TEST_F(LookGolden, LightControlsInTheirStates) {
    showControls("light.css");
    expectPicture("look-light");
}

TEST_F(LookGolden, DarkControlsInTheirStates) {
    showControls("dark.css");
    expectPicture("look-dark");
}

} // namespace golden
