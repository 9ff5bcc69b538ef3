#include "nui/ui/css/CSSSkin.h"

#include "foundation/core/Exception.h"
#include "foundation/core/Type.h"
#include "foundation/logging/Logger.h"
#include "nmain/stream/InputStream.h"
#include "nmain/vfs/File.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/components/Checkbox.h"
#include "nui/ui/components/Image.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Listbox.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/components/Progress.h"
#include "nui/ui/components/Selector.h"
#include "nui/ui/components/Slider.h"
#include "nui/ui/components/TextField.h"
#include "nui/ui/css/CSS.h"
#include "nui/ui/css/CSSButtonView.h"
#include "nui/ui/css/CSSCheckboxView.h"
#include "nui/ui/css/CSSImageView.h"
#include "nui/ui/css/CSSLabelView.h"
#include "nui/ui/css/CSSListboxView.h"
#include "nui/ui/css/CSSPanelView.h"
#include "nui/ui/css/CSSParser.h"
#include "nui/ui/css/CSSProgressView.h"
#include "nui/ui/css/CSSSelectorView.h"
#include "nui/ui/css/CSSSliderView.h"
#include "nui/ui/css/CSSTextFieldView.h"
#include "nui/ui/css/CSSWidgetView.h"

namespace nurel::ui::css {

constinit const core::Type CSSSkin::TYPE("CSSSkin", &Skin::TYPE);

CSSSkin::CSSSkin(const char *name) : Skin(name) {}

CSSSkin::CSSSkin(const CSSSkin &) = default;
CSSSkin &CSSSkin::operator=(const CSSSkin &) = default;
CSSSkin::~CSSSkin() = default;

void CSSSkin::setStyleSheet(vfs::File *file) {
    if (!file)
        throw core::IllegalArgumentException("CSSSkin::setStyleSheet: no file");
    try {
        CSSParser parser;
        parser.setFileName(file->getPath());
        const std::unique_ptr<stream::InputStream> stream(file->getInputStream());
        mSheet.reset(parser.parse(stream.get()));
    } catch (const std::exception &exception) {
        logging::Logger::mROOT_LOGGER.error("CSSSkin::setStyleSheet: unable to parse CSS", exception);
        throw;
    }
}

void CSSSkin::setStyleSheet(CSS *sheet) {
    if (sheet != mSheet.get())
        mSheet.reset(sheet);
}

void CSSSkin::merge(const CSSSkin *other) {
    if (!other || !other->mSheet || !mSheet)
        throw core::IllegalArgumentException("CSSSkin::merge: no style sheet");
    mSheet->merge(other->mSheet.get());
}

void CSSSkin::style(Stylable *stylable) const {
    if (mSheet)
        mSheet->style(stylable);
}

ComponentView *CSSSkin::visit(components::Image *image) {
    return new CSSImageView(image, this);
}

ComponentView *CSSSkin::visit(components::TextField *field) {
    core::SmartPtr<ComponentView> view(new CSSTextFieldView(field, this));
    visitContainer(field, view.get());
    return view.release();
}

ComponentView *CSSSkin::visit(components::Listbox *listbox) {
    core::SmartPtr<ComponentView> view(new CSSListboxView(listbox, this));
    visitContainer(listbox, view.get());
    return view.release();
}

ComponentView *CSSSkin::visit(components::Selector *selector) {
    core::SmartPtr<ComponentView> view(new CSSSelectorView(selector, this));
    visitContainer(selector, view.get());
    return view.release();
}

ComponentView *CSSSkin::visit(components::Progress *progress) {
    core::SmartPtr<ComponentView> view(new CSSProgressView(progress, this));
    visitContainer(progress, view.get());
    return view.release();
}

ComponentView *CSSSkin::visit(components::Slider *slider) {
    core::SmartPtr<ComponentView> view(new CSSSliderView(slider, this));
    visitContainer(slider, view.get());
    return view.release();
}

ComponentView *CSSSkin::visit(components::Checkbox *checkbox) {
    core::SmartPtr<ComponentView> view(new CSSCheckboxView(checkbox, this));
    visitContainer(checkbox, view.get());
    return view.release();
}

ComponentView *CSSSkin::visit(components::Button *button) {
    core::SmartPtr<ComponentView> view(new CSSButtonView(button, this));
    visitContainer(button, view.get());
    return view.release();
}

ComponentView *CSSSkin::visit(components::Panel *panel) {
    core::SmartPtr<ComponentView> view(new CSSPanelView(panel, this));
    visitContainer(panel, view.get());
    return view.release();
}

ComponentView *CSSSkin::visit(components::Label *label) {
    return new CSSLabelView(label, this);
}

ComponentView *CSSSkin::visit(Widget *widget) {
    core::SmartPtr<ComponentView> view(new CSSWidgetView(widget, this));
    visitContainer(widget, view.get());
    return view.release();
}

} // namespace nurel::ui::css
