#pragma once

#include <string>

namespace viewer {

/// Appends JSON to a text, with the commas where they belong. Floats are written with the fewest digits that read back
/// as the same number; one that is no number is written as null.
class JsonWriter {
public:
    explicit JsonWriter(std::string &out) : mOut(out) {}

    JsonWriter &beginObject();
    JsonWriter &endObject();
    JsonWriter &beginArray();
    JsonWriter &endArray();
    JsonWriter &key(const char *name);
    JsonWriter &value(float number);
    JsonWriter &value(double number);
    JsonWriter &value(int number);
    JsonWriter &value(unsigned int number);
    JsonWriter &value(bool flag);
    JsonWriter &value(const char *text); ///< null is written as null
    JsonWriter &null();

    template <class T>
    JsonWriter &field(const char *name, const T &content) {
        return key(name).value(content);
    }

    /// An array of numbers.
    template <class... T>
    JsonWriter &list(const char *name, T... numbers) {
        key(name).beginArray();
        (value(numbers), ...);
        return endArray();
    }

private:
    void separate();
    template <class T>
    JsonWriter &number(T content);

    std::string &mOut;
    bool mFirst = true;
};

} // namespace viewer
