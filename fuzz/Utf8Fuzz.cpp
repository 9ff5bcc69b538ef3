// The operations on UTF-8 texts agree with each other on any bytes, and an edit by characters leaves the rest alone.
#include "foundation/text/Utf8.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

void require(bool condition) {
    if (!condition)
        std::abort();
}

// A text in a buffer of exactly its size, so that a read past the terminator is seen.
std::vector<char> makeText(const std::uint8_t *data, std::size_t size) {
    std::vector<char> text(data, data + size);
    text.push_back('\0');
    text.resize(std::strlen(text.data()) + 1);
    text.shrink_to_fit();
    return text;
}

void checkCharacters(const char *characters) {
    const std::size_t bytes = std::strlen(characters);
    const unsigned length = text::getUTF8Length(characters);
    require(length <= bytes && text::decodeUTF8(characters).size() == length);
    require(text::getUTF8Index(characters, length) == bytes && text::getUTF8Index(characters, length + 1) == bytes);
    unsigned index = 0;
    for (unsigned i = 0; i < length; ++i) {
        const unsigned step = text::getUTF8Index(characters + index, 1);
        require(step >= 1 && step <= 4);
        index += step;
        if (i < 64)
            require(text::getUTF8Index(characters, i + 1) == index);
    }
    require(index == bytes);
}

// Deletes one character and puts it back, as a text field does.
void checkEdit(const std::string &original, unsigned character) {
    const unsigned length = text::getUTF8Length(original.c_str());
    if (character >= length)
        return;
    const unsigned begin = text::getUTF8Index(original.c_str(), character);
    const unsigned end = text::getUTF8Index(original.c_str(), character + 1);
    require(begin < end && end <= original.size());
    std::string edited = original;
    edited.erase(begin, end - begin);
    checkCharacters(edited.c_str());
    edited.insert(begin, original, begin, end - begin);
    require(edited == original);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const unsigned character = size > 0 ? data[0] : 0;
    const std::vector<char> characters = makeText(data, size);
    checkCharacters(characters.data());
    checkEdit(characters.data(), character);
    return 0;
}
