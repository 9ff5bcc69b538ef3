#include "Settings.h"

#include "Page.h"

#include "foundation/core/Exception.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace gallery {

const char *const USAGE = "usage: nui-gallery [options]\n"
                          "Shows what the toolkit has, page by page. Without a display it draws every page.\n"
                          "  --png-dir DIR  draw every page, light and dark, into this folder; no window\n"
                          "  --page NAME    begin with this page\n"
                          "  --dark         begin with the dark look\n"
                          "  --size WxH     size of the window or the pictures; 1280x720\n"
                          "  --script FILE  play input and expectations, as nui-viewer does, then end\n"
                          "  --headless     no window\n"
                          "  --font FILE    default font\n"
                          "  --assets DIR   where the templates, sheets and images are\n"
                          "  --help         this text\n";

namespace {

struct TextOption {
    const char *name;
    std::string Settings::*value;
};

constexpr TextOption TEXT_OPTIONS[] = {
    {"--png-dir", &Settings::pngDir}, {"--page", &Settings::page},     {"--script", &Settings::script},
    {"--font", &Settings::font},      {"--assets", &Settings::assets},
};

struct Flag {
    const char *name;
    bool Settings::*value;
};

constexpr Flag FLAGS[] = {
    {"--headless", &Settings::headless},
    {"--dark", &Settings::dark},
    {"--help", &Settings::help},
};

void parseSize(const char *text, Settings &settings) {
    constexpr unsigned int MAXIMUM = 16384;
    char rest = 0;
    const bool read = std::sscanf(text, "%ux%u%c", &settings.width, &settings.height, &rest) == 2;
    const auto fits = [](unsigned int side) { return side > 0 && side <= MAXIMUM; };
    if (!read || !fits(settings.width) || !fits(settings.height))
        throw core::IllegalArgumentException("--size wants WxH, such as 1280x720, not '%s'", text);
}

bool isPage(const std::string &name) {
    return std::any_of(getPages().begin(), getPages().end(), [&name](const Page &page) { return name == page.name; });
}

} // namespace

Settings parseSettings(int argc, const char *const *argv) {
    Settings settings;
    for (int i = 1; i < argc; ++i) {
        const char *option = argv[i];
        const auto is = [option](const char *name) { return std::strcmp(option, name) == 0; };
        const auto *const flag =
            std::find_if(std::begin(FLAGS), std::end(FLAGS), [is](const Flag &entry) { return is(entry.name); });
        if (flag != std::end(FLAGS)) {
            settings.*flag->value = true;
            continue;
        }
        const auto *const known = std::find_if(std::begin(TEXT_OPTIONS), std::end(TEXT_OPTIONS),
                                               [is](const TextOption &entry) { return is(entry.name); });
        if (known == std::end(TEXT_OPTIONS) && !is("--size"))
            throw core::IllegalArgumentException("unknown option %s", option);
        if (++i == argc)
            throw core::IllegalArgumentException("%s wants a value", option);
        if (known != std::end(TEXT_OPTIONS))
            settings.*known->value = argv[i];
        else
            parseSize(argv[i], settings);
    }
    if (!settings.page.empty() && !isPage(settings.page))
        throw core::IllegalArgumentException("there is no page '%s'", settings.page.c_str());
    return settings;
}

} // namespace gallery
