// Stored pictures of the program, by resource name.
#pragma once

#include "platform/win32/scoped.h"

namespace win32 {

// An icon or a bitmap, freed with the object that holds it.
struct Picture {
  ScopedIcon icon;
  ScopedGdiObject bitmap;

  HANDLE handle() const { return icon.valid() ? static_cast<HANDLE>(icon.get()) : bitmap.get(); }
  bool isIcon() const { return icon.valid(); }
};

// An ICON or a BITMAP resource; holds nothing where there is no such picture.
Picture LoadStoredPicture(const char* name);
SIZE PictureSize(const Picture& picture);

}  // namespace win32
