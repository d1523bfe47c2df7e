// Stored pictures from the program's resources: icons as icons, and JPEG and GIF pictures
// through OleLoadPicture, which reads both on every Windows from XP on and under Wine.
#include "platform/win32/pictures.h"

#include <cstring>

#include <ole2.h>
#include <olectl.h>

namespace win32 {
namespace {

HINSTANCE Instance() { return ::GetModuleHandleA(nullptr); }

// The picture's bytes in a stream of their own, as OleLoadPicture takes them.
IStream* StreamOfResource(const char* name) {
  HRSRC resource = ::FindResourceA(Instance(), name, MAKEINTRESOURCEA(10));  // RT_RCDATA
  if (resource == nullptr) return nullptr;
  const DWORD size = ::SizeofResource(Instance(), resource);
  HGLOBAL loaded = ::LoadResource(Instance(), resource);
  const void* bytes = loaded != nullptr ? ::LockResource(loaded) : nullptr;
  if (bytes == nullptr || size == 0) return nullptr;
  HGLOBAL copy = ::GlobalAlloc(GMEM_MOVEABLE, size);
  if (copy == nullptr) return nullptr;
  void* target = ::GlobalLock(copy);
  std::memcpy(target, bytes, size);
  ::GlobalUnlock(copy);
  IStream* stream = nullptr;
  if (FAILED(::CreateStreamOnHGlobal(copy, TRUE, &stream))) {
    ::GlobalFree(copy);
    return nullptr;
  }
  return stream;
}

}  // namespace

Picture LoadStoredPicture(const char* name) {
  if (name == nullptr) return {};
  if (::FindResourceA(Instance(), name, MAKEINTRESOURCEA(14)) != nullptr) {  // RT_GROUP_ICON
    HANDLE icon = ::LoadImageA(Instance(), name, IMAGE_ICON, 0, 0, LR_DEFAULTCOLOR);
    return {icon, true};
  }
  IStream* stream = StreamOfResource(name);
  if (stream == nullptr) return {};
  IPicture* picture = nullptr;
  HRESULT loaded = ::OleLoadPicture(stream, 0, FALSE, IID_IPicture,
                                    reinterpret_cast<void**>(&picture));
  stream->Release();
  if (FAILED(loaded) || picture == nullptr) return {};
  // The picture owns its bitmap; a copy outlives it.
  OLE_HANDLE handle = 0;
  HANDLE bitmap = nullptr;
  if (SUCCEEDED(picture->get_Handle(&handle)) && handle != 0) {
    bitmap = ::CopyImage(reinterpret_cast<HANDLE>(static_cast<UINT_PTR>(handle)), IMAGE_BITMAP, 0,
                         0, 0);
  }
  picture->Release();
  return {bitmap, false};
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
