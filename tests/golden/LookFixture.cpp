#include "LookFixture.h"

#include "nengine/texture/TexturePool.h"
#include "nmain/stream/InputStream.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/UIComponentParser.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/css/CSS.h"
#include "nui/ui/css/CSSParser.h"
#include "nui/ui/css/CSSSkin.h"

#include "foundation/core/Exception.h"

#include <algorithm>

namespace golden {

using nurel::texture::TexturePool;
using nurel::ui::Component;
using nurel::ui::Container;
using nurel::ui::SkinManager;
using nurel::ui::UIManager;

namespace {

struct States : Component {
    static constexpr auto ENABLE = &States::enableState;
};

Component *search(Container &container, const std::string &name) {
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

} // namespace

void LookFixture::useSheet(const std::string &sheet) {
    TexturePool::getSingleton().setFileSystem(&mImages);
    const core::SmartPtr<nurel::ui::css::CSSSkin> look(new nurel::ui::css::CSSSkin("look"));
    nurel::stream::FileInputStream stream((std::string(STYLES "/") + sheet).c_str());
    look->setStyleSheet(nurel::ui::css::CSSParser().parse(&stream));
    mLook = look.get();
    SkinManager::getSingleton().addSkin(mLook.get());
    SkinManager::getSingleton().setDefaultSkin(mLook.get());
}

void LookFixture::showTemplate(const std::string &file) {
    nurel::stream::FileInputStream stream((std::string(DATA "/") + file).c_str());
    show(nurel::ui::UIComponentParser().parse(&stream));
    settle();
}

Component &LookFixture::find(const std::string &path) {
    Component *found = UIManager::getSingleton().getWidgetAt(UIManager::getSingleton().getWidgetCount() - 1);
    for (std::size_t begin = 0; found && begin <= path.size();) {
        const std::size_t end = std::min(path.find('/', begin), path.size());
        found =
            found->isContainer() ? search(static_cast<Container &>(*found), path.substr(begin, end - begin)) : nullptr;
        begin = end + 1;
    }
    if (!found)
        throw core::IllegalArgumentException("there is no '%s' on the stage", path.c_str());
    return *found;
}

void LookFixture::addState(Component &component, unsigned int state) {
    (component.*States::ENABLE)(state);
}

void LookFixture::settle() {
    UIManager::getSingleton().updateEvents();
    UIManager::getSingleton().update();
    TexturePool::getSingleton().waitUntilLoaded();
}

void LookFixture::TearDown() {
    TexturePool::getSingleton().setFileSystem(nullptr);
    GoldenFixture::TearDown();
    mLook = nullptr;
}

} // namespace golden
