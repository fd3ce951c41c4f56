#pragma once

#include <QString>

// Somewhere for the window to appear: an X or Wayland display, or a platform
// chosen outright (offscreen).
bool hasDisplay();

// Replaces this process with the window program: zrt-window beside this
// program, else the one on PATH. Returns only when neither starts, with why.
QString execWindow();
