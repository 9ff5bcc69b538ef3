#include "Rows.h"

#include "nengine/renderer/RenderPass.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/layouts/FlowLayout.h"
#include "nui/ui/skins/DefaultSkin.h"

namespace bench {

using nurel::math::Vector2;
using nurel::ui::Component;
using nurel::ui::UIManager;
using nurel::ui::Widget;
using nurel::ui::components::Label;
using nurel::ui::components::Panel;
using nurel::ui::layouts::FlowLayout;

namespace {

constexpr unsigned int WIDTH = 1280;
constexpr unsigned int HEIGHT = 720;
constexpr double FRAME_SECONDS = 1.0 / 60;
constexpr int SETTLING_FRAMES = 6;
constexpr float ROW_HEIGHT = 32;

core::SmartPtr<Label> makeLabel(const char *name, const std::string &text) {
    core::SmartPtr<Label> label = new Label(name);
    label->setSize(Vector2(200, ROW_HEIGHT));
    label->setAnchor(Component::ANCHOR_CENTER_LEFT);
    label->setText(text.c_str());
    return label;
}

Rows makeList() {
    Rows rows;
    rows.widget = new Widget("stage");
    rows.list = new Panel("list");
    rows.list->setSize(Vector2::ZERO, Vector2::ONE);
    const core::SmartPtr<FlowLayout> flow = new FlowLayout();
    flow->setFlowDirection(FlowLayout::VERTICAL);
    flow->setSizeLimitPolicy(FlowLayout::ABSOLUTE);
    flow->setSizeLimit(1e9F);
    rows.list->setLayout(flow.get());
    rows.list->setScrollMask(2);
    rows.widget->addChild(rows.list.get(), false);
    return rows;
}

void addRow(Rows &rows, const core::SmartPtr<Panel> &row) {
    rows.list->addChild(row.get(), true);
    rows.panels.push_back(row.get());
    rows.labels.push_back(static_cast<Label *>(row->getChildAt(0)));
}

} // namespace

Stage::Stage() : mEngine(nurel::EngineConfig::headless(WIDTH, HEIGHT)), mSkin(new nurel::ui::skins::DefaultSkin()) {
    nurel::ui::SkinManager::getSingleton().addSkin(mSkin.get());
    nurel::ui::SkinManager::getSingleton().setDefaultSkin(mSkin.get());
}

Stage::~Stage() {
    UIManager::shutdown();
}

void Stage::measuredFrame() {
    mEngine.advance(FRAME_SECONDS);
    UIManager &manager = UIManager::getSingleton();
    manager.updateEvents();
    manager.update();
    mEngine.renderFrame(*manager.getRenderPass());
}

void Stage::show(Widget *widget) {
    UIManager &manager = UIManager::getSingleton();
    manager.clearWidgets();
    manager.setView(widget);
    manager.addWidget(widget, nullptr);
    for (int i = 0; i < SETTLING_FRAMES; ++i)
        measuredFrame();
}

core::SmartPtr<Panel> makeRow(unsigned int index) {
    core::SmartPtr<Panel> row = new Panel("row");
    row->setSize(Vector2(1200, ROW_HEIGHT));
    row->addChild(makeLabel("label", "Row " + std::to_string(index)).get(), false);
    const core::SmartPtr<Panel> button = new Panel("button");
    button->setSize(Vector2(200, ROW_HEIGHT));
    button->setAnchor(Component::ANCHOR_CENTER_RIGHT);
    button->addChild(makeLabel("text", "Open").get(), false);
    row->addChild(button.get(), false);
    return row;
}

Rows makeRows(unsigned int count) {
    Rows rows = makeList();
    for (unsigned int i = 0; i < count; ++i)
        addRow(rows, makeRow(i));
    return rows;
}

Rows cloneRows(const Panel &row, unsigned int count) {
    Rows rows = makeList();
    for (unsigned int i = 0; i < count; ++i)
        addRow(rows, static_cast<Panel *>(row.clone()));
    return rows;
}

std::string makeRowsTemplate(unsigned int count) {
    std::string text = R"({"type":"widget","name":"stage","size":[0,0,1,1],"children":[
        {"type":"panel","name":"list","size":[0,0,1,1],"scroll-mask":"vertical",
         "layout":["FlowLayout",{"direction":"vertical","limit-policy":"absolute","limit":1000000000}],"children":[)";
    for (unsigned int i = 0; i < count; ++i) {
        if (i > 0)
            text += ',';
        text += R"({"type":"panel","name":"row","size":[1200,32],"children":[
            {"type":"label","name":"label","size":[200,32],"anchor":"center-left","text":"Row )" +
                std::to_string(i) + R"("},
            {"type":"panel","name":"button","size":[200,32],"anchor":"center-right","children":[
                {"type":"label","name":"text","size":[200,32],"anchor":"center-left","text":"Open"}]}]})";
    }
    return text + "]}]}";
}

} // namespace bench
