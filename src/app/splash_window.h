#pragma once

#include <memory>

#include "output/about_window.h"

namespace trendaro {

// Shows the program's name while it starts; it goes with the object.
std::unique_ptr<AboutWindow> show_splash();

// Waits, while windows are painted; the user's clicks wait as well.
void wait_with_painting(int milliseconds);

}  // namespace trendaro
