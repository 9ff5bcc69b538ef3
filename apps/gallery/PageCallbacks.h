#pragma once

namespace gallery {

class PageTools;

void connectWelcome(const PageTools &tools);
void connectStates(const PageTools &tools);
void connectChoices(const PageTools &tools);
void connectForm(const PageTools &tools);
void connectLayout(const PageTools &tools);
void connectScrolling(const PageTools &tools);
void connectImages(const PageTools &tools);

} // namespace gallery
