#include "nui/ui/UIComponentFactory.h"

#include "nui/ui/UIComponentParser.h"

#include "nmain/json/JSObject.h"

#include "foundation/core/Exception.h"
#include "foundation/logging/Logger.h"

#include <algorithm>

namespace nurel::ui {

namespace {

/// Notes a template as being loaded while it lives, and refuses one that is on its way already: a template that names
/// itself as a type, directly or through others, would never end.
class LoadingScope {
public:
    LoadingScope(std::vector<std::string> &loading, const char *name) : mLoading(loading) {
        if (std::find(loading.begin(), loading.end(), name) != loading.end())
            throw core::IllegalStateException("Template %s is built on itself", name);
        mLoading.emplace_back(name);
    }
    ~LoadingScope() { mLoading.pop_back(); }
    LoadingScope(const LoadingScope &) = delete;
    LoadingScope &operator=(const LoadingScope &) = delete;

private:
    std::vector<std::string> &mLoading;
};

} // namespace

UIComponentFactory::UIComponentFactory() : mTemplates(true, nullptr) {}

UIComponentFactory::UIComponentFactory(const UIComponentFactory &other)
    : mTemplateExtension(other.mTemplateExtension), mTemplates(other.mTemplates), mLoadResolver(other.mLoadResolver) {}

UIComponentFactory &UIComponentFactory::operator=(const UIComponentFactory &other) {
    mTemplateExtension = other.mTemplateExtension;
    mTemplates = other.mTemplates;
    mLoadResolver = other.mLoadResolver;
    return *this;
}

UIComponentFactory::~UIComponentFactory() = default;

Component *UIComponentFactory::newInstance(const char *name) {
    const core::SmartPtr<Component> prototype = obtainTemplate(name ? name : "");
    return prototype ? static_cast<Component *>(prototype->clone()) : nullptr;
}

core::SmartPtr<Component> UIComponentFactory::obtainTemplate(const char *name) {
    core::SmartPtr<Component> prototype = mTemplates.get(name);
    if (!prototype) {
        prototype = loadLogged(name);
        if (prototype)
            mTemplates.put(name, prototype);
    }
    return prototype;
}

core::SmartPtr<Component> UIComponentFactory::loadLogged(const char *name) {
    try {
        return load(name);
    } catch (const core::Exception &e) {
        logging::Logger::mROOT_LOGGER.error("Unable to load template %s", e, name);
        throw;
    }
}

Component *UIComponentFactory::load(const char *name) {
    if (!mLoadResolver)
        throw core::IllegalStateException("No file system set");
    const LoadingScope scope(mLoading, name);
    const std::string path = name + mTemplateExtension;
    // A second look at the resolver, ahead of its use: it speaks only when the first one above is ever taken out.
    if (!mLoadResolver) {
        logging::Logger::mROOT_LOGGER.error("UIComponentFactory: can't load template %s, loadcallback not stablished",
                                            name);
        return nullptr;
    }
    const std::unique_ptr<stream::InputStream> stream(mLoadResolver->open(path.c_str()));
    if (!stream)
        throw core::IOException("Cannot open file %s", path.c_str());
    const std::unique_ptr<json::JSObject> json(json::JSObject::parse(stream.get()));
    return UIComponentParser().parseComponent(json.get());
}

Component *UIComponentFactory::getTemplate(const char *name) const {
    return mTemplates.get(name ? name : "").get();
}

void UIComponentFactory::registerTemplate(const char *name, Component *prototype) {
    mTemplates.put(name ? name : "", core::SmartPtr<Component>(prototype));
}

void UIComponentFactory::unregisterTemplate(const char *name) {
    mTemplates.remove(name ? name : "");
}

void UIComponentFactory::unregisterTemplates() {
    mTemplates.clear();
}

void UIComponentFactory::setTemplateExtension(const char *extension) {
    mTemplateExtension = extension ? extension : "";
}

} // namespace nurel::ui
