#include "nui/ui/Component.h"
#include "nui/ui/ComponentView.h"

#include "foundation/core/Exception.h"
#include "foundation/core/Type.h"
#include "nengine/geometry/MeshData.h"
#include "nengine/geometry/MeshDataCO.h"
#include "nengine/scene/Mesh.h"
#include "nengine/scene/Property.h"
#include "nengine/scene/PropertyCO.h"
#include "nmain/core/CloningOptions.h"

namespace nurel::ui {

void Component::_clone(core::Object *object, core::CloningOptions &options) const {
    if (!object || !object->instanceOf(TYPE) || static_cast<Component *>(object)->mIsContainer != mIsContainer)
        throw core::IllegalArgumentException("%s cannot be cloned into %s", getType().getName(),
                                             object ? object->getType().getName() : "nothing");
    if (object == this)
        return;
    Component &target = *static_cast<Component *>(object);
    // 1. The name and the event mask are the base's
    UIEventHandler::_clone(object, options);
    target.mTabStop = mTabStop;
    target.mAnchor = mAnchor;
    // 2.
    target.dropView();
    // 3.
    target.mDeclaredPosition = mDeclaredPosition;
    target.mDeclaredSize = mDeclaredSize;
    target.mEnabled = mEnabled;
    target.mPosition = mPosition;
    target.mWorldPosition = mWorldPosition;
    target.mSize = mSize;
    target.mNaturalSize = mNaturalSize;
    target.mParentRelativePosition = mParentRelativePosition;
    target.mMinBound = mMinBound;
    target.mParentSize = mParentSize;
    target.mMaxBound = mMaxBound;
    target.mDirty = mDirty;
    target.mVisible = mVisible;
    target.mRotation = mRotation;
    target.mScale = mScale;
    target.mOpacity = mOpacity;
    target.mZIndex = mZIndex;
    target.mElement = mElement;
    target.mBox = mBox;
    target.mState = mState;
    // 4. The own scale, not the world scale: the parents' part comes with the first update
    target.mWorldScale = mScale;
    // 5.
    target.mUserData = mUserData;
    // 6. By addClass(), so that a class which hands its classes on to its children sees them
    target.mClasses.clear();
    for (const auto &entry : mClasses)
        target.addClass(entry.first);
    // 7.
    if (mMesh)
        cloneMesh(target);
}

void Component::cloneMesh(Component &target) const {
    core::CloningOptions options;
    options.put(scene::Property::TYPE, new scene::PropertyCO(0xffff));
    options.put(geometry::MeshData::TYPE, new geometry::MeshDataCO(0, true));
    core::SmartPtr<core::Object> copy(mMesh->clone(options));
    if (copy && copy->instanceOf(scene::Mesh::TYPE))
        target.mMesh = static_cast<scene::Mesh *>(copy.get());
}

} // namespace nurel::ui
