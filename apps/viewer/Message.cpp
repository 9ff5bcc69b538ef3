#include "Message.h"

#include "nmain/stream/InputStream.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/css/CSS.h"
#include "nui/ui/css/CSSParser.h"
#include "nui/ui/css/CSSSkin.h"

#include <algorithm>
#include <cmath>
#include <sstream>

namespace viewer {

namespace ui = nurel::ui;

using nurel::math::Vector2;
using ui::UIManager;
using ui::Widget;

namespace {

constexpr const char *SKIN_NAME = "viewer.message";

constexpr const char *SHEET = R"(
    #message { background: #3a0d0d; opacity: 1; padding: 8px 12px 8px 12px; border: 2px 0 0 0; overflow: hidden; }
    #text { color: #ffffff; font-size: 15px; text-align: left; vertical-align: center; }
)";
constexpr float LINE_HEIGHT = 20;
constexpr float CHARACTER_WIDTH = 9;
constexpr float MARGIN_HEIGHT = 18;

core::SmartPtr<ui::css::CSSSkin> makeSkin() {
    core::SmartPtr<ui::css::CSSSkin> skin = new ui::css::CSSSkin(SKIN_NAME);
    nurel::stream::MemoryInputStream sheet(SKIN_NAME, SHEET);
    skin->setStyleSheet(ui::css::CSSParser().parse(&sheet));
    return skin;
}

/// Enough for the text when its lines are broken at the width of the screen.
float estimateHeight(const std::string &text) {
    const float width = std::max(static_cast<float>(UIManager::getSingleton().getScreenWidth()), CHARACTER_WIDTH);
    std::istringstream lines(text);
    float rows = 0;
    for (std::string line; std::getline(lines, line);)
        rows += std::max(1.0F, std::ceil(static_cast<float>(line.size()) * CHARACTER_WIDTH / width));
    return rows * LINE_HEIGHT + MARGIN_HEIGHT;
}

} // namespace

Message::Message() : mSkin(makeSkin()) {
    ui::SkinManager::getSingleton().addSkin(mSkin.get());
}

Message::~Message() {
    remove();
}

void Message::show(const std::string &text) {
    if (text == mText)
        return;
    remove();
    mText = text;
    add();
}

void Message::raise() {
    remove();
    add();
}

void Message::add() {
    if (mText.empty())
        return;
    mWidget = new Widget("message", Vector2(0, estimateHeight(mText)), Vector2(1, 0));
    mWidget->setAnchor(ui::Component::ANCHOR_BOTTOM_CENTER);
    mWidget->setSkinName(SKIN_NAME);
    mWidget->setEnabled(false); // the cursor goes on to hit what lies under it
    const core::SmartPtr<ui::components::Label> label = new ui::components::Label("text");
    label->setSize(Vector2::ZERO, Vector2::ONE);
    label->setText(mText.c_str());
    mWidget->addChild(label.get(), false);
    UIManager::getSingleton().addWidget(mWidget.get(), nullptr);
}

void Message::remove() {
    if (mWidget)
        UIManager::getSingleton().removeWidget(mWidget.get());
    mWidget = nullptr;
}

} // namespace viewer
