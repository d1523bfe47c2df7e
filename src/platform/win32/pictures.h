// Stored pictures of the program, by resource name.
#pragma once

#include "platform/win32/win32.h"

namespace win32 {

struct Picture {
  HANDLE handle = nullptr;  // an HICON or an HBITMAP; null when there is no such picture
  bool isIcon = false;
};

// An ICON or a BITMAP resource.
Picture LoadStoredPicture(const char* name);
SIZE PictureSize(const Picture& picture);

}  // namespace win32
