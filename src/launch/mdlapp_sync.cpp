#include "launch/mdlapp_sync.h"

#include "platform/forms/window.h"
#include "platform/platform.h"

namespace mdlapp_sync {

bool RunAppSync(const std::string& commandLine) {
  std::uint32_t processId = 0;
  platform::StartFailure failure;
  if (!platform::StartProcess(commandLine, platform::kShowMinimized, &processId, &failure)) {
    if (failure.number == 53) {
      forms::MsgBox(commandLine + " cannot be found.", platform::kMbIconCritical);
    } else {
      forms::MsgBox(std::to_string(failure.number) + " : " + failure.description, platform::kMbOk);
    }
    return false;
  }
  // A process that has already ended gives no handle; the wait then returns at once.
  platform::ProcessHandle process = platform::OpenProcess(platform::kSynchronize, true, processId);
  platform::WaitForSingleObject(process, platform::kInfinite);
  platform::CloseHandle(process);
  return true;
}

}  // namespace mdlapp_sync
