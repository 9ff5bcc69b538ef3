#pragma once

#include "foundation/core/SmartPtr.h"

#include <cstddef>
#include <string>
#include <vector>

namespace nurel::ui {
class Widget;
namespace components {
class Button;
class Panel;
} // namespace components
} // namespace nurel::ui

namespace gallery {

/// The keys of an on-screen keyboard: a widget with rows of buttons, in layers of which one is shown. No key takes the
/// focus, so a field that is being edited keeps it. What shift and the keys that lead to another layer do is done here;
/// all others are the client's.
///
/// The keys bear the class "key", and the widget the name "screen-keyboard". Inside it a key is found by its layer,
/// "letter-keys", "symbol-keys" or "arabic-keys", and by its name, which is the text that it types or one of "shift",
/// "backspace", "enter", "symbols", "language", "space", "left", "right" and "hide".
class KeyboardKeys {
public:
    /// Told what is typed. It may end the keys while it is told.
    class Client {
    public:
        virtual void typeText(const char *text) = 0;
        /// A key that edits, by its scan code.
        virtual void pressKey(int key) = 0;
        virtual void enter() = 0;
        virtual void hide() = 0;

    protected:
        ~Client() = default;
    };

    enum Layer { LETTERS, SYMBOLS, ARABIC };
    static constexpr std::size_t LAYER_COUNT = 3;

    static constexpr const char *NAME = "screen-keyboard";

    /// Pixels. The keys are narrower on a stage that is.
    static constexpr float WIDTH = 780;
    static constexpr float HEIGHT = 226;

    explicit KeyboardKeys(Client &client);
    ~KeyboardKeys();
    KeyboardKeys(const KeyboardKeys &) = delete;
    KeyboardKeys &operator=(const KeyboardKeys &) = delete;

    nurel::ui::Widget &getWidget() const { return *mWidget; }

    /// Also releases shift.
    void showLayer(Layer layer);
    Layer getLayer() const { return mLayer; }

private:
    /// Once is for the next text that is typed.
    enum Shift { SHIFT_OFF, SHIFT_ONCE, SHIFT_LOCKED };

    enum Action { TYPE, SHIFT, BACKSPACE, ENTER, SYMBOL_LAYER, LANGUAGE, SPACE, LEFT, RIGHT, HIDE };

    struct Special;
    struct Row;
    struct LayerKeys;
    static const Special SPECIALS[];
    static const LayerKeys LAYERS[LAYER_COUNT];
    static const Special &getSpecial(Action action);

    struct Key {
        core::SmartPtr<nurel::ui::components::Button> button;
        Layer layer;
        Action action;
        std::string plain; ///< what it types, for TYPE
        std::string shifted;
    };

    void addLayer(Layer layer);
    void addRow(nurel::ui::components::Panel &panel, Layer layer, const Row &row);
    void addCharacters(nurel::ui::components::Panel &panel, Layer layer, const Row &row, float units);
    void addSpecial(nurel::ui::components::Panel &panel, Layer layer, Action action);
    nurel::ui::components::Button &addKey(nurel::ui::components::Panel &panel, Key key, const char *name, float units);
    void click(std::size_t index);
    void type(const std::string &text);
    void setShift(Shift shift);
    void labelLayerKeys();

    Client &mClient;
    core::SmartPtr<nurel::ui::Widget> mWidget;
    std::vector<nurel::ui::components::Panel *> mLayers;
    std::vector<Key> mKeys;
    Layer mLayer = LETTERS;
    Layer mAlphabet = LETTERS; ///< where the symbols lead back to
    Shift mShift = SHIFT_OFF;
};

} // namespace gallery
