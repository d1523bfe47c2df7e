// Stored pictures from the program's resources: icons as icons, and bitmaps as bitmaps in the
// display's own format. The system reads both itself, so no decoder and no further library
// has to load before a window with a picture can show.
#include "platform/win32/pictures.h"

namespace win32 {

Picture LoadStoredPicture(const char* name) {
  if (name == nullptr) return {};
  const bool isIcon = ::FindResourceA(Instance(), name, MAKEINTRESOURCEA(14)) != nullptr;  // RT_GROUP_ICON
  // Size 0 and no LR_DEFAULTSIZE: the picture comes at the size it was stored in.
  HANDLE loaded =
      ::LoadImageA(Instance(), name, isIcon ? IMAGE_ICON : IMAGE_BITMAP, 0, 0, LR_DEFAULTCOLOR);
  Picture picture;
  if (isIcon) {
    picture.icon = ScopedIcon(static_cast<HICON>(loaded));
  } else {
    picture.bitmap = ScopedGdiObject(loaded);
  }
  return picture;
}

SIZE PictureSize(const Picture& picture) {
  SIZE size{0, 0};
  if (picture.isIcon()) {
    ICONINFO info{};
    if (::GetIconInfo(picture.icon.get(), &info)) {
      // The icon's bitmaps are copies that the caller frees.
      const ScopedGdiObject mask(info.hbmMask), color(info.hbmColor);
      BITMAP bits{};
      ::GetObjectA(mask.get(), sizeof(bits), &bits);
      size = {bits.bmWidth, color.valid() ? bits.bmHeight : bits.bmHeight / 2};
    }
    return size;
  }
  BITMAP bitmap{};
  if (picture.bitmap.valid() && ::GetObjectA(picture.bitmap.get(), sizeof(bitmap), &bitmap)) {
    size = {bitmap.bmWidth, bitmap.bmHeight};
  }
  return size;
}

}  // namespace win32
