#pragma once

#include "nmain/core/CloningOptions.h"

namespace nurel::scene {

/// Which of a frame's own properties its clone gets as copies: bit n stands for index n. The clone shares the others
/// with its source, and all of them when the option is not given. Put it under `Property::TYPE`:
///
///     options.put(scene::Property::TYPE, new scene::PropertyCO(0xffff)); // a clone that can be coloured by itself
class PropertyCO : public core::CloningOptions::Option {
public:
    explicit PropertyCO(unsigned int mask, bool inherited = true);

    bool isCopied(unsigned int index) const { return (mMask >> index & 1u) != 0; }

    /// The option of this operation; null when there is none.
    static const PropertyCO *find(const core::CloningOptions &options);

private:
    const unsigned int mMask;
};

} // namespace nurel::scene
