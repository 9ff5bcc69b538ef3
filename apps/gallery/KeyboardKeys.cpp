#include "KeyboardKeys.h"

#include "OnClick.h"

#include "ninput/input/Keyboard.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/layouts/FlowLayout.h"

#include "foundation/text/Utf8.h"

#include <algorithm>

namespace gallery {

namespace ui = nurel::ui;

using nurel::input::Keyboard;
using nurel::math::Vector2;
using ui::components::Button;
using ui::components::Panel;
using ui::layouts::FlowLayout;

namespace {

constexpr float UNITS = 22; ///< the width of every row
constexpr float CHARACTER_UNITS = 2;
constexpr float KEY_HEIGHT = 46;
constexpr float GAP = 6;
constexpr float MARGIN = 12; ///< from the keyboard's edge, and from that of the stage
constexpr float NO_LIMIT = 100000;

core::SmartPtr<Panel> makeFlow(const char *name, FlowLayout::FlowDirection direction) {
    core::SmartPtr<Panel> panel(new Panel(name));
    panel->setScrollMask(ui::Container::SCROLL_NONE);
    core::SmartPtr<FlowLayout> layout(new FlowLayout());
    layout->setFlowDirection(direction);
    layout->setSizeLimitPolicy(FlowLayout::ABSOLUTE);
    layout->setSizeLimit(NO_LIMIT);
    layout->setSpacing(Vector2(GAP, GAP));
    panel->setLayout(layout.get());
    return panel;
}

/// The character at the start of the text, which then begins behind it.
std::string takeCharacter(const char *&text) {
    const std::string character(text, text::getUTF8Index(text, 1));
    text += character.size();
    return character;
}

} // namespace

/// A key that types nothing by itself.
struct KeyboardKeys::Special {
    Action action;
    const char *name;
    float units;
    const char *text;      ///< null for one that has only an icon
    const char *className; ///< of its own; null: none
};

const KeyboardKeys::Special KeyboardKeys::SPECIALS[] = {
    {SHIFT, "shift", 4, "Shift", nullptr},   {BACKSPACE, "backspace", 2, "Del", nullptr},
    {ENTER, "enter", 3, "Enter", "primary"}, {SYMBOL_LAYER, "symbols", 3, "", nullptr},
    {LANGUAGE, "language", 3, "", nullptr},  {SPACE, "space", 10, "Space", nullptr},
    {LEFT, "left", 2, nullptr, "icon-left"}, {RIGHT, "right", 2, nullptr, "icon-right"},
    {HIDE, "hide", 2, nullptr, "icon-down"},
};

/// The characters, which get what the special keys leave of the row, and the same number of those under shift.
struct KeyboardKeys::Row {
    Action first; ///< TYPE: the row begins with its characters
    const char *plain;
    const char *shifted;
    Action last;
};

struct KeyboardKeys::LayerKeys {
    const char *name;
    Row rows[3];
};

const KeyboardKeys::LayerKeys KeyboardKeys::LAYERS[] = {
    {"letter-keys",
     {{TYPE, "qwertyuiop", "QWERTYUIOP", BACKSPACE},
      {TYPE, "asdfghjkl", "ASDFGHJKL", ENTER},
      {SHIFT, "zxcvbnm,.", "ZXCVBNM!?", TYPE}}},
    {"symbol-keys",
     {{TYPE, "1234567890", "éèêëàâäáãå", BACKSPACE},
      {TYPE, "@#€_&-+()", "öôóõøüûúñ", ENTER},
      {SHIFT, "*\"':;/!?.", "çßæœíîï¿¡", TYPE}}},
    {"arabic-keys",
     {{TYPE, "ضصثقفغعهخحجد", "١٢٣٤٥٦٧٨٩٠٪ـ", BACKSPACE},
      {TYPE, "شسيبلاتنمكط", "أإآٱ()[]«»:", ENTER},
      {SHIFT, "ذئءؤرىةوزظ", "؟،؛.!-+*=/", TYPE}}},
};

const KeyboardKeys::Special &KeyboardKeys::getSpecial(Action action) {
    return *std::find_if(std::begin(SPECIALS), std::end(SPECIALS),
                         [action](const Special &special) { return special.action == action; });
}

KeyboardKeys::KeyboardKeys(Client &client) : mClient(client), mWidget(new ui::Widget(NAME)) {
    mWidget->addClass("overlay");
    mWidget->setScrollMask(ui::Container::SCROLL_NONE);
    mWidget->setSize(Vector2(-2 * MARGIN, HEIGHT), Vector2(1, 0));
    mWidget->setMaximumWidth(WIDTH);
    for (std::size_t layer = 0; layer < LAYER_COUNT; ++layer)
        addLayer(static_cast<Layer>(layer));
    showLayer(LETTERS);
}

/// Somebody may still hold a key, and click it.
KeyboardKeys::~KeyboardKeys() {
    for (const Key &key : mKeys)
        key.button->ClickCallbacks::removeCallbacks();
}

void KeyboardKeys::addLayer(Layer layer) {
    const core::SmartPtr<Panel> panel = makeFlow(LAYERS[layer].name, FlowLayout::VERTICAL);
    panel->addClass("card");
    panel->addClass("keys");
    panel->setSize(Vector2::ZERO, Vector2::ONE);
    mWidget->addChild(panel.get());
    mLayers.push_back(panel.get());
    for (const Row &row : LAYERS[layer].rows)
        addRow(*panel, layer, row);
    const core::SmartPtr<Panel> last = makeFlow("row", FlowLayout::HORIZONTAL);
    last->setSize(Vector2(0, KEY_HEIGHT), Vector2(1, 0));
    panel->addChild(last.get());
    for (const Action action : {SYMBOL_LAYER, LANGUAGE, SPACE, LEFT, RIGHT, HIDE})
        addSpecial(*last, layer, action);
}

void KeyboardKeys::addRow(Panel &panel, Layer layer, const Row &row) {
    const core::SmartPtr<Panel> line = makeFlow("row", FlowLayout::HORIZONTAL);
    line->setSize(Vector2(0, KEY_HEIGHT), Vector2(1, 0));
    panel.addChild(line.get());
    float units = UNITS;
    for (const Action action : {row.first, row.last})
        units -= action == TYPE ? 0 : getSpecial(action).units;
    if (row.first != TYPE)
        addSpecial(*line, layer, row.first);
    addCharacters(*line, layer, row, units);
    if (row.last != TYPE)
        addSpecial(*line, layer, row.last);
}

/// Keys of the usual width stand behind a gap if they do not fill the row.
void KeyboardKeys::addCharacters(Panel &panel, Layer layer, const Row &row, float units) {
    const auto count = static_cast<float>(text::getUTF8Length(row.plain));
    const float width = std::min(CHARACTER_UNITS, units / count);
    if (const float gap = units - width * count; gap > 0) {
        const core::SmartPtr<Panel> spacer(new Panel("gap"));
        spacer->setSize(Vector2(-GAP, 0), Vector2(gap / UNITS, 1));
        panel.addChild(spacer.get());
    }
    const char *plain = row.plain;
    const char *shifted = row.shifted;
    while (*plain) {
        const std::string text = takeCharacter(plain);
        addKey(panel, {nullptr, layer, TYPE, text, takeCharacter(shifted)}, text.c_str(), width).setText(text.c_str());
    }
}

void KeyboardKeys::addSpecial(Panel &panel, Layer layer, Action action) {
    const Special &special = getSpecial(action);
    Button &button = addKey(panel, {nullptr, layer, action, "", ""}, special.name, special.units);
    button.addClass("special");
    if (special.className)
        button.addClass(special.className);
    if (special.text) {
        button.setText(special.text);
    } else {
        button.setIconVisible(true);
    }
}

Button &KeyboardKeys::addKey(Panel &panel, Key key, const char *name, float units) {
    key.button = new Button(name);
    Button &button = *key.button;
    button.addClass("key");
    button.setSize(Vector2(-GAP, 0), Vector2(units / UNITS, 1));
    onClick(button, [this, index = mKeys.size()] { click(index); });
    panel.addChild(&button);
    mKeys.push_back(std::move(key));
    return button;
}

void KeyboardKeys::showLayer(Layer layer) {
    setShift(SHIFT_OFF);
    mLayer = layer;
    if (layer != SYMBOLS)
        mAlphabet = layer;
    for (std::size_t i = 0; i < mLayers.size(); ++i)
        mLayers[i]->setVisible(i == static_cast<std::size_t>(layer));
    labelLayerKeys();
}

/// What leads to another layer says to which.
void KeyboardKeys::labelLayerKeys() {
    for (const Key &key : mKeys) {
        if (key.action == SYMBOL_LAYER)
            key.button->setText(key.layer != SYMBOLS ? "123" : mAlphabet == LETTERS ? "abc" : "ابج");
        else if (key.action == LANGUAGE)
            key.button->setText(mAlphabet == LETTERS ? "عربي" : "Latin");
    }
}

void KeyboardKeys::setShift(Shift shift) {
    mShift = shift;
    for (const Key &key : mKeys) {
        if (key.layer != mLayer)
            continue;
        if (key.action == TYPE) {
            key.button->setText((shift == SHIFT_OFF ? key.plain : key.shifted).c_str());
        } else if (key.action == SHIFT) {
            key.button->setChecked(shift != SHIFT_OFF);
            key.button->setText(shift == SHIFT_LOCKED ? "Lock" : getSpecial(SHIFT).text);
        }
    }
}

// The client comes last: nothing may be left to touch behind it.
void KeyboardKeys::click(std::size_t index) {
    const Key &key = mKeys[index];
    switch (key.action) {
    case TYPE:
        return type(mShift == SHIFT_OFF ? key.plain : key.shifted);
    case SPACE:
        return type(" ");
    case SHIFT:
        return setShift(mShift == SHIFT_OFF ? SHIFT_ONCE : mShift == SHIFT_ONCE ? SHIFT_LOCKED : SHIFT_OFF);
    case SYMBOL_LAYER:
        return showLayer(mLayer == SYMBOLS ? mAlphabet : SYMBOLS);
    case LANGUAGE:
        return showLayer(mAlphabet == LETTERS ? ARABIC : LETTERS);
    case BACKSPACE:
        return mClient.pressKey(Keyboard::K_BACKSPACE);
    case LEFT:
        return mClient.pressKey(Keyboard::K_LEFT);
    case RIGHT:
        return mClient.pressKey(Keyboard::K_RIGHT);
    case ENTER:
        return mClient.enter();
    case HIDE:
        return mClient.hide();
    }
}

/// The argument may be the text of a key, which does not outlive the client's answer.
void KeyboardKeys::type(const std::string &text) {
    const std::string kept(text);
    if (mShift == SHIFT_ONCE)
        setShift(SHIFT_OFF);
    mClient.typeText(kept.c_str());
}

} // namespace gallery
