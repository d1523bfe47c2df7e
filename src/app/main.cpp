// The entry of the Windows program.
#include <windows.h>

#include "windows/application.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) { return RunApplication(); }
