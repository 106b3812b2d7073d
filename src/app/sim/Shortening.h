#pragma once

#include <functional>

#include "app/sim/Story.h"

namespace quorvel::sim {

// A story with fewer acts that still fails, by delta debugging: parts are left out, first large
// ones, then single acts. `fails` plays a story; it is asked at most `most` times.
Story Shorten(const Story& story, const std::function<bool(const Story&)>& fails, int most);

}  // namespace quorvel::sim
