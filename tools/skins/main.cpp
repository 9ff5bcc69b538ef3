// Draws the images of the starter looks and of the gallery into the folder of the assets.
#include "SkinImages.h"

#include "nengine/texture/ImageFile.h"

#include <cstdio>
#include <exception>
#include <filesystem>

int main(int argc, char **argv) {
    if (argc != 2) {
        std::fputs("usage: nui-draw-skins ASSETS_FOLDER\n", stderr);
        return 2;
    }
    try {
        for (const drawing::SkinImage &image : drawing::drawImages()) {
            const std::filesystem::path path = std::filesystem::path(argv[1]) / image.path;
            std::filesystem::create_directories(path.parent_path());
            nurel::texture::savePng(path.c_str(), image.picture.getWidth(), image.picture.getHeight(),
                                    image.picture.getBytes().data());
        }
    } catch (const std::exception &e) {
        std::fprintf(stderr, "nui-draw-skins: %s\n", e.what());
        return 2;
    }
    return 0;
}
