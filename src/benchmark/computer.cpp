#include "benchmark/computer.h"

#include "benchmark/catalogue.h"
#include "benchmark/mdlBenchmark.h"
#include "registry/mdlRegistry.h"

namespace computer {
namespace {

// A value of a key that a user may read, as text without its NUL and the blanks around it.
std::string Read(const std::string& key, const char* value) {
  const mdlRegistry::RegistryValue read =
      mdlRegistry::ReadRegistryValue(platform::kLocalMachine, key, value, mdlRegistry::kReadAccess);
  std::string text = read.AsText();
  if (read.IsText()) text = text.substr(0, text.find('\0'));
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

}  // namespace

std::string ProcessorName() {
  const char* const key = "HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\0";
  const std::string name = Read(key, "ProcessorNameString");
  return name.empty() ? Read(key, "Identifier") : name;
}

std::string DisplayAdapterName() {
  std::string name = Read("System\\CurrentControlSet\\Services\\Class\\Display\\0000", "DriverDesc");
  if (!name.empty()) return name;
  // NT names the first adapter's key in the kernel's spelling of the registry.
  std::string key = Read("HARDWARE\\DEVICEMAP\\VIDEO", "\\Device\\Video0");
  const std::string kernelRoot = "\\Registry\\Machine\\";
  if (key.compare(0, kernelRoot.size(), kernelRoot) != 0) return "";
  key.erase(0, kernelRoot.size());
  name = Read(key, "DriverDesc");
  return name.empty() ? Read(key, "Device Description") : name;
}

std::string GameVersion() {
  return Read(catalogue::kGameKeys[mdlBenchmark::AppState.GameVersion == "demo"], "Version");
}

}  // namespace computer
