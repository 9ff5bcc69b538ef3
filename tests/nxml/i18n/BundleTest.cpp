#include "nxml/i18n/Bundle.h"

#include "foundation/core/SmartPtr.h"
#include "nmain/stream/InputStream.h"
#include "nxml/i18n/CatalogueException.h"

#include <gtest/gtest.h>

#include <memory>

using core::SmartPtr;
using nurel::i18n::Bundle;
using nurel::i18n::CatalogueException;

namespace {

SmartPtr<Bundle> parse(const char *name, const std::string &content) {
    nurel::stream::MemoryInputStream stream(name, content);
    return SmartPtr<Bundle>(Bundle::parse(stream));
}

std::string getMessage(const char *name, const std::string &content) {
    try {
        parse(name, content);
    } catch (const CatalogueException &error) {
        return error.what();
    }
    return "parsed";
}

struct Fault {
    const char *name;
    std::string content;
    const char *message;
};

void PrintTo(const Fault &fault, std::ostream *out) {
    *out << fault.name;
}

class XMLFault : public testing::TestWithParam<Fault> {};
class POFault : public testing::TestWithParam<Fault> {};

} // namespace

TEST(Bundle, KeepsTextsByTheirKeys) {
    const SmartPtr<Bundle> bundle(new Bundle("de"));
    bundle->put("OK", "Gut");
    bundle->put("OK", "In Ordnung");
    bundle->put(nullptr, nullptr);
    EXPECT_STREQ(bundle->get("OK"), "In Ordnung");
    EXPECT_STREQ(bundle->get(""), "");
    EXPECT_EQ(bundle->get("NO"), nullptr);
    EXPECT_EQ(bundle->getLength(), 2u);
}

TEST(Bundle, NormalisesLocales) {
    EXPECT_STREQ(SmartPtr<Bundle>(new Bundle("de-AT.UTF-8"))->getLocale(), "de_AT");
    EXPECT_EQ(Bundle::normaliseLocale("de_AT@euro"), "de_AT");
    EXPECT_EQ(Bundle::normaliseLocale("zh-Hant-TW"), "zh_Hant_TW");
    EXPECT_EQ(Bundle::normaliseLocale("C.UTF-8"), "");
    EXPECT_EQ(Bundle::normaliseLocale("POSIX"), "");
    EXPECT_EQ(Bundle::normaliseLocale(""), "");
    EXPECT_EQ(Bundle::normaliseLocale(nullptr), "");
}

TEST(Bundle, TellsWhetherATextHoldsKeys) {
    EXPECT_TRUE(Bundle::needsResolving("a ${b}"));
    EXPECT_TRUE(Bundle::needsResolving("${"));
    EXPECT_FALSE(Bundle::needsResolving("a $ {b}"));
    EXPECT_FALSE(Bundle::needsResolving(""));
    EXPECT_FALSE(Bundle::needsResolving(nullptr));
}

TEST(Bundle, ReadsAnXMLCatalogue) {
    const SmartPtr<Bundle> bundle =
        parse("de.xml", "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                        "<!-- buttons -->\n"
                        "<catalogue locale=\"de\">\n"
                        "  <text key=\"OK\">Gut</text>\n"
                        "  <!-- more -->\n"
                        "  <text key=\"BLANK\"> </text>\n"
                        "  <text key=\"EMPTY\"/>\n"
                        "  <text key=\"MIXED\">a &lt; <![CDATA[b & c]]><!-- d --> &#xe9;\xC3\xA9</text>\n"
                        "  <text key=\"OK\">In Ordnung</text>\n"
                        "</catalogue>\n");
    EXPECT_STREQ(bundle->getLocale(), "de");
    EXPECT_EQ(bundle->getLength(), 4u);
    EXPECT_STREQ(bundle->get("OK"), "In Ordnung");
    EXPECT_STREQ(bundle->get("BLANK"), " ");
    EXPECT_STREQ(bundle->get("EMPTY"), "");
    EXPECT_STREQ(bundle->get("MIXED"), "a < b & c \xC3\xA9\xC3\xA9");
}

TEST(Bundle, ServesEveryLanguageWithoutALocale) {
    EXPECT_STREQ(parse("any.xml", "<catalogue/>")->getLocale(), "");
    EXPECT_STREQ(parse("any.po", "")->getLocale(), "");
}

const Fault XML_FAULTS[] = {
    {"Empty", "", "a.xml:1:1: No document element found"},
    {"CutText", "<catalogue>\n<text key=\"A\">cut", "a.xml:2:17: Start-end tags mismatch"},
    {"WrongEndTag", "<catalogue>\n  </other>", "a.xml:2:5: Start-end tags mismatch"},
    {"NoXML", "{}", "a.xml:1:3: No document element found"},
    {"AnotherRoot", "\n <texts/>", "a.xml:2:2: <catalogue> expected, <texts> found"},
    {"AnotherElement", "<catalogue>\n<text key=\"A\"/><other/></catalogue>",
     "a.xml:2:16: <text> expected, <other> found"},
    {"NoKey", "<catalogue>\n\xC3\xA9 <text>a</text></catalogue>", "a.xml:2:3: <text> has no key"},
    {"ElementInAText", "<catalogue><text key=\"A\">a<b/></text></catalogue>",
     "a.xml:1:27: <b> in a <text>, which holds nothing but text"},
    {"SecondRoot", "<catalogue/>\n<catalogue/>", "a.xml:2:1: <catalogue> after the end of the catalogue"},
    {"NoUTF8", "<catalogue>\n<text key=\"A\">\xFC</text></catalogue>",
     "a.xml:2:15: the byte 0xFC is no UTF-8; save the catalogue as UTF-8"},
    {"NullByte", std::string("<catalogue/>\n\0", 14), "a.xml:2:1: the character U+0000 can't stand in a text"},
};

TEST_P(XMLFault, IsReportedWithItsPlace) {
    EXPECT_EQ(getMessage("a.xml", GetParam().content), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(Faults, XMLFault, testing::ValuesIn(XML_FAULTS),
                         [](const auto &row) { return row.param.name; });

TEST(Bundle, ReadsAnXMLCatalogueNestedWithoutLimit) {
    std::string content;
    for (int i = 0; i < 100000; ++i)
        content += "<a>";
    EXPECT_NE(getMessage("deep.xml", content), "parsed");
}

TEST(Bundle, ReadsAGettextCatalogue) {
    const SmartPtr<Bundle> bundle = parse("de.po", "\xEF\xBB\xBF# a translator\n"
                                                   "msgid \"\"\n"
                                                   "msgstr \"\"\n"
                                                   "\"Content-Type: text/plain; charset=utf-8\\n\"\n"
                                                   "\"Language: de-AT \\n\"\n"
                                                   "\n"
                                                   "#: form.ui:3\r\n"
                                                   "msgid \"OK\"\r\n"
                                                   "msgstr \"Gut\"\r\n"
                                                   "msgid \"two \"  \"parts\"\n"
                                                   "msgstr \"\"\n"
                                                   "  \"zwei \"\n"
                                                   "\"\\\"Teile\\\"\\n\\\\\\t\"\n"
                                                   "msgid \"last\"\n"
                                                   "msgstr \"letzter\"");
    EXPECT_STREQ(bundle->getLocale(), "de_AT");
    EXPECT_EQ(bundle->getLength(), 3u);
    EXPECT_STREQ(bundle->get("OK"), "Gut");
    EXPECT_STREQ(bundle->get("two parts"), "zwei \"Teile\"\n\\\t");
    EXPECT_STREQ(bundle->get("last"), "letzter");
}

TEST(Bundle, TakesTheFirstPluralFormAndJoinsTheContextToTheKey) {
    const SmartPtr<Bundle> bundle = parse("de.po", "msgctxt \"menu\"\n"
                                                   "msgid \"Open\"\n"
                                                   "msgstr \"\303\226ffnen\"\n"
                                                   "msgid \"%d file\"\n"
                                                   "msgid_plural \"%d \"\n"
                                                   "\"files\"\n"
                                                   "msgstr[0] \"%d Datei\"\n"
                                                   "msgstr[1] \"%d Dateien\"\n");
    EXPECT_STREQ(bundle->get("menu\004Open"), "\303\226ffnen");
    EXPECT_EQ(bundle->get("Open"), nullptr);
    EXPECT_STREQ(bundle->get("%d file"), "%d Datei");
    EXPECT_EQ(bundle->getLength(), 2u);
}

TEST(Bundle, LeavesOutFuzzyObsoleteAndUntranslatedEntries) {
    const SmartPtr<Bundle> bundle = parse("de.po", "#, c-format, fuzzy\n"
                                                   "msgid \"guess\"\n"
                                                   "msgstr \"Vermutung\"\n"
                                                   "msgid \"sure\"\n"
                                                   "msgstr \"sicher\"\n"
                                                   "#~ msgid \"old\"\n"
                                                   "#~ msgstr \"alt\"\n"
                                                   "msgid \"untranslated\"\n"
                                                   "msgstr \"\"\n"
                                                   "#, fuzzy\n");
    EXPECT_EQ(bundle->getLength(), 1u);
    EXPECT_STREQ(bundle->get("sure"), "sicher");
}

TEST(Bundle, TakesTheGivenLocaleWhenAHeaderHasNone) {
    nurel::stream::MemoryInputStream without("de.po", std::string("msgid \"\"\nmsgstr \"X-Language: fr\\n\"\n"));
    EXPECT_STREQ(SmartPtr<Bundle>(Bundle::parsePO(without, "de"))->getLocale(), "de");
    nurel::stream::MemoryInputStream with("de.po", std::string("msgid \"\"\nmsgstr \"A: b\\nLanguage: fr\""));
    EXPECT_STREQ(SmartPtr<Bundle>(Bundle::parsePO(with, "de"))->getLocale(), "fr");
}

const Fault PO_FAULTS[] = {
    {"UnknownKeyword", "msgid \"a\"\nmsgstr \"b\"\n message \"c\"", "a.po:3:2: a keyword such as msgid expected"},
    {"NoKeyword", "\n<catalogue/>", "a.po:2:1: a keyword such as msgid expected"},
    {"StringFirst", "\"a\"", "a.po:1:1: a string without a keyword"},
    {"NoString", "msgid\nmsgstr \"b\"", "a.po:1:6: a string expected after msgid"},
    {"NoQuote", "msgid a", "a.po:1:7: a string expected after msgid"},
    {"OpenString", "msgid \"a\nmsgstr \"b\"", "a.po:1:7: a string without its closing quote"},
    {"MoreBehindAString", "msgid \"a\" b", "a.po:1:11: nothing may follow a string"},
    {"UnknownEscape", "msgid \"a\\q\"", "a.po:1:9: an unknown escape sequence"},
    {"CutEscape", "msgid \"a\\", "a.po:1:9: an unknown escape sequence"},
    {"TextFirst", "msgstr \"b\"", "a.po:1:1: msgid expected"},
    {"PluralFirst", "msgctxt \"c\"\nmsgid_plural \"b\"", "a.po:2:1: msgid expected"},
    {"TwoTexts", "msgid \"a\"\nmsgstr \"b\"\nmsgstr \"c\"", "a.po:3:1: a second msgstr for one msgid"},
    {"IdWithoutText", "msgid \"a\"\nmsgid \"b\"\nmsgstr \"c\"", "a.po:1:1: an entry without msgstr"},
    {"ContextAlone", "\nmsgctxt \"a\"\n", "a.po:2:1: an entry without msgstr"},
    {"TwoContexts", "msgctxt \"a\"\nmsgctxt \"b\"", "a.po:1:1: an entry without msgstr"},
    {"SecondPluralFormAlone", "msgid \"a\"\nmsgstr[1] \"b\"", "a.po:1:1: an entry without msgstr"},
    {"AnotherCharset", "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=ISO-8859-1\\n\"",
     "a.po:1:1: the charset ISO-8859-1 can't be read; save the catalogue as UTF-8"},
    {"NoUTF8", "msgid \"\xE4\"", "a.po:1:8: the byte 0xE4 is no UTF-8; save the catalogue as UTF-8"},
};

TEST_P(POFault, IsReportedWithItsPlace) {
    EXPECT_EQ(getMessage("a.po", GetParam().content), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(Faults, POFault, testing::ValuesIn(PO_FAULTS), [](const auto &row) { return row.param.name; });

TEST(CatalogueException, KeepsItsClassInACopy) {
    const CatalogueException error("%s", "text");
    const std::unique_ptr<core::Exception> copy(error.clone());
    EXPECT_STREQ(copy->what(), "text");
    EXPECT_THROW(copy->raise(), CatalogueException);
}
