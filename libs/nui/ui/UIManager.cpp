#include "nui/ui/UIManager.h"

#include "foundation/core/Exception.h"
#include "foundation/core/Lock.h"
#include "foundation/logging/Logger.h"
#include "nengine/EngineFactory.h"
#include "nengine/font/FontManager.h"
#include "nengine/geometry/MeshDataAllocator.h"
#include "nengine/renderer/RenderPass.h"
#include "nengine/renderer/RenderView.h"
#include "nengine/renderer/Renderer.h"
#include "nengine/renderer/Sorter.h"
#include "nengine/scene/Camera.h"
#include "nengine/scene/Culler.h"
#include "nengine/scene/Node.h"
#include "nengine/scene/VisibilitySet.h"
#include "ninput/input/InputSystem.h"
#include "nui/ui/AnimationContext.h"
#include "nui/ui/Dialog.h"
#include "nui/ui/KeyboardOverlay.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/UIComponentFactory.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/components/Checkbox.h"
#include "nui/ui/components/Combo.h"
#include "nui/ui/components/Image.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Listbox.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/components/Progress.h"
#include "nui/ui/components/Radio.h"
#include "nui/ui/components/Selector.h"
#include "nui/ui/components/Slider.h"
#include "nui/ui/components/TextField.h"
#include "nui/ui/detail/UIManagerScopes.h"
#include "nui/ui/layouts/FlowLayout.h"
#include "nui/ui/layouts/FormLayout.h"

#include <algorithm>
#include <cstdint>

namespace nurel::ui {

namespace {

/// Leaves the order of the scene alone, so that the order of nodes, which the z-indexes set up, is that of drawing.
class DummySorter : public renderer::Sorter {
public:
    using renderer::Sorter::Sorter;
    void sort() override {}
};

struct Creatable {
    const core::Type &type;
    core::ObjectFactory<core::Object>::Creator creator;
};

template <class Class>
core::Object *create() {
    return new Class;
}

constexpr Creatable CREATABLE_CLASSES[] = {
    {components::Button::TYPE, create<components::Button>},
    {components::Checkbox::TYPE, create<components::Checkbox>},
    {components::Combo::TYPE, create<components::Combo>},
    {components::Image::TYPE, create<components::Image>},
    {components::Label::TYPE, create<components::Label>},
    {components::Listbox::TYPE, create<components::Listbox>},
    {components::Panel::TYPE, create<components::Panel>},
    {components::Progress::TYPE, create<components::Progress>},
    {components::Radio::TYPE, create<components::Radio>},
    {components::Selector::TYPE, create<components::Selector>},
    {components::Slider::TYPE, create<components::Slider>},
    {components::TextField::TYPE, create<components::TextField>},
    {layouts::FlowLayout::TYPE, create<layouts::FlowLayout>},
    {layouts::FormLayout::TYPE, create<layouts::FormLayout>},
    {Widget::TYPE, create<Widget>},
};

constexpr unsigned int NO_SUBSCRIPTION = 0xffff;

// The camera stands so far from the plane z = 0 that one unit there is one pixel.
constexpr float CAMERA_DISTANCE = 1000;
constexpr float NEAR_PLANE = 500;
constexpr float FAR_PLANE = 2000;

/// Whole pixels of an extent; what is below 1, or no number, is 0.
unsigned int toPixels(unsigned int extent, float scale) {
    const double pixels = static_cast<double>(static_cast<float>(extent) * scale);
    if (!(pixels >= 1))
        return 0;
    return pixels < static_cast<double>(UINT32_MAX) ? static_cast<unsigned int>(pixels) : UINT32_MAX;
}

void requireEngine() {
    if (!renderer::Renderer::isSingletonCreated())
        throw core::IllegalStateException("UIManager needs a running engine");
}

} // namespace

UIManager::UIManager() {
    requireEngine();
    createScene();
    subscribe();
    if (EngineFactory *factory = EngineFactory::getSingletonPtr()) {
        for (const Creatable &creatable : CREATABLE_CLASSES)
            factory->registerCreator(creatable.type, creatable.creator);
    }
}

void UIManager::createScene() {
    renderer::Renderer &renderer = renderer::Renderer::getSingleton();
    mCamera = new scene::Camera("guiCamera");
    mCamera->setTranslation(math::Vector3(0, 0, -50));
    setScale(math::Vector2(1, 1)); // resizes, which sets the camera up and runs an update without a root
    mRoot = new scene::Node("UI.root");
    mVisibilitySet = std::make_unique<scene::VisibilitySet>();
    mRenderPass = new renderer::RenderPass(nullptr, renderer.prepareSorter(new DummySorter(&renderer)));
    mRenderView = new renderer::RenderView(new scene::Culler(mVisibilitySet.get()), mCamera.get(), mRoot.get());
    mRenderPass->append(mRenderView.get());
    mRenderPass->clearMask = 0; // drawn over what is there
    mRoot->update(0, true);
    mRoot->updateFX();
    mRoot->updateProperties();
}

void UIManager::subscribe() {
    mResizeSubscription = renderer::Renderer::getSingleton().subscribeResize(
        [this](const renderer::ResizeEventData &data) { return resize(data); });
    if (input::InputSystem::isSingletonCreated()) {
        mKeyboardSubscription = input::InputSystem::getSingleton().getKeyboard().subscribe(
            [this](input::Keyboard::KeyboardCallBackInfo &info) { _keyboardCallback(info); });
    }
}

void UIManager::unsubscribe() {
    if (mKeyboardSubscription != NO_SUBSCRIPTION && input::InputSystem::isSingletonCreated())
        input::InputSystem::getSingleton().getKeyboard().unsubscribe(mKeyboardSubscription);
    if (renderer::Renderer::isSingletonCreated())
        renderer::Renderer::getSingleton().unsubscribeResize(mResizeSubscription);
}

void UIManager::shutdown() {
    UIManager *manager = mObject;
    if (manager && manager->mEnding)
        return;
    if (manager && manager->mActivities > 0) {
        manager->mShutdownRequested = true;
        return;
    }
    if (manager)
        manager->mShutdownRequested = false; // dialogs that die now must not come back here
    Dialog::shutdown();
    deleteSingleton();
}

UIManager::~UIManager() {
    // Components call back while they go, and so may the application's callbacks, which find the manager whole until
    // the last line of this body.
    mEnding = true;
    mProcessingQueue = true;
    ++mActivities;
    SkinManager::deleteSingleton(); // views keep their skins
    Contexts().swap(mRunningAnimations);
    Contexts().swap(mCommitQueue);
    Contexts().swap(mCancelQueue);
    unsubscribe();
    if (EngineFactory *factory = EngineFactory::getSingletonPtr()) {
        for (const Creatable &creatable : CREATABLE_CLASSES)
            factory->unregister(creatable.type, false);
    }
    mVisibilitySet.reset();
    removeAllWidgets();
    mKeyboardOverlay.reset();
    UIComponentFactory::deleteSingleton();
    if (mGeometryAllocator) {
        mGeometryAllocator->dumpLog();
        mGeometryAllocator = nullptr;
    }
    releaseRest();
}

void UIManager::removeAllWidgets() {
    while (!mWidgets.empty()) {
        const core::SmartPtr<Widget> widget = mWidgets.back();
        try {
            _removeWidget(widget.get());
        } catch (const std::exception &e) {
            logging::Logger::mROOT_LOGGER.error("A callback failed while the UIManager ended", e);
            mWidgets.remove(widget);
        }
    }
    std::deque<WidgetQueueEntry>().swap(mWidgetQueue);
}

void UIManager::releaseRest() {
    Dialog::shutdown(); // if a callback has shown one since
    mEventObserver.removeCallbacks();
    mTextBuffer.clear();
    mStageCallbacks.removeCallbacks();
    mButtonQueue.clear();
    Contexts().swap(mRunningAnimations);
    Contexts().swap(mCommitQueue);
    Contexts().swap(mCancelQueue);
    mCurrentAnimation = nullptr;
    releaseKept();
    mRenderPass = nullptr;
    mRenderView = nullptr;
    mCamera = nullptr;
    mRoot = nullptr;
    SkinManager::deleteSingleton(); // if a callback has made one anew
}

void UIManager::keepForPass(const core::IRefCount *object) {
    if (!object || object->getRefCount() == 0 || UIEventHandler::Keeper::isHeldByKeepersOnly(object))
        return; // nobody's, or somebody's on the stack
    const core::Lock lock(mLock);
    if (!mRemovals || !mRemovals->contains(object))
        mKept.emplace_back(object);
}

void UIManager::releaseKept() {
    std::vector<core::SmartPtr<const core::IRefCount>> released;
    for (;;) {
        {
            // The buffer goes back in the end, so that a frame without news allocates nothing.
            const core::Lock lock(mLock);
            if (mKept.empty() && mKept.capacity() >= released.capacity())
                return;
            released.swap(mKept);
        }
        released.clear(); // destructors may keep more
    }
}

// --- the frame ---

template <class Visit>
void UIManager::forEachWidget(Visit visit) {
    for (auto it = mWidgets.begin(); it != mWidgets.end(); ++it) {
        const core::SmartPtr<Widget> widget = *it;
        const unsigned int revision = mWidgetsRevision;
        visit(*widget);
        if (revision == mWidgetsRevision)
            continue;
        // The visit has let the widget queue run. What is left out now is still dirty in the next frame.
        it = std::find(mWidgets.begin(), mWidgets.end(), widget);
        if (it == mWidgets.end())
            return;
    }
}

void UIManager::update() {
    const Activity activity(*this);
    mStageCallbacks.triggerCallbacks(STAGE_UPDATE);
    mTime = renderer::Renderer::getSingleton().getFrameTime();
    updateAnimations(mTime);
    forEachWidget([](Widget &widget) {
        if (widget.isDirty(Component::DIRTY_ALL))
            widget.update();
    });
    if (mRoot)
        mRoot->update(mTime, true);
}

void UIManager::updateWidgetPositions() {
    const Activity activity(*this);
    forEachWidget([](Widget &widget) {
        if (widget.getComponentSize().relative != math::Vector2::ZERO)
            widget.setDirty(Component::DIRTY_POSITION);
    });
    update();
}

void UIManager::refresh() {
    const Activity activity(*this);
    updateWidgetPositions();
    forEachWidget(
        [](Widget &widget) { widget.setDirty__(Component::DIRTY_ALL, Component::DIRTY_SELF | Component::DIRTY_DOWN); });
    update();
}

// --- screen and scene ---

bool UIManager::resize(const renderer::ResizeEventData &data) {
    const Activity activity(*this);
    {
        const core::Lock lock(mLock);
        mScreenPixelWidth = data.newWidth;
        mScreenPixelHeight = data.newHeight;
        mViewPort = math::ViewPort(toPixels(data.newWidth, mScale.x), toPixels(data.newHeight, mScale.y));
        if (getScreenWidth() != 0 && getScreenHeight() != 0)
            setUpCamera();
    }
    refresh();
    return false;
}

void UIManager::setUpCamera() {
    const float halfWidth = static_cast<float>(getScreenWidth()) * 0.5f;
    const float halfHeight = static_cast<float>(getScreenHeight()) * 0.5f;
    math::Matrix4 projection;
    projection.perspective(90, 1, NEAR_PLANE, FAR_PLANE);
    projection(0, 0) = -CAMERA_DISTANCE / halfWidth;
    projection(1, 1) = CAMERA_DISTANCE / halfHeight;
    mCamera->setProjection(projection);
    mCamera->setTranslation(math::Vector3(halfWidth, halfHeight, -CAMERA_DISTANCE));
    const math::Matrix3 rotation(-math::Vector3::AXIS_X, -math::Vector3::AXIS_Y, math::Vector3::AXIS_Z, true);
    mCamera->setRotation(rotation, false);
    mCamera->update(0, true);
}

void UIManager::resizeToScreen() {
    const renderer::ScreenSettings &screen = renderer::Renderer::getSingleton().getScreenSettings();
    resize({renderer::ResizeEventData::SCREEN, mScreenPixelWidth, mScreenPixelHeight, screen.width, screen.height});
}

void UIManager::setScale(const math::Vector2 &scale) {
    const Activity activity(*this);
    {
        const core::Lock lock(mLock);
        mScale = scale;
    }
    resizeToScreen();
    if (font::FontManager *fonts = font::FontManager::getSingletonPtr())
        fonts->setRebuildFonts(true);
}

void UIManager::setCamera(scene::Camera *camera) {
    if (!camera)
        return;
    const Activity activity(*this);
    {
        const core::Lock lock(mLock);
        mCamera = camera;
        mRenderView->setCamera(camera);
    }
    resizeToScreen();
}

void UIManager::setGeometryAllocator(geometry::MeshDataAllocator *allocator) {
    using geometry::MeshData;
    if (allocator) {
        const MeshData *data = allocator->getMeshData();
        // Any one of the three will do here: only what lacks them all is refused.
        if ((data->getAttributeMask() & MeshData::AM_ALL) == 0) {
            logging::Logger::mROOT_LOGGER.error("Incompatible MeshDataAllocator: UI elements need "
                                                "AM_POSITION | AM_INDEX | AM_TEXTURE0 vertex attributes");
            return;
        }
        for (const MeshData::Attribute attribute : {MeshData::AM_POSITION, MeshData::AM_INDEX, MeshData::AM_TEXTURE0}) {
            if (data->getStorage(attribute) == MeshData::AS_HOST)
                continue;
            logging::Logger::mROOT_LOGGER.error("Incompatible MeshDataAllocator: UI elements need vertes attributes to "
                                                "be have AS_HOST storage");
            return;
        }
    }
    mGeometryAllocator = allocator;
}

} // namespace nurel::ui
