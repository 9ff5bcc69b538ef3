#pragma once

#include "nui/ui/ManagerTest.h"

#include "foundation/core/Exception.h"
#include "nmain/vfs/MemoryFileSystem.h"
#include "nui/ui/Dialog.h"
#include "nui/ui/UIComponentFactory.h"

#include <functional>
#include <string>

namespace test {

/// Counts what is opened.
class CountedFiles : public nurel::vfs::MemoryFileSystem {
public:
    nurel::stream::InputStream *open(const char *path) override {
        ++mOpened;
        return MemoryFileSystem::open(path);
    }

    int mOpened = 0;
};

/// The templates "dialog", whose window has a fixed size, and "dialog-icon-body". A part can be left out of them.
class DialogTest : public ManagerTest {
public:
    using Dialog = nurel::ui::Dialog;
    using DialogResult = nurel::ui::DialogResult;
    using Vector2 = nurel::math::Vector2;

    DialogTest() {
        addTemplates("");
        factory().setLoadResolver(&mFiles);
    }

    static nurel::ui::UIComponentFactory &factory() { return nurel::ui::UIComponentFactory::getSingleton(); }

    /// A part of the template: its object with a comma behind it, or nothing.
    static std::string part(const char *type, const std::string &name, const std::string &without,
                            const std::string &keys = "") {
        if (name == without)
            return "";
        return std::string(R"({"type":")") + type + R"(","name":")" + name + "\"" + keys + "},";
    }

    /// JSON takes no comma at the end of a list.
    static std::string list(std::string parts) {
        if (!parts.empty())
            parts.pop_back();
        return "[" + parts + "]";
    }

    /// The window's keys may be given anew.
    void addTemplates(const std::string &without, const std::string &windowKeys = R"("size":[400,300])",
                      const std::string &bodyKeys = R"(,"size":[50,60,0,0])") {
        const std::string title = list(part("image", "iTitleIcon", without) + part("label", "lTitle", without) +
                                       part("panel", "bClose", without));
        const std::string answers = list(part("button", "bOK", without, R"(,"tab-stop":1)") +
                                         part("button", "bYes", without, R"(,"tab-stop":2)") +
                                         part("button", "bNo", without, R"(,"tab-stop":3)") +
                                         part("button", "bCancel", without, R"(,"tab-stop":4)"));
        const std::string window = part("panel", "pTitle", without, R"(,"size":[300,30],"children":)" + title) +
                                   part("panel", "pBody", without, bodyKeys) +
                                   part("panel", "pButtons", without, R"(,"size":[300,40],"children":)" + answers);
        mFiles.add("dialog.ui",
                   R"({"type":"panel","name":"template",)" + windowKeys + R"(,"children":)" + list(window) + "}");
        mFiles.add("dialog-icon-body.ui", R"({"type":"panel","name":"icon-body","children":)" +
                                              list(part("image", "iIcon", without) + part("label", "lText", without)) +
                                              "}");
        factory().unregisterTemplates();
    }

    static core::SmartPtr<Dialog> ask(unsigned int flags = Dialog::FLAG_OK, const char *name = "ask") {
        return Dialog::newDialog(name, "Title", "Text", flags);
    }

    static core::SmartPtr<Dialog> form(unsigned int flags = Dialog::FLAG_OK, Component *body = nullptr) {
        return Dialog::newDialog("form", "Title", body, flags);
    }

    /// Shows it, and lets the opening animation end.
    core::Future<DialogResult> open(Dialog &dialog) {
        const core::Future<DialogResult> future = dialog.showModal(Dialog::BUTTON_CLOSE);
        settle();
        return future;
    }

    /// Lets every animation end that has been started.
    void settle() {
        frame();
        advance(0.25);
        frame();
        frame();
    }

    template <class Part>
    static Part *find(Container &container, const char *name) {
        for (unsigned int i = 0; i < container.getChildCount(); ++i) {
            Component *child = container.getChildAt(i);
            if (name == std::string(child->getName()) && child->instanceOf(Part::TYPE))
                return static_cast<Part *>(child);
            if (!child->isContainer())
                continue;
            if (Part *found = find<Part>(*static_cast<Container *>(child), name))
                return found;
        }
        return nullptr;
    }

    template <class Part>
    static Part &part(const core::SmartPtr<Dialog> &dialog, const char *name) {
        Part *found = find<Part>(*dialog, name);
        if (!found)
            throw core::IllegalStateException("the test's dialog has no %s", name);
        return *found;
    }

    static void click(Component &component) {
        const nurel::ui::Ray ray;
        const nurel::ui::CursorPosition at;
        component.handleEvent(nurel::ui::ClickEvent(ray, at, at));
    }

    using ManagerTest::click;

    /// Notes the answers of a dialog.
    static void note(Dialog &dialog, std::vector<int> &answers) {
        dialog.Dialog::ResultCallbacks::subscribeCallback([&answers](Dialog *, DialogResult result) {
            answers.push_back(result);
            return false;
        });
    }

    static std::string messageOf(const std::function<void()> &action) {
        try {
            action();
        } catch (const core::Exception &e) {
            return e.getMessage();
        }
        return "nothing was raised";
    }

    CountedFiles mFiles;
};

} // namespace test
