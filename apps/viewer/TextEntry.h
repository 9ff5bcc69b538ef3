#pragma once

namespace viewer {

/// Hands what the user has entered to the component in focus, UTF-8, a character and a pass of the events at a time. A
/// field is made for the text of one key: a longer run, as input methods commit it and fast typing makes it, would move
/// its caret by one only, show one mask for all and pass its maximum length. And keys that follow find it in the field.
void enterText(const char *text);

} // namespace viewer
