#include "nengine/scene/properties/TextureProperty.h"

#include "nengine/texture/Texture.h"

#include <algorithm>

namespace nurel::scene::properties {

constinit const ::core::Type TextureProperty::TYPE("TextureProperty", &Property::TYPE);

TextureProperty::TextureProperty(const char *name) : Property(TEXTURE, name), mStages(1) {}

texture::Stage &TextureProperty::getStage(unsigned int stage) {
    const std::size_t index = std::min(stage, MAX_STAGES - 1);
    if (index >= mStages.size())
        mStages.resize(index + 1);
    return mStages[index];
}

texture::Texture *TextureProperty::getTexture(unsigned int stage) const {
    return stage < mStages.size() ? mStages[stage].getTexture() : nullptr;
}

core::Object *TextureProperty::clone(core::CloningOptions &options) const {
    auto *copy = new TextureProperty(getName());
    _clone(copy, options);
    return copy;
}

void TextureProperty::_clone(core::Object *target, core::CloningOptions &options) const {
    Property::_clone(target, options);
    if (target && target->instanceOf(TYPE))
        static_cast<TextureProperty *>(target)->mStages = mStages;
}

} // namespace nurel::scene::properties
