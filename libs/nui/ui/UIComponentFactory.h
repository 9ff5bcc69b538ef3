#pragma once

#include "foundation/core/SmartPtr.h"
#include "nmain/stream/InputStream.h"
#include "nui/core/CKHashMap.h"
#include "nui/core/Singleton.h"
#include "nui/ui/Component.h"

#include <memory>
#include <string>
#include <vector>

namespace nurel::ui {

/// Hands out components by the name of their template. The first request for a name reads and parses the template's
/// file and keeps the component as a prototype; every request gets a clone of it. Used from the thread that drives the
/// `UIManager`, which also deletes this singleton when it ends.
class UIComponentFactory : public core::Singleton<UIComponentFactory, 0, 0, core::Singleton_Singlethread_Policy> {
public:
    UIComponentFactory();
    UIComponentFactory(const UIComponentFactory &other);
    UIComponentFactory &operator=(const UIComponentFactory &other);
    ~UIComponentFactory();

    /// A new component, whose reference belongs to the caller; a null name counts as the empty one. A load that fails
    /// is logged as "Unable to load template %s", and its exception goes on to the caller; nothing is kept then, and
    /// the next request tries again.
    Component *newInstance(const char *name);

    /// The prototype of that name, or null. Never loads.
    Component *getTemplate(const char *name) const;

    /// Keeps the prototype under the name, in place of an earlier one.
    void registerTemplate(const char *name, Component *prototype);
    void unregisterTemplate(const char *name);
    void unregisterTemplates();

    /// What is added to a template's name to make its path; ".ui" at first. Null counts as the empty text.
    void setTemplateExtension(const char *extension);
    const char *getTemplateExtension() const { return mTemplateExtension.c_str(); }

    /// How templates are opened: by `fileSystem->open(path)`, which gives a new stream that the factory deletes. The
    /// file system is not owned and has to live until another one is set, or `clearLoadResolver`, or the factory's end.
    template <class FileSystem>
    void setLoadResolver(FileSystem *fileSystem) {
        mLoadResolver = fileSystem ? std::make_shared<FileSystemResolver<FileSystem>>(fileSystem) : nullptr;
    }

    /// From here on loading fails with "No file system set".
    void clearLoadResolver() { mLoadResolver.reset(); }

private:
    friend class Dialog;

    class LoadResolver {
    public:
        virtual ~LoadResolver() = default;
        virtual stream::InputStream *open(const char *path) = 0;
    };

    template <class FileSystem>
    class FileSystemResolver : public LoadResolver {
    public:
        explicit FileSystemResolver(FileSystem *fileSystem) : mFileSystem(fileSystem) {}
        stream::InputStream *open(const char *path) override { return mFileSystem->open(path); }

    private:
        FileSystem *mFileSystem;
    };

    /// The prototype of that name, which is loaded, and kept, if there is none.
    core::SmartPtr<Component> obtainTemplate(const char *name);

    /// Reads and parses the template's file. The component is not kept; its reference belongs to the caller.
    Component *load(const char *name);

    /// `load`, with a failure logged before it goes on to the caller.
    core::SmartPtr<Component> loadLogged(const char *name);

    std::string mTemplateExtension = ".ui";
    core::CKHashMapValue<core::SmartPtr<Component>> mTemplates;
    std::shared_ptr<LoadResolver> mLoadResolver;
    std::vector<std::string> mLoading; ///< the templates being loaded, outermost first
};

} // namespace nurel::ui
