#pragma once

#include "foundation/core/SmartPtr.h"

namespace nurel::texture {

class Texture;

/// A holder of one texture, as a texture property has them. Copies share the texture.
class Stage {
public:
    Stage();
    explicit Stage(Texture *texture);
    Stage(const Stage &other);
    Stage &operator=(const Stage &other);
    ~Stage();

    Texture *getTexture() const { return mTexture.get(); }

    /// Null takes the texture away.
    void setTexture(Texture *texture);

private:
    ::core::SmartPtr<Texture> mTexture;
};

} // namespace nurel::texture
