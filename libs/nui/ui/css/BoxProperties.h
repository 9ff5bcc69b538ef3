#pragma once

#include "nui/ui/css/BoxBase.h"

// The three boxes around a component's content: Margin, Border and Padding. A border takes room and draws nothing.

namespace nurel::ui::css {

class Margin : public BoxBase {
public:
    static constexpr const char *CSSNAME = "margin";
    static constexpr const char *CSSNAME_TOP = "margin-top";
    static constexpr int CSSNAME_TOP_IDX = 0;
    static constexpr const char *CSSNAME_RIGHT = "margin-right";
    static constexpr int CSSNAME_RIGHT_IDX = 1;
    static constexpr const char *CSSNAME_BOTTOM = "margin-bottom";
    static constexpr int CSSNAME_BOTTOM_IDX = 2;
    static constexpr const char *CSSNAME_LEFT = "margin-left";
    static constexpr int CSSNAME_LEFT_IDX = 3;

    Margin() : BoxBase(MARGIN) {}

    Property *clone() const override;
};

class Border : public BoxBase {
public:
    static constexpr const char *CSSNAME = "border";
    static constexpr const char *CSSNAME_TOP = "border-top";
    static constexpr int CSSNAME_TOP_IDX = 0;
    static constexpr const char *CSSNAME_RIGHT = "border-right";
    static constexpr int CSSNAME_RIGHT_IDX = 1;
    static constexpr const char *CSSNAME_BOTTOM = "border-bottom";
    static constexpr int CSSNAME_BOTTOM_IDX = 2;
    static constexpr const char *CSSNAME_LEFT = "border-left";
    static constexpr int CSSNAME_LEFT_IDX = 3;

    Border() : BoxBase(BORDER) {}

    Property *clone() const override;
};

class Padding : public BoxBase {
public:
    static constexpr const char *CSSNAME = "padding";
    static constexpr const char *CSSNAME_TOP = "padding-top";
    static constexpr int CSSNAME_TOP_IDX = 0;
    static constexpr const char *CSSNAME_RIGHT = "padding-right";
    static constexpr int CSSNAME_RIGHT_IDX = 1;
    static constexpr const char *CSSNAME_BOTTOM = "padding-bottom";
    static constexpr int CSSNAME_BOTTOM_IDX = 2;
    static constexpr const char *CSSNAME_LEFT = "padding-left";
    static constexpr int CSSNAME_LEFT_IDX = 3;

    Padding() : BoxBase(PADDING) {}

    Property *clone() const override;
};

} // namespace nurel::ui::css
