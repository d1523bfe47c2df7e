#include "windows/Form1.h"

#include "benchmark/catalogue.h"
#include "benchmark/mdlBenchmark.h"
#include "platform/platform.h"
#include "windows/Form2.h"
#include "windows/frmAbout.h"
#include "windows/menu_commands.h"
#include "windows/product.h"

using T = forms::ControlType;

namespace {

const forms::WindowArgs kWindow{.name = "Form1", .caption = "Kelvarnite UT2k3 Benchmark",
                                .clientWidth = 5430, .clientHeight = 3810, .hasMenu = true};

const forms::ControlArgs kControls[] = {
    // The logo has a tool tip that invites a click, but no click of its own.
    {.name = "Picture1", .type = T::PictureBox, .at = {120, 0, 5175, 1285}, .picture = "LOGO"},
    {.name = "Frame1", .type = T::Frame, .caption = "Resolution", .at = {3480, 1440, 1815, 2295}},
    {.name = "Check1", .type = T::CheckBox, .caption = catalogue::kResolutions[0], .at = {240, 360, 1215, 255},
     .container = "Frame1", .index = 0},
    {.name = "Check1", .type = T::CheckBox, .caption = catalogue::kResolutions[1], .at = {240, 720, 1215, 255},
     .container = "Frame1", .index = 1},
    {.name = "Check1", .type = T::CheckBox, .caption = catalogue::kResolutions[2], .at = {240, 1080, 1215, 255},
     .container = "Frame1", .index = 2},
    {.name = "Check1", .type = T::CheckBox, .caption = catalogue::kResolutions[3], .at = {240, 1440, 1215, 255},
     .container = "Frame1", .index = 3},
    {.name = "Check1", .type = T::CheckBox, .caption = catalogue::kResolutions[4], .at = {240, 1800, 1215, 255},
     .container = "Frame1", .index = 4},
    {.name = "Command1", .type = T::CommandButton, .caption = "CPU Benchmark",
     .at = {120, 2640, 1455, 495}},
    {.name = "Command2", .type = T::CommandButton, .caption = "High Quality",
     .at = {120, 1440, 1455, 495}},
    {.name = "Command3", .type = T::CommandButton, .caption = "Low Quality",
     .at = {120, 2040, 1455, 495}},
    {.name = "Command4", .type = T::CommandButton, .caption = "Custom Test",
     .at = {120, 3240, 1455, 495}},
    {.name = "Frame2", .type = T::Frame, .caption = "Rendering Engine",
     .at = {1680, 2640, 1695, 1095}},
    {.name = "Option1", .type = T::OptionButton, .caption = "Direct3D",
     .at = {240, 360, 1215, 255}, .container = "Frame2"},
    {.name = "Option2", .type = T::OptionButton, .caption = "OpenGL", .at = {240, 720, 1215, 255},
     .container = "Frame2"},
    {.name = "Frame3", .type = T::Frame, .caption = "Version", .at = {1680, 1440, 1695, 1095}},
    {.name = "Option3", .type = T::OptionButton, .caption = "Full", .at = {240, 360, 1215, 255},
     .container = "Frame3", .enabled = false},
    {.name = "Option4", .type = T::OptionButton, .caption = "Demo", .at = {240, 720, 1215, 195},
     .container = "Frame3", .enabled = false},
};

const forms::MenuArgs kMenus[] = {
    {.name = "mnuFile", .caption = "&File"},
    {.name = "mnuExit", .caption = "E&xit", .parent = "mnuFile", .command = menu_commands::kExit},
    {.name = "mnuHelp", .caption = "&Help"},
    {.name = "mnuAbout", .caption = "&About", .parent = "mnuHelp", .command = menu_commands::kAbout},
    {.name = "mnuHelp2", .caption = "H&elp", .parent = "mnuHelp", .command = menu_commands::kHelp},
};

}  // namespace

Form1::Form1()
    : forms::Window(kWindow, kControls, kMenus),
      Picture1(Get<forms::PictureBox>("Picture1")),
      Check1{&Get<forms::CheckBox>("Check1", 0), &Get<forms::CheckBox>("Check1", 1),
             &Get<forms::CheckBox>("Check1", 2), &Get<forms::CheckBox>("Check1", 3),
             &Get<forms::CheckBox>("Check1", 4)},
      Command1(Get<forms::CommandButton>("Command1")),
      Command2(Get<forms::CommandButton>("Command2")),
      Command3(Get<forms::CommandButton>("Command3")),
      Command4(Get<forms::CommandButton>("Command4")),
      Option1(Get<forms::OptionButton>("Option1")),
      Option2(Get<forms::OptionButton>("Option2")),
      Option3(Get<forms::OptionButton>("Option3")),
      Option4(Get<forms::OptionButton>("Option4")) {
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
