#pragma once

namespace gallery {

class PageTools;

// Each hangs callbacks on the page of its name.

void connectWelcome(const PageTools &tools);
void connectStates(const PageTools &tools);
void connectChoices(const PageTools &tools);
void connectForm(const PageTools &tools);
void connectLayout(const PageTools &tools);
void connectScrolling(const PageTools &tools);
void connectImages(const PageTools &tools);

void connectLists(const PageTools &tools);
void connectSelectors(const PageTools &tools);
void connectSliders(const PageTools &tools);
void connectFields(const PageTools &tools);
void connectDialogs(const PageTools &tools);
void connectKeyboard(const PageTools &tools);

} // namespace gallery
