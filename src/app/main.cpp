// The entry of the Windows program.
#include <windows.h>

#include <commctrl.h>
#include <ole2.h>

#include "windows/application.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  // Loads the common controls of version 6, which the manifest asks for, so the controls
  // take the look of the system.
  ::InitCommonControls();
  // The stored pictures are read through COM.
  ::OleInitialize(nullptr);
  return RunApplication();
}
