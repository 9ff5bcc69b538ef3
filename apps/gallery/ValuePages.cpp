// The page of controls that stand for a number: sliders and progress bars.
#include "PageCallbacks.h"

#include "OnClick.h"
#include "Page.h"

#include "nmain/math/Matrix3.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/components/Image.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Progress.h"
#include "nui/ui/components/Slider.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>

namespace gallery {

using nurel::math::Matrix3;
using nurel::math::Vector3;
using nurel::ui::components::Button;
using nurel::ui::components::Image;
using nurel::ui::components::Label;
using nurel::ui::components::Progress;
using nurel::ui::components::Slider;

namespace {

/// Hands the value to the action, now and whenever it changes.
template <class Action>
void follow(Slider &slider, Action action) {
    action(slider.getValue());
    slider.ChangeCallbacks::subscribeCallback([action](Slider *changed, float) {
        action(changed->getValue());
        return false;
    });
}

void connectBar(const PageTools &tools, const char *slider, const char *label, const char *progress) {
    Label &text = tools.find<Label>(label);
    Progress &bar = tools.find<Progress>(progress);
    Slider &source = tools.find<Slider>(slider);
    follow(source, [&text, &bar, &source](float value) {
        // A drag goes between the steps; what counts is the step.
        const int rounded = static_cast<int>(std::lround(source.filterAccuracy(value)));
        text.setText(std::to_string(rounded).c_str());
        bar.setValue(rounded);
    });
}

} // namespace

void connectSliders(const PageTools &tools) {
    connectBar(tools, "volume", "volume-value", "follows");
    connectBar(tools, "steps", "steps-value", "words");

    Image &postcard = tools.find<Image>("postcard");
    follow(tools.find<Slider>("turn"), [&postcard](float degrees) {
        postcard.setRotation(Matrix3(degrees * std::numbers::pi_v<float> / 180, Vector3::AXIS_Z));
    });
    follow(tools.find<Slider>("fade"), [&postcard](float opacity) { postcard.setOpacity(opacity, false); });

    static constexpr int STEP = 10;
    Progress &load = tools.find<Progress>("load");
    Label &loaded = tools.find<Label>("loaded");
    Button &less = tools.find<Button>("less");
    Button &more = tools.find<Button>("more");
    const auto show = [&load, &loaded, &less, &more](int value) {
        const int kept = std::clamp(value, load.getMinValue(), load.getMaxValue());
        load.setValue(kept);
        less.setEnabled(kept > load.getMinValue());
        more.setEnabled(kept < load.getMaxValue());
        loaded.setText(kept == load.getMaxValue() ? "All is there" : (std::to_string(kept) + " of 100 files").c_str());
    };
    show(load.getValue());
    onClick(less, [&load, show] { show(load.getValue() - STEP); });
    onClick(more, [&load, show] { show(load.getValue() + STEP); });
}

} // namespace gallery
