// Dialogs that a script opens.
#include "ViewerProgram.h"

namespace viewer {

namespace {

constexpr const char *RUN = "screen.ui --headless --font '" TEST_FONT "' --style none.css ";

class ViewerDialog : public ViewerProgram {
protected:
    void SetUp() override {
        ViewerProgram::SetUp();
        write("none.css", "");
    }

    int play(const std::string &script, const std::string &more = "") const {
        write("script.json", script);
        return run(std::string(RUN) + "--script script.json " + more);
    }
};

} // namespace

TEST_F(ViewerDialog, OpensAtOnceFromTheReadyTemplateAndTellsTheAnswer) {
    EXPECT_EQ(play(R"([
        {"dialog":{"name":"quit","title":"Quit","message":"Leave?","icon":"question","answers":{"yes":"Leave","no":""}}},
        {"expect":{"name":"quit","answer":"none"}}, {"wait":0.4},
        {"expect":{"name":"quit/lTitle","text":"Quit"}}, {"expect":{"name":"quit/lText","text":"Leave?"}},
        {"expect":{"name":"quit/iIcon","visible":true}}, {"expect":{"name":"quit/bClose","visible":false}},
        {"expect":{"name":"quit/bYes","text":"Leave","visible":true,"focused":false}},
        {"expect":{"name":"quit/bNo","text":"NO","visible":true}},
        {"expect":{"name":"quit/bOK","visible":false}}, {"expect":{"name":"quit/bCancel","visible":false}},
        {"tap":1}, {"expect":{"name":"quit","answer":"none"}},
        {"click":"quit/bNo"}, {"expect":{"name":"quit","answer":"declined"}},
        {"wait":0.4}, {"expect":{"name":"quit","exists":false,"answer":"declined"}}])"),
              0)
        << read("err.txt");
    EXPECT_EQ(read("err.txt"), "");
}

TEST_F(ViewerDialog, OpensWithEveryClickOfTheComponentThatItIsBoundTo) {
    EXPECT_EQ(play(R"([
        {"dialog":{"on":"form/ok","name":"sure","message":"Sure?","answers":{"ok":""},"focus":"ok","close":true}},
        {"expect":{"name":"sure","exists":false}},
        {"click":"form/ok"}, {"wait":0.4}, {"expect":{"name":"sure/bOK","focused":true}},
        {"expect":{"name":"sure/bClose","visible":true}},
        {"tap":28}, {"expect":{"name":"sure","answer":"accepted"}}, {"wait":0.4},
        {"expect":{"name":"sure","exists":false}},
        {"click":"form/ok"}, {"wait":0.4}, {"tap":1}, {"expect":{"name":"sure","answer":"cancelled"}}])"),
              0)
        << read("err.txt");
    EXPECT_EQ(read("err.txt"), "");
}

TEST_F(ViewerDialog, TheFocusGoesFromTheScreenToTheDialogAndBack) {
    EXPECT_EQ(play(R"([
        {"dialog":{"on":"form/ok","name":"sure","message":"Sure?","answers":{"yes":"","no":""},"focus":"no"}},
        {"click":"form/ok"}, {"expect":{"name":"form/ok","focused":false}}, {"dump":"open.json"}, {"wait":0.4},
        {"expect":{"name":"sure/bNo","focused":true}}, {"tap":28}, {"wait":0.4},
        {"expect":{"name":"form/ok","focused":true}}])"),
              0)
        << read("err.txt");
    const std::unique_ptr<nurel::json::JSObject> dump = readJson(read("open.json"));
    const nurel::json::JSObject &form = *dump->get("widgets")->get(0U)->get("children")->get(0U);
    EXPECT_STREQ(form.get("children")->get(0U)->getString("name", ""), "ok");
    EXPECT_EQ(form.get("children")->get(0U)->getInt("state", -1) & 0x20, 0);
}

TEST_F(ViewerDialog, TakesABodyAndATemplateFromTheFolderOfTheScreen) {
    write("card.ui", R"({"type":"panel","name":"card","size":[300,200],"children":[
        {"type":"label","name":"lTitle","size":[100,20]}, {"type":"panel","name":"pBody","size":[100,20]},
        {"type":"panel","name":"pButtons","size":[200,30],"position":[0,80],"children":[
            {"type":"button","name":"bOK","size":[40,30],"position":[-60,0]},{"type":"button","name":"bYes","size":[40,30]},
            {"type":"button","name":"bNo","size":[40,30]},{"type":"button","name":"bCancel","size":[40,30],"position":[60,0]},
            {"type":"panel","name":"bClose","size":[10,10]}]}]})");
    write("form.ui", R"({"type":"panel","name":"fields","size":[80,20],"children":[
        {"type":"text","name":"pin","size":[80,20],"max-length":4}]})");
    EXPECT_EQ(play(R"([
        {"dialog":{"name":"ask","template":"card","title":"PIN","body":"form","answers":{"ok":"Go","cancel":""}}},
        {"wait":0.4}, {"click":"ask/pin"}, {"text":"1"}, {"text":"2"}, {"expect":{"name":"ask/pin","text":"12"}},
        {"click":"ask/bCancel"}, {"expect":{"name":"ask","answer":"cancelled"}}])"),
              0)
        << read("err.txt");
}

TEST_F(ViewerDialog, WhatCannotBeOpenedIsToldAndTheScriptGoesOn) {
    write("bad.ui", R"({"type":"panel","name":"bad","size":[300,200]})");
    EXPECT_EQ(play(R"([{"dialog":{"template":"gone"}}, {"dialog":{"on":"nobody"}}, {"dialog":{"template":"bad"}},
                       {"expect":{"name":"dialog","answer":"none"}}, {"dump":"after.json"}])"),
              1);
    const std::string errors = read("err.txt");
    EXPECT_NE(errors.find("script.json: step 0: Cannot open file "), std::string::npos) << errors;
    EXPECT_NE(errors.find("gone.ui\n"), std::string::npos) << errors;
    EXPECT_NE(
        errors.find("script.json: step 1: expected a component 'nobody' to open a dialog, actual: there is none\n"),
        std::string::npos)
        << errors;
    EXPECT_NE(errors.find("script.json: step 2: Dialog window bad has no "), std::string::npos) << errors;
    EXPECT_NE(errors.find("script.json: step 3: 'dialog' answer: expected \"none\", actual no such dialog\n"),
              std::string::npos)
        << errors;
    EXPECT_FALSE(read("after.json").empty());
}

TEST_F(ViewerDialog, AClickThatCannotOpenItsDialogLeavesTheScreenAsItIs) {
    EXPECT_EQ(play(R"([{"dialog":{"on":"form/ok","name":"sure","template":"gone"}}, {"click":"form/ok"}, {"frames":2},
                       {"expect":{"name":"sure","exists":false}}, {"expect":{"name":"form/ok","focused":true}}])"),
              0);
    EXPECT_NE(read("err.txt").find("Cannot open the dialog 'sure': "), std::string::npos) << read("err.txt");
}

TEST_F(ViewerDialog, FaultyDescriptionsPlayNothing) {
    const struct {
        const char *dialog;
        const char *message;
    } faults[] = {
        {R"("Hello")", "'dialog' wants an object"},
        {R"({"text":"a"})", "'dialog' has no 'text'"},
        {R"({"title":5})", "'title' has a value of the wrong kind"},
        {R"({"icon":"skull"})", "'icon' has a value of the wrong kind"},
        {R"({"answers":["ok"]})", "'answers' has a value of the wrong kind"},
        {R"({"answers":{"maybe":""}})", "'answers' has a value of the wrong kind"},
        {R"({"answers":{"ok":1}})", "'answers' has a value of the wrong kind"},
        {R"({"close":1})", "'close' has a value of the wrong kind"},
        {R"({"message":"a","body":"b"})", "'dialog' wants a 'message' or a 'body', not both"},
        {R"({"focus":"ok"})", "'focus' is none of the 'answers'"},
    };
    for (const auto &fault : faults) {
        EXPECT_EQ(play(std::string(R"([{"dialog":)") + fault.dialog + "}]"), 2) << fault.dialog;
        EXPECT_EQ(read("err.txt"), std::string("nui-viewer: script.json: step 0: ") + fault.message + "\n");
    }
    EXPECT_EQ(play(R"([{"expect":{"answer":"none"}}])"), 2);
    EXPECT_EQ(read("err.txt"), "nui-viewer: script.json: step 0: 'expect' wants a 'name'\n");
}

TEST_F(ViewerDialog, ADialogMayBeOpenWhenTheRunEnds) {
    EXPECT_EQ(play(R"([{"dialog":{"message":"Still here"}}, {"wait":0.1}])"), 0) << read("err.txt");
    EXPECT_EQ(read("err.txt"), "");
}

TEST_F(ViewerDialog, StayingGoesOnAfterTheScript) {
    ASSERT_EQ(play(R"([{"dialog":{"name":"late","message":"Late"}}])", "--stay --frames 30 --dump dump.json"), 0)
        << read("err.txt");
    const std::unique_ptr<nurel::json::JSObject> dump = readJson(read("dump.json"));
    EXPECT_NEAR(dump->getFloat("time", 0), 0.5F, 1e-4F);
    EXPECT_STREQ(dump->get("widgets")->get(1U)->getString("name", ""), "late");
}

} // namespace viewer
