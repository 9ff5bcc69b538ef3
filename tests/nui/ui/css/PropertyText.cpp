#include "PropertyText.h"

#include "nui/ui/css/Background.h"
#include "nui/ui/css/BorderRadius.h"
#include "nui/ui/css/BoxProperties.h"
#include "nui/ui/css/Color.h"
#include "nui/ui/css/Font.h"
#include "nui/ui/css/NAnchor.h"
#include "nui/ui/css/NBackground.h"
#include "nui/ui/css/Opacity.h"
#include "nui/ui/css/Overflow.h"
#include "nui/ui/css/SizeProperties.h"
#include "nui/ui/css/TextAlign.h"
#include "nui/ui/css/Transform.h"
#include "nui/ui/css/VerticalAlign.h"
#include "nui/ui/css/ZIndex.h"

#include <cstdio>

namespace nurel::ui::css {

namespace {

std::string number(float value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.7g", static_cast<double>(value));
    return text;
}

std::string vector(const math::Vector2 &v) {
    return number(v.x) + ' ' + number(v.y);
}

std::string vector(const math::Vector4 &v) {
    return number(v.x) + ' ' + number(v.y) + ' ' + number(v.z) + ' ' + number(v.w);
}

std::string matrix(const math::Matrix4 &m) {
    math::Matrix4 scaling;
    scaling.setScale({m[0], m[5], m[10]});
    if (m == scaling)
        return "scale=" + number(m[0]) + ' ' + number(m[5]) + ' ' + number(m[10]);
    std::string text = "matrix=";
    for (unsigned int i = 0; i < 16; ++i)
        text += number(m[i]) + ' ';
    return text;
}

std::string describe(const Font &font) {
    constexpr const char *MEASUREMENTS[] = {"pixels", "fraction", "auto"};
    return "family=" + font.getFamily() + " size=" + number(font.getSize().value) + ' ' +
           MEASUREMENTS[font.getSize().measurement];
}

std::string describe(const Background &background) {
    return "color=" + vector(background.getColor()) + " position=" + std::to_string(background.getHPosition()) + ' ' +
           std::to_string(background.getVPosition()) + " repeat=" + std::to_string(background.getRepeat()) +
           " image=" + (background.isNone() ? "<none>" : background.getImage());
}

std::string describe(const SizeBase &size) {
    return "absolute=" + number(size.getSizeAbsolute()) + " relative=" + number(size.getSizeRelative()) +
           (size.isAuto() ? " auto" : "");
}

std::string describe(const NBackground &background) {
    return "skin=" + std::to_string(background.getCurrentSkin()) +
           " count=" + std::to_string(background.getSkinCountU()) + ' ' + std::to_string(background.getSkinCountV()) +
           " offset=" + vector(background.getSkinOffset()) + " size=" + vector(background.getSkinSize()) +
           " spacing=" + std::to_string(background.getSkinSpacing());
}

std::string describe(const Overflow &overflow) {
    return std::to_string(overflow.getX()) + ' ' + std::to_string(overflow.getY());
}

} // namespace

std::string describeValues(const Property &property) {
    switch (property.getName()) {
    case Property::NONE:
        break;
    case Property::FONT:
        return describe(static_cast<const Font &>(property));
    case Property::COLOR:
        return vector(static_cast<const Color &>(property).getColor());
    case Property::BACKGROUND:
        return describe(static_cast<const Background &>(property));
    case Property::WIDTH:
    case Property::HEIGHT:
    case Property::TOP:
    case Property::LEFT:
    case Property::MIN_WIDTH:
    case Property::MAX_WIDTH:
    case Property::MIN_HEIGHT:
    case Property::MAX_HEIGHT:
        return describe(static_cast<const SizeBase &>(property));
    case Property::BORDER_RADIUS:
        return vector(static_cast<const BorderRadius &>(property).getBorder());
    case Property::NANCHOR:
        return std::to_string(static_cast<const NAnchor &>(property).getAnchor());
    case Property::NBACKGROUND:
        return describe(static_cast<const NBackground &>(property));
    case Property::OPACITY:
        return number(static_cast<const Opacity &>(property).getOpacity());
    case Property::MARGIN:
    case Property::BORDER:
    case Property::PADDING:
        return vector(static_cast<const BoxBase &>(property).getBox());
    case Property::OVERFLOW:
        return describe(static_cast<const Overflow &>(property));
    case Property::TEXT_ALIGN:
        return std::to_string(static_cast<const TextAlign &>(property).getAlign());
    case Property::VERTICAL_ALIGN:
        return std::to_string(static_cast<const VerticalAlign &>(property).getAlign());
    case Property::TRANSFORM:
        return matrix(static_cast<const Transform &>(property).getMatrix());
    case Property::ZINDEX:
        return std::to_string(static_cast<const ZIndex &>(property).getValue());
    }
    return "no kind";
}

std::string describeStates(const Property &property) {
    std::string text;
    for (unsigned int i = 0; i < property.getValueCount(); ++i)
        text += std::to_string(property.getValueState(static_cast<int>(i)));
    return text;
}

} // namespace nurel::ui::css
