#include "JsonWriter.h"

#include <gtest/gtest.h>

#include <limits>

namespace viewer {

TEST(JsonWriter, PutsCommasBetweenFieldsAndElements) {
    std::string text;
    JsonWriter json(text);
    json.beginObject().field("a", 1).key("b").beginArray().value(1U).value(true).endArray();
    json.key("c").beginObject().endObject().field("d", "x").endObject();
    EXPECT_EQ(text, R"({"a":1,"b":[1,true],"c":{},"d":"x"})");
}

TEST(JsonWriter, WritesFloatsWithTheFewestDigits) {
    std::string text;
    JsonWriter(text).beginArray().value(0.1F).value(100.0F).value(-0.0F).value(1.5).endArray();
    EXPECT_EQ(text, "[0.1,100,0,1.5]");
}

TEST(JsonWriter, WritesWhatIsNoNumberAsNull) {
    std::string text;
    JsonWriter(text)
        .beginArray()
        .value(std::numeric_limits<float>::quiet_NaN())
        .value(std::numeric_limits<double>::infinity())
        .value(static_cast<const char *>(nullptr))
        .endArray();
    EXPECT_EQ(text, "[null,null,null]");
}

TEST(JsonWriter, EscapesQuotesBackslashesAndControlCharacters) {
    std::string text;
    JsonWriter(text).value("a\"b\\c\nd\x01é");
    EXPECT_EQ(text, "\"a\\\"b\\\\c\\nd\\u0001é\"");
}

} // namespace viewer
