#include "TextEntry.h"

#include "nui/ui/UIManager.h"

#include "foundation/text/Utf8.h"

#include <string>

namespace viewer {

using nurel::ui::UIManager;

void enterText(const char *text) {
    while (const unsigned int bytes = text::getUTF8Index(text, 1)) {
        if (!UIManager::isSingletonCreated())
            return; // a handler has ended it
        UIManager::getSingleton().textInput(std::string(text, bytes).c_str());
        UIManager::getSingleton().updateEvents();
        text += bytes;
    }
}

} // namespace viewer
