#include "nui/ui/css/PropertyEntry.h"

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

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>

namespace nurel::ui::css {

namespace {

template <class T>
Property *make() {
    return new T;
}

constexpr PropertyEntry ENTRIES[] = {
    {Property::BACKGROUND, Background::CSSNAME, 0, make<Background>},
    {Property::BACKGROUND, Background::CSSNAME_COLOR, Background::CSSNAME_COLOR_IDX, make<Background>},
    {Property::BACKGROUND, Background::CSSNAME_POSITION, Background::CSSNAME_POSITION_IDX, make<Background>},
    {Property::BACKGROUND, Background::CSSNAME_REPEAT, Background::CSSNAME_REPEAT_IDX, make<Background>},
    {Property::BACKGROUND, Background::CSSNAME_IMAGE, Background::CSSNAME_IMAGE_IDX, make<Background>},
    {Property::FONT, Font::CSSNAME, 0, make<Font>},
    {Property::FONT, Font::CSSNAME_SIZE, Font::CSSNAME_SIZE_IDX, make<Font>},
    {Property::FONT, Font::CSSNAME_FAMILY, Font::CSSNAME_FAMILY_IDX, make<Font>},
    {Property::COLOR, Color::CSSNAME, 0, make<Color>},
    {Property::WIDTH, Width::CSSNAME, 0, make<Width>},
    {Property::HEIGHT, Height::CSSNAME, 0, make<Height>},
    {Property::LEFT, Left::CSSNAME, 0, make<Left>},
    {Property::TOP, Top::CSSNAME, 0, make<Top>},
    {Property::BORDER_RADIUS, BorderRadius::CSSNAME, 0, make<BorderRadius>},
    {Property::NANCHOR, NAnchor::CSSNAME, 0, make<NAnchor>},
    {Property::NBACKGROUND, NBackground::CSSNAME, 0, make<NBackground>},
    {Property::NBACKGROUND, NBackground::CSSNAME_SKIN, NBackground::CSSNAME_SKIN_IDX, make<NBackground>},
    {Property::NBACKGROUND, NBackground::CSSNAME_OFFSET, NBackground::CSSNAME_OFFSET_IDX, make<NBackground>},
    {Property::NBACKGROUND, NBackground::CSSNAME_SIZE, NBackground::CSSNAME_SIZE_IDX, make<NBackground>},
    {Property::OPACITY, Opacity::CSSNAME, 0, make<Opacity>},
    {Property::MARGIN, Margin::CSSNAME, 0, make<Margin>},
    {Property::MARGIN, Margin::CSSNAME_TOP, Margin::CSSNAME_TOP_IDX, make<Margin>},
    {Property::MARGIN, Margin::CSSNAME_RIGHT, Margin::CSSNAME_RIGHT_IDX, make<Margin>},
    {Property::MARGIN, Margin::CSSNAME_BOTTOM, Margin::CSSNAME_BOTTOM_IDX, make<Margin>},
    {Property::MARGIN, Margin::CSSNAME_LEFT, Margin::CSSNAME_LEFT_IDX, make<Margin>},
    {Property::BORDER, Border::CSSNAME, 0, make<Border>},
    {Property::BORDER, Border::CSSNAME_TOP, Border::CSSNAME_TOP_IDX, make<Border>},
    {Property::BORDER, Border::CSSNAME_RIGHT, Border::CSSNAME_RIGHT_IDX, make<Border>},
    {Property::BORDER, Border::CSSNAME_BOTTOM, Border::CSSNAME_BOTTOM_IDX, make<Border>},
    {Property::BORDER, Border::CSSNAME_LEFT, Border::CSSNAME_LEFT_IDX, make<Border>},
    {Property::PADDING, Padding::CSSNAME, 0, make<Padding>},
    {Property::PADDING, Padding::CSSNAME_TOP, Padding::CSSNAME_TOP_IDX, make<Padding>},
    {Property::PADDING, Padding::CSSNAME_RIGHT, Padding::CSSNAME_RIGHT_IDX, make<Padding>},
    {Property::PADDING, Padding::CSSNAME_BOTTOM, Padding::CSSNAME_BOTTOM_IDX, make<Padding>},
    {Property::PADDING, Padding::CSSNAME_LEFT, Padding::CSSNAME_LEFT_IDX, make<Padding>},
    {Property::OVERFLOW, Overflow::CSSNAME, 0, make<Overflow>},
    {Property::OVERFLOW, Overflow::CSSNAME_X, Overflow::CSSNAME_X_IDX, make<Overflow>},
    {Property::OVERFLOW, Overflow::CSSNAME_Y, Overflow::CSSNAME_Y_IDX, make<Overflow>},
    {Property::TEXT_ALIGN, TextAlign::CSSNAME, 0, make<TextAlign>},
    {Property::MIN_WIDTH, MinWidth::CSSNAME, 0, make<MinWidth>},
    {Property::MIN_HEIGHT, MinHeight::CSSNAME, 0, make<MinHeight>},
    {Property::MAX_WIDTH, MaxWidth::CSSNAME, 0, make<MaxWidth>},
    {Property::MAX_HEIGHT, MaxHeight::CSSNAME, 0, make<MaxHeight>},
    {Property::VERTICAL_ALIGN, VerticalAlign::CSSNAME, 0, make<VerticalAlign>},
    {Property::TRANSFORM, Transform::CSSNAME, 0, make<Transform>},
    {Property::ZINDEX, ZIndex::CSSNAME, 0, make<ZIndex>},
};

constexpr std::size_t COUNT = std::size(ENTRIES);
constexpr std::size_t KIND_COUNT = Property::ZINDEX + 1U;
constexpr unsigned char NO_ENTRY = 0xff;

consteval std::size_t findLongestName() {
    std::size_t longest = 0;
    for (const PropertyEntry &entry : ENTRIES)
        longest = std::max(longest, std::string_view(entry.cssName).size());
    return longest;
}

constexpr std::size_t LONGEST_NAME = findLongestName();

struct HashedName {
    std::uint32_t hash;
    std::size_t length; ///< more than LONGEST_NAME for every text that is longer than that
};

/// Looks no further into the text than the longest name reaches.
constexpr HashedName hashName(const char *text) {
    HashedName name{2166136261U, 0};
    for (; name.length <= LONGEST_NAME && text[name.length]; ++name.length)
        name.hash = (name.hash ^ static_cast<unsigned char>(text[name.length])) * 16777619U;
    return name;
}

constexpr std::size_t SLOT_COUNT = 128;

constexpr std::size_t nextSlot(std::size_t slot) {
    return (slot + 1) % SLOT_COUNT;
}

/// Rows by the hash of their names; a row whose place is taken stands in the next free one.
consteval auto makeSlots() {
    std::array<unsigned char, SLOT_COUNT> slots{};
    slots.fill(NO_ENTRY);
    for (std::size_t row = 0; row < COUNT; ++row) {
        std::size_t slot = hashName(ENTRIES[row].cssName).hash % SLOT_COUNT;
        while (slots[slot] != NO_ENTRY)
            slot = nextSlot(slot);
        slots[slot] = static_cast<unsigned char>(row);
    }
    return slots;
}

/// The first row of each kind.
consteval auto makeFirstRows() {
    std::array<unsigned char, KIND_COUNT> rows{};
    rows.fill(NO_ENTRY);
    for (std::size_t row = 0; row < COUNT; ++row) {
        if (rows[ENTRIES[row].name] == NO_ENTRY)
            rows[ENTRIES[row].name] = static_cast<unsigned char>(row);
    }
    return rows;
}

constexpr auto SLOTS = makeSlots();
constexpr auto FIRST_ROWS = makeFirstRows();

} // namespace

const PropertyEntry *PropertyEntry::find(const char *cssName) {
    if (!cssName)
        return nullptr;
    const HashedName name = hashName(cssName);
    if (name.length > LONGEST_NAME)
        return nullptr;
    const std::string_view text(cssName, name.length);
    for (std::size_t slot = name.hash % SLOT_COUNT; SLOTS[slot] != NO_ENTRY; slot = nextSlot(slot)) {
        const PropertyEntry &entry = ENTRIES[SLOTS[slot]];
        if (text == entry.cssName)
            return &entry;
    }
    return nullptr;
}

const PropertyEntry *PropertyEntry::find(Property::Name name) {
    const auto number = static_cast<std::size_t>(name);
    return number < KIND_COUNT && FIRST_ROWS[number] != NO_ENTRY ? &ENTRIES[FIRST_ROWS[number]] : nullptr;
}

std::span<const PropertyEntry> PropertyEntry::all() {
    return ENTRIES;
}

} // namespace nurel::ui::css
