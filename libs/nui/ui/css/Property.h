#pragma once

#include "foundation/core/IRefCount.h"

#include <cstdint>
#include <limits>
#include <memory>

namespace nurel::ui::css {

/// The value of one style declaration, such as `margin: 1px 2px`: an object of one of 23 kinds, counted, that holds the
/// kind's values. Several names of the style language may address the values of one kind: "margin", "margin-top" and
/// "margin-left" all write into a Margin. The names are the rows of PropertyEntry.
///
/// A property is built on the thread that parses and afterwards only read. It is applied whole: a Margin in which only
/// the left side was ever written applies 0 to the other three.
///
/// The words of a declaration go to `_setValue(text, index)`, one by one. The index says which value of the kind the
/// next word is; it starts where the declaration's name starts, and each call moves it on.
///
/// For each value two bits remember whether it was written. Nothing here or in styling reads them except isValueSet(),
/// isValueInherited() and inherit(), which are for applications.
class Property : public core::IRefCount {
public:
    /// The kinds. The numbers are the order in which a rule hands its properties over.
    enum Name : unsigned int {
        NONE = 0,
        FONT = 1,
        COLOR = 2,
        BACKGROUND = 3,
        WIDTH = 4,
        HEIGHT = 5,
        TOP = 6,
        LEFT = 7,
        BORDER_RADIUS = 8,
        NANCHOR = 9,
        NBACKGROUND = 10,
        OPACITY = 11,
        MARGIN = 12,
        BORDER = 13,
        PADDING = 14,
        OVERFLOW = 15,
        TEXT_ALIGN = 16,
        MIN_WIDTH = 17,
        MAX_WIDTH = 18,
        MIN_HEIGHT = 19,
        MAX_HEIGHT = 20,
        VERTICAL_ALIGN = 21,
        TRANSFORM = 22,
        ZINDEX = 23,
    };

    /// What happened to one value; bits.
    enum ValueState : std::uint8_t {
        VALUE_INHERITED = 1, ///< inherit() was asked for it
        VALUE_SET = 2,       ///< it was written
    };

    /// No kind has more values than this.
    static constexpr unsigned int MAX_VALUE_COUNT = 8;

    Property(const Property &) = delete;
    ~Property() override;

    /// A new property of the same kind with the same values, count 0: the caller's. Background and NAnchor leave
    /// something out.
    virtual Property *clone() const = 0;

    /// The text of one value; null where there is none. Most kinds give null for every index. Stays valid while the
    /// property is not written.
    virtual const char *_getValueString(int index) const;

    /// Copies one value of a property of the same kind. False, and nothing changes, for another kind, for null, and for
    /// an index that the kind does not copy. Leaves the value state alone.
    virtual bool _setValue(const Property *other, int index) = 0;

    /// Reads one word of a declaration into the value at the index and, as the kind has it, moves the index on. False
    /// for a word that is no such value (what was written before that shows stays) and for an index that the kind does
    /// not have. A null text is a bad word. The value at the index is not marked as set: that is the caller's, see
    /// markValueSet().
    virtual bool _setValue(const char *text, int &index) = 0;

    /// Does nothing in every kind; called by reset().
    virtual void _reset();

    /// Writes this one's values and value state over those of a property of the same kind; does nothing to another.
    virtual void _clone(Property *copy) const;

    /// Takes over what the other's _clone() gives; nothing if it is of another kind.
    Property &operator=(const Property &other);

    /// The kind and the value index of a name of the style language, letter for letter. NONE, and the index as it was,
    /// for an unknown name and for null.
    static Name parseName(const char *cssName, int &index);

    /// The first name of a kind, so the shorthand; "unknown" otherwise.
    static const char *unparse(Name name);

    /// A new property of the kind, count 0: the caller's; null for NONE and numbers that are no kind.
    static Property *create(Name name);

    /// A new property for a name of the style language, count 0: the caller's; the index becomes the name's value
    /// index. Null, and the index as it was, for an unknown name.
    static Property *parse(const char *cssName, int &index);

    /// Reads a word into value 0 and marks that as set if the word is taken.
    bool setValue(const char *text);

    /// Reads a word into the value at the index, which moves on as the kind has it, and marks the value at the index as
    /// it was before if the word is taken.
    bool setValue(const char *text, int &index);

    /// Copies one value of a property of the same kind and marks it as set if that could be done.
    bool setValue(const Property *other, int index);

    const char *getValueString() const { return _getValueString(0); }
    const char *getValueString(int index) const { return _getValueString(index); }

    Name getName() const { return static_cast<Name>(mName); }

    /// How many values the kind has, and thus value states.
    unsigned int getValueCount() const { return mValueCount; }

    bool isValueSet(int index) const { return (getValueState(index) & VALUE_SET) != 0; }
    bool isValueInherited(int index) const { return (getValueState(index) & VALUE_INHERITED) != 0; }

    /// The bits of one value; 0 for an index out of range.
    std::uint8_t getValueState(int index) const {
        return hasValue(index) ? static_cast<std::uint8_t>((mValueStates >> shift(index)) & STATE_MASK)
                               : std::uint8_t{0};
    }

    /// Writes the bits of one value; an index out of range is ignored.
    void setValueState(int index, std::uint8_t bits) {
        if (hasValue(index))
            mValueStates = static_cast<std::uint16_t>((mValueStates & ~(STATE_MASK << shift(index))) |
                                                      ((bits & STATE_MASK) << shift(index)));
    }

    /// Makes a value one that was set and not inherited; an index out of range is ignored.
    void markValueSet(int index) { setValueState(index, VALUE_SET); }

    /// Forgets which values were set and inherited. The values stay.
    void reset();

    /// Takes those values from a property of the same kind that are set there and not here, and marks each as inherited
    /// and, where it could be copied, as set. Nothing happens with null or another kind.
    void inherit(const Property *other);

protected:
    /// A class must be the only one of its kind, and have 1 to MAX_VALUE_COUNT values.
    Property(Name name, unsigned int valueCount);

    bool isSameKind(const Property *other) const { return other && other->mName == mName; }

    /// Adds to the bits of a value in range.
    void addValueState(int index, ValueState bits) {
        mValueStates = static_cast<std::uint16_t>(mValueStates | (bits << shift(index)));
    }

    /// Moves the index on and returns what it was; the greatest number stays.
    static int advance(int &index) { return index == std::numeric_limits<int>::max() ? index : index++; }

    /// What clone() does, for the kind's class.
    template <class T>
    static T *cloneOf(const T &source) {
        auto copy = std::make_unique<T>();
        source._clone(copy.get());
        return copy.release();
    }

private:
    static constexpr unsigned int STATE_MASK = VALUE_INHERITED | VALUE_SET;
    static constexpr unsigned int BITS_A_VALUE = 2;

    static unsigned int shift(int index) { return static_cast<unsigned int>(index) * BITS_A_VALUE; }
    bool hasValue(int index) const { return static_cast<unsigned int>(index) < mValueCount; }

    // A sheet holds thousands of properties: these lie in the room that the count leaves behind itself
    std::uint8_t mName;
    std::uint8_t mValueCount;
    std::uint16_t mValueStates = 0; ///< ValueState bits, value 0 in the lowest two
};

} // namespace nurel::ui::css
