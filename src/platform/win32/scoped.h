// Owners of system handles, device contexts and GDI objects: each gives back what it holds on
// every path out of its scope, so that no early return can leak one.
#pragma once

#include <cstdint>
#include <utility>

#include "platform/win32/win32.h"

namespace win32 {

// A handle and the call that frees it; kNone is the value that holds nothing.
template <class Handle, auto Free, std::intptr_t kNone = 0>
class Scoped {
 public:
  Scoped() = default;
  explicit Scoped(Handle handle) : handle_(handle) {}
  ~Scoped() {
    if (handle_ != None()) Free(handle_);
  }
  Scoped(Scoped&& other) noexcept : handle_(other.release()) {}
  Scoped& operator=(Scoped&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }

  Handle get() const { return handle_; }
  bool valid() const { return handle_ != None(); }
  // Hands the handle over, for a caller that frees it itself and wants the result.
  Handle release() { return std::exchange(handle_, None()); }

 private:
  static Handle None() { return reinterpret_cast<Handle>(kNone); }
  Handle handle_ = None();
};

using ScopedFile = Scoped<HANDLE, ::CloseHandle, -1>;  // CreateFile's INVALID_HANDLE_VALUE
using ScopedGdiObject = Scoped<HGDIOBJ, ::DeleteObject>;
using ScopedIcon = Scoped<HICON, ::DestroyIcon>;

// The device context of a window (or of the screen, for no window), given back to it.
class WindowDC {
 public:
  explicit WindowDC(HWND hwnd) : hwnd_(hwnd), dc_(::GetDC(hwnd)) {}
  ~WindowDC() {
    if (dc_ != nullptr) ::ReleaseDC(hwnd_, dc_);
  }
  WindowDC(const WindowDC&) = delete;
  WindowDC& operator=(const WindowDC&) = delete;
  HDC get() const { return dc_; }

 private:
  HWND hwnd_;
  HDC dc_;
};

// One WM_PAINT's drawing, ended however the painting ends.
class PaintScope {
 public:
  explicit PaintScope(HWND hwnd) : hwnd_(hwnd), dc_(::BeginPaint(hwnd, &paint_)) {}
  ~PaintScope() { ::EndPaint(hwnd_, &paint_); }
  PaintScope(const PaintScope&) = delete;
  PaintScope& operator=(const PaintScope&) = delete;
  HDC get() const { return dc_; }

 private:
  HWND hwnd_;
  PAINTSTRUCT paint_{};
  HDC dc_;
};

// An object selected into a device context, and the one it replaced put back.
class SelectScope {
 public:
  SelectScope(HDC dc, HGDIOBJ object) : dc_(dc), old_(::SelectObject(dc, object)) {}
  ~SelectScope() {
    if (old_ != nullptr) ::SelectObject(dc_, old_);
  }
  SelectScope(const SelectScope&) = delete;
  SelectScope& operator=(const SelectScope&) = delete;

 private:
  HDC dc_;
  HGDIOBJ old_;
};

}  // namespace win32
