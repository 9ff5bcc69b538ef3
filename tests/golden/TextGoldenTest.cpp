// Text of several scripts. Fonts come from files: one of the test data, and the ones of Debian's Noto packages where
// they are installed.
#include "GoldenFixture.h"

#include "nengine/font/Font.h"
#include "nengine/font/FontManager.h"
#include "nengine/scene/Node.h"
#include "nengine/scene/meshes/TextMesh.h"
#include "nengine/scene/properties/MaterialProperty.h"

#include <filesystem>

namespace golden {

using nurel::font::Font;
using nurel::font::FontManager;
using nurel::math::Vector2;
using nurel::math::Vector3;
using nurel::scene::Node;
using nurel::scene::meshes::TextMesh;

namespace {

constexpr const char *NOTO = "/usr/share/fonts/truetype/noto/";
constexpr const char *NOTO_CJK = "/usr/share/fonts/opentype/noto/NotoSansCJK-Regular.ttc";

class TextGolden : public GoldenFixture {
protected:
    TextMesh &add(Node &node, Font *font, const char *text, float y, float scale = 1) {
        const core::SmartPtr<TextMesh> mesh = new TextMesh("text", font);
        mesh->setText(text);
        mesh->setScale(scale);
        mesh->setHorizontalAlignment(1);
        mesh->setVerticalAlignment(1);
        mesh->setTranslation(Vector3(0, y, 0));
        node.appendChild(mesh.get());
        return *mesh;
    }

    /// A few lines at growing sizes.
    void addSizes(Font *font, const char *text) {
        Node &node = makeNode();
        add(node, font, text, -120, 0.75F);
        add(node, font, text, -80);
        add(node, font, text, -25, 1.5F);
        add(node, font, text, 55, 3);
    }

    /// Null, with a line in the test's output, where the font's package is not installed.
    static Font *findFont(const std::string &path) {
        if (!std::filesystem::exists(path)) {
            std::puts((path + " is not installed: its picture is not compared").c_str());
            return nullptr;
        }
        return FontManager::getSingleton().add("golden", path.c_str());
    }
};

} // namespace

TEST_F(TextGolden, LatinIsCrispAtEverySize) {
    addSizes(FontManager::getSingleton().getDefaultFont(), "Hamburg ÄÖÜß 012");
    expectPicture("text-latin");
}

TEST_F(TextGolden, WrappedTextStandsInItsBox) {
    Node &node = makeNode();
    TextMesh &left = add(node, FontManager::getSingleton().getDefaultFont(),
                         "Text that is too long for its box goes on in the next line.\nA paragraph follows.", -80);
    left.setSizeLimit(Vector2(220, 140));
    left.setHorizontalAlignment(0);
    left.setParagraphSpacing(0.5F);
    TextMesh &right = add(node, FontManager::getSingleton().getDefaultFont(), "right and\nat the bottom", 80);
    right.setSizeLimit(Vector2(400, 120));
    right.setHorizontalAlignment(2);
    right.setVerticalAlignment(2);
    expectPicture("text-wrapped");
}

TEST_F(TextGolden, RotatedAndColouredText) {
    Node &node = makeNode();
    TextMesh &mesh = add(node, FontManager::getSingleton().getDefaultFont(), "turned by 20 degrees", 0, 2);
    mesh.setRotation(nurel::math::Matrix3(0.349F, Vector3::AXIS_Z));
    auto &material = static_cast<nurel::scene::properties::MaterialProperty &>(*mesh.getProperty(1));
    material.setColor(nurel::math::Vector4(1, 0.8F, 0.2F, 0.75F));
    expectPicture("text-rotated");
}

TEST_F(TextGolden, BothDirectionsInOneLine) {
    addSizes(FontManager::getSingleton().getDefaultFont(), "left שלום right");
    expectPicture("text-bidirectional");
}

TEST_F(TextGolden, Arabic) {
    if (Font *font = findFont(std::string(NOTO) + "NotoNaskhArabic-Regular.ttf")) {
        addSizes(font, "السلام عليكم ١٢٣");
        expectPicture("text-arabic");
    }
}

TEST_F(TextGolden, Devanagari) {
    if (Font *font = findFont(std::string(NOTO) + "NotoSansDevanagari-Regular.ttf")) {
        addSizes(font, "नमस्ते क्षत्रिय हिन्दी");
        expectPicture("text-devanagari");
    }
}

TEST_F(TextGolden, ChineseJapaneseKorean) {
    if (Font *font = findFont(NOTO_CJK)) {
        addSizes(font, "漢字 かな 한국어");
        expectPicture("text-cjk");
    }
}

TEST_F(TextGolden, Emoji) {
    if (Font *font = findFont(std::string(NOTO) + "NotoColorEmoji.ttf")) {
        addSizes(font, "😀🚀👍🏽👩‍💻");
        expectPicture("text-emoji");
    }
}

} // namespace golden
