#include "nui/ui/UIComponentFactory.h"

#include "support/EngineFixture.h"

#include "nui/ui/UIComponentParser.h"
#include "nui/ui/components/Panel.h"

#include "nmain/json/JSONException.h"
#include "nmain/vfs/MemoryFileSystem.h"
#include "support/MessageOf.h"

namespace nurel::ui {

using test::messageOf;

namespace {

/// Counts what is opened.
class CountingFiles : public vfs::MemoryFileSystem {
public:
    stream::InputStream *open(const char *path) override {
        ++opened;
        lastPath = path;
        return MemoryFileSystem::open(path);
    }
    int opened = 0;
    std::string lastPath;
};

class UIComponentFactoryTest : public test::EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        files.add("form.ui", R"({"type":"panel","name":"form","children":[{"type":"label","name":"l","text":"T"}]})");
        factory().setLoadResolver(&files);
    }

    static UIComponentFactory &factory() { return UIComponentFactory::getSingleton(); }

    CountingFiles files;
};

} // namespace

TEST_F(UIComponentFactoryTest, TwoRequestsReadTheFileOnceAndGiveTwoComponents) {
    const core::SmartPtr<Component> first = factory().newInstance("form");
    const core::SmartPtr<Component> second = factory().newInstance("form");
    EXPECT_EQ(files.opened, 1);
    EXPECT_NE(first.get(), second.get());
    EXPECT_NE(first.get(), factory().getTemplate("form"));
    EXPECT_STREQ(second->getName(), "form");
    EXPECT_EQ(static_cast<Container &>(*second).getChildCount(), 1U);
}

TEST_F(UIComponentFactoryTest, ThePrototypeIsNeverHandedOut) {
    const core::SmartPtr<Component> first = factory().newInstance("form");
    ASSERT_NE(factory().getTemplate("form"), nullptr);
    EXPECT_NE(first.get(), factory().getTemplate("form"));
}

TEST_F(UIComponentFactoryTest, ARegisteredComponentServesAsATypeWord) {
    const core::SmartPtr<components::Panel> prototype = new components::Panel("base");
    prototype->setSize(math::Vector2(33, 44));
    factory().registerTemplate("box", prototype.get());
    files.add("user.ui", R"({"type":"box","name":"mine"})");
    const core::SmartPtr<Component> made = factory().newInstance("user");
    EXPECT_STREQ(made->getName(), "mine");
    EXPECT_EQ(made->getComponentSize().absolute, math::Vector2(33, 44));
}

TEST_F(UIComponentFactoryTest, AfterUnregisteringTheNextRequestReadsTheFileAgain) {
    core::SmartPtr<Component> made = factory().newInstance("form");
    factory().unregisterTemplate("form");
    factory().unregisterTemplate("never there");
    made = factory().newInstance("form");
    EXPECT_EQ(files.opened, 2);
    factory().unregisterTemplates();
    made = factory().newInstance("form");
    EXPECT_EQ(files.opened, 3);
}

TEST_F(UIComponentFactoryTest, WithAnEmptyExtensionThePathIsTheName) {
    EXPECT_STREQ(factory().getTemplateExtension(), ".ui");
    factory().setTemplateExtension("");
    files.add("plain", R"({"type":"panel","name":"plain"})");
    const core::SmartPtr<Component> made = factory().newInstance("plain");
    EXPECT_EQ(files.lastPath, "plain");
    factory().setTemplateExtension(nullptr);
    EXPECT_STREQ(factory().getTemplateExtension(), "");
}

TEST_F(UIComponentFactoryTest, GetTemplateNeverOpensAFile) {
    EXPECT_EQ(factory().getTemplate("form"), nullptr);
    EXPECT_EQ(factory().getTemplate(nullptr), nullptr);
    EXPECT_EQ(files.opened, 0);
}

TEST_F(UIComponentFactoryTest, WithoutAFileSystemARequestIsLoggedAndRaised) {
    factory().clearLoadResolver();
    EXPECT_EQ(messageOf([] { factory().newInstance("form"); }), "No file system set");
    EXPECT_EQ(log().takeOne(logging::Level::ERROR), "Unable to load template form: No file system set");
    factory().setLoadResolver(&files);
    const core::SmartPtr<Component> made = factory().newInstance("form");
    EXPECT_STREQ(made->getName(), "form");
}

TEST_F(UIComponentFactoryTest, AMissingFileIsLoggedAndRaisedAndTriedAgainNextTime) {
    EXPECT_EQ(messageOf([] { factory().newInstance("gone"); }), "Cannot open file gone.ui");
    EXPECT_EQ(log().takeOne(logging::Level::ERROR), "Unable to load template gone: Cannot open file gone.ui");
    EXPECT_EQ(factory().getTemplate("gone"), nullptr);
    files.add("gone.ui", R"({"type":"panel","name":"back"})");
    const core::SmartPtr<Component> made = factory().newInstance("gone");
    EXPECT_STREQ(made->getName(), "back");
}

TEST_F(UIComponentFactoryTest, ATextThatIsNoJSONIsRaisedWithItsPlace) {
    files.add("bad.ui", "{\n  \"type\": panel\n}");
    const std::string message = messageOf([] { factory().newInstance("bad"); });
    EXPECT_EQ(message.rfind("bad.ui:2:", 0), 0U) << message;
    EXPECT_EQ(log().takeOne(logging::Level::ERROR), "Unable to load template bad: " + message);
}

TEST_F(UIComponentFactoryTest, AFailingRootKeepsNothing) {
    files.add("bad.ui", R"({"type":"label","name":"l","children":[]})");
    EXPECT_EQ(messageOf([] { factory().newInstance("bad"); }),
              "Invalid children declaration. Parent is not a valid container type (label)");
    EXPECT_EQ(
        log().takeOne(logging::Level::ERROR),
        "Unable to load template bad: Invalid children declaration. Parent is not a valid container type (label)");
    EXPECT_EQ(factory().getTemplate("bad"), nullptr);
}

TEST_F(UIComponentFactoryTest, AFailingChildCostsOnlyThatChild) {
    files.add("half.ui", R"({"type":"panel","name":"half","children":[
        {"type":"label","name":"bad","children":[]}, {"type":"label","name":"good"}]})");
    const core::SmartPtr<Component> made = factory().newInstance("half");
    EXPECT_EQ(log().takeOne(logging::Level::ERROR),
              "Error parsing child #0 for component half(panel): Invalid children declaration. Parent is not a valid "
              "container type (label)");
    ASSERT_EQ(static_cast<Container &>(*made).getChildCount(), 1U);
    EXPECT_STREQ(static_cast<Container &>(*made).getChildAt(0)->getName(), "good");
}

TEST_F(UIComponentFactoryTest, ATemplateThatNamesItselfIsRefused) {
    files.add("self.ui", R"({"type":"self","name":"x"})");
    EXPECT_EQ(messageOf([] { factory().newInstance("self"); }), "Template self is built on itself");
    EXPECT_EQ(log().take(logging::Level::ERROR).size(), 2U);
}

TEST_F(UIComponentFactoryTest, TemplatesThatNameOneAnotherAreRefused) {
    files.add("a.ui", R"({"type":"b","name":"a"})");
    files.add("b.ui", R"({"type":"a","name":"b"})");
    EXPECT_EQ(messageOf([] { factory().newInstance("a"); }), "Template a is built on itself");
    EXPECT_EQ(log().take(logging::Level::ERROR).size(), 3U);
    const core::SmartPtr<Component> made = factory().newInstance("form");
    EXPECT_NE(made.get(), nullptr);
}

TEST_F(UIComponentFactoryTest, ATemplateThatHoldsItselfLosesThatChild) {
    files.add("nest.ui", R"({"type":"panel","name":"nest","children":[{"type":"nest","name":"inner"}]})");
    const core::SmartPtr<Component> made = factory().newInstance("nest");
    EXPECT_EQ(static_cast<Container &>(*made).getChildCount(), 0U);
    EXPECT_EQ(log().takeOne(logging::Level::ERROR), "Unable to load template nest: Template nest is built on itself");
    EXPECT_EQ(log().takeOne(logging::Level::ERROR),
              "Error parsing child #0 for component nest(panel): Template nest is built on itself");
}

TEST_F(UIComponentFactoryTest, ARegisteredTemplateReplacesTheEarlierOne) {
    factory().registerTemplate("x", new components::Panel("one"));
    factory().registerTemplate("x", new components::Panel("two"));
    EXPECT_STREQ(factory().getTemplate("x")->getName(), "two");
    factory().registerTemplate("x", nullptr);
    EXPECT_EQ(factory().getTemplate("x"), nullptr);
}

TEST_F(UIComponentFactoryTest, ACopySharesTheFileSystemSafely) {
    UIComponentFactory copy(factory());
    const core::SmartPtr<Component> made = copy.newInstance("form");
    EXPECT_STREQ(made->getName(), "form");
    EXPECT_EQ(factory().getTemplate("form"), nullptr);
}

TEST_F(UIComponentFactoryTest, AFileSystemThatGivesNoStreamIsAMissingFile) {
    struct {
        stream::InputStream *open(const char *) { return nullptr; }
    } nothing;
    factory().setLoadResolver(&nothing);
    EXPECT_EQ(messageOf([] { factory().newInstance("form"); }), "Cannot open file form.ui");
    EXPECT_EQ(log().take(logging::Level::ERROR).size(), 1U);
}

} // namespace nurel::ui
