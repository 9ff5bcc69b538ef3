#pragma once

#include "Message.h"
#include "StyleSheets.h"
#include "WatchedFileSystem.h"

#include "foundation/core/SmartPtr.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace nurel::ui {
class Component;
class Skin;
class Widget;
} // namespace nurel::ui

namespace viewer {

class RestylingSkin;

/// The template that is shown, as a widget under the sheets, or under the style-free skin when there are none; a root
/// of another class is put into a widget that fills the stage. Templates and images are looked up in the folder of the
/// screen, then in those of the sheets, and then among the ready templates of dialogs. Lives no longer than the
/// `UIManager`.
class Screen {
public:
    /// Sets up skin, templates and texts; raises a `core::Exception` when the screen or a sheet cannot be read.
    Screen(const std::string &path, const std::vector<std::string> &styles, const std::string &locale);
    ~Screen();
    Screen(const Screen &) = delete;
    Screen &operator=(const Screen &) = delete;

    /// Loads what has changed on disk: to be called every tenth of a second or so. What fails to load leaves the last
    /// good screen, sheets and images up, with the reason on the screen, until it is mended, and in the log. Where only
    /// sheets and images changed the components stay and look as if they had never had the sheets before.
    void reloadChanged(WatchedFileSystem::Time now);

    nurel::ui::Widget *getWidget() const { return mWidget.get(); }

    /// What does not load at present, a line each; empty when all is well.
    const std::string &getMessage() const { return mMessage.getText(); }

private:
    core::SmartPtr<nurel::ui::Component> parse(const std::string &file);
    core::SmartPtr<nurel::ui::Widget> load();
    void show(const core::SmartPtr<nurel::ui::Widget> &widget);
    void setUpSkin();
    void loadCatalogues(const std::string &locale);

    void reloadSheets();
    void reloadImage(const std::string &name);
    void reloadTemplates();
    void restyleLoadedImages();
    template <class Load>
    bool tryLoading(const std::string &file, Load load);
    void leave();

    StyleSheets mSheets;
    WatchedFileSystem mFiles;
    std::string mFile;
    core::SmartPtr<nurel::ui::Skin> mDefaultSkin;
    core::SmartPtr<RestylingSkin> mStyleSkin; ///< null without sheets
    core::SmartPtr<nurel::ui::Widget> mWidget;
    Message mMessage;
    std::set<std::string> mChangedTemplates;    ///< that did not get onto the screen yet
    std::map<std::string, std::string> mFaults; ///< by file
    bool mImagesChanged = false;                ///< and are perhaps still being decoded
};

} // namespace viewer
