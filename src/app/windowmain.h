#pragma once

// Shows the window and runs until it ends.
int runWindow(int argc, char *argv[]);
