#include "foundation/core/Future.h"
#include "nengine/renderer/Renderer.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nengine/scene/properties/TextureProperty.h"
#include "nengine/texture/RenderData.h"
#include "nengine/texture/Texture.h"
#include "nengine/texture/TexturePool.h"
#include "nmain/core/CloningOptions.h"
#include "nui/ui/Component.h"
#include "nui/ui/css/CSSView.h"

#include <iterator>
#include <map>
#include <memory>
#include <set>
#include <utility>

/// The looks that a frame owns, and textures that arrive late.
namespace nurel::ui::css {

namespace {

class Subscription;

/// Who waits for what. It belongs to the render thread.
struct Waiting {
    std::map<texture::Texture *, std::set<CSSView *>> views;
    Subscription *subscription = nullptr; ///< null: none is in force
    unsigned int subscriptionId = 0;
};

Waiting &waiting() {
    static Waiting *const instance = new Waiting; // views may outlive the static objects
    return *instance;
}

/// Lives in the renderer's callback and goes with it, also when the renderer ends first.
class Subscription {
public:
    Subscription() { waiting().subscription = this; }
    Subscription(const Subscription &) = delete;
    Subscription &operator=(const Subscription &) = delete;
    ~Subscription() {
        if (waiting().subscription == this)
            waiting().subscription = nullptr;
    }
};

constexpr unsigned int TEXTURE_KIND = 2;

/// The frame's own property: a clone of what it goes by if it has none or shares it with all.
template <class Property>
Property &obtainOwn(scene::Frame &frame, unsigned int index) {
    scene::Property *property = frame.getPropertySet()[index];
    if (!property || property->isDefault()) {
        core::CloningOptions options;
        property = static_cast<scene::Property *>(frame.getProperty(index)->clone(options));
        frame.setProperty(property);
        frame.updateProperties();
    }
    property->setDefault(false);
    return static_cast<Property &>(*property);
}

} // namespace

bool CSSView::setColor(scene::Frame *frame, const math::Vector4 &color) {
    auto &material = obtainOwn<scene::properties::MaterialProperty>(*frame, scene::Property::MATERIAL);
    math::Vector4 mixed = material.getColor();
    if (color.x >= 0) {
        mixed.x = color.x;
        mixed.y = color.y;
        mixed.z = color.z;
    }
    if (color.w >= 0)
        mixed.w = color.w;
    material.setColor(mixed);
    return true;
}

const math::Vector4 &CSSView::getColor(scene::Frame *frame) {
    return obtainOwn<scene::properties::MaterialProperty>(*frame, scene::Property::MATERIAL).getColor();
}

bool CSSView::setTexture(CSSView *view, scene::Frame *frame, const char *name) {
    texture::TexturePool *pool = texture::TexturePool::getSingletonPtr();
    // 1.
    if (!name || !*name || !pool)
        return false;
    // 2. and 3.
    const core::SmartPtr<texture::Texture> texture((*pool)[name]);
    if (!texture || !texture->isValid())
        return false;
    // 4.
    auto &property = obtainOwn<scene::properties::TextureProperty>(*frame, scene::Property::TEXTURE);
    texture->setWrapping(texture::Texture::W_CLAMP);
    texture::Stage &stage = property.getStage(0);
    if (stage.getTexture() != texture.get())
        stage.setTexture(texture.get());
    // 5.
    if (view)
        view->ensureTexture(texture.get());
    return true;
}

void CSSView::ensureTexture(texture::Texture *texture) {
    if (!texture)
        return;
    const texture::RenderData *data = texture->getRenderData();
    texture::TexturePool *pool = texture::TexturePool::getSingletonPtr();
    if (data && !(pool && data == pool->getDefaultTextureRenderData(TEXTURE_KIND)))
        return;
    deferrUpdate(texture);
}

void CSSView::deferrUpdate(texture::Texture *texture) {
    if (waiting().views[texture].insert(this).second)
        ++mPendingTextures;
    subscribeRegistration();
}

void CSSView::subscribeRegistration() {
    renderer::Renderer *renderer = renderer::Renderer::getSingletonPtr();
    if (waiting().subscription || !renderer)
        return;
    waiting().subscriptionId =
        renderer->subscribeTextureRegistered([subscription = std::make_shared<Subscription>()](
                                                 texture::Texture *texture) { return textureRegistered(texture); });
}

bool CSSView::textureRegistered(texture::Texture *texture) {
    auto &views = waiting().views;
    // One view at a time is taken out, so that each may destroy any other.
    for (auto found = views.find(texture); found != views.end(); found = views.find(texture)) {
        CSSView *view = *found->second.begin();
        found->second.erase(view);
        if (found->second.empty())
            views.erase(found);
        view->markComponent(Component::DIRTY_ALL);
        --view->mPendingTextures; // last: another thread may destroy the view from here on
    }
    if (!views.empty())
        return false;
    waiting().subscription = nullptr; // the renderer drops the callback only when all have been called
    return true;
}

void CSSView::cancelEnsureTexture() {
    if (mPendingTextures == 0)
        return;
    renderer::Renderer *renderer = renderer::Renderer::getSingletonPtr();
    if (!renderer || renderer->getTaskQueue().isOwnThread())
        _cancelEnsureTexture(this);
    else
        renderer->getTaskQueue().post([this] { _cancelEnsureTexture(this); }).wait();
}

void CSSView::_cancelEnsureTexture(CSSView *view) {
    auto &views = waiting().views;
    for (auto entry = views.begin(); entry != views.end();) {
        entry->second.erase(view);
        entry = entry->second.empty() ? views.erase(entry) : std::next(entry);
    }
    view->mPendingTextures = 0;
    if (!views.empty() || !waiting().subscription)
        return;
    waiting().subscription = nullptr; // the callback itself may live on to the end of a call that is under way
    // A renderer that is going runs what is queued at its very end.
    if (renderer::Renderer *renderer = renderer::Renderer::getSingletonPtr())
        renderer->unsubscribeTextureRegistered(waiting().subscriptionId);
}

} // namespace nurel::ui::css
