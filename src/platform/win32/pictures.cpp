// Stored pictures from the program's resources: icons as icons, and bitmaps as bitmaps in the
// display's own format. The system reads both itself, so no decoder and no further library
// has to load before a window with a picture can show.
#include "platform/win32/pictures.h"

namespace win32 {

Picture LoadStoredPicture(const char* name) {
  if (name == nullptr) return {};
  const bool isIcon = ::FindResourceA(Instance(), name, MAKEINTRESOURCEA(14)) != nullptr;  // RT_GROUP_ICON
  // Size 0 and no LR_DEFAULTSIZE: the picture comes at the size it was stored in.
  return {::LoadImageA(Instance(), name, isIcon ? IMAGE_ICON : IMAGE_BITMAP, 0, 0, LR_DEFAULTCOLOR),
          isIcon};
}

SIZE PictureSize(const Picture& picture) {
  SIZE size{0, 0};
  if (picture.handle == nullptr) return size;
  if (picture.isIcon) {
    ICONINFO info{};
    if (::GetIconInfo(static_cast<HICON>(picture.handle), &info)) {
      BITMAP mask{};
      ::GetObjectA(info.hbmMask, sizeof(mask), &mask);
      size = {mask.bmWidth, info.hbmColor != nullptr ? mask.bmHeight : mask.bmHeight / 2};
      if (info.hbmColor != nullptr) ::DeleteObject(info.hbmColor);
      ::DeleteObject(info.hbmMask);
    }
    return size;
  }
  BITMAP bitmap{};
  if (::GetObjectA(picture.handle, sizeof(bitmap), &bitmap)) size = {bitmap.bmWidth, bitmap.bmHeight};
  return size;
}

}  // namespace win32
