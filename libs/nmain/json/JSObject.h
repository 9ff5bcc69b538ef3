#pragma once

#include <concepts>
#include <cstddef>

namespace nurel::stream {
class InputStream;
}

namespace nurel::json {

class TreeBuilder;

/// One value of a parsed JSON document. The root owns the whole tree: deleting it ends every value, key and text that
/// came out of it. Values are immutable after `parse`, so a tree may be read from several threads.
///
/// Reading is forgiving: `get` never gives null, and each read takes a default for a value of another kind, so that a
/// reader can walk a document of any shape without tests.
class JSObject {
public:
    enum Type { T_OBJECT = 0, T_ARRAY = 1, T_STRING = 2, T_INT = 3, T_FLOAT = 4, T_BOOL = 5, T_NONE = 6 };

    /// Documents with more arrays and objects inside each other than this are refused.
    static constexpr unsigned MAXIMUM_DEPTH = 512;

    /// Reads one document to the end of the stream, which stays the caller's. The text is UTF-8, with or without a byte
    /// order mark; comments are not JSON. An integer beyond the range of `int` becomes a T_FLOAT, null becomes a T_NONE
    /// and of equal keys in one object the last one's value holds, at the first one's place.
    /// Raises JSONException "<stream>:<line>:<column>: <reason>" for anything that is not one JSON document, and
    /// whatever the stream raises. The caller owns the result.
    static JSObject *parse(stream::InputStream *stream);

    /// The same from a text in memory, which messages call "<text>". Null counts as the empty text.
    static JSObject *parse(const char *text);

    ~JSObject();
    JSObject(const JSObject &) = delete;
    JSObject &operator=(const JSObject &) = delete;
    JSObject &operator=(JSObject &&) = delete;

    Type getType() const { return mType; }

    /// The word for a kind: "T_OBJECT", "T_ARRAY" and so on.
    static const char *unparse(Type type);

    /// The value under a key; the shared T_NONE value when this is no object or has no such key.
    const JSObject *get(const char *key) const;

    /// The element of an array, or the value of the n-th key of an object; the shared T_NONE value when there is none.
    template <std::integral Index>
    const JSObject *get(Index index) const {
        return at(static_cast<std::size_t>(index));
    }

    /// True for a key whose value is null, too.
    bool hasKey(const char *key) const { return find(key) != nullptr; }

    /// Elements of an array, keys of an object, 0 for the other kinds.
    unsigned getLength() const { return mType == T_ARRAY || mType == T_OBJECT ? mLength : 0; }

    /// The n-th key of an object, in the order of the document; null when there is none.
    const char *getKey(unsigned index) const;

    bool asBool(bool otherwise) const { return mType == T_BOOL ? mBool : otherwise; }

    /// Takes T_INT, and T_FLOAT cut towards zero when the result fits.
    int asInt(int otherwise) const;

    /// Takes T_FLOAT and T_INT. A number beyond the range of `float` gives the nearest finite one.
    float asFloat(float otherwise) const;

    /// Takes T_STRING only. The text ends at the first U+0000 that the document wrote into it.
    const char *asString(const char *otherwise) const { return mType == T_STRING ? mText : otherwise; }

    bool getBool(const char *key, bool otherwise) const { return get(key)->asBool(otherwise); }
    int getInt(const char *key, int otherwise) const { return get(key)->asInt(otherwise); }
    float getFloat(const char *key, float otherwise) const { return get(key)->asFloat(otherwise); }
    const char *getString(const char *key, const char *otherwise) const { return get(key)->asString(otherwise); }

    template <std::integral Index>
    bool getBool(Index index, bool otherwise) const {
        return get(index)->asBool(otherwise);
    }
    template <std::integral Index>
    int getInt(Index index, int otherwise) const {
        return get(index)->asInt(otherwise);
    }
    template <std::integral Index>
    float getFloat(Index index, float otherwise) const {
        return get(index)->asFloat(otherwise);
    }
    template <std::integral Index>
    const char *getString(Index index, const char *otherwise) const {
        return get(index)->asString(otherwise);
    }

private:
    friend class TreeBuilder;
    struct Member;
    struct Members;

    constexpr JSObject() : mNumber(0), mLength(0), mType(T_NONE) {}
    JSObject(JSObject &&other) noexcept;

    const JSObject *at(std::size_t index) const;
    const JSObject *find(const char *key) const;

    static const JSObject NONE;

    union {
        Members *mMembers;   // T_OBJECT
        JSObject *mElements; // T_ARRAY
        char *mText;         // T_STRING
        int mInt;            // T_INT
        double mNumber;      // T_FLOAT
        bool mBool;          // T_BOOL
    };
    unsigned mLength;
    Type mType;
};

} // namespace nurel::json
