#include "nengine/font/FontManager.h"

#include "nengine/font/TestFonts.h"
#include "nengine/font/detail/Face.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace nurel {
namespace {

using font::Font;
using font::FontManager;
using logging::Level;

class FontManagerTest : public test::TextTest {};

std::string readFile(const char *file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::span<const std::byte> toBytes(const std::string &text) {
    return std::as_bytes(std::span(text));
}

TEST_F(FontManagerTest, IsASingletonWhileItLives) {
    EXPECT_TRUE(FontManager::isSingletonCreated());
    EXPECT_EQ(&FontManager::getSingleton(), manager.get());
    EXPECT_EQ(FontManager::getSingletonPtr(), manager.get());
    manager.reset();
    EXPECT_FALSE(FontManager::isSingletonCreated());
    EXPECT_EQ(FontManager::getSingletonPtr(), nullptr);
}

TEST_F(FontManagerTest, FindsAddedFontsByNameWhateverTheCase) {
    Font *mono = manager->add("My Mono", test::MONO_FILE);
    ASSERT_NE(mono, nullptr);
    EXPECT_EQ((*manager)["My Mono"], mono);
    EXPECT_EQ((*manager)["my mono"], mono);
    EXPECT_STREQ(mono->getName(), "My Mono");
}

TEST_F(FontManagerTest, AnUnknownNameGivesNullUntilAFontOfThatNameIsAdded) {
    EXPECT_EQ((*manager)["Later"], nullptr);
    EXPECT_EQ((*manager)["Later"], nullptr);
    Font *font = manager->add("Later", test::MONO_FILE);
    EXPECT_EQ((*manager)["Later"], font);
}

TEST_F(FontManagerTest, NoNameGivesNull) {
    EXPECT_EQ((*manager)[nullptr], nullptr);
    EXPECT_EQ((*manager)[""], nullptr);
}

TEST_F(FontManagerTest, AddsAFontFromMemoryWhichItCopies) {
    std::string bytes = readFile(test::MONO_FILE);
    Font *font = manager->add("Memory", toBytes(bytes), 24);
    ASSERT_NE(font, nullptr);
    std::fill(bytes.begin(), bytes.end(), '\0');
    EXPECT_EQ(font->getSize(), 24.0f);
    EXPECT_NE(font->getGlyph(U'm'), nullptr);
    EXPECT_GT(font->getFace()->getAdvance(5), 0.0f);
}

TEST_F(FontManagerTest, AMissingFileIsLoggedAndGivesNull) {
    EXPECT_EQ(manager->add("Gone", "tests/data/fonts/gone.ttf"), nullptr);
    EXPECT_EQ(log.takeOne(Level::ERROR), "Cannot load font tests/data/fonts/gone.ttf: No such file or directory");
    EXPECT_EQ((*manager)["Gone"], nullptr);
}

TEST_F(FontManagerTest, AFileThatIsNoFontIsLoggedAndGivesNull) {
    EXPECT_EQ(manager->add("Licence", "tests/data/fonts/DejaVu-LICENSE.txt"), nullptr);
    EXPECT_EQ(log.takeOne(Level::ERROR), "Cannot load font tests/data/fonts/DejaVu-LICENSE.txt: unknown file format");
    EXPECT_EQ(manager->add("Folder", "tests/data/fonts"), nullptr);
    EXPECT_EQ(log.takeOne(Level::ERROR), "Cannot load font tests/data/fonts: it cannot be read");
    EXPECT_EQ(manager->add("Nothing", nullptr), nullptr);
    EXPECT_EQ(log.takeOne(Level::ERROR), "Cannot load font : No such file or directory");
}

TEST_F(FontManagerTest, BytesThatAreNoFontAreLoggedByTheirName) {
    EXPECT_EQ(manager->add("Bytes", toBytes(std::string(200, 'x'))), nullptr);
    EXPECT_EQ(log.takeOne(Level::ERROR), "Cannot load font Bytes: unknown file format");
    EXPECT_EQ(manager->add("Empty", std::span<const std::byte>()), nullptr);
    EXPECT_EQ(log.takeOne(Level::ERROR), "Cannot load font Empty: the file is empty");
}

TEST_F(FontManagerTest, AFileThatWasCutOffDoesNoHarm) {
    const std::string bytes = readFile(test::MONO_FILE);
    for (const std::size_t size : {std::size_t{4}, std::size_t{100}, std::size_t{5000}, bytes.size() / 2}) {
        if (const Font *font = manager->add("Cut", toBytes(bytes).first(size))) {
            const auto shape = getSystem().shape(*font, "Cut off \xd7\xa9 \xd8\xa8");
            for (const auto &run : shape->runs) {
                auto &strike = getSystem().getGlyphs()->getStrike(*run.face, 64);
                for (const auto &glyph : shape->glyphs)
                    strike.getGlyph(glyph.glyph, 0);
            }
        }
    }
    log.take(Level::ERROR);
}

TEST_F(FontManagerTest, AFontOfTheSameNameTakesThePlaceOfTheOneBeforeWhichStaysUsable) {
    Font *first = manager->add("Name", test::MONO_FILE);
    Font *second = manager->add("Name", test::SANS_FILE);
    EXPECT_NE(first, second);
    EXPECT_EQ((*manager)["Name"], second);
    EXPECT_NE(first->getGlyph(U'm'), nullptr);
}

TEST_F(FontManagerTest, TheDefaultFontComesFromTheFile) {
    Font *font = manager->getDefaultFont();
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(manager->getDefaultFont(), font);
    EXPECT_NE(font->getGlyph(U'm'), nullptr);
}

TEST_F(FontManagerTest, WithoutAnyFontTheDefaultOneIsEmptyAndOneErrorSaysSo) {
    useDefault("gone.ttf");
    Font *font = manager->getDefaultFont();
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(font->getHeight(), 0.0f);
    EXPECT_EQ(manager->getDefaultFont(), font);
    EXPECT_EQ(log.take(Level::ERROR), (std::vector<std::string>{"Cannot load font gone.ttf: No such file or directory",
                                                                "No font found: texts are not shown"}));
}

TEST_F(FontManagerTest, AnUnknownDefaultFamilyIsToldOf) {
    manager.reset();
    manager = std::make_unique<FontManager>(screen.atlas.get(), "No Such Family", nullptr);
    manager->setSystemFonts(false);
    EXPECT_EQ(manager->getDefaultFont()->getHeight(), 0.0f);
    EXPECT_EQ(log.takeOne(Level::WARN), "Cannot find font No Such Family: the system's sans-serif stands in for it");
    EXPECT_EQ(log.takeOne(Level::ERROR), "No font found: texts are not shown");
}

TEST_F(FontManagerTest, AnAddedFontCanBeTheDefaultFamily) {
    manager.reset();
    manager = std::make_unique<FontManager>(screen.atlas.get(), "Mine", nullptr);
    manager->setSystemFonts(false);
    Font *mine = manager->add("Mine", test::MONO_FILE, 20);
    EXPECT_EQ(manager->getDefaultFont(), mine);
}

TEST_F(FontManagerTest, TheRebuildFlagStaysUntilTheNextPump) {
    EXPECT_FALSE(manager->isRebuildFonts());
    manager->setRebuildFonts(true);
    EXPECT_TRUE(manager->isRebuildFonts());
    manager->pump();
    EXPECT_FALSE(manager->isRebuildFonts());
}

TEST_F(FontManagerTest, NamesThatAreNotThereDoNotFillTheMemory) {
    for (int i = 0; i < 5000; ++i)
        EXPECT_EQ((*manager)[("missing " + std::to_string(i)).c_str()], nullptr);
}

} // namespace
} // namespace nurel
