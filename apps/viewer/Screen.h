#pragma once

#include "WatchedFileSystem.h"

#include "foundation/core/SmartPtr.h"

#include <string>

namespace nurel::ui {
class Skin;
class Widget;
} // namespace nurel::ui

namespace viewer {

/// The template that is shown, as a widget under the style-free skin; a root of another class is put into a widget that
/// fills the stage. Other templates and images are looked up in the folder of the screen.
class Screen {
public:
    /// Sets up skin, templates and texts; raises a `core::Exception` when the screen cannot be read.
    Screen(const std::string &path, const std::string &locale);
    ~Screen();
    Screen(const Screen &) = delete;
    Screen &operator=(const Screen &) = delete;

    /// Loads what has changed on disk since the last call. What fails to load leaves the last good screen up, with the
    /// reason on the screen and in the log.
    void reloadChanged();

private:
    core::SmartPtr<nurel::ui::Widget> load();
    void show(const core::SmartPtr<nurel::ui::Widget> &widget);
    void showMessage(const char *text);
    void hideMessage();
    void loadCatalogues(const std::string &locale);

    WatchedFileSystem mFiles;
    std::string mFile;
    core::SmartPtr<nurel::ui::Skin> mSkin;
    core::SmartPtr<nurel::ui::Widget> mWidget;
    core::SmartPtr<nurel::ui::Widget> mMessage;
};

} // namespace viewer
