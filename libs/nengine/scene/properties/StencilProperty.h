#pragma once

#include "nengine/scene/Property.h"

namespace nurel::scene::properties {

/// Property 6: the stencil test. A pixel passes when `reference` compares as asked with the value in the stencil
/// buffer, which is 0 everywhere at the start of a frame; one of three operations then changes that value.
class StencilProperty : public Property {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    /// `LESS_EQUAL`: passes when the reference is less than or equal to the buffer.
    enum Comparison : unsigned int { NEVER, LESS, EQUAL, LESS_EQUAL, GREATER, NOT_EQUAL, GREATER_EQUAL, ALWAYS };

    /// `REPLACE` writes the reference, `INCREMENT` stops at 255.
    enum Operation : unsigned int { KEEP, ZERO, REPLACE, INCREMENT };

    explicit StencilProperty(const char *name = "");

    /// Off at first: neither test nor operation.
    bool isEnabled() const { return mEnabled; }
    void setEnabled(bool enabled);

    /// `ALWAYS` at first. A number that is no comparison is ignored.
    unsigned int getComparison() const { return mComparison; }
    void setComparison(unsigned int comparison);

    /// 0 at first; more than 255 counts as 255.
    unsigned int getReference() const { return mReference; }
    void setReference(unsigned int reference);

    /// What is done when the test fails, when it passes and the depth test fails, and when both pass. All `KEEP` at
    /// first. A number that is no operation leaves that one as it was.
    void setOperations(unsigned int fail, unsigned int depthFail, unsigned int pass);
    unsigned int getFailOperation() const { return mFail; }
    unsigned int getDepthFailOperation() const { return mDepthFail; }
    unsigned int getPassOperation() const { return mPass; }

    using Property::clone;
    core::Object *clone(core::CloningOptions &options) const override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

private:
    bool mEnabled = false;
    std::uint8_t mComparison = ALWAYS;
    std::uint8_t mReference = 0;
    std::uint8_t mFail = KEEP;
    std::uint8_t mDepthFail = KEEP;
    std::uint8_t mPass = KEEP;
};

} // namespace nurel::scene::properties
