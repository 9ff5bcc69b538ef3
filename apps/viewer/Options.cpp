#include "Options.h"

#include "foundation/core/Exception.h"

#include <charconv>
#include <cmath>
#include <cstring>

namespace viewer {

const char *const USAGE =
    "usage: nui-viewer SCREEN.ui [options]\n"
    "  --style FILE.css      style the screen; given several times, the sheets are merged in this order\n"
    "  --size WxH            size of the window or picture in pixels (1280x720)\n"
    "  --scale S             UI pixels per screen pixel (1); 0.5 shows everything twice as large\n"
    "  --png OUT.png         draw off-screen and save what is shown at the end\n"
    "  --frames N            end after N frames\n"
    "  --script EVENTS.json  play input, 60 frames a second\n"
    "  --stay                go on after the script, until the window closes or for the frames of --frames\n"
    "  --trace OUT.jsonl     write every event, focus change and hover change\n"
    "  --dump OUT.json       write the component tree at the end\n"
    "  --headless            draw off-screen, without a window\n"
    "  --font FILE           default font\n"
    "  --locale L            language of translated texts, from i18n/L.xml or i18n/L.po beside the screen\n"
    "  --verbose             log more\n"
    "  --help                this text\n";

namespace {

constexpr unsigned int MAXIMUM_SIDE = 16384;

bool readNumber(const char *&text, unsigned int &value) {
    const auto result = std::from_chars(text, text + std::strlen(text), value);
    text = result.ptr;
    return result.ec == std::errc{};
}

void readSize(const char *text, Options &options) {
    const char *rest = text;
    const bool valid = readNumber(rest, options.width) && *rest == 'x' && readNumber(++rest, options.height) && !*rest;
    if (!valid || options.width == 0 || options.height == 0 || options.width > MAXIMUM_SIDE ||
        options.height > MAXIMUM_SIDE)
        throw core::IllegalArgumentException("--size wants WIDTHxHEIGHT from 1x1 to %ux%u, got '%s'", MAXIMUM_SIDE,
                                             MAXIMUM_SIDE, text);
}

void readScale(const char *text, Options &options) {
    const char *end = text + std::strlen(text);
    const auto result = std::from_chars(text, end, options.scale);
    if (result.ec != std::errc{} || result.ptr != end || !std::isfinite(options.scale) || options.scale <= 0)
        throw core::IllegalArgumentException("--scale wants a number above 0, got '%s'", text);
}

void readFrames(const char *text, Options &options) {
    const char *end = text + std::strlen(text);
    const auto result = std::from_chars(text, end, options.frames);
    if (result.ec != std::errc{} || result.ptr != end || options.frames < 0)
        throw core::IllegalArgumentException("--frames wants a whole number, got '%s'", text);
}

void readStyle(const char *text, Options &options) {
    if (!*text)
        throw core::IllegalArgumentException("--style wants a value");
    options.styles.push_back(text);
}

struct TextOption {
    const char *name;
    std::string Options::*field;
};

constexpr TextOption TEXT_OPTIONS[] = {
    {"--png", &Options::png},   {"--script", &Options::script}, {"--trace", &Options::trace},
    {"--dump", &Options::dump}, {"--font", &Options::font},     {"--locale", &Options::locale},
};

struct ParsedOption {
    const char *name;
    void (*read)(const char *text, Options &options);
};

constexpr ParsedOption PARSED_OPTIONS[] = {
    {"--size", readSize}, {"--scale", readScale}, {"--frames", readFrames}, {"--style", readStyle}};

struct Switch {
    const char *name;
    bool Options::*field;
};

constexpr Switch SWITCHES[] = {{"--headless", &Options::headless},
                               {"--stay", &Options::stay},
                               {"--verbose", &Options::verbose},
                               {"--help", &Options::help}};

bool readSwitch(const char *argument, Options &options) {
    for (const Switch &entry : SWITCHES) {
        if (std::strcmp(entry.name, argument) == 0) {
            options.*entry.field = true;
            return true;
        }
    }
    return false;
}

/// True when the argument is an option with a value; a null value is a missing one.
bool readValue(const char *argument, const char *value, Options &options) {
    for (const TextOption &entry : TEXT_OPTIONS) {
        if (std::strcmp(entry.name, argument) == 0) {
            if (!value || !*value)
                throw core::IllegalArgumentException("%s wants a value", argument);
            options.*entry.field = value;
            return true;
        }
    }
    for (const ParsedOption &entry : PARSED_OPTIONS) {
        if (std::strcmp(entry.name, argument) == 0) {
            if (!value)
                throw core::IllegalArgumentException("%s wants a value", argument);
            entry.read(value, options);
            return true;
        }
    }
    return false;
}

} // namespace

Options parseOptions(int argc, const char *const *argv) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        const char *argument = argv[i];
        if (readSwitch(argument, options))
            continue;
        if (readValue(argument, i + 1 < argc ? argv[i + 1] : nullptr, options)) {
            ++i;
            continue;
        }
        if (argument[0] == '-')
            throw core::IllegalArgumentException("unknown option %s", argument);
        if (!options.screen.empty())
            throw core::IllegalArgumentException("one screen at a time, got '%s' after '%s'", argument,
                                                 options.screen.c_str());
        options.screen = argument;
    }
    if (options.screen.empty() && !options.help)
        throw core::IllegalArgumentException("no screen given; nui-viewer --help tells the options");
    return options;
}

} // namespace viewer
