#include "platform/start_failure.h"

namespace platform {
namespace {

// Win32 error codes that mean the same thing to the user.
constexpr unsigned long kFileNotFound = 2, kPathNotFound = 3, kAccessDenied = 5,
                        kBadFormat = 11, kSharingViolation = 32, kInvalidName = 123,
                        kBadPathname = 161, kBadExeFormat = 193, kMachineMismatch = 216,
                        kDirectory = 267;

}  // namespace

StartFailure StartFailureForSystemError(unsigned long code, const std::string& systemMessage) {
  switch (code) {
    case kFileNotFound:
    case kPathNotFound:
    case kInvalidName:
    case kBadPathname:
    case kDirectory:
      return {53, "File not found"};
    case kAccessDenied:
    case kSharingViolation:
      return {70, "Permission denied"};
    case kBadFormat:
    case kBadExeFormat:
    case kMachineMismatch:
      return {5, "Not a valid Windows program"};
    default: {
      std::string text = systemMessage;
      while (!text.empty() && (text.back() == '\r' || text.back() == '\n' ||
                               text.back() == ' ' || text.back() == '.')) {
        text.pop_back();
      }
      return {5, text.empty() ? "Error " + std::to_string(code) : text};
    }
  }
}

}  // namespace platform
