#include "GoldenFixture.h"

#include "backends/egl/HeadlessContext.h"
#include "backends/gles/GlesBackend.h"
#include "nengine/renderer/DrawList.h"
#include "nengine/renderer/FrameTarget.h"
#include "nengine/renderer/RenderPass.h"
#include "nengine/scene/Node.h"
#include "nengine/texture/ImageFile.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/skins/DefaultSkin.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace golden {

using nurel::ui::UIManager;
using nurel::ui::Widget;

namespace {

constexpr int TOLERANCE = 4;
constexpr int FRAMES = 5;
constexpr float BACKGROUND[] = {0.1F, 0.1F, 0.12F, 1};

nurel::egl::HeadlessContext &getContext(unsigned int width, unsigned int height) {
    static nurel::egl::HeadlessContext context(width, height);
    return context;
}

std::string read(const std::string &path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// How many pixels differ by more than the tolerance; those are white in `difference`, on the dimmed picture.
std::size_t compare(const std::uint8_t *expected, const std::uint8_t *actual, std::size_t pixels,
                    std::vector<std::uint8_t> &difference) {
    std::size_t outliers = 0;
    difference.resize(pixels * 4);
    for (std::size_t i = 0; i < pixels; ++i) {
        int worst = 0;
        for (std::size_t c = 0; c < 4; ++c)
            worst = std::max(worst, std::abs(expected[i * 4 + c] - actual[i * 4 + c]));
        const bool differs = worst > TOLERANCE;
        outliers += differs ? 1 : 0;
        for (std::size_t c = 0; c < 3; ++c)
            difference[i * 4 + c] = differs ? 255 : static_cast<std::uint8_t>(actual[i * 4 + c] / 4);
        difference[i * 4 + 3] = 255;
    }
    return outliers;
}

/// Pictures of the same size, from left to right.
std::vector<std::uint8_t> joinInARow(const std::vector<std::vector<std::uint8_t>> &pictures, std::size_t width,
                                     std::size_t height) {
    std::vector<std::uint8_t> row;
    row.reserve(pictures.size() * width * height * 4);
    for (std::size_t y = 0; y < height; ++y) {
        for (const std::vector<std::uint8_t> &picture : pictures) {
            const std::uint8_t *line = &picture[y * width * 4];
            row.insert(row.end(), line, line + width * 4);
        }
    }
    return row;
}

} // namespace

void GoldenFixture::SetUp() {
    getContext(WIDTH, HEIGHT).makeCurrent();
    mBackend = std::make_shared<nurel::gles::GlesBackend>();
    nurel::EngineConfig config = nurel::EngineConfig::headless(WIDTH, HEIGHT);
    config.backend = mBackend;
    config.fontFile = FONT_FILE;
    mEngine = std::make_unique<nurel::Engine>(config);
    mSkin = new nurel::ui::skins::DefaultSkin();
    nurel::ui::SkinManager::getSingleton().addSkin(mSkin.get());
    nurel::ui::SkinManager::getSingleton().setDefaultSkin(mSkin.get());
}

void GoldenFixture::TearDown() {
    UIManager::shutdown();
    mSkin = nullptr;
    mEngine.reset();
    mBackend.reset();
}

void GoldenFixture::show(const core::SmartPtr<nurel::ui::Component> &component) {
    core::SmartPtr<Widget> widget;
    if (component->instanceOf(Widget::TYPE)) {
        widget = static_cast<Widget *>(component.get());
    } else {
        widget = new Widget("stage");
        widget->addChild(component.get(), false);
    }
    UIManager &manager = UIManager::getSingleton();
    manager.setView(widget.get());
    manager.addWidget(widget.get(), nullptr);
    manager.updateEvents();
}

nurel::scene::Node &GoldenFixture::makeNode() {
    const core::SmartPtr<nurel::scene::Node> node = new nurel::scene::Node("picture");
    node->setTranslation(nurel::math::Vector3(WIDTH * 0.5F, HEIGHT * 0.5F, 0));
    UIManager::getSingleton().getRoot()->appendChild(node.get());
    return *node;
}

std::vector<std::uint8_t> GoldenFixture::draw() {
    UIManager &manager = UIManager::getSingleton();
    manager.updateEvents();
    manager.update();
    // The pass draws over what is there: a list with nothing in it clears the picture first.
    nurel::renderer::FrameTarget background;
    background.width = WIDTH;
    background.height = HEIGHT;
    background.clearColor = true;
    std::copy(std::begin(BACKGROUND), std::end(BACKGROUND), background.clear);
    mBackend->submit(nurel::renderer::DrawList(), background);
    mEngine->renderFrame(*manager.getRenderPass());
    return getContext(WIDTH, HEIGHT).readPixels();
}

void GoldenFixture::expectPicture(const std::string &name, std::size_t outliers) {
    UIManager::getSingleton().getRoot()->updateProperties();
    std::vector<std::uint8_t> picture;
    for (int i = 0; i < FRAMES; ++i) {
        mEngine->advance(1.0 / 60);
        picture = draw();
    }
    expectPictures(name, {picture}, outliers);
}

void GoldenFixture::expectPictures(const std::string &name, const std::vector<std::vector<std::uint8_t>> &pictures,
                                   std::size_t outliers) {
    const unsigned int width = WIDTH * static_cast<unsigned int>(pictures.size());
    const std::vector<std::uint8_t> actual = joinInARow(pictures, WIDTH, HEIGHT);
    const std::string reference = std::string(REFERENCES "/") + name + ".png";
    if (std::getenv("NUI_UPDATE_GOLDEN")) {
        nurel::texture::savePng(reference.c_str(), width, HEIGHT, actual.data());
        return;
    }
    const std::string file = read(reference);
    ASSERT_FALSE(file.empty()) << "there is no reference " << reference;
    const nurel::texture::Image expected = nurel::texture::decodeImage(file.data(), file.size());
    ASSERT_EQ(expected.width, width);
    ASSERT_EQ(expected.height, HEIGHT);
    std::vector<std::uint8_t> difference;
    const std::size_t different = compare(expected.rgba.get(), actual.data(), std::size_t{width} * HEIGHT, difference);
    if (different > outliers * pictures.size()) {
        std::filesystem::create_directories(RESULTS);
        const std::string base = std::string(RESULTS "/") + name;
        nurel::texture::savePng((base + "-actual.png").c_str(), width, HEIGHT, actual.data());
        nurel::texture::savePng((base + "-difference.png").c_str(), width, HEIGHT, difference.data());
        ADD_FAILURE() << different << " pixels differ from " << reference << "; see " << base << "-actual.png";
    }
}

} // namespace golden
