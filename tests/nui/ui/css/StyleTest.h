#pragma once

#include "nui/ui/ManagerTest.h"
#include "nui/ui/css/CSSSkin.h"
#include "nui/ui/css/CSSView.h"
#include "nui/ui/css/SheetText.h"

namespace test {

/// The stage with a skin that a sheet styles as the default one.
class StyleTest : public ManagerTest {
public:
    using Vector2 = nurel::math::Vector2;
    using Vector3 = nurel::math::Vector3;
    using Vector4 = nurel::math::Vector4;
    using Label = nurel::ui::components::Label;
    using CSSView = nurel::ui::css::CSSView;

    explicit StyleTest(const char *sheet = "") : mStyle(new nurel::ui::css::CSSSkin("style")) {
        setSheet(sheet);
        nurel::ui::SkinManager::getSingleton().setDefaultSkin(mStyle.get());
    }

    void setSheet(const std::string &text) { mStyle->setStyleSheet(parseSheetText(text).release()); }

    /// A widget that fills the stage, with its view.
    core::SmartPtr<Widget> addStyledWidget(const char *name = "widget") {
        core::SmartPtr<Widget> widget(new Widget(name));
        manager().setView(widget.get());
        manager().addWidget(widget.get());
        frame();
        return widget;
    }

    /// A panel of 100 x 60 on a widget, styled once.
    core::SmartPtr<Panel> addStyledPanel(const char *sheet) {
        setSheet(sheet);
        mWidget = addStyledWidget();
        core::SmartPtr<Panel> panel = addPanel(*mWidget, "panel", 10, 10, 100, 60);
        frame();
        return panel;
    }

    static CSSView &viewOf(const Component &component) { return dynamic_cast<CSSView &>(*component.getView()); }

    void render() { mEngine->renderFrame(*manager().getRenderPass()); }

    core::SmartPtr<nurel::ui::css::CSSSkin> mStyle;
    core::SmartPtr<Widget> mWidget;
};

} // namespace test
