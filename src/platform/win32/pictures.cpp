// Stored pictures from the program's resources: icons as icons, JPEG pictures through the
// program's own decoder, and other pictures (GIF) through OleLoadPicture, which reads them on
// every Windows from XP on and under Wine. OLE is loaded at the first such picture: loading it
// and the system's picture decoders would hold up the start of the program.
#include "platform/win32/pictures.h"

#include <cstdint>
#include <cstring>

#include <ole2.h>
#include <olectl.h>

#include "platform/jpeg.h"

namespace win32 {
namespace {

// A JPEG through the program's own decoder, as a bitmap of 24 bits a pixel.
HANDLE JpegBitmap(const std::uint8_t* bytes, DWORD size) {
  jpeg::Image image;
  if (!jpeg::Decode(bytes, size, image)) return nullptr;
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(info.bmiHeader);
  info.bmiHeader.biWidth = image.width;
  info.bmiHeader.biHeight = -image.height;  // rows from the top
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 24;
  info.bmiHeader.biCompression = BI_RGB;
  void* pixels = nullptr;
  HBITMAP bitmap = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
  if (bitmap == nullptr) return nullptr;
  const int stride = (image.width * 3 + 3) & ~3;
  for (int y = 0; y < image.height; ++y) {
    const std::uint8_t* from = &image.rgb[static_cast<std::size_t>(y) * image.width * 3];
    auto* to = static_cast<std::uint8_t*>(pixels) + static_cast<std::size_t>(y) * stride;
    for (int x = 0; x < image.width; ++x) {  // blue, green, red
      to[x * 3] = from[x * 3 + 2];
      to[x * 3 + 1] = from[x * 3 + 1];
      to[x * 3 + 2] = from[x * 3];
    }
  }
  return bitmap;
}

// Any other picture through OLE, as a bitmap that outlives OLE's own picture.
HANDLE OleBitmap(const void* bytes, DWORD size) {
  static const auto initialize = LateBound<decltype(&::CoInitializeEx)>("ole32.dll", "CoInitializeEx");
  static const auto createStream =
      LateBound<decltype(&::CreateStreamOnHGlobal)>("ole32.dll", "CreateStreamOnHGlobal");
  static const auto loadPicture = LateBound<decltype(&::OleLoadPicture)>("oleaut32.dll", "OleLoadPicture");
  // The picture interface's identity, so that no import library is needed for it.
  static const IID kPicture = {0x7BF80980, 0xBF32, 0x101A, {0x8B, 0xBB, 0x00, 0xAA, 0x00, 0x30, 0x0C, 0xAB}};
  if (initialize == nullptr || createStream == nullptr || loadPicture == nullptr) return nullptr;
  static const HRESULT initialized = initialize(nullptr, COINIT_APARTMENTTHREADED);
  (void)initialized;  // one initialised before is as good

  HGLOBAL copy = ::GlobalAlloc(GMEM_MOVEABLE, size);
  if (copy == nullptr) return nullptr;
  std::memcpy(::GlobalLock(copy), bytes, size);
  ::GlobalUnlock(copy);
  IStream* stream = nullptr;
  if (FAILED(createStream(copy, TRUE, &stream))) {
    ::GlobalFree(copy);
    return nullptr;
  }
  IPicture* picture = nullptr;
  const HRESULT loaded = loadPicture(stream, 0, FALSE, kPicture, reinterpret_cast<void**>(&picture));
  stream->Release();
  if (FAILED(loaded) || picture == nullptr) return nullptr;
  OLE_HANDLE handle = 0;
  HANDLE bitmap = nullptr;
  if (SUCCEEDED(picture->get_Handle(&handle)) && handle != 0) {
    bitmap = ::CopyImage(reinterpret_cast<HANDLE>(static_cast<UINT_PTR>(handle)), IMAGE_BITMAP, 0, 0, 0);
  }
  picture->Release();
  return bitmap;
}

}  // namespace

Picture LoadStoredPicture(const char* name) {
  if (name == nullptr) return {};
  if (::FindResourceA(Instance(), name, MAKEINTRESOURCEA(14)) != nullptr) {  // RT_GROUP_ICON
    return {::LoadImageA(Instance(), name, IMAGE_ICON, 0, 0, LR_DEFAULTCOLOR), true};
  }
  HRSRC resource = ::FindResourceA(Instance(), name, MAKEINTRESOURCEA(10));  // RT_RCDATA
  HGLOBAL loaded = resource != nullptr ? ::LoadResource(Instance(), resource) : nullptr;
  const auto* bytes = static_cast<const std::uint8_t*>(loaded != nullptr ? ::LockResource(loaded) : nullptr);
  const DWORD size = resource != nullptr ? ::SizeofResource(Instance(), resource) : 0;
  if (bytes == nullptr || size < 2) return {};
  // A JPEG file begins with its start-of-image marker.
  if (bytes[0] == 0xFF && bytes[1] == 0xD8) return {JpegBitmap(bytes, size), false};
  return {OleBitmap(bytes, size), false};
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
