// The page of navigation: screens that come in by a transition of the user's choice, and go back the same way.
#include "MotionPages.h"

#include "Gallery.h"
#include "OnClick.h"
#include "Page.h"

#include "nui/ui/Transition.h"
#include "nui/ui/UIComponentFactory.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/NavigationBar.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/components/Radio.h"
#include "nui/ui/handlers/NavigationHandler.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace gallery {

namespace ui = nurel::ui;

using nurel::math::Vector2;
using ui::Transition;
using ui::components::Button;
using ui::components::Label;
using ui::components::NavigationBar;
using ui::components::Panel;
using ui::components::Radio;
using ui::handlers::NavigationHandler;

namespace {

constexpr float BAR_HEIGHT = 56;
constexpr float BAR_BUTTON_WIDTH = 100;
constexpr float BAR_BUTTON_HEIGHT = 36;
constexpr float TRANSITION_SECONDS = 0.4F;
constexpr unsigned int ROWS = 7; ///< of the list of the stack
constexpr int FIRST_TAB_STOP = 130;

struct Planet {
    const char *name;
    const char *color; ///< a class
    const char *about;
    const char *distance;
    const char *diameter;
    const char *day;
    const char *year;
};

constexpr Planet PLANETS[] = {
    {"Mercury", "stone", "The smallest, and the fastest on its way around the Sun.", "0.39 au", "4,879 km", "58.6 days",
     "88 days"},
    {"Venus", "amber", "Under its clouds it is hot enough to melt lead.", "0.72 au", "12,104 km", "243 days",
     "225 days"},
    {"Earth", "sea", "The only place where anybody has read this sentence so far.", "1.00 au", "12,756 km",
     "23.9 hours", "365 days"},
    {"Mars", "coral", "Dust, rust, and the highest mountain of them all.", "1.52 au", "6,792 km", "24.6 hours",
     "687 days"},
    {"Jupiter", "clay", "More than twice as heavy as all the others together.", "5.20 au", "142,984 km", "9.9 hours",
     "11.9 years"},
    {"Saturn", "sand", "So light that it would float, if there were a sea to put it in.", "9.58 au", "120,536 km",
     "10.7 hours", "29.4 years"},
};

constexpr const Planet &getNext(const Planet &planet) {
    return &planet == std::end(PLANETS) - 1 ? PLANETS[0] : *(&planet + 1);
}

struct Choice {
    const char *radio;
    Transition::Type type;
};

constexpr Choice CHOICES[] = {
    {"slide-left", Transition::T_SLIDEIN_HORIZONTAL_RIGHT_TO_LEFT},
    {"slide-right", Transition::T_SLIDEIN_HORIZONTAL_LEFT_TO_RIGHT},
    {"slide-up", Transition::T_SLIDEIN_VERTICAL_BOTTOM_TO_TOP},
    {"slide-down", Transition::T_SLIDEIN_VERTICAL_TOP_TO_BOTTOM},
    {"flip-across", Transition::T_FLIP_HORIZONTAL},
    {"flip-over", Transition::T_FLIP_VERTICAL},
    {"fade", Transition::T_CROSS_FADE},
    {"none", Transition::T_NONE},
};

/// A new screen from its template.
core::SmartPtr<ui::Component> makeScreen(const char *templateName, const std::string &title) {
    const core::SmartPtr<ui::Component> screen(ui::UIComponentFactory::getSingleton().newInstance(templateName));
    screen->setName(title.c_str());
    return screen;
}

/// Lives as long as the page: the handler and what its screens call.
class NavigationPage {
public:
    explicit NavigationPage(const PageTools &tools);

private:
    void styleBar() const;
    void pushList();
    core::SmartPtr<ui::Component> makePlanet(const Planet &planet);
    core::SmartPtr<Button> makeNextButton(const Planet &planet);
    void pushPlanet(const Planet &planet);
    void replaceByPlanet(const Planet &planet);
    void pushFacts(const Planet &planet);
    void goToList();
    Transition::Type choose(ui::Component &screen) const;
    void showStack(const ui::Component *leaving) const;

    Gallery &mGallery;
    std::vector<core::SmartPtr<Radio>> mChoices; ///< in the order of CHOICES
    std::vector<core::SmartPtr<Label>> mRows;    ///< the top of the stack first
    core::SmartPtr<NavigationHandler> mScreens;
};

NavigationPage::NavigationPage(const PageTools &tools)
    : mGallery(tools.getGallery()), mScreens(new NavigationHandler(BAR_HEIGHT, BAR_BUTTON_HEIGHT)) {
    for (const Choice &choice : CHOICES)
        mChoices.push_back(&tools.find<Radio>(choice.radio));
    for (unsigned int i = 0; i < ROWS; ++i)
        mRows.push_back(&tools.find<Label>(("stack/row" + std::to_string(i)).c_str()));
    mScreens->NavigationCallbacks::subscribeCallback(
        [this](NavigationHandler *, ui::Component *body, ui::handlers::NavigationAction action, int place) {
            // The top is told of ahead of leaving the stack, and then the one below it.
            if (action != ui::handlers::NAVIGATION_POP_BEGIN)
                showStack(nullptr);
            else if (place == 0)
                showStack(body);
            if (action == ui::handlers::NAVIGATION_POP_END && place < 0)
                mGallery.forgetRemoved();
            return false;
        });
    styleBar();
    tools.find<Panel>("screens").addChild(mScreens->getTarget());
    pushList();
}

void NavigationPage::styleBar() const {
    NavigationBar &bar = *mScreens->getNavigationBar();
    bar.setName("bar");
    bar.addClass("toolbar");
    bar.setZIndex(1); // a screen that flips comes forward out of its frame, and goes behind the bar
    bar.getLabel()->setName("title");
    bar.getLabel()->addClass("heading");
    auto &back = static_cast<Button &>(*bar.getElement(NavigationBar::ELEMENT_LEFT));
    back.setName("back");
    for (const char *name : {"quiet", "with-icon", "icon-left"})
        back.addClass(name);
    back.setIconVisible(true);
    back.setTabStop(FIRST_TAB_STOP);
}

void NavigationPage::pushList() {
    const core::SmartPtr<ui::Component> list = makeScreen("navigation-list", "Planets");
    const PageTools parts(mGallery, *list);
    for (const Planet &planet : PLANETS) {
        const std::string button = std::string("to-") + planet.name;
        onClick(parts.find<Button>(button.c_str()), [this, &planet] { pushPlanet(planet); });
    }
    mScreens->pushBody(list.get(), nullptr, nullptr, nullptr, nullptr);
}

core::SmartPtr<ui::Component> NavigationPage::makePlanet(const Planet &planet) {
    const core::SmartPtr<ui::Component> screen = makeScreen("navigation-planet", planet.name);
    const PageTools parts(mGallery, *screen);
    parts.find<Panel>("banner").addClass(planet.color);
    parts.find<Label>("banner/name").setText(planet.name);
    parts.find<Label>("about").setText(planet.about);
    Button &further = parts.find<Button>("further");
    further.setText((std::string("On to ") + getNext(planet).name).c_str());
    onClick(parts.find<Button>("facts"), [this, &planet] { pushFacts(planet); });
    onClick(further, [this, &planet] { pushPlanet(getNext(planet)); });
    return screen;
}

core::SmartPtr<Button> NavigationPage::makeNextButton(const Planet &planet) {
    core::SmartPtr<Button> button(new Button("replace"));
    button->setText("Replace");
    button->addClass("quiet");
    button->setTabStop(FIRST_TAB_STOP + 1);
    button->setSize(Vector2(BAR_BUTTON_WIDTH, BAR_BUTTON_HEIGHT), Vector2::ZERO);
    onClick(*button, [this, &planet] { replaceByPlanet(getNext(planet)); });
    return button;
}

void NavigationPage::pushPlanet(const Planet &planet) {
    const core::SmartPtr<ui::Component> screen = makePlanet(planet);
    mScreens->pushBody(screen.get(), nullptr, nullptr, makeNextButton(planet).get(), TRANSITION_SECONDS,
                       choose(*screen));
}

void NavigationPage::replaceByPlanet(const Planet &planet) {
    const core::SmartPtr<ui::Component> screen = makePlanet(planet);
    mScreens->setBody(screen.get(), nullptr, nullptr, makeNextButton(planet).get(), TRANSITION_SECONDS,
                      choose(*screen));
}

void NavigationPage::pushFacts(const Planet &planet) {
    const core::SmartPtr<ui::Component> screen = makeScreen("navigation-facts", "Facts");
    const PageTools parts(mGallery, *screen);
    parts.find<Panel>("stripe").addClass(planet.color);
    parts.find<Label>("distance/value").setText(planet.distance);
    parts.find<Label>("diameter/value").setText(planet.diameter);
    parts.find<Label>("day/value").setText(planet.day);
    parts.find<Label>("year/value").setText(planet.year);
    onClick(parts.find<Button>("to-list"), [this] { goToList(); });
    mScreens->pushBody(screen.get(), nullptr, nullptr, nullptr, TRANSITION_SECONDS, choose(*screen));
}

/// What lies between leaves the stack unseen.
void NavigationPage::goToList() {
    while (mScreens->getStackSize() > 2)
        mScreens->removeBodyAt(1, true);
    mScreens->popBody();
}

/// The transition for a screen that is about to come in.
Transition::Type NavigationPage::choose(ui::Component &screen) const {
    const auto checked =
        std::find_if(mChoices.begin(), mChoices.end(), [](const auto &radio) { return radio->isChecked(); });
    const Transition::Type type =
        checked == mChoices.end() ? Transition::T_NONE : CHOICES[checked - mChoices.begin()].type;
    if (type == Transition::T_CROSS_FADE)
        screen.setOpacity(0, true); // what is in it would be seen until the fade's first step
    return type;
}

void NavigationPage::showStack(const ui::Component *leaving) const {
    std::vector<const char *> names;
    for (unsigned int i = 0; i < mScreens->getStackSize(); ++i) {
        if (mScreens->getBodyAt(i) != leaving)
            names.push_back(mScreens->getBodyAt(i)->getName());
    }
    for (std::size_t i = 0; i < mRows.size(); ++i)
        mRows[i]->setText(i < names.size() ? names[i] : "");
    if (names.size() > mRows.size())
        mRows.back()->setText((std::to_string(names.size() - mRows.size() + 1) + " more").c_str());
}

} // namespace

void connectNavigation(const PageTools &tools) {
    tools.getGallery().keep(std::make_shared<NavigationPage>(tools));
}

} // namespace gallery
