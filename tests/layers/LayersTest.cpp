#include "LayerRules.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace layers {

namespace {

std::vector<std::string> readLines(const char *path) {
    std::ifstream in(path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) {
        if (!line.empty())
            lines.push_back(std::filesystem::path(line).lexically_relative(NUI_LIBS).generic_string());
    }
    return lines;
}

std::string join(const std::vector<std::string> &lines) {
    std::string text;
    for (const std::string &line : lines)
        text += line + "\n";
    return text;
}

/// A small tree of three libraries: ground, middle above it, and top above both.
class Layers : public testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (std::filesystem::temp_directory_path() / "layersXXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        mRoot = pattern;
        write("layers.txt", "# comment\nground:\nmiddle: ground\ntop: middle ground\n"
                            "third-party middle/glyphs: shaper.h shapes/\n");
        write("libs/ground/core/Base.h", "#pragma once\n#include <vector>\n");
        write("libs/ground/core/detail/Hidden.h", "#pragma once\n");
        write("libs/middle/Middle.h", "#pragma once\n#include \"ground/core/Base.h\"\n");
        write("libs/top/Top.h", "#pragma once\n#include \"middle/Middle.h\"\n");
    }

    void TearDown() override { std::filesystem::remove_all(mRoot); }

    void write(const std::string &path, const std::string &text) {
        std::filesystem::create_directories((mRoot / path).parent_path());
        std::ofstream(mRoot / path) << text;
    }

    std::string check() const { return join(LayerRules(mRoot / "layers.txt").checkIncludes(mRoot / "libs")); }

    std::string checkFiles(const std::vector<std::string> &headers, const std::vector<std::string> &sources) const {
        return join(LayerRules::checkFiles(mRoot / "libs", headers, sources));
    }

    std::filesystem::path mRoot;
};

} // namespace

TEST(LayersOfTheHouse, EveryIncludeKeepsToThem) {
    for (const std::string &offence : LayerRules(NUI_LAYERS_FILE).checkIncludes(NUI_LIBS))
        ADD_FAILURE() << "libs/" << offence;
}

TEST(LayersOfTheHouse, EveryFileIsListedByItsLibrary) {
    const std::vector<std::string> headers = readLines(NUI_HEADER_LIST);
    EXPECT_FALSE(headers.empty());
    for (const std::string &offence : LayerRules::checkFiles(NUI_LIBS, headers, readLines(NUI_SOURCE_LIST)))
        ADD_FAILURE() << "libs/" << offence;
}

TEST(LayersOfTheHouse, TheWholeToolkitIsInItsHeader) {
    for (const std::string &offence : LayerRules::checkWholeHeader(NUI_LIBS, "nui/nui.h", readLines(NUI_HEADER_LIST)))
        ADD_FAILURE() << "libs/" << offence;
}

TEST_F(Layers, ATreeThatKeepsToThemHasNoOffences) {
    EXPECT_EQ(check(), "");
}

TEST_F(Layers, AnIncludeUpwardIsFound) {
    write("libs/ground/core/Base.h", "#pragma once\n\n#include \"top/Top.h\"\n");
    EXPECT_EQ(check(), "ground/core/Base.h:3: ground may not include top, \"top/Top.h\"\n");
}

TEST_F(Layers, ALibraryThatNoLineNamesIsFound) {
    write("libs/stray/Stray.h", "#pragma once\n");
    EXPECT_EQ(check(), "stray/Stray.h:1: stray is no library of the layers\n");
}

TEST_F(Layers, AnIncludeRelativeToTheOwnFolderIsFound) {
    write("libs/ground/core/Base.cpp", "#include \"Base.h\"\n");
    EXPECT_EQ(check(), "ground/core/Base.cpp:1: \"Base.h\" is no file below libs/\n");
}

TEST_F(Layers, AHiddenHeaderOfAnotherLibraryIsFound) {
    write("libs/middle/Middle.cpp", "#include \"ground/core/detail/Hidden.h\"\n");
    EXPECT_EQ(check(), "middle/Middle.cpp:1: \"ground/core/detail/Hidden.h\" belongs to ground alone\n");
}

TEST_F(Layers, AHiddenHeaderInAPublicOneIsFound) {
    write("libs/ground/core/Base.h", "#include \"ground/core/detail/Hidden.h\"\n");
    EXPECT_EQ(check(),
              "ground/core/Base.h:1: a public header may not include \"ground/core/detail/Hidden.h\", which is "
              "not installed\n");
}

TEST_F(Layers, AHiddenHeaderInASourceOfItsLibraryIsAllowed) {
    write("libs/ground/core/Base.cpp", "#include \"ground/core/detail/Hidden.h\"\n");
    EXPECT_EQ(check(), "");
}

TEST_F(Layers, AThirdPartyHeaderInAHeaderIsFound) {
    write("libs/middle/glyphs/Glyph.h", "#pragma once\n#include <shaper.h>\n");
    EXPECT_EQ(check(), "middle/glyphs/Glyph.h:2: a header may not include <shaper.h>: third parties stay in sources\n");
}

TEST_F(Layers, AThirdPartyHeaderIsAllowedInTheSourcesOfItsFolderAlone) {
    write("libs/middle/glyphs/Glyph.cpp", "#include <shaper.h>\n#  include <shapes/round.h>\n#include <other.h>\n");
    write("libs/middle/Middle.cpp", "#include <shaper.h>\n");
    EXPECT_EQ(check(), "middle/Middle.cpp:1: <shaper.h> may not be included here\n"
                       "middle/glyphs/Glyph.cpp:3: <other.h> may not be included here\n");
}

TEST_F(Layers, AnIncludeThroughAMacroCountsAsAThirdPartyHeader) {
    write("libs/middle/Middle.cpp", "#include SHAPER_H\n");
    EXPECT_EQ(check(), "middle/Middle.cpp:1: <SHAPER_H> may not be included here\n");
}

TEST_F(Layers, AnIncludeInACommentDoesNotCount) {
    write("libs/ground/core/Base.h",
          "// #include \"top/Top.h\"\n/* \n#include <other.h>\n*/\n#include <vector> // all\n"
          "#include \"middle/Middle.h\" /* no */\n");
    EXPECT_EQ(check(), "ground/core/Base.h:6: ground may not include middle, \"middle/Middle.h\"\n");
}

TEST_F(Layers, AFileThatNoListHasIsFound) {
    write("libs/ground/core/Base.cpp", "");
    EXPECT_EQ(checkFiles({"ground/core/Base.h", "top/Top.h"}, {"ground/core/detail/Hidden.h"}),
              "ground/core/Base.cpp:1: a file that is not in its library's list of sources\n"
              "middle/Middle.h:1: a public header that is not in its library's list of headers\n");
}

TEST_F(Layers, AWrongEntryOfAHeaderListIsFound) {
    EXPECT_EQ(checkFiles({"ground/core/Base.h", "ground/core/Gone.h", "ground/core/detail/Hidden.h", "middle/Middle.h",
                          "top/Top.h"},
                         {"ground/core/detail/Hidden.h"}),
              "ground/core/Gone.h:1: listed as a header, but there is no such file\n"
              "ground/core/detail/Hidden.h:1: a header of a detail folder in the list of public headers\n");
}

TEST_F(Layers, AHeaderThatTheHeaderForEverythingForgetsIsFound) {
    write("libs/middle/middle.h", "#include \"middle/Middle.h\"\n#include \"ground/core/Base.h\"\n");
    EXPECT_EQ(join(LayerRules::checkWholeHeader(
                  mRoot / "libs", "middle/middle.h",
                  {"ground/core/Other.h", "middle/Forgotten.h", "middle/Middle.h", "middle/middle.h"})),
              "middle/middle.h:1: does not include \"middle/Forgotten.h\"\n");
}

TEST_F(Layers, ALineWithoutAColonIsRefused) {
    write("layers.txt", "ground\n");
    EXPECT_THROW(LayerRules(mRoot / "layers.txt"), std::runtime_error);
}

} // namespace layers
