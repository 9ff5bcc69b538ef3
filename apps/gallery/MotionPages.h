#pragma once

namespace gallery {

class PageTools;

// Each hangs callbacks on the page of its name, which keeps what moves in it.

void connectNavigation(const PageTools &tools);
void connectCoverFlow(const PageTools &tools);

} // namespace gallery
