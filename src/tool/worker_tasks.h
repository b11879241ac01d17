// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

#include "framenote/export.h"

namespace framenote {

/// Runs all tasks and returns when the last one has ended. The calling thread begins alone; if
/// there is more than little work, as many threads as there are processors share the rest. The
/// first exception of a task is thrown at the end.
FRAMENOTE_API void RunTasks(std::vector<std::function<void()>> const &tasks);

}  // namespace framenote
