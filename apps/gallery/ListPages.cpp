// Pages of controls that choose one of several: lists, combos and selectors.
#include "PageCallbacks.h"

#include "OnClick.h"
#include "Page.h"

#include "nui/ui/components/Button.h"
#include "nui/ui/components/Combo.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Listbox.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/components/Selector.h"

#include <cstring>
#include <string>

namespace gallery {

namespace ui = nurel::ui;

using ui::components::Button;
using ui::components::Combo;
using ui::components::Label;
using ui::components::Listbox;
using ui::components::Panel;
using ui::components::Selector;

namespace {

/// What a row of the list knows beside its text.
class Moon : public Listbox::ItemData {
public:
    explicit Moon(int kilometres) : mKilometres(kilometres) {}

    int getKilometres() const { return mKilometres; }

private:
    const int mKilometres;
};

constexpr struct {
    const char *name;
    int kilometres;
} MOONS[] = {
    {"Io", 3643},      {"Europa", 3122},  {"Ganymede", 5268}, {"Callisto", 4821}, {"Titan", 5150},  {"Rhea", 1527},
    {"Iapetus", 1469}, {"Titania", 1577}, {"Oberon", 1523},   {"Triton", 2707},   {"Charon", 1212}, {"Moon", 3475},
};

int getKilometres(const Listbox::ItemEntry &entry) {
    return static_cast<const Moon *>(entry.data.get())->getKilometres();
}

void fill(Listbox &list) {
    list.clearItems();
    for (const auto &moon : MOONS)
        list.addItem(moon.name, new Moon(moon.kilometres));
}

void tellMoon(const Listbox &list, Label &label) {
    const Listbox::ItemEntry *entry = list.getSelectedItem();
    if (entry)
        label.setText(
            (std::string(entry->item->getText()) + ": " + std::to_string(getKilometres(*entry)) + " km across")
                .c_str());
    else
        label.setText("Nothing is selected");
}

void connectMoons(const PageTools &tools) {
    Listbox &list = tools.find<Listbox>("moons/list");
    Label &label = tools.find<Label>("moons/selection");
    const auto tell = [&list, &label] { tellMoon(list, label); };
    fill(list);
    list.setSelectedIndex(2, false);
    tell();
    list.SelectionCallbacks::subscribeCallback([tell](Listbox *, int) {
        tell();
        return false;
    });
    // Return selects without telling of it.
    list.KeyCallbacks::subscribeCallback([tell](ui::UIEventHandler *, const ui::KeyEvent &) {
        tell();
        return false;
    });
    onClick(tools.find<Button>("moons/by-name"), [&list] {
        list.sort([](const Listbox::ItemEntry &a, const Listbox::ItemEntry &b) {
            return std::strcmp(a.item->getText(), b.item->getText()) < 0;
        });
    });
    onClick(tools.find<Button>("moons/by-size"), [&list] {
        list.sort([](const Listbox::ItemEntry &a, const Listbox::ItemEntry &b) {
            return getKilometres(a) > getKilometres(b);
        });
    });
    onClick(tools.find<Button>("moons/remove"), [&list] {
        if (list.getSelectedIndex() >= 0)
            list.removeItem(static_cast<unsigned int>(list.getSelectedIndex()), true);
    });
    onClick(tools.find<Button>("moons/refill"), [&list, tell] {
        fill(list);
        tell();
    });
}

/// The labels are held: an open list may outlive the page by a moment.
void connectCombos(const PageTools &tools) {
    const core::SmartPtr<Label> label(&tools.find<Label>("combos/choice"));
    const auto tellOf = [label](const char *what) {
        return [label, text = std::string(what)](Listbox *list, int index) {
            label->setText((text + ": " + list->getItemText(index)).c_str());
            return false;
        };
    };
    tools.find<Combo>("quality").getList()->SelectionCallbacks::subscribeCallback(tellOf("Quality"));
    tools.find<Combo>("language").getList()->SelectionCallbacks::subscribeCallback(tellOf("Language"));

    const core::SmartPtr<Label> sample(&tools.find<Label>("combos/sample"));
    tools.find<Combo>("size").getList()->SelectionCallbacks::subscribeCallback([sample](Listbox *, int index) {
        static constexpr const char *CLASSES[] = {"small", "normal", "heading", "title"};
        for (const char *name : CLASSES)
            sample->removeClass(name);
        sample->addClass(CLASSES[index]);
        return false;
    });
}

} // namespace

void connectLists(const PageTools &tools) {
    connectMoons(tools);
    connectCombos(tools);
}

void connectSelectors(const PageTools &tools) {
    Selector &season = tools.find<Selector>("season");
    Panel &sample = tools.find<Panel>("sample");
    Label &sampleText = tools.find<Label>("sample/text");
    Label &change = tools.find<Label>("change");
    season.SelectionCallbacks::subscribeCallback([&sample, &sampleText, &change](Selector *selector, int before) {
        static constexpr const char *CLASSES[] = {"spring", "summer", "autumn", "winter"};
        const int now = selector->getSelectedIndex();
        sample.removeClass(CLASSES[before]);
        sample.addClass(CLASSES[now]);
        sampleText.setText(selector->getItemText(now));
        change.setText((std::string("It was ") + selector->getItemText(before)).c_str());
        return false;
    });
    onClick(tools.find<Button>("any"), [&season] { season.setSelectedIndex(2, true); });

    Label &summary = tools.find<Label>("summary/text");
    Selector &difficulty = tools.find<Selector>("difficulty");
    Selector &resolution = tools.find<Selector>("resolution");
    Selector &voice = tools.find<Selector>("voice");
    const auto tell = [&difficulty, &resolution, &voice, &summary] {
        std::string text;
        for (const Selector *selector : {&difficulty, &resolution, &voice}) {
            const char *chosen = selector->getItemText(selector->getSelectedIndex());
            text += (text.empty() ? "" : ", ") + std::string(chosen ? chosen : "no voice");
        }
        summary.setText(text.c_str());
    };
    tell();
    for (Selector *selector : {&difficulty, &resolution, &voice}) {
        selector->SelectionCallbacks::subscribeCallback([tell](Selector *, int) {
            tell();
            return false;
        });
    }
}

} // namespace gallery
