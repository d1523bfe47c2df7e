// The headless platform: an in-memory machine that a test fills and reads back.
//
// Windows paths map onto a host folder: "C:\Games\UT2003" becomes <root>/C/Games/UT2003, and
// a path with no drive lies on drive C. The game stand-in, the message boxes, the shell, the
// file dialog and the registry keep state the way the real ones do, and record every call.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/platform.h"

namespace forms {
class Control;
class Window;
}

namespace headless {

// A new machine whose drives lie under root: no files known to it, an empty registry, no
// windows, nothing recorded, and the program in C:\Bench.
void Reset(const std::filesystem::path& root);

// ---- Files ---------------------------------------------------------------------------------
std::filesystem::path HostPath(const std::string& windowsPath);
// Writes a file, creating its folders.
void PutFile(const std::string& windowsPath, const std::string& bytes);
std::optional<std::string> GetFile(const std::string& windowsPath);
void MakeFolder(const std::string& windowsPath);
// Files that refuse to be written (read-only) or to be opened at all (held by another program).
void SetReadOnly(const std::string& windowsPath, bool readOnly);
void SetLocked(const std::string& windowsPath, bool locked);
// A file with the hidden or the system attribute, which a search for a normal file passes over.
void SetHidden(const std::string& windowsPath, bool hidden);

// ---- Program -------------------------------------------------------------------------------
void SetProgramFolder(const std::string& windowsPath);
// The process ended through platform::EndProcess. EndProcess throws ProcessExit, which Click
// and friends below catch; every window is gone then.
struct ProcessExit {};
bool ProcessEnded();
int ExitCode();
// The line the program is started with, and the time the clock shows from then on.
void SetCommandLine(const std::string& line);
void SetLocalTime(const std::string& time);

// ---- The game stand-in ---------------------------------------------------------------------
// What the game does at one start. A start whose program file does not exist fails with 53.
struct GameRun {
  enum class Kind { AppendRecord, AppendNothing, FailStart };
  Kind kind = Kind::AppendRecord;
  std::string record;  // appended to <game>\Benchmark\lowframerate.log as it stands
  int errorNumber = 0;
  std::string description;
};
// Queues the behaviour of the next start. With none queued, a started game appends a record
// of its own: "<level>, <n>.10 / <n>.20 / <n>.30 fps, <seconds>, <resolution>" and CR LF,
// where n counts the starts since Reset from 1.
void ProgramGame(const GameRun& run);
GameRun AppendRecord(const std::string& record);
GameRun AppendNothing();
GameRun FailStart(int number, const std::string& description);

struct Start {
  std::string commandLine;
  int windowStyle = 0;
  bool started = false;
};
// Every call of StartProcess, in order, the failed ones included.
const std::vector<Start>& Starts();
// Process handles opened and not yet closed.
int OpenProcessHandles();

// ---- Message boxes -------------------------------------------------------------------------
struct Box {
  std::string text;
  std::string title;
  int flags = 0;
  bool operator==(const Box& o) const { return text == o.text && title == o.title && flags == o.flags; }
};
const std::vector<Box>& Boxes();
// Called while a box is open; its result is the box's answer (1, OK, when none is set).
void AnswerBoxes(std::function<int(const Box&)> answer);

// ---- Shell ---------------------------------------------------------------------------------
struct ShellCall {
  platform::WindowHandle owner = 0;
  std::optional<std::string> operation, file, parameters, directory;
  int showCommand = 0;
  bool operator==(const ShellCall& o) const {
    return owner == o.owner && operation == o.operation && file == o.file &&
           parameters == o.parameters && directory == o.directory && showCommand == o.showCommand;
  }
};
const std::vector<ShellCall>& ShellCalls();

// ---- File dialog ---------------------------------------------------------------------------
// The user's answer to the next open dialog: a path, or nullopt to cancel.
void ProgramFileDialog(const std::optional<std::string>& path);
// The filter of every dialog shown, in order.
const std::vector<std::string>& FileDialogs();

// ---- Registry ------------------------------------------------------------------------------
constexpr std::uint32_t kKeyRead = 0x20019;
constexpr std::uint32_t kKeyAllAccess = 0xF003F;
// Creates the key (and its parents) if it is missing; granted is what it allows to be opened.
void CreateKey(platform::KeyHandle root, const std::string& key,
               std::uint32_t granted = kKeyAllAccess);
void DeleteKey(platform::KeyHandle root, const std::string& key);
// Sets a value of any type with exactly these bytes; creates the key if it is missing.
void SetValue(platform::KeyHandle root, const std::string& key, const std::string& name,
              std::uint32_t type, const std::string& data);
// A REG_SZ stored with its terminating NUL, as programs store them.
void SetString(platform::KeyHandle root, const std::string& key, const std::string& name,
               const std::string& text);
void SetDword(platform::KeyHandle root, const std::string& key, const std::string& name,
              std::uint32_t number);
// Replaces a value right after the next query that only probes it (no buffer).
void ChangeValueAfterNextProbe(platform::KeyHandle root, const std::string& key,
                               const std::string& name, std::uint32_t type,
                               const std::string& data);
int OpenKeyCount();
// Every registry call in order: "open <key> <mask>", "query <value>", "close".
const std::vector<std::string>& RegistryCalls();

// ---- Windows -------------------------------------------------------------------------------
bool IsShown(const forms::Window& window);
// The user's input, as the real platform delivers it; each returns whether it was taken and
// ends like an event of the real event loop.
bool Click(forms::Control& control);
bool ChooseMenu(forms::Window& window, const std::string& menuName);
bool CloseWindow(forms::Window& window);
bool SelectItem(forms::Control& comboBox, int index);
bool TypeText(forms::Control& textBox, const std::string& text);
// Runs a piece of start-up code the way the real program's entry does.
void RunAsEvent(const std::function<void()>& action);

// Internal: the registry's own reset, called by Reset.
void ResetRegistry();

}  // namespace headless
