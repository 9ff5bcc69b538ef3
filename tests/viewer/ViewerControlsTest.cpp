// What scripts and dumps tell of the controls.
#include "ViewerProgram.h"

namespace viewer {

using nurel::json::JSObject;

namespace {

constexpr const char *CONTROLS = R"({"type":"widget","name":"stage","size":[0,0,1,1],"children":[
    {"type":"slider","name":"volume","size":[200,20],"position":[0,-200],"range":[0,10],"value":2.5},
    {"type":"progress","name":"loaded","size":[200,20],"position":[0,-150],"value":62,"show-text":true},
    {"type":"progress","name":"silent","size":[200,20],"position":[0,-100],"value":7},
    {"type":"selector","name":"quality","size":[200,40],"position":[0,-50],"items":["Low","High"],"selected":1},
    {"type":"selector","name":"open","size":[200,40],"items":["Low","High"]},
    {"type":"listbox","name":"servers","size":[200,90],"position":[0,80],"items":["Cairo","Osaka"],"selected":0},
    {"type":"combo","name":"language","size":[200,40],"position":[0,160],"items":["English","日本語"],"selected":1},
    {"type":"combo","name":"empty","size":[200,40],"position":[0,220]},
    {"type":"text","name":"secret","size":[200,40],"position":[0,280],"tab-stop":0,"password":"•"}]})";

constexpr const char *RUN = "controls.ui --headless --font '" TEST_FONT "' --style none.css ";

class ViewerControls : public ViewerProgram {
protected:
    void SetUp() override {
        ViewerProgram::SetUp();
        write("controls.ui", CONTROLS);
        write("none.css", "");
    }

    int play(const std::string &script) const {
        write("script.json", script);
        return run(std::string(RUN) + "--script script.json");
    }

    /// The part of the dump about one of the controls.
    const JSObject &findDumped(const JSObject &dump, const std::string &name) const {
        const JSObject &children = *dump.get("widgets")->get(0U)->get("children");
        for (unsigned int i = 0; i < children.getLength(); ++i) {
            if (name == children.get(i)->getString("name", ""))
                return *children.get(i);
        }
        return *dump.get("nothing");
    }
};

} // namespace

TEST_F(ViewerControls, ValuesSelectionsAndTextsAreExpected) {
    EXPECT_EQ(play(R"([
        {"expect":{"name":"volume","value":2.5}},
        {"expect":{"name":"loaded","value":62,"text":"62%"}},
        {"expect":{"name":"quality","selected":1,"text":"High"}},
        {"expect":{"name":"open","selected":-1,"text":"---"}},
        {"expect":{"name":"servers","selected":0}},
        {"expect":{"name":"language","selected":1,"text":"日本語"}},
        {"expect":{"name":"empty","selected":-1,"text":""}},
        {"click":"secret"}, {"text":"é"}, {"text":"ب"}, {"text":"字"},
        {"expect":{"name":"secret","text":"éب字"}}, {"expect":{"name":"secret/label","text":"•••"}}])"),
              0)
        << read("err.txt");
    EXPECT_EQ(read("err.txt"), "");
}

TEST_F(ViewerControls, ANumberInAPathTakesOneOfSeveralOfTheName) {
    EXPECT_EQ(play(R"([
        {"expect":{"name":"servers/item[0]","text":"Cairo"}}, {"expect":{"name":"servers/item[1]","text":"Osaka"}},
        {"expect":{"name":"servers/item[2]","exists":false}}, {"expect":{"name":"stage[0]/servers[0]","exists":true}},
        {"expect":{"name":"stage[1]/servers","exists":false}}, {"expect":{"name":"servers/item[]","exists":false}},
        {"expect":{"name":"servers/item[-1]","exists":false}}, {"expect":{"name":"servers/item[1x]","exists":false}},
        {"click":"servers/item[1]"}, {"expect":{"name":"servers","selected":1}}])"),
              0)
        << read("err.txt");
}

TEST_F(ViewerControls, WrongValuesAndSelectionsAreToldWithTheRealOnes) {
    EXPECT_EQ(play(R"([{"expect":{"name":"volume","value":2.6}}, {"expect":{"name":"loaded","value":61}},
                       {"expect":{"name":"quality","selected":0,"text":"Low"}},
                       {"expect":{"name":"language","selected":0}}])"),
              1);
    EXPECT_EQ(read("err.txt"), "script.json: step 0: 'volume' value: expected 2.6, actual 2.5\n"
                               "script.json: step 1: 'loaded' value: expected 61, actual 62\n"
                               "script.json: step 2: 'quality' text: expected \"Low\", actual \"High\"\n"
                               "script.json: step 2: 'quality' selected: expected 0, actual 1\n"
                               "script.json: step 3: 'language' selected: expected 0, actual 1\n");
}

TEST_F(ViewerControls, WhatHasNoValueAndNoSelectionIsTold) {
    EXPECT_EQ(play(R"([{"expect":{"name":"secret","value":1,"selected":0}}, {"expect":{"name":"volume","selected":2}},
                       {"expect":{"name":"silent","text":""}}])"),
              1);
    EXPECT_EQ(read("err.txt"), "script.json: step 0: 'secret' value: expected 1, actual: a TextField has none\n"
                               "script.json: step 0: 'secret' selected: expected 0, actual: a TextField has none\n"
                               "script.json: step 1: 'volume' selected: expected 2, actual: a Slider has none\n"
                               "script.json: step 2: 'silent' text: expected \"\", actual no text\n");
}

TEST_F(ViewerControls, TheDumpHasValuesSelectionsAndRealTexts) {
    write("script.json", R"([{"click":"secret"}, {"text":"ä"}])");
    ASSERT_EQ(run(std::string(RUN) + "--script script.json --dump dump.json"), 0) << read("err.txt");
    const std::unique_ptr<JSObject> dump = readJson(read("dump.json"));
    EXPECT_FLOAT_EQ(findDumped(*dump, "volume").getFloat("value", -1), 2.5F);
    EXPECT_EQ(findDumped(*dump, "loaded").getInt("value", -1), 62);
    EXPECT_EQ(findDumped(*dump, "quality").getInt("selected", -1), 1);
    EXPECT_EQ(findDumped(*dump, "open").getInt("selected", 9), -1);
    EXPECT_EQ(findDumped(*dump, "servers").getInt("selected", -1), 0);
    EXPECT_EQ(findDumped(*dump, "language").getInt("selected", -1), 1);
    EXPECT_STREQ(findDumped(*dump, "language").getString("text", ""), "日本語");
    EXPECT_STREQ(findDumped(*dump, "secret").getString("text", ""), "ä");
    EXPECT_FALSE(findDumped(*dump, "secret").hasKey("value"));
    EXPECT_FALSE(findDumped(*dump, "volume").hasKey("selected"));
}

} // namespace viewer
