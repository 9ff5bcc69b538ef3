#include "nui/ui/css/Common.h"

#include "foundation/text/StringUtil.h"
#include "nui/ui/css/detail/NumberScan.h"

#include <charconv>
#include <cstring>

namespace nurel::ui::css {

namespace {

constexpr float HEX_DIGIT_SCALE = 0.06666667F;
constexpr float BYTE_SCALE = 0.003921569F;

struct NamedColor {
    const char *name;
    float red, green, blue;
};

// The whole list of colour names. Green is full green, not the web's darker one.
constexpr NamedColor COLORS[] = {
    {"black", 0, 0, 0}, {"red", 1, 0, 0},    {"green", 0, 1, 0},     {"blue", 0, 0, 1},
    {"white", 1, 1, 1}, {"yellow", 1, 1, 0}, {"orange", 1, 0.5F, 0}, {"gray", 0.5F, 0.5F, 0.5F},
};

struct NamedAnchor {
    const char *name;
    unsigned int anchor;
};

constexpr NamedAnchor ANCHORS[] = {
    {"top-left", 9},       {"center-left", 10}, {"bottom-left", 12},  {"top-center", 17},   {"center", 18},
    {"bottom-center", 20}, {"top-right", 33},   {"center-right", 34}, {"bottom-right", 36},
};

constexpr unsigned int ANCHOR_TOP_LEFT = 9;

void setRGBA(math::Vector4 &color, float red, float green, float blue, float alpha) {
    color.x = red;
    color.y = green;
    color.z = blue;
    color.w = alpha;
}

/// Reads the hexadecimal number at the start of the digits; false when the first one is no digit.
bool parseHex(const char *digits, std::size_t count, float scale, float &value) {
    unsigned int number = 0;
    const auto result = std::from_chars(digits, digits + count, number, 16);
    if (result.ec != std::errc{})
        return false;
    value = static_cast<float>(number) * scale;
    return true;
}

bool parseHexColor(const char *digits, math::Vector4 &color) {
    const std::size_t length = std::strlen(digits);
    if (length != 3 && length != 4 && length != 6 && length != 8)
        return false;
    const std::size_t width = length > 4 ? 2 : 1;
    const float scale = width == 2 ? BYTE_SCALE : HEX_DIGIT_SCALE;
    float *channels[] = {&color.x, &color.y, &color.z, &color.w};
    const std::size_t count = length / width;
    for (std::size_t i = 0; i < count; ++i) {
        if (!parseHex(digits + i * width, width, scale, *channels[i]))
            return false;
    }
    if (count == 3)
        color.w = -1;
    return true;
}

float toChannel(int number) {
    return static_cast<float>(number) * BYTE_SCALE;
}

bool parseFunctionColor(const char *text, math::Vector4 &color) {
    constexpr std::size_t RGB = 3;
    constexpr std::size_t RGBA = 4;
    int n[4];
    if (text[RGB] && detail::scanInts(text + RGBA, 4, n)) {
        setRGBA(color, toChannel(n[0]), toChannel(n[1]), toChannel(n[2]), toChannel(n[3]));
        return true;
    }
    if (detail::scanInts(text + RGB, 3, n)) {
        setRGBA(color, toChannel(n[0]), toChannel(n[1]), toChannel(n[2]), -1);
        return true;
    }
    return false;
}

} // namespace

bool Common::parseSize(const char *text, Size &size) {
    if (!text)
        text = "";
    const float number = text::StringUtil::parseFloat(text);
    if (std::strstr(text, "px") || std::strstr(text, "em")) {
        size = {Size::PIXELS, number};
    } else if (std::strchr(text, '%')) {
        size = {Size::PERCENT, number * 0.01F};
    } else if (std::strcmp(text, "auto") == 0) {
        size = {Size::AUTO, 0};
    } else {
        size = {Size::PIXELS, number};
    }
    return true;
}

bool Common::parseColor(const char *text, math::Vector4 &color) {
    if (!text)
        return false;
    if (text[0] == '#')
        return parseHexColor(text + 1, color);
    if (std::strncmp(text, "rgb", 3) == 0)
        return parseFunctionColor(text, color);
    if (std::strcmp(text, "none") == 0)
        return false;
    for (const NamedColor &named : COLORS) {
        if (std::strcmp(named.name, text) == 0) {
            setRGBA(color, named.red, named.green, named.blue, -1);
            return true;
        }
    }
    setRGBA(color, 1, 1, 1, -1);
    return false;
}

bool Common::parseAnchor(const char *text, Component::Anchor &anchor) {
    for (const NamedAnchor &named : ANCHORS) {
        if (text && std::strcmp(named.name, text) == 0) {
            anchor = static_cast<Component::Anchor>(named.anchor);
            return true;
        }
    }
    anchor = static_cast<Component::Anchor>(ANCHOR_TOP_LEFT);
    return false;
}

const char *Common::unparseAnchor(Component::Anchor anchor) {
    for (const NamedAnchor &named : ANCHORS) {
        if (named.anchor == static_cast<unsigned int>(anchor))
            return named.name;
    }
    return nullptr;
}

} // namespace nurel::ui::css
