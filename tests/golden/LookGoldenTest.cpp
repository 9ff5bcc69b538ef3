// The starter looks: every control that they style, in its states.
#include "GoldenFixture.h"

#include "nengine/texture/TexturePool.h"
#include "nmain/stream/InputStream.h"
#include "nmain/vfs/DirectoryFileSystem.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/UIComponentParser.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/css/CSS.h"
#include "nui/ui/css/CSSParser.h"
#include "nui/ui/css/CSSSkin.h"

#include <string>

namespace golden {

using nurel::ui::Component;
using nurel::ui::Container;
using nurel::ui::SkinManager;
using nurel::ui::UIManager;
using nurel::ui::css::CSSParser;
using nurel::ui::css::CSSSkin;

namespace {

class LookGolden : public GoldenFixture {
protected:
    void showControls(const std::string &sheet) {
        nurel::texture::TexturePool::getSingleton().setFileSystem(&mFiles);
        mLook = new CSSSkin("look");
        SkinManager::getSingleton().addSkin(mLook.get());
        SkinManager::getSingleton().setDefaultSkin(mLook.get());
        nurel::stream::FileInputStream sheetStream((std::string(STYLES "/") + sheet).c_str());
        mLook->setStyleSheet(CSSParser().parse(&sheetStream));
        nurel::stream::FileInputStream stream(DATA "/controls.ui");
        show(nurel::ui::UIComponentParser().parse(&stream));
        UIManager &manager = UIManager::getSingleton();
        manager.update();
        find(*manager.getWidgetAt(0), "focused").setFocus();
        manager.setMousePos({156, 46}); // over the button "hovered"
        nurel::texture::TexturePool::getSingleton().waitUntilLoaded();
    }

    void TearDown() override {
        nurel::texture::TexturePool::getSingleton().setFileSystem(nullptr);
        GoldenFixture::TearDown();
        mLook = nullptr;
    }

private:
    static Component &find(Container &container, const char *name) {
        Component *found = search(container, name);
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }

    static Component *search(Container &container, const std::string &name) {
        for (unsigned int i = 0; i < container.getChildCount(); ++i) {
            Component *child = container.getChildAt(i);
            if (name == child->getName())
                return child;
            Component *inside = child->isContainer() ? search(static_cast<Container &>(*child), name) : nullptr;
            if (inside)
                return inside;
        }
        return nullptr;
    }

    nurel::vfs::DirectoryFileSystem mFiles{STYLES};
    core::SmartPtr<CSSSkin> mLook;
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
