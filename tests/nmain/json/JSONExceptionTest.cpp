#include "nmain/json/JSONException.h"

#include "nmain/json/JSObject.h"
#include "nmain/stream/InputStream.h"

#include <gtest/gtest.h>

#include <memory>

using nurel::json::JSObject;
using nurel::json::JSONException;

namespace {

/// Gives the beginning of a document and then fails.
class FailingStream : public nurel::stream::InputStream {
public:
    std::size_t read(void *buffer, std::size_t) override {
        if (mRead)
            throw core::IOException("Cannot read file broken.json");
        mRead = true;
        *static_cast<char *>(buffer) = '[';
        return 1;
    }
    const char *getName() const override { return "broken.json"; }

private:
    bool mRead = false;
};

std::string getMessage(const std::string &text) {
    nurel::stream::MemoryInputStream stream("a.ui", text);
    try {
        const std::unique_ptr<const JSObject> root(JSObject::parse(&stream));
    } catch (const JSONException &error) {
        return error.what();
    }
    return "parsed";
}

struct Fault {
    const char *name;
    std::string text;
    const char *message;
};

void PrintTo(const Fault &fault, std::ostream *out) {
    *out << fault.name;
}

class JSONFault : public testing::TestWithParam<Fault> {};

const Fault FAULTS[] = {
    {"Empty", "",
     "a.ui:1:1: syntax error while parsing value - unexpected end of input; expected '[', '{', or a literal"},
    {"WhiteSpace", " \n ",
     "a.ui:2:2: syntax error while parsing value - unexpected end of input; expected '[', '{', or a literal"},
    {"CutObject", "{\n  \"a\": 1",
     "a.ui:2:9: syntax error while parsing object - unexpected end of input; expected '}'"},
    {"CutArray", "[1,",
     "a.ui:1:4: syntax error while parsing value - unexpected end of input; expected '[', '{', or a literal"},
    {"CutString", "[\"abc",
     "a.ui:1:6: syntax error while parsing value - invalid string: missing closing quote; last read: '\"abc'"},
    {"TrailingComma", "[1,]",
     "a.ui:1:4: syntax error while parsing value - unexpected ']'; expected '[', '{', or a literal"},
    {"MissingColon", "{\"a\" \"hello\"}",
     "a.ui:1:6: syntax error while parsing object separator - unexpected string literal; expected ':'"},
    {"MissingComma", "[1\n  1234]",
     "a.ui:2:3: syntax error while parsing array - unexpected number literal; expected ']'"},
    {"ForeignCharacter", "[1, \xC3\xA9]",
     "a.ui:1:5: syntax error while parsing value - invalid literal; last read: '1, ?'"},
    {"UnexpectedLiteral", "{true:1}",
     "a.ui:1:2: syntax error while parsing object key - unexpected true literal; expected string literal"},
    {"UnexpectedFalse", "{ false:1}",
     "a.ui:1:3: syntax error while parsing object key - unexpected false literal; expected string literal"},
    {"UnexpectedNull", "[1 null]",
     "a.ui:1:4: syntax error while parsing array - unexpected null literal; expected ']'"},
    {"SecondDocument", "{} {}", "a.ui:1:4: syntax error while parsing value - unexpected '{'; expected end of input"},
    {"KeyWithoutQuotes", "{a:1}",
     "a.ui:1:2: syntax error while parsing object key - invalid literal; last read: '{a'; expected string literal"},
    {"Comment", "// note\n{}", "a.ui:1:1: syntax error while parsing value - invalid literal; last read: '/'"},
    {"BlockComment", "[1, /* one */ 2]",
     "a.ui:1:5: syntax error while parsing value - invalid literal; last read: '1, /'"},
    {"SingleQuotes", "['a']", "a.ui:1:2: syntax error while parsing value - invalid literal; last read: '[''"},
    {"LeadingZero", "[01]", "a.ui:1:3: syntax error while parsing array - unexpected number literal; expected ']'"},
    {"BareWord", "nul", "a.ui:1:4: syntax error while parsing value - invalid literal; last read: 'nul'"},
    {"NotANumber", "[NaN]", "a.ui:1:2: syntax error while parsing value - invalid literal; last read: '[N'"},
    {"LineBreakInAString", "\"a\nb\"",
     "a.ui:1:3: syntax error while parsing value - invalid string: control character U+000A (LF) must be escaped to "
     "\\u000A or \\n; last read: '\"a<U+000A>'"},
    {"UnknownEscape", "\"\\q\"",
     "a.ui:1:3: syntax error while parsing value - invalid string: forbidden character after backslash; last read: "
     "'\"\\q'"},
    {"LoneSurrogate", "\"\\ud800x\"",
     "a.ui:1:8: syntax error while parsing value - invalid string: surrogate U+D800..U+DBFF must be followed by "
     "U+DC00..U+DFFF; last read: '\"\\ud800x'"},
    {"InvalidUTF8", "{\"\xC3\xA9\": \"\xFF\"}",
     "a.ui:1:8: syntax error while parsing value - invalid string: ill-formed UTF-8 byte; last read: '\"?'"},
    {"NullByte", std::string("1\0", 2), "a.ui:1:2: unexpected character U+0000"},
    {"NullByteBeforeMore", std::string("[1]\n\0x", 6), "a.ui:2:1: unexpected character U+0000"},
    {"CutByteOrderMark", "\xEF\xBB[]",
     "a.ui:1:1: syntax error while parsing value - invalid BOM; must be 0xEF 0xBB 0xBF if given; last read: '??['"},
    {"ErrorBehindAByteOrderMark", "\xEF\xBB\xBF[}",
     "a.ui:1:2: syntax error while parsing value - unexpected '}'; expected '[', '{', or a literal"},
    {"NumberOutOfRange", "[1, 1e999]", "a.ui:1:5: the number '1e999' is out of range"},
};

TEST_P(JSONFault, IsReportedWithItsPlace) {
    EXPECT_EQ(getMessage(GetParam().text), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(Faults, JSONFault, testing::ValuesIn(FAULTS), [](const auto &row) { return row.param.name; });

} // namespace

TEST(JSONException, EndsADocumentThatIsNestedTooDeep) {
    EXPECT_EQ(getMessage(std::string(513, '[')), "a.ui:1:513: nested deeper than 512");
    std::string objects;
    for (int i = 0; i < 10000; ++i)
        objects += "{\"a\":\n";
    EXPECT_EQ(getMessage(objects), "a.ui:513:1: nested deeper than 512");
}

TEST(JSONException, RepeatsOnlyTheEndOfALongText) {
    EXPECT_EQ(getMessage("\"" + std::string(100000, 'x')),
              "a.ui:1:100002: syntax error while parsing value - invalid string: missing closing quote; last read: "
              "'...xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx'");
    EXPECT_EQ(getMessage("[1, 9" + std::string(1000, '9') + "e99999]"),
              "a.ui:1:5: the number '...99999999999999999999999999e99999' is out of range");
}

TEST(JSONException, RepeatsNoMalformedBytes) {
    EXPECT_EQ(getMessage("\"\x7F\xC3\xA9\xFF\""), "a.ui:1:4: syntax error while parsing value - invalid string: "
                                                  "ill-formed UTF-8 byte; last read: '\"?\xC3\xA9?'");
}

TEST(JSONException, NamesATextInMemory) {
    try {
        JSObject::parse("[");
        FAIL();
    } catch (const JSONException &error) {
        EXPECT_TRUE(std::string(error.what()).starts_with("<text>:1:2: ")) << error.what();
    }
    EXPECT_THROW(JSObject::parse(static_cast<const char *>(nullptr)), JSONException);
}

TEST(JSONException, LetsTheStreamsOwnErrorPass) {
    FailingStream stream;
    EXPECT_THROW(JSObject::parse(&stream), core::IOException);
    EXPECT_THROW(JSObject::parse(static_cast<nurel::stream::InputStream *>(nullptr)), core::IllegalArgumentException);
}

TEST(JSONException, KeepsItsClassInACopy) {
    const JSONException error("%s:%d", "a", 1);
    const std::unique_ptr<core::Exception> copy(error.clone());
    EXPECT_STREQ(copy->what(), "a:1");
    EXPECT_THROW(copy->raise(), JSONException);
}
