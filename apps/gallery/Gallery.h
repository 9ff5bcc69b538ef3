#pragma once

#include "Page.h"
#include "WatchedFileSystem.h"

#include "foundation/core/SmartPtr.h"
#include "nxml/i18n/Bundle.h"

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace nurel::ui {
class Component;
class Container;
class Widget;
namespace components {
class Button;
class Label;
} // namespace components
namespace css {
class CSS;
} // namespace css
} // namespace nurel::ui

namespace viewer {
class RestylingSkin;
}

namespace gallery {

class ScreenKeyboard;

/// The gallery on the stage of the `UIManager`: a list of pages, the page that is shown, and the text of its template
/// or sheet.
class Gallery {
public:
    /// What is read beside the page.
    enum Source { TEMPLATE, SHEET };

    /// Shows the first page. `assets` is the folder that holds "gallery" and "style"; what cannot be read there raises
    /// a `core::Exception`.
    explicit Gallery(const std::string &assets);
    ~Gallery();
    Gallery(const Gallery &) = delete;
    Gallery &operator=(const Gallery &) = delete;

    /// These three take effect at the next update(), so that a page's callback may call them.
    void showPage(std::size_t index);
    void setDark(bool dark);
    void setSource(Source source);

    /// The last that was asked for.
    std::size_t getPage() const { return mWanted.page; }
    bool isDark() const { return mWanted.dark; }

    /// For a page that is being connected: the object lives as long as the page.
    void keep(std::shared_ptr<void> object) { mNextKept.push_back(std::move(object)); }

    /// For a page that is shown, when components were taken out of it for good: they are let go at the next update().
    void forgetRemoved() { mForgetRemoved = true; }

    /// For fields on every page; whether it comes up is for all of them, too.
    ScreenKeyboard &getKeyboard() const { return *mKeyboard; }

    /// For a page that is being connected: gets the focus as soon as it is on the stage.
    void setFirstFocus(nurel::ui::Component &component);

    /// To be called ahead of every frame. A page that cannot be read leaves the one before up, and the log says why.
    void update();

    /// Loads what was saved since the last call; to be called every tenth of a second or so. What fails to load leaves
    /// the last good page up, and the log says why.
    void reloadChanged(viewer::WatchedFileSystem::Time now);

private:
    struct Shown {
        std::size_t page = 0;
        bool dark = false;
        Source source = TEMPLATE;
        bool operator==(const Shown &) const = default;
    };

    void loadTexts();
    void addPageButtons();
    void connectShell();
    void buildPage();
    void leavePage();
    void showWanted();
    void focusFirst();
    void forgetClosed();
    void styleAnew();
    void fillSource();
    core::SmartPtr<nurel::ui::Component> readTemplate(const std::string &path);
    std::unique_ptr<nurel::ui::css::CSS> readSheet(const std::string &path);
    std::unique_ptr<nurel::ui::css::CSS> readAllSheets();
    void applySheet(std::unique_ptr<nurel::ui::css::CSS> sheet);
    std::string getSourcePath();
    template <class T>
    T &find(const char *path);

    viewer::WatchedFileSystem mFiles;
    core::SmartPtr<nurel::i18n::Bundle> mTexts;
    core::SmartPtr<viewer::RestylingSkin> mSkin;
    core::SmartPtr<nurel::ui::Widget> mWidget;
    core::SmartPtr<nurel::ui::Component> mPage;
    std::vector<std::shared_ptr<void>> mKept;     ///< by the page
    std::vector<std::shared_ptr<void>> mNextKept; ///< by the page that is being connected
    bool mForgetRemoved = false;
    core::SmartPtr<nurel::ui::Component> mFirstFocus; ///< until it has been given the focus
    ScreenKeyboard *mKeyboard;                        ///< the manager's
    unsigned int mWidgetCount = 0;                    ///< on the stage at the last update
    std::vector<nurel::ui::components::Button *> mPageButtons;
    nurel::ui::components::Button *mDarkButton = nullptr;
    Shown mWanted;
    Shown mShown;
};

} // namespace gallery
