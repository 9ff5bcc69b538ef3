#include "nxml/i18n/I18N.h"

#include "foundation/core/Exception.h"

#include <gtest/gtest.h>

using nurel::i18n::Bundle;
using nurel::i18n::I18N;

namespace {

class I18NTest : public testing::Test {
protected:
    I18NTest() : mTexts(I18N::create()) {}
    ~I18NTest() override { I18N::destroy(); }

    Bundle *add(const char *locale, const char *key, const char *text) {
        Bundle *bundle = new Bundle(locale);
        bundle->put(key, text);
        mTexts.addBundle(bundle);
        return bundle;
    }

    I18N &mTexts;
};

struct Resolving {
    const char *name;
    const char *text;
    const char *plain;
    const char *marked;
};

void PrintTo(const Resolving &resolving, std::ostream *out) {
    *out << resolving.name;
}

class I18NResolve : public I18NTest, public testing::WithParamInterface<Resolving> {};

} // namespace

TEST(I18N, IsThereBetweenCreateAndDestroy) {
    EXPECT_FALSE(I18N::isSingletonCreated());
    EXPECT_EQ(I18N::getSingletonPtr(), nullptr);
    EXPECT_THROW(I18N::getSingleton(), core::IllegalStateException);
    I18N &texts = I18N::create();
    EXPECT_THROW(I18N::create(), core::IllegalStateException);
    EXPECT_TRUE(I18N::isSingletonCreated());
    EXPECT_EQ(&I18N::getSingleton(), &texts);
    EXPECT_EQ(I18N::getSingletonPtr(), &texts);
    I18N::destroy();
    EXPECT_FALSE(I18N::isSingletonCreated());
    I18N::destroy();
}

TEST_F(I18NTest, GivesTheKeyItselfWhenItIsUnknown) {
    const char *key = "UNKNOWN";
    EXPECT_EQ(mTexts[key], key);
    EXPECT_STREQ(mTexts[nullptr], "");
    EXPECT_STREQ(mTexts[""], "");
}

TEST_F(I18NTest, FallsBackFromTheRegionToTheLanguageToNone) {
    for (const char *key : {"A", "B", "C"})
        add("", key, "neutral");
    for (const char *key : {"A", "B"})
        add("de", key, "German");
    add("de_AT", "A", "Austrian");
    add("de_CH", "A", "Swiss");
    add("fr", "A", "French");

    mTexts.setLocale("de_AT");
    EXPECT_STREQ(mTexts["A"], "Austrian");
    EXPECT_STREQ(mTexts["B"], "German");
    EXPECT_STREQ(mTexts["C"], "neutral");
    EXPECT_STREQ(mTexts["D"], "D");
    mTexts.setLocale("de");
    EXPECT_STREQ(mTexts["A"], "German");
    mTexts.setLocale("it");
    EXPECT_STREQ(mTexts["A"], "neutral");
    mTexts.setLocale("");
    EXPECT_STREQ(mTexts["A"], "neutral");
}

TEST_F(I18NTest, TakesLocalesInTheirUsualForms) {
    add("de_AT", "A", "Austrian");
    EXPECT_STREQ(mTexts.getLocale(), "");
    mTexts.setLocale("de-AT.UTF-8");
    EXPECT_STREQ(mTexts.getLocale(), "de_AT");
    EXPECT_STREQ(mTexts["A"], "Austrian");
    mTexts.setLocale(nullptr);
    EXPECT_STREQ(mTexts.getLocale(), "");
    EXPECT_STREQ(mTexts["A"], "A");
}

TEST_F(I18NTest, FallsBackOverEachPartOfALongLocale) {
    add("zh_Hant", "A", "traditional");
    mTexts.setLocale("zh_Hant_TW");
    EXPECT_STREQ(mTexts["A"], "traditional");
}

TEST_F(I18NTest, PrefersTheBundleThatWasAddedLast) {
    add("de", "A", "first");
    Bundle *second = add("de", "A", "second");
    mTexts.setLocale("de");
    EXPECT_STREQ(mTexts["A"], "second");
    EXPECT_TRUE(mTexts.removeBundle(second));
    EXPECT_STREQ(mTexts["A"], "first");
}

TEST_F(I18NTest, IgnoresNullStrangersAndABundleThatIsThere) {
    const core::SmartPtr<Bundle> bundle(new Bundle(""));
    mTexts.addBundle(nullptr);
    mTexts.addBundle(bundle.get());
    mTexts.addBundle(bundle.get());
    EXPECT_EQ(bundle->getRefCount(), 2u);
    EXPECT_FALSE(mTexts.removeBundle(nullptr));
    EXPECT_TRUE(mTexts.removeBundle(bundle.get()));
    EXPECT_FALSE(mTexts.removeBundle(bundle.get()));
    EXPECT_EQ(bundle->getRefCount(), 1u);
}

const Resolving RESOLVINGS[] = {
    {"NoKeys", "plain", "plain", "plain"},
    {"Empty", "", "", ""},
    {"Null", nullptr, "", ""},
    {"OneKey", "${OK}", "Gut", "Gut"},
    {"SeveralKeys", "a ${OK}${OK} $b{ ${NAME}!", "a GutGut $b{ ${OK}!", "a GutGut $b{ ${OK}!"},
    {"UnknownKey", "a ${NONE} b", "a NONE b", "a !NONE! b"},
    {"EmptyKey", "a${}b", "ab", "a!!b"},
    {"Unclosed", "${OK} ${OK", "Gut ${OK", "Gut ${OK"},
    {"UnclosedAtTheEnd", "a${", "a${", "a${"},
    {"OpenedTwice", "${a ${OK}", "a ${OK", "!a ${OK!"},
    {"CloseFirst", "}${OK}}", "}Gut}", "}Gut}"},
};

TEST_P(I18NResolve, ReplacesTheKeys) {
    add("", "OK", "Gut");
    add("", "NAME", "${OK}");
    std::string buffer = "old";
    EXPECT_STREQ(mTexts.resolve(GetParam().text, buffer, false), GetParam().plain);
    const char *marked = mTexts.resolve(GetParam().text, buffer, true);
    EXPECT_STREQ(marked, GetParam().marked);
    EXPECT_EQ(marked, buffer.c_str());
}

INSTANTIATE_TEST_SUITE_P(Texts, I18NResolve, testing::ValuesIn(RESOLVINGS),
                         [](const auto &row) { return row.param.name; });

TEST_F(I18NTest, ResolvesATextThatLiesInTheBuffer) {
    add("", "OK", "a long replacement that makes the buffer grow");
    std::string buffer = "x ${OK} y";
    EXPECT_STREQ(mTexts.resolve(buffer.c_str(), buffer, false), "x a long replacement that makes the buffer grow y");
}
