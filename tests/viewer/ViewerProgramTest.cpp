// The program itself: options, scripts, trace, dump, sheets, faults.
#include "ViewerProgram.h"

#include "nengine/texture/ImageFile.h"

namespace viewer {

using nurel::json::JSObject;

TEST_F(ViewerProgram, DrawsAPictureOfTheAskedSizeWithoutADisplay) {
    ASSERT_EQ(run(std::string(PLAIN) + " --size 640x480 --png out.png"), 0) << read("err.txt");
    const std::string png = read("out.png");
    const nurel::texture::Image image = nurel::texture::decodeImage(png.data(), png.size());
    EXPECT_EQ(image.width, 640U);
    EXPECT_EQ(image.height, 480U);
    const std::uint8_t *corner = image.rgba.get();
    EXPECT_EQ(corner[0], 204); // the style-free widget's red
    EXPECT_EQ(corner[1], 0);
    EXPECT_EQ(corner[2], 0);
}

TEST_F(ViewerProgram, AScriptWhoseExpectationsHoldEndsWithStatusZero) {
    write("script.json", R"([
        {"expect":{"name":"form/ok","exists":true,"visible":true,"enabled":true,"focused":false,"text":"OK",
                   "position":[640,360],"size":[100,40]}},
        {"click":"form/ok"}, {"expect":{"name":"form/ok","focused":true,"hovered":true}},
        {"move":[10,10]}, {"expect":{"name":"form/ok","hovered":false}},
        {"expect":{"name":"nothing","exists":false}},
        {"expect":{"pixel":{"at":[3,3],"color":[204,0,0],"tolerance":1}}},
        {"resize":[800,600]}, {"frames":1}, {"expect":{"name":"form/ok","position":[400,300]}},
        {"scale":2}, {"frames":1}, {"expect":{"name":"form/ok","position":[800,600]}}
    ])");
    EXPECT_EQ(run(std::string(PLAIN) + " --headless --script script.json"), 0) << read("err.txt");
}

TEST_F(ViewerProgram, AFailedExpectationIsToldAndTheScriptGoesOn) {
    write("script.json", R"([{"expect":{"name":"form/ok","text":"Yes","size":[1,2]}}, {"dump":"after.json"}])");
    EXPECT_EQ(run(std::string(PLAIN) + " --headless --script script.json"), 1);
    EXPECT_EQ(read("err.txt"), "script.json: step 0: 'form/ok' text: expected \"Yes\", actual \"OK\"\n"
                               "script.json: step 0: 'form/ok' size: expected [1,2], actual [100,40]\n");
    EXPECT_FALSE(read("after.json").empty());
}

TEST_F(ViewerProgram, TheDumpTellsTheTree) {
    ASSERT_EQ(run(std::string(PLAIN) + " --headless --frames 6 --dump dump.json"), 0) << read("err.txt");
    const std::unique_ptr<JSObject> dump = readJson(read("dump.json"));
    EXPECT_NEAR(dump->getFloat("time", 0), 0.1F, 1e-5F);
    EXPECT_EQ(dump->get("viewport")->getInt(0U, 0), 1280);
    const JSObject &widget = *dump->get("widgets")->get(0U);
    EXPECT_STREQ(widget.getString("type", ""), "Widget");
    EXPECT_STREQ(widget.getString("element", ""), "widget");
    EXPECT_EQ(widget.get("layout")->getType(), JSObject::T_NONE);
    EXPECT_TRUE(widget.hasKey("layout"));
    EXPECT_EQ(widget.get("children")->getLength(), 2U);
    const JSObject &label = *widget.get("children")->get(0U)->get("children")->get(0U);
    EXPECT_STREQ(label.getString("type", ""), "Label");
    EXPECT_STREQ(label.getString("text", ""), "OK");
    EXPECT_EQ(label.get("worldPosition")->getInt(0U, 0), 640);
    EXPECT_EQ(label.getInt("tabStop", -1), 0);
    EXPECT_EQ(label.getInt("anchor", 0), 0x12);
    EXPECT_EQ(label.getInt("dirty", -1), 0);
    EXPECT_TRUE(label.getBool("visible", false));
    EXPECT_FALSE(label.hasKey("children"));
    EXPECT_FALSE(label.hasKey("rules"));
}

TEST_F(ViewerProgram, TheTraceTellsEveryEventAndChange) {
    write("script.json", R"([{"click":"form/ok"},{"tap":28},{"text":"ä"},{"frames":1}])");
    ASSERT_EQ(run(std::string(PLAIN) + " --headless --script script.json --trace trace.jsonl"), 0) << read("err.txt");
    EXPECT_EQ(read("trace.jsonl"), R"({"frame":0,"event":"ET_HOVER_EVENT","action":2,"handler":"ok","result":"ok"}
{"frame":0,"event":"ET_HOVER_EVENT","action":0,"handler":"ok","result":"ok"}
{"frame":0,"hovered":"ok"}
{"frame":1,"event":"ET_MOUSE_EVENT","action":1,"handler":"ok","result":"ok"}
{"frame":1,"event":"ET_FOCUS_EVENT","action":0,"handler":"ok","result":"ok"}
{"frame":1,"focus":"ok"}
{"frame":2,"event":"ET_MOUSE_EVENT","action":0,"handler":"ok","result":"ok"}
{"frame":2,"event":"ET_CLICK_EVENT","handler":"ok","result":"ok"}
{"frame":3,"event":"ET_KEY_EVENT","key":28,"pressed":true,"handler":"ok","result":"ok"}
{"frame":4,"event":"ET_KEY_EVENT","key":28,"pressed":false,"handler":"ok","result":"ok"}
{"frame":5,"event":"ET_TEXT_EVENT","text":"ä","handler":"ok","result":"ok"}
)");
}

TEST_F(ViewerProgram, SheetsStyleThePictureInTheirOrder) {
    write("a.css", "widget { background: #ff0000; }");
    write("b.css", "widget { background: #0000ff; } #ok { width: 120px; }");
    write("script.json", R"([{"expect":{"pixel":{"at":[3,3],"color":[0,0,255],"tolerance":1}}},
                             {"expect":{"name":"form/ok","size":[120,40]}}])");
    EXPECT_EQ(run(std::string(PLAIN) + " --headless --style a.css --style b.css --script script.json"), 0)
        << read("err.txt");
    EXPECT_EQ(read("err.txt"), "");
}

TEST_F(ViewerProgram, TheDumpTellsTheRulesOfTheSheetsAsTheyWereGiven) {
    std::filesystem::create_directories(folder / "style");
    write("style/a.css", "/* two */ widget,\n label { width: 120px; }");
    write("b.css", "\n#ok { height: 30px; }");
    ASSERT_EQ(run(std::string(PLAIN) + " --headless --style style/a.css --style ./b.css --dump dump.json"), 0)
        << read("err.txt");
    const std::unique_ptr<JSObject> dump = readJson(read("dump.json"));
    const JSObject &widget = *dump->get("widgets")->get(0U);
    ASSERT_EQ(widget.get("rules")->getLength(), 1U);
    EXPECT_STREQ(widget.get("rules")->get(0U)->getString("selector", ""), "widget");
    EXPECT_EQ(widget.get("rules")->get(0U)->getInt("line", 0), 1);
    const JSObject &form = *widget.get("children")->get(0U);
    EXPECT_EQ(form.get("rules")->getLength(), 0U);
    const JSObject &rules = *form.get("children")->get(0U)->get("rules");
    ASSERT_EQ(rules.getLength(), 2U);
    EXPECT_STREQ(rules.get(0U)->getString("selector", ""), "label");
    EXPECT_STREQ(rules.get(0U)->getString("file", ""), "style/a.css");
    EXPECT_EQ(rules.get(0U)->getInt("line", 0), 2);
    EXPECT_STREQ(rules.get(1U)->getString("selector", ""), "#ok");
    EXPECT_STREQ(rules.get(1U)->getString("file", ""), "./b.css");
    EXPECT_EQ(rules.get(1U)->getInt("line", 0), 2);
}

TEST_F(ViewerProgram, ChecksAndTextsOfControlsAreExpectedWithoutMakingTheirParts) {
    write("controls.ui", R"({"type":"panel","name":"p","size":[600,400],"children":[
        {"type":"button","name":"toggle","size":[80,30],"text":"Toggle","checkable":true},
        {"type":"button","name":"mute","size":[80,30],"position":[0,50]},
        {"type":"checkbox","name":"box","size":[80,30],"position":[0,100],"text":"Box","checked":true},
        {"type":"radio","name":"one","size":[80,30],"position":[0,150]}]})");
    write("none.css", "");
    write("script.json", R"([
        {"expect":{"name":"toggle","checked":false,"text":"Toggle"}},
        {"click":"toggle"}, {"expect":{"name":"toggle","checked":true}},
        {"expect":{"name":"box","checked":true,"text":"Box"}},
        {"click":"box"}, {"expect":{"name":"box","checked":false}},
        {"expect":{"name":"one","checked":false}}, {"click":"one"}, {"expect":{"name":"one","checked":true}},
        {"dump":"dump.json"}, {"expect":{"name":"mute","text":""}}, {"expect":{"name":"mute/label","exists":false}}])");
    EXPECT_EQ(run("controls.ui --headless --font '" TEST_FONT "' --style none.css --script script.json"), 1);
    EXPECT_EQ(read("err.txt"), "script.json: step 10: 'mute' text: expected \"\", actual no text\n");
    EXPECT_NE(read("dump.json").find("\"text\":\"Toggle\""), std::string::npos);
}

TEST_F(ViewerProgram, ASheetThatCannotBeReadEndsWithStatusTwoAndOneLine) {
    write("bad.css", "panel {\n  width: 1px\n}");
    EXPECT_EQ(run(std::string(PLAIN) + " --headless --style bad.css"), 2);
    EXPECT_EQ(read("err.txt"), "nui-viewer: bad.css:3:1: Syntax error: unexpected '}'.\n");
    EXPECT_EQ(run(std::string(PLAIN) + " --headless --style gone.css"), 2);
    EXPECT_EQ(read("err.txt"), "nui-viewer: Cannot open file gone.css\n");
}

TEST_F(ViewerProgram, BadUsageEndsWithStatusTwoAndOneLine) {
    EXPECT_EQ(run("--wrong"), 2);
    EXPECT_EQ(read("err.txt"), "nui-viewer: unknown option --wrong\n");
    EXPECT_EQ(run(""), 2);
    EXPECT_EQ(read("err.txt"), "nui-viewer: no screen given; nui-viewer --help tells the options\n");
}

TEST_F(ViewerProgram, AMissingScreenEndsWithStatusTwo) {
    EXPECT_EQ(run("gone.ui --headless"), 2);
    EXPECT_EQ(read("err.txt"), "nui-viewer: Cannot open file gone.ui\n");
}

TEST_F(ViewerProgram, AScreenThatIsNoJSONTellsFileLineAndColumn) {
    write("bad.ui", "{\n  \"type\": \"panel\",\n  oops\n}");
    EXPECT_EQ(run("bad.ui --headless"), 2);
    EXPECT_EQ(read("err.txt").rfind("nui-viewer: bad.ui:3:", 0), 0U) << read("err.txt");
}

TEST_F(ViewerProgram, AFaultyScriptPlaysNothing) {
    const struct {
        const char *script;
        const char *message;
    } faults[] = {
        {"{}", "script.json: a script is an array of steps"},
        {"[5]", "script.json: step 0: a step is an object"},
        {"[{}]", "script.json: step 0: an empty step"},
        {R"([{"frames":1},{"jump":3}])", "script.json: step 1: unknown step 'jump'"},
        {R"([{"move":"left"}])", "script.json: step 0: 'move' wants [x, y]"},
        {R"([{"move":[1,2],"steps":3}])", "script.json: step 0: 'move' has no 'steps'"},
        {R"([{"expect":{"name":"a","colour":3}}])", "script.json: step 0: 'expect' has no 'colour'"},
        {R"([{"expect":{"visible":true}}])", "script.json: step 0: 'expect' wants a 'name'"},
    };
    for (const auto &fault : faults) {
        write("script.json", fault.script);
        EXPECT_EQ(run(std::string(PLAIN) + " --headless --script script.json"), 2) << fault.script;
        EXPECT_EQ(read("err.txt"), std::string("nui-viewer: ") + fault.message + "\n");
    }
}

TEST_F(ViewerProgram, AFontThatCannotBeReadLeavesTheScreenStanding) {
    EXPECT_EQ(run("screen.ui --headless --font gone.ttf"), 0);
    EXPECT_NE(read("err.txt").find("gone.ttf"), std::string::npos);
}

TEST_F(ViewerProgram, APictureThatCannotBeWrittenEndsWithStatusTwo) {
    EXPECT_EQ(run(std::string(PLAIN) + " --png nowhere/out.png"), 2);
    EXPECT_NE(read("err.txt").find("nowhere/out.png"), std::string::npos);
}

TEST_F(ViewerProgram, TextsComeFromTheCatalogueOfTheLocale) {
    std::filesystem::create_directories(folder / "i18n");
    write("i18n/de.xml", R"(<catalogue locale="de"><text key="greet">Hallo</text></catalogue>)");
    write("greet.ui", R"({"type":"label","name":"l","text":"${greet}!"})");
    write("script.json", R"([{"expect":{"name":"l","text":"Hallo!"}}])");
    EXPECT_EQ(run("greet.ui --font '" TEST_FONT "' --headless --locale de_AT --script script.json"), 0)
        << read("err.txt");
}

} // namespace viewer
