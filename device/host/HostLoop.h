// The frame loop of appmanager: loads App.so, calls CreateApp, Enter, one Update per
// frame, and Exit; between frames it feeds input (window or script), advances the
// virtual clock, takes screenshots and shows the picture.
#pragma once
#include "Options.h"

namespace appmanager {

// Runs the title as `options` say; returns the process's exit status.
int RunHost(const Options& options);

}  // namespace appmanager
