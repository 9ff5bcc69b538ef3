#pragma once

#include "foundation/core/SmartPtr.h"
#include "nmain/math/Vector4.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/css/Property.h"
#include "nui/ui/css/StylableHelper.h"

#include <atomic>
#include <cstdint>

namespace nurel::scene::meshes {
class BorderedRectangleMesh;
} // namespace nurel::scene::meshes

namespace nurel::scene::properties {
class StencilProperty;
} // namespace nurel::scene::properties

namespace nurel::texture {
class Texture;
} // namespace nurel::texture

namespace nurel::ui::css {

class CSSSkin;
class SizeBase;

/// The view of a component that a style sheet styles. It restyles itself when state or classes of the component change,
/// turns each property into a call on the component or its mesh, and cuts off what sticks out of a container.
///
/// **Restyling** happens in updateView(), when the state word differs from that of the last restyle and the component
/// is visible, when the component has DIRTY_STYLE, or after setStyleDirty(). Every property of every matching rule is
/// applied again, in order; what an earlier state set and no matching rule sets now stays.
///
/// **Clipping** counts in the stencil buffer. Every view draws where the buffer holds the level that it is updated at.
/// A container whose content sticks out raises its own area by one ahead of its children, who draw at that level, and
/// puts the old level back behind them. Levels end at 255: containers nested deeper do not clip any further. A
/// container that nothing sticks out of draws nothing for it.
///
/// **Textures** that are still loading are drawn once they are there: the view's component is marked dirty then.
///
/// Render thread; destroying a view on another one waits until the render thread has forgotten its textures.
class CSSView : public ComponentView {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    /// The stencil level of what is being updated.
    static unsigned int mSTENCIL_REFERENCE;

    CSSView(const char *name, Component *component, CSSSkin *skin);
    ~CSSView() override;

    // --- Pinned properties: styling leaves their kind alone, so that what the application has set stays. It is looked
    // --- at when a property is collected.

    void setOverridden(Property::Name name, bool overridden);
    void setOverridden(const Property *property, bool overridden);
    bool isOverridden(Property::Name name) const { return (mOverridden & bitOf(name)) != 0; }
    bool isOverridden(const Property *property) const;
    void clearOverride(Property::Name name) { setOverridden(name, false); }
    void clearOverride(const Property *property) { setOverridden(property, false); }
    void clearOverride() { mOverridden = 0; }

    // --- Styling

    /// Restyle at the next updateView(), which is asked for.
    void setStyleDirty();

    /// Applies what was collected, in order, and forgets it.
    void applyProperties();

    const StylableHelper &getStylable() const { return mStylable; }

    // --- Textures

    /// Marks the component dirty when the texture's pixels have arrived; nothing if they are there. Null is ignored.
    void ensureTexture(texture::Texture *texture);

    /// Waits for no texture any more.
    void cancelEnsureTexture();

    /// Gives the frame a texture from the pool and has the view wait for it. False, and nothing changes, for a name
    /// that is null or empty, for one that there is no picture of, and for one whose picture is broken.
    static bool setTexture(CSSView *view, scene::Frame *frame, const char *name);

    // --- Colours

    /// Sets the colour of the frame's own material. A red below 0 leaves red, green and blue alone, an alpha below 0
    /// the alpha. Always true.
    static bool setColor(scene::Frame *frame, const math::Vector4 &color);

    /// The colour of the frame's material, which becomes its own.
    static const math::Vector4 &getColor(scene::Frame *frame);

    void updateView() override;
    bool updateInternal(float time, bool parentChanged) override;

protected:
    /// Called once, ahead of the first styling: takes the component's mesh and makes what clipping needs.
    virtual void buildGeometry();

    /// Turns one property into a call on the component or on its mesh. The component is there.
    virtual void apply(const Property *property);

    scene::meshes::BorderedRectangleMesh *getMesh() const { return mMesh; }
    scene::meshes::BorderedRectangleMesh *getClip() const { return mClip.get(); }
    scene::meshes::BorderedRectangleMesh *getClipClear() const { return mClipClear.get(); }
    scene::properties::StencilProperty *getStencil() const { return mStencil.get(); }
    scene::properties::StencilProperty *getClipStencil() const { return mClipStencil.get(); }

private:
    static std::uint32_t bitOf(Property::Name name) { return std::uint32_t{1} << (name & 31U); }

    void buildClip();
    void noticeState();
    void restyle();
    void placeClip();
    void applyBackground(const Property &property);
    void applySkin(const Property &property);
    void applyOverflow(const Property &property);
    void applySize(const Property &property, bool isWidth);
    void applyPosition(const Property &property, bool isLeft);
    void applyLimit(const SizeBase &size);
    void deferrUpdate(texture::Texture *texture);
    static bool textureRegistered(texture::Texture *texture);
    static void _cancelEnsureTexture(CSSView *view);
    static void subscribeRegistration();

    StylableHelper mStylable;
    scene::meshes::BorderedRectangleMesh *mMesh = nullptr; ///< the underlay's; null too for a mesh of another class
    // Held, for an application may take them out of the scene
    core::SmartPtr<scene::meshes::BorderedRectangleMesh> mClip;      ///< in the underlay; containers only
    core::SmartPtr<scene::meshes::BorderedRectangleMesh> mClipClear; ///< in the overlay; containers only
    core::SmartPtr<scene::properties::StencilProperty> mClipStencil;
    core::SmartPtr<scene::properties::StencilProperty> mClearStencil;
    core::SmartPtr<scene::properties::StencilProperty> mStencil;
    unsigned int mLastState = 0xffff;
    std::uint32_t mOverridden = 0;                 ///< a bit for each `Property::Name`
    std::atomic<unsigned int> mPendingTextures{0}; ///< none: the render thread does not know the view
    bool mStyleDirty = true;
    bool mGeometryBuilt = false;
};

} // namespace nurel::ui::css
