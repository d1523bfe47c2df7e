// Message boxes, the shell, the file dialog and windows of the headless machine.
#include "platform/forms/window.h"
#include "platform/headless/state.h"

namespace headless {
using detail::M;

const std::vector<Box>& Boxes() { return M().boxes; }

void AnswerBoxes(std::function<int(const Box&)> answer) { M().answer = std::move(answer); }

const std::vector<ShellCall>& ShellCalls() { return M().shellCalls; }

void ProgramFileDialog(const std::optional<std::string>& path) {
  M().dialogAnswers.push_back(path);
}

const std::vector<std::string>& FileDialogs() { return M().dialogFilters; }

bool IsShown(const forms::Window& window) {
  return window.hWnd() != 0 && M().shown.count(window.hWnd()) != 0;
}

namespace {

// One event of the event loop: the action, then the windows it closed are freed. An end of
// the process inside it drops every window.
bool AsEvent(const std::function<bool()>& action) {
  if (M().ended) return false;
  bool taken = false;
  try {
    taken = action();
  } catch (const ProcessExit&) {
    forms::DropAll();
    return true;
  }
  forms::CollectClosed();
  return taken;
}

bool Usable(const forms::Control& control) {
  return !control.Parent().Closed() && IsShown(control.Parent());
}

}  // namespace

bool Click(forms::Control& control) {
  return AsEvent([&] { return Usable(control) && control.UserClick(); });
}

bool ChooseMenu(forms::Window& window, const std::string& menuName) {
  return AsEvent([&] {
    if (window.Closed() || !IsShown(window)) return false;
    window.UserMenuClick(menuName);
    return true;
  });
}

bool CloseWindow(forms::Window& window) {
  return AsEvent([&] {
    if (window.Closed()) return false;
    window.UserClose();
    return true;
  });
}

bool SelectItem(forms::Control& comboBox, int index) {
  return AsEvent([&] {
    auto* combo = dynamic_cast<forms::ComboBox*>(&comboBox);
    return combo != nullptr && Usable(comboBox) && combo->UserSelect(index);
  });
}

bool TypeText(forms::Control& textBox, const std::string& text) {
  return AsEvent([&] {
    auto* box = dynamic_cast<forms::TextBox*>(&textBox);
    if (box == nullptr || !Usable(textBox) || !box->Enabled()) return false;
    box->UserSetText(text);
    return true;
  });
}

void RunAsEvent(const std::function<void()>& action) {
  AsEvent([&] {
    action();
    return true;
  });
}

}  // namespace headless

namespace platform {
using headless::detail::M;

int MessageBoxA(const std::string& text, const std::string& title, int flags) {
  headless::Box box{text, title, flags};
  M().boxes.push_back(box);
  return M().answer ? M().answer(box) : 1;
}

std::intptr_t ShellExecuteA(WindowHandle owner, const char* operation, const char* file,
                            const char* parameters, const char* directory, int showCommand) {
  auto text = [](const char* s) { return s ? std::optional<std::string>(s) : std::nullopt; };
  M().shellCalls.push_back(
      {owner, text(operation), text(file), text(parameters), text(directory), showCommand});
  return 42;
}

FileDialogResult ShowOpenFileDialog(const std::string& filter) {
  M().dialogFilters.push_back(filter);
  std::optional<std::string> answer;  // no answer programmed: the user cancels
  if (!M().dialogAnswers.empty()) {
    answer = M().dialogAnswers.front();
    M().dialogAnswers.pop_front();
  }
  if (!answer) return {kCancelError, {}};
  return {0, *answer};
}

WindowHandle CreateNativeWindow(forms::Window&) { return M().nextWindow += 0x10; }

void ShowNativeWindow(forms::Window& window) { M().shown.insert(window.hWnd()); }

void UpdateNativeWindow(forms::Window&) {}

void DestroyNativeWindow(forms::Window& window) { M().shown.erase(window.hWnd()); }

void UpdateNativeControl(forms::Control&) {}

int RunEventLoop() { return 0; }

void PaintWindows() {}

}  // namespace platform
