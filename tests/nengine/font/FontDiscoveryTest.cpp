#include "nengine/font/detail/FontDiscovery.h"

#include "nengine/font/TestFonts.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace nurel {
namespace {

using font::Font;
using font::FontManager;
using font::detail::FontDiscovery;
using font::detail::FontFile;

/// Takes the two fonts of the tests for all that are installed.
class FontDiscoveryTest : public test::TextTest {
protected:
    FontDiscoveryTest() {
        const std::filesystem::path folder = std::filesystem::path(testing::TempDir()) / "nui-font-discovery";
        std::filesystem::create_directories(folder);
        const std::string config = (folder / "fonts.conf").string();
        std::ofstream(config) << "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"fonts.dtd\"><fontconfig>"
                              << "<dir>" << std::filesystem::absolute("tests/data/fonts").string() << "</dir>"
                              << "<cachedir>" << (folder / "cache").string() << "</cachedir>"
                              << "<alias binding=\"same\"><family>Helvetia</family>"
                              << "<accept><family>DejaVu Sans</family></accept></alias>"
                              << "<alias><family>sans-serif</family>"
                              << "<prefer><family>DejaVu Sans</family></prefer></alias>"
                              << "<alias><family>monospace</family>"
                              << "<prefer><family>DejaVu Sans Mono</family></prefer></alias></fontconfig>";
        setenv("FONTCONFIG_FILE", config.c_str(), 1);
        useDefault(test::MONO_FILE);
        manager->setSystemFonts(true);
    }
    ~FontDiscoveryTest() override { unsetenv("FONTCONFIG_FILE"); }

    static std::string getName(const FontFile &file) { return std::filesystem::path(file.path).filename().string(); }

    FontDiscovery discovery;
};

TEST_F(FontDiscoveryTest, FindsFamiliesWhateverTheCase) {
    EXPECT_EQ(getName(discovery.find("DejaVu Sans")), "DejaVuSans.ttf");
    EXPECT_EQ(getName(discovery.find("dejavu sans mono")), "DejaVuSansMono.ttf");
}

TEST_F(FontDiscoveryTest, DoesNotPutAnotherFontInPlaceOfAnUnknownFamily) {
    EXPECT_EQ(discovery.find("No Such Family").path, "");
    EXPECT_EQ(discovery.find("DejaVu").path, "");
}

TEST_F(FontDiscoveryTest, TakesAFamilyThatTheSystemPutsInPlaceOfAnother) {
    EXPECT_EQ(getName(discovery.find("Helvetia")), "DejaVuSans.ttf");
}

TEST_F(FontDiscoveryTest, GenericNamesStandForWhatTheSystemHas) {
    EXPECT_EQ(getName(discovery.find("sans-serif")), "DejaVuSans.ttf");
    EXPECT_EQ(getName(discovery.find("Monospace")), "DejaVuSansMono.ttf");
    EXPECT_NE(discovery.find("fantasy").path, "");
    EXPECT_EQ(getName(discovery.findDefault()), "DejaVuSans.ttf");
}

TEST_F(FontDiscoveryTest, FindsTheFontsThatHaveAllOfSomeCharacters) {
    ASSERT_EQ(discovery.getCount(), 2u);
    const std::size_t both = discovery.findCharacters(U"ab", false, 0);
    EXPECT_EQ(both, 0u);
    EXPECT_EQ(discovery.findCharacters(U"ab", false, 1), 1u);
    const std::size_t one = discovery.findCharacters(U"a𐌀", false, 0);
    EXPECT_EQ(getName(discovery.getFile(one)), "DejaVuSans.ttf");
    EXPECT_EQ(discovery.findCharacters(U"a漢", false, 0), 2u);
    EXPECT_EQ(discovery.findCharacters(U"a", true, 0), 2u) << "none of them is coloured";
    EXPECT_EQ(discovery.getFile(2).path, "");
}

TEST_F(FontDiscoveryTest, TheManagerFindsInstalledFontsOnce) {
    Font *sans = (*manager)["DejaVu Sans"];
    ASSERT_NE(sans, nullptr);
    EXPECT_EQ(sans->getSize(), 16.0f);
    EXPECT_EQ((*manager)["dejavu sans"], sans);
    EXPECT_EQ((*manager)["Missing"], nullptr);
    manager->setSystemFonts(false);
    EXPECT_EQ((*manager)["DejaVu Sans"], sans) << "what was found stays";
    EXPECT_EQ((*manager)["DejaVu Sans Mono"], nullptr);
    manager->setSystemFonts(true);
    EXPECT_NE((*manager)["DejaVu Sans Mono"], nullptr);
}

TEST_F(FontDiscoveryTest, AnAddedFontComesBeforeAnInstalledOneOfTheSameName) {
    Font *added = manager->add("DejaVu Sans", test::MONO_FILE);
    EXPECT_EQ((*manager)["DejaVu Sans"], added);
}

TEST_F(FontDiscoveryTest, AMissingCharacterComesFromAnInstalledFont) {
    const auto shaped = getSystem().shape(*manager->getDefaultFont(), "𐌀𐌁");
    ASSERT_EQ(shaped->glyphs.size(), 2u);
    EXPECT_NEAR(shaped->width, facts.getAdvance(U"𐌀𐌁"), 1e-4f);
    EXPECT_EQ(getShaping().openedFallbackFaces, 1u);
    getSystem().shape(*manager->getDefaultFont(), "𐌂 漢");
    EXPECT_EQ(getShaping().openedFallbackFaces, 1u);
}

TEST_F(FontDiscoveryTest, WithoutADefaultTheSystemsSansSerifIsTaken) {
    useDefault(nullptr);
    manager->setSystemFonts(true);
    EXPECT_NE(manager->getDefaultFont()->getGlyph(U'𐌀'), nullptr) << "which only one of the two has";
}

TEST_F(FontDiscoveryTest, ADefaultFamilyIsFoundAmongTheInstalledOnes) {
    manager.reset();
    manager = std::make_unique<FontManager>(screen.atlas.get(), "DejaVu Sans Mono", nullptr);
    EXPECT_EQ(manager->getDefaultFont(), (*manager)["DejaVu Sans Mono"]);
    EXPECT_EQ(manager->getDefaultFont()->getGlyph(U'𐌀'), nullptr);
}

} // namespace
} // namespace nurel
