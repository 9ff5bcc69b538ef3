#pragma once

#include <span>

namespace core {
class Type;
}

namespace nurel::ui {
class Component;
}

namespace gallery {

class Gallery;

/// What the code of a page works with.
class PageTools {
public:
    PageTools(Gallery &gallery, nurel::ui::Component &root) : mGallery(gallery), mRoot(root) {}

    Gallery &getGallery() const { return mGallery; }

    nurel::ui::Component &getRoot() const { return mRoot; }

    /// What is inside the page under a path of names such as "form/ok", each searched inside the one before it; raises
    /// `core::IllegalArgumentException` when there is no such component or it is of another class. It lives as long as
    /// the page, and so as long as callbacks that hang on something inside it.
    template <class T>
    T &find(const char *path) const {
        return static_cast<T &>(findComponent(path, T::TYPE));
    }

private:
    nurel::ui::Component &findComponent(const char *path, const core::Type &type) const;

    Gallery &mGallery;
    nurel::ui::Component &mRoot;
};

/// One page: the template assets/gallery/<name>.ui, and assets/gallery/<name>.css where there is such a file.
struct Page {
    const char *name;
    const char *title;
    const char *about;
    void (*connect)(const PageTools &tools); ///< hangs callbacks on the page when it is shown; null: it has none
};

/// All pages in the order in which they are listed. A new page is a row here and its files.
std::span<const Page> getPages();

} // namespace gallery
