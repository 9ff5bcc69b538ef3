#pragma once

#include "GoldenFixture.h"

#include "nmain/vfs/DirectoryFileSystem.h"
#include "nui/ui/Component.h"

#include <string>

namespace golden {

/// Shows templates under one of the starter looks.
class LookFixture : public GoldenFixture {
protected:
    static constexpr unsigned int HOVER = nurel::ui::Component::STATE_HOVER;
    static constexpr unsigned int ACTIVE = nurel::ui::Component::STATE_ACTIVE;
    static constexpr unsigned int FOCUSED = nurel::ui::Component::STATE_FOCUSED;

    void TearDown() override;

    /// What is shown from now on looks as this sheet says.
    void useSheet(const std::string &sheet);

    /// Shows a template of the test data.
    void showTemplate(const std::string &file);

    /// The component of that name on the stage; a path such as "slider/thumb" descends by names.
    static nurel::ui::Component &find(const std::string &path);

    template <class Control>
    static Control &find(const std::string &path) {
        return static_cast<Control &>(find(path));
    }

    /// Adds states that a single cursor and a single focus could not bring about in one picture.
    static void addState(nurel::ui::Component &component, unsigned int state);
    static void addState(const std::string &path, unsigned int state) { addState(find(path), state); }

    /// Lets events and the textures that are asked for by now arrive.
    static void settle();

private:
    nurel::vfs::DirectoryFileSystem mImages{STYLES};
    core::SmartPtr<nurel::ui::Skin> mLook;
};

} // namespace golden
