#pragma once

#include "foundation/core/SmartPtr.h"
#include "nengine/scene/Node.h"
#include "nui/ui/Fwd.h"

namespace nurel::scene {
class Camera;
} // namespace nurel::scene

namespace nurel::ui {

/// The scene node that draws a component. The component holds data and logic, the view turns them into meshes, and a
/// `Skin` chooses which view a component gets.
///
/// What a view does:
/// 1. Its constructor gets component and skin and takes no geometry from them yet.
/// 2. updateView() is called when the component's view is dirty, after its position is up to date. Overrides call the
///    base. The component clears the flags afterwards.
/// 3. It reads from the component whatever it shows and keeps no copy of the truth.
/// 4. When it changes something that the layout depends on, it says so through forceDirty().
///
/// Three nodes hang under a view, made on demand and drawn in this order: the underlay for backgrounds, the content for
/// the children's views, and the overlay for what stands above them.
///
/// The component holds its view, and the view only points at the component: getComponent() is null from the moment the
/// component dropped the view, which may live on in the scene. The skin is held and lives as long as its views.
class ComponentView : public scene::Node {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    ComponentView(const char *name, Component *component, Skin *skin);
    ComponentView(const ComponentView &) = delete;
    ComponentView &operator=(const ComponentView &) = delete;
    ~ComponentView() override;

    Skin *getSkin() const { return mSkin.get(); }
    Component *getComponent() const { return mComponent; }

    /// Takes transform and visibility from the component, whose geometry is brought up to date first.
    virtual void updateView();

    /// Told each frame whether something below the view changed.
    virtual void childrenUpdated(bool changed);

    scene::Node *getUnderlay();
    scene::Node *getContent();
    scene::Node *getOverlay();
    bool hasContent() const { return mContent != nullptr; }

    /// Puts a child's view among the others in the order of z-indexes, behind those with the same one. A view that is
    /// there already is taken out first; null is skipped.
    void insertView(ComponentView *view);
    void removeView(ComponentView *view);

    /// Give a child its view and put it in, and take it out.
    void componentAdded(Component *component);
    void componentRemoved(Component *component);

    /// Sorts the children's views by z-index; those with equal ones keep their order.
    void applyZIndex();

    /// Draws nothing, the children neither, when the component lies wholly outside its parent's rectangle. What is
    /// turned so far that the culler's camera looks at its back is not drawn either; a child that is turned back again
    /// is.
    void onVisible(scene::Culler *culler, math::Frustum::EFrustumResult result) override;
    bool updateInternal(float time, bool parentChanged) override;

protected:
    /// Tells the component that its geometry has to be worked out again.
    void forceDirty();

    /// Raises flags on the component, and what follows from them around it; nothing without a component.
    void markComponent(unsigned int flags);

    /// Brings position and content of the component up to date if they are dirty: the first thing that updateView()
    /// does.
    void updateComponent();

private:
    friend class Component; // dropComponent, adoptComponent

    void dropComponent(const Component *component);
    void adoptComponent(Component *component);
    unsigned int findPlace(int zIndex, const Container *parent) const;
    bool isTurnedAway(const scene::Camera &camera) const;

    core::SmartPtr<Skin> mSkin;
    Component *mComponent;
    core::SmartPtr<scene::Node> mUnderlay;
    core::SmartPtr<scene::Node> mContent;
    core::SmartPtr<scene::Node> mOverlay;
};

} // namespace nurel::ui
