#pragma once

#include "foundation/core/SmartPtr.h"
#include "nengine/Engine.h"

#include <string>
#include <vector>

namespace nurel::ui {
class Skin;
class Widget;
} // namespace nurel::ui
namespace nurel::ui::components {
class Label;
class Panel;
} // namespace nurel::ui::components

namespace bench {

/// A headless engine of 1280x720 pixels with the style-free skin.
class Stage {
public:
    Stage();
    ~Stage();
    Stage(const Stage &) = delete;
    Stage &operator=(const Stage &) = delete;

    /// A whole frame: the clock, input, update, drawing. Its name is what instruction counts are collected by.
    void measuredFrame();

    /// Shows the widget and draws it until nothing changes any more.
    void show(nurel::ui::Widget *widget);

    nurel::Engine &getEngine() { return mEngine; }

private:
    nurel::Engine mEngine;
    core::SmartPtr<nurel::ui::Skin> mSkin;
};

/// Rows in one scrolling panel that fills a widget. A row is a panel with a label and a panel with a label.
struct Rows {
    core::SmartPtr<nurel::ui::Widget> widget;
    core::SmartPtr<nurel::ui::components::Panel> list;
    std::vector<nurel::ui::components::Label *> labels; ///< of each row its first
    std::vector<nurel::ui::components::Panel *> panels; ///< the rows
};

Rows makeRows(unsigned int count);
Rows cloneRows(const nurel::ui::components::Panel &row, unsigned int count);
core::SmartPtr<nurel::ui::components::Panel> makeRow(unsigned int index);

/// The same rows as a template's text.
std::string makeRowsTemplate(unsigned int count);

} // namespace bench
