#include "platform/system_errors.h"

namespace platform {
namespace {

// Win32 error codes that mean the same thing to the user.
constexpr unsigned long kFileNotFound = 2, kPathNotFound = 3, kAccessDenied = 5,
                        kBadFormat = 11, kInvalidDrive = 15, kWriteProtect = 19,
                        kSharingViolation = 32, kLockViolation = 33, kHandleDiskFull = 39,
                        kBadNetPath = 53, kDiskFull = 112, kInvalidName = 123,
                        kBadPathname = 161, kBadExeFormat = 193, kMachineMismatch = 216,
                        kDirectory = 267;

std::string Trimmed(std::string text, unsigned long code) {
  while (!text.empty() && (text.back() == '\r' || text.back() == '\n' || text.back() == ' ' ||
                           text.back() == '.')) {
    text.pop_back();
  }
  return text.empty() ? "System error " + std::to_string(code) : text;
}

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
    default:
      return {5, Trimmed(systemMessage, code)};
  }
}

std::string FileFailureReason(unsigned long code, const std::string& systemMessage) {
  switch (code) {
    case kFileNotFound:
      return "File not found";
    case kPathNotFound:
    case kInvalidName:
    case kBadPathname:
    case kBadNetPath:
    case kInvalidDrive:
      return "Path not found";
    case kAccessDenied:
    case kSharingViolation:
    case kLockViolation:
    case kWriteProtect:
      return "Permission denied";
    case kDiskFull:
    case kHandleDiskFull:
      return "Disk full";
    default:
      return Trimmed(systemMessage, code);
  }
}

}  // namespace platform
