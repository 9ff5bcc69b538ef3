// Pages of boxes, texts, buttons and images.
#include "PageCallbacks.h"

#include "Gallery.h"
#include "OnClick.h"
#include "Page.h"

#include "nmain/math/Matrix3.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/components/Checkbox.h"
#include "nui/ui/components/Image.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/components/Radio.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace gallery {

using nurel::math::Vector2;
using nurel::ui::components::Button;
using nurel::ui::components::Checkbox;
using nurel::ui::components::Image;
using nurel::ui::components::Label;
using nurel::ui::components::Panel;
using nurel::ui::components::Radio;

void connectWelcome(const PageTools &tools) {
    Gallery &gallery = tools.getGallery();
    onClick(tools.find<Button>("tour"), [&gallery] { gallery.showPage(1); });
    onClick(tools.find<Button>("theme"), [&gallery] { gallery.setDark(!gallery.isDark()); });
}

void connectStates(const PageTools &tools) {
    Label &styles = tools.find<Label>("styles");
    std::vector<const Button *> toggles;
    for (const char *name : {"bold", "italic", "under"})
        toggles.push_back(&tools.find<Button>(name));
    const auto tell = [toggles, &styles] {
        std::string text;
        for (const Button *toggle : toggles) {
            if (toggle->isChecked())
                text += (text.empty() ? "" : ", ") + std::string(toggle->getLabel()->getText());
        }
        styles.setText(text.empty() ? "Nothing is on" : text.c_str());
    };
    for (const char *name : {"bold", "italic", "under"})
        onClick(tools.find<Button>(name), tell);

    Label &result = tools.find<Label>("counter/result");
    onClick(tools.find<Button>("counter/count"), [&result, count = 0]() mutable {
        ++count;
        result.setText(count == 1 ? "Clicked once" : ("Clicked " + std::to_string(count) + " times").c_str());
    });
}

void connectChoices(const PageTools &tools) {
    static constexpr const char *RADIOS[] = {"calm", "normal", "hard", "follow", "free", "fixed"};
    static constexpr const char *BOXES[] = {"music", "effects", "subtitles", "vsync", "bloom", "shadows"};
    std::vector<Checkbox *> radios;
    std::vector<Checkbox *> boxes;
    for (const char *name : RADIOS)
        radios.push_back(&tools.find<Radio>(name));
    for (const char *name : BOXES)
        boxes.push_back(&tools.find<Checkbox>(name));
    Label &summary = tools.find<Label>("summary/text");
    const auto tell = [radios, boxes, &summary] {
        std::string text;
        for (Checkbox *radio : radios) {
            if (radio->isChecked())
                text += std::string(radio->getText()) + ", ";
        }
        const auto on = std::count_if(boxes.begin(), boxes.end(), [](Checkbox *box) { return box->isChecked(); });
        text += std::to_string(on) + " of " + std::to_string(boxes.size()) + " on";
        summary.setText(text.c_str());
    };
    tell();
    for (Checkbox *radio : radios)
        onClick(*radio, tell);
    for (Checkbox *box : boxes)
        onClick(*box, tell);
}

void connectForm(const PageTools &tools) {
    static constexpr int PERCENT_STEP = 25;
    static constexpr int PERCENT_LIMIT = 200;
    Label &percent = tools.find<Label>("percent");
    Label &message = tools.find<Label>("message");
    Button &smaller = tools.find<Button>("smaller");
    Button &larger = tools.find<Button>("larger");
    const auto size = std::make_shared<int>(100);
    const auto resize = [&, size](int value) {
        *size = std::clamp(value, PERCENT_STEP, PERCENT_LIMIT);
        percent.setText((std::to_string(*size) + " %").c_str());
        smaller.setEnabled(*size > PERCENT_STEP);
        larger.setEnabled(*size < PERCENT_LIMIT);
        message.setText("");
    };
    onClick(smaller, [=] { resize(*size - PERCENT_STEP); });
    onClick(larger, [=] { resize(*size + PERCENT_STEP); });
    onClick(tools.find<Button>("save"), [&message] { message.setText("Saved"); });
    Radio &red = tools.find<Radio>("red");
    Checkbox &invert = tools.find<Checkbox>("fields/invert");
    Checkbox &voice = tools.find<Checkbox>("fields/voice");
    onClick(tools.find<Button>("reset"), [=, &red, &invert, &voice] {
        red.setChecked(true);
        invert.setChecked(false);
        voice.setChecked(true);
        resize(100);
    });
}

void connectLayout(const PageTools &tools) {
    static constexpr unsigned int MAXIMUM = 7;
    Panel &flow = tools.find<Panel>("live/flow");
    onClick(tools.find<Button>("live/add"), [&flow] {
        const unsigned int count = flow.getChildCount();
        if (count == MAXIMUM)
            return;
        const core::SmartPtr<Panel> chip = new Panel("chip");
        chip->addClass("chip");
        chip->setSize(Vector2(64, 32), Vector2::ZERO);
        const core::SmartPtr<Label> label = new Label("text");
        for (const char *name : {"small", "centered", "on-chip"})
            label->addClass(name);
        label->setSize(Vector2::ZERO, Vector2::ONE);
        label->setText(std::to_string(count + 1).c_str());
        chip->addChild(label.get(), true);
        flow.addChild(chip.get(), true);
    });
    onClick(tools.find<Button>("live/remove"), [&flow] {
        if (flow.getChildCount() > 0)
            flow.removeChildAt(flow.getChildCount() - 1);
    });
}

void connectScrolling(const PageTools &tools) {
    constexpr float TURN = 0.35F;
    tools.find<Panel>("turned").setRotation(nurel::math::Matrix3(TURN, nurel::math::Vector3::AXIS_Z));
}

void connectImages(const PageTools &tools) {
    Image &lamp = tools.find<Image>("cells/live");
    onClick(tools.find<Button>("cells/next"), [&lamp, current = 1U]() mutable {
        static constexpr const char *CLASSES[] = {"dark", "red", "amber", "green"};
        lamp.removeClass(CLASSES[current]);
        current = (current + 1) % static_cast<unsigned int>(std::size(CLASSES));
        lamp.addClass(CLASSES[current]);
    });
}

} // namespace gallery
