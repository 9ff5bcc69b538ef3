#pragma once

#include "nengine/scene/Property.h"
#include "nengine/texture/Stage.h"

#include <vector>

namespace nurel::scene::properties {

/// Property 5: the textures of a mesh, by stage. Stage 0 is what the meshes of this library draw.
class TextureProperty : public Property {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    /// Stages are below this number.
    static constexpr unsigned int MAX_STAGES = 8;

    explicit TextureProperty(const char *name = "");

    /// One at first.
    unsigned int getStageCount() const { return static_cast<unsigned int>(mStages.size()); }

    /// Stages up to this one are made if they are not there, which ends references to stages taken before. A number of
    /// `MAX_STAGES` or more means the last possible one.
    texture::Stage &getStage(unsigned int stage);

    /// The texture of a stage; null when there is no such stage or nothing in it.
    texture::Texture *getTexture(unsigned int stage) const;

    using Property::clone;
    core::Object *clone(core::CloningOptions &options) const override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

private:
    std::vector<texture::Stage> mStages;
};

} // namespace nurel::scene::properties
