#pragma once

#include "nmain/json/JSObject.h"
#include "nmain/stream/InputStream.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <sys/wait.h>

namespace viewer {

/// A folder with a screen, in which the program itself is started as a user would, without a display.
class ViewerProgram : public testing::Test {
protected:
    void SetUp() override {
        const auto *info = testing::UnitTest::GetInstance()->current_test_info();
        std::string name = std::string("nui-viewer-") + info->name();
        std::replace(name.begin(), name.end(), '/', '-');
        folder = std::filesystem::temp_directory_path() / name;
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
        write("screen.ui", SCREEN);
    }

    void TearDown() override { std::filesystem::remove_all(folder); }

    void write(const std::string &name, const std::string &text) const { std::ofstream(folder / name) << text; }

    std::string read(const std::string &name) const {
        std::ifstream file(folder / name, std::ios::binary);
        std::stringstream text;
        text << file.rdbuf();
        return text.str();
    }

    std::unique_ptr<nurel::json::JSObject> readJson(const std::string &text) const {
        nurel::stream::MemoryInputStream stream("output", text);
        return std::unique_ptr<nurel::json::JSObject>(nurel::json::JSObject::parse(&stream));
    }

    /// Runs the viewer in the test's folder and gives its exit status.
    int run(const std::string &arguments) const {
        const std::string command = "cd '" + folder.string() + "' && env -u DISPLAY -u WAYLAND_DISPLAY '" VIEWER "' " +
                                    arguments + " >out.txt 2>err.txt </dev/null";
        const int status = std::system(command.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    static constexpr const char *SCREEN = R"({"type":"widget","name":"stage","size":[0,0,1,1],"children":[
        {"type":"panel","name":"form","size":[400,200],"children":[
            {"type":"label","name":"ok","size":[100,40],"text":"OK","tab-stop":0,"event-mask-enable":["focus","click","key","text"]}]},
        {"type":"label","name":"ok","size":[50,20],"position":[0,-300],"text":"other","tab-stop":1}]})";
    static constexpr const char *PLAIN = "screen.ui --font '" TEST_FONT "'";

    std::filesystem::path folder;
};

} // namespace viewer
