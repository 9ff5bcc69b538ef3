#include "foundation/text/Format.h"
#include "foundation/text/Utf8.h"
#include "nmain/json/JSONException.h"
#include "nmain/json/JSObject.h"
#include "nmain/json/detail/TextReader.h"
#include "nmain/json/detail/TreeBuilder.h"
#include "nmain/stream/InputStream.h"

#include <nlohmann/json.hpp>

#include <array>
#include <climits>
#include <string>
#include <string_view>

namespace nurel::json {

namespace {

constexpr std::string_view NUMBER_OVERFLOW = "number overflow";

/// What the library says of a token of several characters that it did not expect, and the token's length; 0 is the
/// length of the text that was read last.
struct Literal {
    std::string_view message;
    int length;
};
constexpr std::array<Literal, 6> LITERALS{{{"unexpected true literal", 4},
                                           {"unexpected false literal", 5},
                                           {"unexpected null literal", 4},
                                           {"unexpected string literal", 0},
                                           {"unexpected number literal", 0},
                                           {NUMBER_OVERFLOW, 0}}};

/// How much of the text that was read last a message repeats.
constexpr unsigned EXCERPT_LENGTH = 32;

/// The end of a text, fit for a message: without control characters and malformed bytes, and cut where it is long.
std::string makeExcerpt(const std::string &text) {
    const unsigned length = text::getUTF8Length(text.c_str());
    const char *rest = text.c_str();
    std::string excerpt;
    if (length > EXCERPT_LENGTH) {
        rest += text::getUTF8Index(rest, length - EXCERPT_LENGTH);
        excerpt = "...";
    }
    while (*rest) {
        const unsigned bytes = text::getUTF8Index(rest, 1);
        const unsigned char lead = static_cast<unsigned char>(*rest);
        if (bytes == 1 && (lead < 0x20 || lead > 0x7E))
            excerpt += '?';
        else
            excerpt.append(rest, bytes);
        rest += bytes;
    }
    return excerpt;
}

/// Turns the library's events into a tree, and its messages into ours. Every event returns true to go on; trouble is
/// thrown, not returned.
class Handler {
public:
    using Number = nlohmann::json;

    Handler(const char *streamName, const TextReader &reader) : mStreamName(streamName), mReader(reader) {}

    JSObject *release() { return mBuilder.release(); }

    bool null() {
        mBuilder.addNone();
        return true;
    }

    bool boolean(bool value) {
        mBuilder.addBool(value);
        return true;
    }

    bool number_integer(Number::number_integer_t value) {
        if (value >= INT_MIN && value <= INT_MAX)
            mBuilder.addInt(static_cast<int>(value));
        else
            mBuilder.addFloat(static_cast<double>(value));
        return true;
    }

    bool number_unsigned(Number::number_unsigned_t value) {
        if (value <= INT_MAX)
            mBuilder.addInt(static_cast<int>(value));
        else
            mBuilder.addFloat(static_cast<double>(value));
        return true;
    }

    bool number_float(double value, const std::string &) {
        mBuilder.addFloat(value);
        return true;
    }

    bool string(std::string &text) {
        mBuilder.addString(text);
        return true;
    }

    bool binary(Number::binary_t &) { return false; } // never sent for a text

    bool key(std::string &text) {
        mBuilder.setKey(text);
        return true;
    }

    bool start_object(std::size_t) { return open(); }

    bool end_object() {
        mBuilder.closeObject();
        return true;
    }

    bool start_array(std::size_t) { return open(); }

    bool end_array() {
        mBuilder.closeArray();
        return true;
    }

    /// @param position    how many bytes were read up to and including the offending one, the end counting as one
    /// @param token       the text that was read last
    bool parse_error(std::size_t position, const std::string &token, const nlohmann::detail::exception &error) {
        const std::string reason = makeReason(error.what(), token);
        TextReader::Place place = mReader.getPlace(position > 0 ? position - 1 : 0);
        place.column -= measureToken(error.what(), token) - 1;
        fail(place, reason);
    }

    [[noreturn]] void fail(const TextReader::Place &place, const std::string &reason) const {
        throw JSONException("%s:%d:%d: %s", mStreamName, place.line, place.column, reason.c_str());
    }

private:
    bool open() {
        if (mBuilder.getDepth() == JSObject::MAXIMUM_DEPTH)
            fail(mReader.getLastPlace(), text::format("nested deeper than %u", JSObject::MAXIMUM_DEPTH));
        mBuilder.open();
        return true;
    }

    /// The library's message without its id and position, and with a short excerpt of the text instead of all of it.
    static std::string makeReason(std::string_view message, const std::string &token) {
        constexpr std::string_view AFTER_ID = "] ";
        constexpr std::string_view AFTER_POSITION = ": ";
        constexpr std::string_view EXCERPT = "; last read: '";
        constexpr std::string_view AFTER_EXCERPT = "'; expected ";

        message.remove_prefix(message.find(AFTER_ID) + AFTER_ID.size());
        if (message.starts_with(NUMBER_OVERFLOW))
            return text::format("the number '%s' is out of range", makeExcerpt(token).c_str());
        message.remove_prefix(message.find(AFTER_POSITION) + AFTER_POSITION.size());
        const std::size_t excerpt = message.find(EXCERPT);
        if (excerpt == message.npos)
            return std::string(message);
        std::string reason(message.substr(0, excerpt + EXCERPT.size()));
        reason += makeExcerpt(token) + '\'';
        const std::size_t expected = message.rfind(AFTER_EXCERPT);
        if (expected != message.npos && expected >= excerpt + EXCERPT.size())
            reason += message.substr(expected + 1);
        return reason;
    }

    /// How many columns the offending token takes, of which the library tells the last.
    static int measureToken(std::string_view message, const std::string &token) {
        for (const Literal &literal : LITERALS) {
            if (message.find(literal.message) != message.npos)
                return literal.length > 0 ? literal.length : static_cast<int>(text::getUTF8Length(token.c_str()));
        }
        return 1;
    }

    const char *mStreamName;
    const TextReader &mReader;
    TreeBuilder mBuilder;
};

} // namespace

JSObject *JSObject::parse(stream::InputStream *stream) {
    if (!stream)
        throw ::core::IllegalArgumentException("No stream to parse");
    TextReader reader(*stream);
    Handler handler(stream->getName(), reader);
    nlohmann::json::sax_parse(TextReader::Iterator(reader), TextReader::Iterator(), &handler);
    // the library takes the character U+0000 for the end of input
    if (reader.getLastCharacter() == '\0')
        handler.fail(reader.getLastPlace(), "unexpected character U+0000");
    return handler.release();
}

JSObject *JSObject::parse(const char *text) {
    stream::MemoryInputStream stream("<text>", std::string(text ? text : ""));
    return parse(&stream);
}

} // namespace nurel::json
