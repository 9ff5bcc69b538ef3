#pragma once

#include "nmain/math/Vector2.h"
#include "nui/ui/css/Property.h"

namespace nurel::ui::css {

/// `-n-background: SKIN COUNT-U COUNT-V OFFSET-X OFFSET-Y WIDTH HEIGHT SPACING`: which part of the background's image
/// is shown, where an image holds several skins in a grid. What is not given stays at a value that says so.
class NBackground : public Property {
public:
    static constexpr const char *CSSNAME = "-n-background";
    static constexpr const char *CSSNAME_SKIN = "-n-background-skin";
    static constexpr int CSSNAME_SKIN_IDX = 0;
    static constexpr const char *CSSNAME_OFFSET = "-n-background-offset";
    static constexpr int CSSNAME_OFFSET_IDX = 3;
    static constexpr const char *CSSNAME_SIZE = "-n-background-size";
    static constexpr int CSSNAME_SIZE_IDX = 5;

    NBackground();

    NBackground &operator=(const NBackground &other) {
        Property::operator=(other);
        return *this;
    }

    /// The number of the skin, from 0; -1 at first.
    int getCurrentSkin() const { return mCurrentSkin; }
    void setCurrentSkin(int skin) { mCurrentSkin = skin; }
    bool hasCurrentSkin() const { return mCurrentSkin >= 0; }
    bool isValid() const { return hasCurrentSkin(); }

    /// Columns and rows of the grid; 0 at first.
    unsigned int getSkinCountU() const { return mSkinCountU; }
    unsigned int getSkinCountV() const { return mSkinCountV; }
    void setSkinCountU(unsigned int count) { mSkinCountU = count; }
    void setSkinCountV(unsigned int count) { mSkinCountV = count; }
    bool hasSkinCount() const { return mSkinCountU != 0 && mSkinCountV != 0; }

    /// Where the grid starts in the image, pixels; (-1, -1) at first.
    const math::Vector2 &getSkinOffset() const { return mSkinOffset; }
    void setSkinOffset(const math::Vector2 &offset) { mSkinOffset = offset; }
    bool hasSkinOffset() const { return mSkinOffset.x >= 0; }

    /// Size of one skin, pixels; (-1, -1) at first.
    const math::Vector2 &getSkinSize() const { return mSkinSize; }
    void setSkinSize(const math::Vector2 &size) { mSkinSize = size; }
    bool hasSkinSize() const { return mSkinSize.x > 0; }

    /// Pixels between two skins; -1 at first.
    int getSkinSpacing() const { return mSkinSpacing; }
    void setSkinSpacing(int spacing) { mSkinSpacing = spacing; }
    bool hasSkinSpacing() const { return mSkinSpacing >= 0; }

    Property *clone() const override;
    bool _setValue(const Property *other, int index) override;

    /// The index moves on, past the last value too.
    bool _setValue(const char *text, int &index) override;
    void _clone(Property *copy) const override;

private:
    int mCurrentSkin = -1;
    unsigned int mSkinCountU = 0;
    unsigned int mSkinCountV = 0;
    math::Vector2 mSkinOffset{-1, -1};
    math::Vector2 mSkinSize{-1, -1};
    int mSkinSpacing = -1;
};

} // namespace nurel::ui::css
