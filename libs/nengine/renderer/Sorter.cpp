#include "nengine/renderer/Sorter.h"

namespace nurel::renderer {

constinit const ::core::Type Sorter::TYPE("Sorter", &core::Object::TYPE);

Sorter::Sorter(Renderer *renderer) : mRenderer(renderer) {}

void Sorter::clear() {
    mSets.clear();
}

void Sorter::add(scene::VisibilitySet *set) {
    if (set)
        mSets.push_back(set);
}

void Sorter::sort() {}

} // namespace nurel::renderer
