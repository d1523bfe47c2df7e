#include "windows/Form1.h"

#include "benchmark/mdlBenchmark.h"
#include "platform/platform.h"
#include "windows/Form1_layout.h"
#include "windows/Form2.h"
#include "windows/frmAbout.h"
#include "windows/product.h"

Form1::Form1()
    : forms::Window(form1_layout::kWindow, form1_layout::kControls, form1_layout::kMenus),
      Picture1(Get<forms::PictureBox>("Picture1")),
      Command1(Get<forms::CommandButton>("Command1")),
      Command2(Get<forms::CommandButton>("Command2")),
      Command3(Get<forms::CommandButton>("Command3")),
      Command4(Get<forms::CommandButton>("Command4")),
      Option1(Get<forms::OptionButton>("Option1")),
      Option2(Get<forms::OptionButton>("Option2")),
      Option3(Get<forms::OptionButton>("Option3")),
      Option4(Get<forms::OptionButton>("Option4")) {
  // A box for each resolution of the catalogue, in its order.
  for (int box = 0; box < catalogue::kResolutionCount; ++box) {
    Check1[box] = &Get<forms::CheckBox>("Check1", box);
  }
  Picture1.SetToolTipText(product::LogoToolTip());
  Command1.Click = [this] { Command1_Click(); };
  Command2.Click = [this] { Command2_Click(); };
  Command3.Click = [this] { Command3_Click(); };
  Command4.Click = [this] { Command4_Click(); };
  Option1.Click = [] { mdlBenchmark::AppState.RenderEngine = "D3D"; };
  Option2.Click = [] { mdlBenchmark::AppState.RenderEngine = "OGL"; };
  Option3.Click = [] { mdlBenchmark::SelectVariant(mdlBenchmark::Variant::Full); };
  Option4.Click = [] { mdlBenchmark::SelectVariant(mdlBenchmark::Variant::Demo); };
  Menu("mnuExit").Click = [this] { mnuExit_Click(); };
  Menu("mnuAbout").Click = [] { forms::ShowWindow<frmAbout>(); };
  Menu("mnuHelp2").Click = [this] { mnuHelp2_Click(); };
}

void Form1::Form_Load() {
  mdlBenchmark::DetectInstalledGame();
  mdlBenchmark::ResolveAppPath();
  mdlBenchmark::ResetBenchmarkLogs();  // a failure has been told; start-up goes on
  Option1.SetValue(true);
}

void Form1::Form_Unload() {
  if (forms::Window* custom = forms::FindOpen(Form2::kName)) forms::Unload(*custom);
  platform::EndProcess(mdlBenchmark::AppState.ExitCode);
}

void Form1::Command1_Click() { mdlBenchmark::RunTestFrame(mdlBenchmark::RunCpuBenchmark); }

void Form1::Command2_Click() {
  mdlBenchmark::RunTestFrame([] { mdlBenchmark::RunQualitySuite(mdlBenchmark::Quality::High); });
}

void Form1::Command3_Click() {
  mdlBenchmark::RunTestFrame([] { mdlBenchmark::RunQualitySuite(mdlBenchmark::Quality::Low); });
}

void Form1::Command4_Click() {
  mdlBenchmark::ResetBenchmarkLogs();  // a failure has been told; the window opens all the same
  forms::ShowWindow<Form2>();
}

void Form1::mnuExit_Click() { platform::EndProcess(mdlBenchmark::AppState.ExitCode); }

void Form1::mnuHelp2_Click() {
  mdlBenchmark::OpenDocument(mdlBenchmark::AppState.AppPath + "help.html");
}

Form1& MainForm() {
  forms::Window* window = forms::FindOpen(Form1::kName);
  if (window == nullptr) throw std::logic_error("the main window is not open");
  return static_cast<Form1&>(*window);
}
