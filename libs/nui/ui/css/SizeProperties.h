#pragma once

#include "nui/ui/css/SizeBase.h"

// The eight kinds that are one length: Width, Height, Left, Top, MinWidth, MaxWidth, MinHeight and MaxHeight.

namespace nurel::ui::css {

class Width : public SizeBase {
public:
    static constexpr const char *CSSNAME = "width";

    Width() : SizeBase(WIDTH) {}

    Property *clone() const override;
};

class Height : public SizeBase {
public:
    static constexpr const char *CSSNAME = "height";

    Height() : SizeBase(HEIGHT) {}

    Property *clone() const override;
};

class Left : public SizeBase {
public:
    static constexpr const char *CSSNAME = "left";

    Left() : SizeBase(LEFT) {}

    Property *clone() const override;
};

class Top : public SizeBase {
public:
    static constexpr const char *CSSNAME = "top";

    Top() : SizeBase(TOP) {}

    Property *clone() const override;
};

class MinWidth : public SizeBase {
public:
    static constexpr const char *CSSNAME = "min-width";

    MinWidth() : SizeBase(MIN_WIDTH) {}

    Property *clone() const override;
};

class MaxWidth : public SizeBase {
public:
    static constexpr const char *CSSNAME = "max-width";

    MaxWidth() : SizeBase(MAX_WIDTH) {}

    Property *clone() const override;
};

class MinHeight : public SizeBase {
public:
    static constexpr const char *CSSNAME = "min-height";

    MinHeight() : SizeBase(MIN_HEIGHT) {}

    Property *clone() const override;
};

class MaxHeight : public SizeBase {
public:
    static constexpr const char *CSSNAME = "max-height";

    MaxHeight() : SizeBase(MAX_HEIGHT) {}

    Property *clone() const override;
};

} // namespace nurel::ui::css
