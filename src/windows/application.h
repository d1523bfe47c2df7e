// The program's life: the main window is loaded (which runs the start-up), shown, and the
// event loop serves the windows until the process ends.
#pragma once

int RunApplication();
