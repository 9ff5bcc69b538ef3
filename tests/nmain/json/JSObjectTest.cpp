#include "nmain/json/JSObject.h"

#include "nmain/json/JSONException.h"
#include "nmain/stream/InputStream.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <memory>
#include <random>

using nurel::json::JSObject;
using Tree = std::unique_ptr<const JSObject>;

namespace {

Tree parse(const std::string &text) {
    nurel::stream::MemoryInputStream stream("test.json", text);
    return Tree(JSObject::parse(&stream));
}

std::string describe(const JSObject &value) {
    std::string text = JSObject::unparse(value.getType());
    for (unsigned i = 0; i < value.getLength(); ++i) {
        text += i == 0 ? "(" : " ";
        if (const char *key = value.getKey(i))
            text += std::string(key) + "=";
        text += describe(*value.get(i));
    }
    return value.getLength() > 0 ? text + ")" : text;
}

} // namespace

TEST(JSObject, KnowsEveryKind) {
    const Tree root = parse(R"({"a":{},"b":[],"c":"","d":1,"e":1.0,"f":true,"g":null})");
    EXPECT_EQ(describe(*root), "T_OBJECT(a=T_OBJECT b=T_ARRAY c=T_STRING d=T_INT e=T_FLOAT f=T_BOOL g=T_NONE)");
}

TEST(JSObject, NumbersItsKinds) {
    EXPECT_EQ(JSObject::T_OBJECT, 0);
    EXPECT_EQ(JSObject::T_ARRAY, 1);
    EXPECT_EQ(JSObject::T_STRING, 2);
    EXPECT_EQ(JSObject::T_INT, 3);
    EXPECT_EQ(JSObject::T_FLOAT, 4);
    EXPECT_EQ(JSObject::T_BOOL, 5);
    EXPECT_EQ(JSObject::T_NONE, 6);
}

TEST(JSObject, TakesAScalarAsADocument) {
    EXPECT_STREQ(parse("\"text\"")->asString(nullptr), "text");
    EXPECT_EQ(parse(" 7 ")->asInt(0), 7);
    EXPECT_TRUE(parse("true")->asBool(false));
    EXPECT_EQ(parse("null")->getType(), JSObject::T_NONE);
}

TEST(JSObject, GivesNoneForWhatIsMissing) {
    const Tree root = parse(R"({"list":[1],"text":"x"})");
    const JSObject *none = root->get("missing");
    ASSERT_NE(none, nullptr);
    EXPECT_EQ(none->getType(), JSObject::T_NONE);
    EXPECT_EQ(root->get("list")->get(1), none);
    EXPECT_EQ(root->get("list")->get(-1), none);
    EXPECT_EQ(root->get("list")->get("key"), none);
    EXPECT_EQ(root->get("text")->get(0), none);
    EXPECT_EQ(root->get("text")->get("key"), none);
    EXPECT_EQ(root->get(static_cast<const char *>(nullptr)), none);
    EXPECT_EQ(none->get("a")->get(3)->get("b"), none);
}

TEST(JSObject, TellsAKeyWithNullFromAMissingOne) {
    const Tree root = parse(R"({"null":null})");
    EXPECT_TRUE(root->hasKey("null"));
    EXPECT_FALSE(root->hasKey("none"));
    EXPECT_FALSE(root->hasKey(nullptr));
    EXPECT_FALSE(root->get("null")->hasKey("null"));
}

TEST(JSObject, HasALengthOnlyAsAContainer) {
    const Tree root = parse(R"({"list":[1,2,3],"text":"long"})");
    EXPECT_EQ(root->getLength(), 2u);
    EXPECT_EQ(root->get("list")->getLength(), 3u);
    EXPECT_EQ(root->get("text")->getLength(), 0u);
    EXPECT_EQ(root->get("none")->getLength(), 0u);
}

TEST(JSObject, KeepsTheOrderOfKeys) {
    const Tree root = parse(R"({"z":0,"a":1,"m":2})");
    EXPECT_STREQ(root->getKey(0), "z");
    EXPECT_STREQ(root->getKey(1), "a");
    EXPECT_STREQ(root->getKey(2), "m");
    EXPECT_EQ(root->getKey(3), nullptr);
    EXPECT_EQ(root->get(1)->asInt(-1), 1);
    EXPECT_EQ(parse("[1]")->getKey(0), nullptr);
}

TEST(JSObject, LetsTheLastOfEqualKeysHoldAtThePlaceOfTheFirst) {
    const Tree root = parse(R"({"a":1,"b":2,"a":[3],"c":4,"a":5})");
    EXPECT_EQ(describe(*root), "T_OBJECT(a=T_INT b=T_INT c=T_INT)");
    EXPECT_EQ(root->getInt("a", 0), 5);
}

struct Read {
    const char *name;
    const char *json;
    bool asBool;
    int asInt;
    float asFloat;
    const char *asString;
};

void PrintTo(const Read &read, std::ostream *out) {
    *out << read.name;
}

class JSObjectRead : public testing::TestWithParam<Read> {};

// with the defaults true, -1, -2 and "default"
const Read READS[] = {
    {"Object", "{}", true, -1, -2, "default"},
    {"Array", "[]", true, -1, -2, "default"},
    {"String", "\"1\"", true, -1, -2, "1"},
    {"Integer", "12", true, 12, 12, "default"},
    {"NegativeInteger", "-12", true, -12, -12, "default"},
    {"Zero", "0", true, 0, 0, "default"},
    {"MinusZero", "-0", true, 0, 0, "default"},
    {"Float", "2.75", true, 2, 2.75f, "default"},
    {"NegativeFloat", "-2.75", true, -2, -2.75f, "default"},
    {"Exponent", "1e3", true, 1000, 1000, "default"},
    {"LargestInteger", "2147483647", true, INT_MAX, 2147483648.0f, "default"},
    {"SmallestInteger", "-2147483648", true, INT_MIN, -2147483648.0f, "default"},
    {"FloatAtTheEdge", "2147483647.5", true, INT_MAX, 2147483648.0f, "default"},
    {"AboveTheIntegers", "2147483648", true, -1, 2147483648.0f, "default"},
    {"BelowTheIntegers", "-2147483649", true, -1, -2147483648.0f, "default"},
    {"BeyondLongIntegers", "123456789012345678901234567890", true, -1, 1.2345679e29f, "default"},
    {"BeyondFloats", "1e300", true, -1, FLT_MAX, "default"},
    {"BelowFloats", "-1e300", true, -1, -FLT_MAX, "default"},
    {"Tiny", "1e-400", true, 0, 0, "default"},
    {"False", "false", false, -1, -2, "default"},
    {"True", "true", true, -1, -2, "default"},
    {"Null", "null", true, -1, -2, "default"},
};

TEST_P(JSObjectRead, GivesTheValueOrTheDefault) {
    const Read &read = GetParam();
    const Tree array = parse(std::string("[") + read.json + "]");
    const JSObject *value = array->get(0);
    EXPECT_EQ(value->asBool(true), read.asBool);
    EXPECT_EQ(value->asInt(-1), read.asInt);
    EXPECT_EQ(value->asFloat(-2), read.asFloat);
    EXPECT_STREQ(value->asString("default"), read.asString);
    EXPECT_EQ(array->getBool(0u, true), read.asBool);
    EXPECT_EQ(array->getInt(0, -1), read.asInt);
    EXPECT_EQ(array->getFloat(0, -2), read.asFloat);
    EXPECT_STREQ(array->getString(0, "default"), read.asString);

    const Tree object = parse(std::string("{\"key\":") + read.json + "}");
    EXPECT_EQ(object->getBool("key", true), read.asBool);
    EXPECT_EQ(object->getInt("key", -1), read.asInt);
    EXPECT_EQ(object->getFloat("key", -2), read.asFloat);
    EXPECT_STREQ(object->getString("key", "default"), read.asString);
}

INSTANTIATE_TEST_SUITE_P(Values, JSObjectRead, testing::ValuesIn(READS),
                         [](const auto &row) { return row.param.name; });

TEST(JSObject, MakesAFloatOfAnIntegerOutOfRange) {
    EXPECT_EQ(parse("2147483647")->getType(), JSObject::T_INT);
    EXPECT_EQ(parse("2147483648")->getType(), JSObject::T_FLOAT);
    EXPECT_EQ(parse("-2147483648")->getType(), JSObject::T_INT);
    EXPECT_EQ(parse("-2147483649")->getType(), JSObject::T_FLOAT);
}

TEST(JSObject, ReadsEscapesAndUTF8) {
    EXPECT_STREQ(parse("\"\\u00e9\\ud83d\\ude00\\n\\\"\\\\\\/ \xC3\xA9\"")->asString(""),
                 "\xC3\xA9\xF0\x9F\x98\x80\n\"\\/ \xC3\xA9");
}

TEST(JSObject, EndsATextAtItsFirstNull) {
    EXPECT_STREQ(parse(R"("a\u0000b")")->asString(""), "a");
    const Tree root = parse(R"({"a\u0000x":1,"a":2})");
    EXPECT_EQ(root->getLength(), 1u);
    EXPECT_EQ(root->getInt("a", 0), 2);
}

TEST(JSObject, SkipsAByteOrderMark) {
    EXPECT_EQ(parse("\xEF\xBB\xBF[1]")->getInt(0, 0), 1);
}

TEST(JSObject, ParsesATextInMemory) {
    const Tree root(JSObject::parse(R"({"a":1})"));
    EXPECT_EQ(root->getInt("a", 0), 1);
}

TEST(JSObject, FindsEachOfManyKeysAsAWalkDoes) {
    std::mt19937 random(7);
    for (const unsigned count : {1u, 12u, 13u, 500u}) {
        std::string text = "{";
        std::vector<std::pair<std::string, int>> expected;
        for (unsigned i = 0; i < count; ++i) {
            const std::string key = "k" + std::to_string(random() % (2 * count));
            const int value = static_cast<int>(i);
            text += (i > 0 ? ",\"" : "\"") + key + "\":" + std::to_string(value);
            const auto known = std::find_if(expected.begin(), expected.end(),
                                            [&key](const auto &entry) { return entry.first == key; });
            if (known == expected.end())
                expected.emplace_back(key, value);
            else
                known->second = value;
        }
        const Tree root = parse(text + "}");
        ASSERT_EQ(root->getLength(), expected.size());
        for (unsigned i = 0; i < expected.size(); ++i) {
            EXPECT_EQ(root->getKey(i), expected[i].first);
            EXPECT_EQ(root->get(i)->asInt(-1), expected[i].second);
            EXPECT_EQ(root->get(expected[i].first.c_str()), root->get(i));
        }
        EXPECT_FALSE(root->hasKey("k"));
        EXPECT_FALSE(root->hasKey("zzz"));
    }
}

TEST(JSObject, TakesADocumentAtTheDepthLimit) {
    const Tree root = parse(std::string(512, '[') + std::string(512, ']'));
    const JSObject *value = root.get();
    unsigned depth = 1;
    while (value->getLength() == 1) {
        value = value->get(0);
        ++depth;
    }
    EXPECT_EQ(depth, JSObject::MAXIMUM_DEPTH);
}

TEST(JSObject, TakesWideDocuments) {
    std::string text = "[0";
    for (int i = 1; i < 20000; ++i)
        text += "," + std::to_string(i);
    const Tree root = parse(text + "]");
    ASSERT_EQ(root->getLength(), 20000u);
    EXPECT_EQ(root->getInt(19999, 0), 19999);
}
