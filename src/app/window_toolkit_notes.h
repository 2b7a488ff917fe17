#pragma once

namespace trendaro {

// Keeps the toolkit's notes on its surroundings off standard error: they are English, and of no use to the
// user. What ends the program or is lost by it still stands there.
void say_failures_only();

}  // namespace trendaro
