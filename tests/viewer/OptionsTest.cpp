#include "Options.h"

#include "foundation/core/Exception.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace viewer {

namespace {

Options parse(std::initializer_list<const char *> arguments) {
    std::vector<const char *> argv{"nui-viewer"};
    argv.insert(argv.end(), arguments);
    return parseOptions(static_cast<int>(argv.size()), argv.data());
}

std::string refusal(std::initializer_list<const char *> arguments) {
    try {
        parse(arguments);
    } catch (const core::IllegalArgumentException &e) {
        return e.getMessage();
    }
    return "accepted";
}

} // namespace

TEST(Options, AScreenAloneOpensAWindowOfTheDefaultSize) {
    const Options options = parse({"a.ui"});
    EXPECT_EQ(options.screen, "a.ui");
    EXPECT_EQ(options.width, 1280U);
    EXPECT_EQ(options.height, 720U);
    EXPECT_FLOAT_EQ(options.scale, 1);
    EXPECT_EQ(options.frames, -1);
    EXPECT_FALSE(options.isOffscreen());
}

TEST(Options, EveryOptionIsRead) {
    const Options options =
        parse({"--size",   "640x480", "--scale",   "1.5",        "--png",  "o.png",   "--frames", "7",
               "--script", "s.json",  "--trace",   "t.jsonl",    "--dump", "d.json",  "--font",   "f.ttf",
               "--locale", "de",      "--verbose", "--headless", "a.ui",   "--style", "look.css", "--stay"});
    EXPECT_EQ(options.width, 640U);
    EXPECT_EQ(options.height, 480U);
    EXPECT_FLOAT_EQ(options.scale, 1.5F);
    EXPECT_EQ(options.png, "o.png");
    EXPECT_EQ(options.frames, 7);
    EXPECT_EQ(options.script, "s.json");
    EXPECT_EQ(options.trace, "t.jsonl");
    EXPECT_EQ(options.dump, "d.json");
    EXPECT_EQ(options.font, "f.ttf");
    EXPECT_EQ(options.locale, "de");
    EXPECT_EQ(options.styles, std::vector<std::string>{"look.css"});
    EXPECT_TRUE(options.verbose);
    EXPECT_TRUE(options.headless);
    EXPECT_TRUE(options.stay);
    EXPECT_EQ(options.screen, "a.ui");
}

TEST(Options, SheetsKeepTheirOrder) {
    const Options options = parse({"--style", "b.css", "a.ui", "--style", "a.css", "--style", "b.css"});
    EXPECT_EQ(options.styles, (std::vector<std::string>{"b.css", "a.css", "b.css"}));
    EXPECT_TRUE(parse({"a.ui"}).styles.empty());
}

TEST(Options, EveryOptionIsInTheUsage) {
    for (const char *option : {"--style", "--size", "--scale", "--png", "--frames", "--script", "--trace", "--dump",
                               "--headless", "--font", "--locale", "--verbose", "--help"})
        EXPECT_NE(std::string(USAGE).find(std::string("  ") + option + " "), std::string::npos) << option;
}

TEST(Options, APictureNeedsNoWindow) {
    EXPECT_TRUE(parse({"a.ui", "--png", "o.png"}).isOffscreen());
    EXPECT_TRUE(parse({"a.ui", "--headless"}).isOffscreen());
}

TEST(Options, HelpNeedsNoScreen) {
    EXPECT_TRUE(parse({"--help"}).help);
}

TEST(Options, WhatMakesNoSenseIsToldInOneSentence) {
    EXPECT_EQ(refusal({}), "no screen given; nui-viewer --help tells the options");
    EXPECT_EQ(refusal({"--wrong", "a.ui"}), "unknown option --wrong");
    EXPECT_EQ(refusal({"a.ui", "b.ui"}), "one screen at a time, got 'b.ui' after 'a.ui'");
    EXPECT_EQ(refusal({"a.ui", "--png"}), "--png wants a value");
    EXPECT_EQ(refusal({"a.ui", "--size"}), "--size wants a value");
    EXPECT_EQ(refusal({"a.ui", "--style"}), "--style wants a value");
    EXPECT_EQ(refusal({"a.ui", "--style", ""}), "--style wants a value");
    for (const char *size : {"640", "640x", "x480", "0x480", "640x480x1", "-1x5", "20000x1", "axb"})
        EXPECT_EQ(refusal({"a.ui", "--size", size}),
                  std::string("--size wants WIDTHxHEIGHT from 1x1 to 16384x16384, got '") + size + "'");
    for (const char *scale : {"0", "-1", "x", "1x", "nan", "inf", ""})
        EXPECT_EQ(refusal({"a.ui", "--scale", scale}),
                  std::string("--scale wants a number above 0, got '") + scale + "'");
    for (const char *frames : {"-1", "x", "1.5"})
        EXPECT_EQ(refusal({"a.ui", "--frames", frames}),
                  std::string("--frames wants a whole number, got '") + frames + "'");
}

} // namespace viewer
