#include "windows/Form1.h"

#include "benchmark/mdlBenchmark.h"
#include "platform/platform.h"
#include "windows/Form2.h"
#include "windows/frmAbout.h"
#include "windows/product.h"

using forms::ControlType;

namespace {

const forms::WindowArgs kWindow{"Form1", "Kelvarnite UT2k3 Benchmark", 5430, 3810,
                                forms::BorderStyle::FixedSingle, true};

const forms::ControlArgs kControls[] = {
    // The logo has a tool tip that invites a click, but no click of its own.
    {"Picture1", -1, ControlType::PictureBox, "", nullptr, 120, 0, 5175, 1285, true, 0,
     forms::kSystemColor, 1, "LOGO"},
    {"Frame1", -1, ControlType::Frame, "Resolution", nullptr, 3480, 1440, 1815, 2295},
    {"Check1", 0, ControlType::CheckBox, "640x480", "Frame1", 240, 360, 1215, 255},
    {"Check1", 1, ControlType::CheckBox, "800x600", "Frame1", 240, 720, 1215, 255},
    {"Check1", 2, ControlType::CheckBox, "1024x768", "Frame1", 240, 1080, 1215, 255},
    {"Check1", 3, ControlType::CheckBox, "1280x1024", "Frame1", 240, 1440, 1215, 255},
    {"Check1", 4, ControlType::CheckBox, "1600x1200", "Frame1", 240, 1800, 1215, 255},
    {"Command1", -1, ControlType::CommandButton, "CPU Benchmark", nullptr, 120, 2640, 1455, 495},
    {"Command2", -1, ControlType::CommandButton, "High Quality", nullptr, 120, 1440, 1455, 495},
    {"Command3", -1, ControlType::CommandButton, "Low Quality", nullptr, 120, 2040, 1455, 495},
    {"Command4", -1, ControlType::CommandButton, "Custom Test", nullptr, 120, 3240, 1455, 495},
    {"Frame2", -1, ControlType::Frame, "Rendering Engine", nullptr, 1680, 2640, 1695, 1095},
    {"Option1", -1, ControlType::OptionButton, "Direct3D", "Frame2", 240, 360, 1215, 255},
    {"Option2", -1, ControlType::OptionButton, "OpenGL", "Frame2", 240, 720, 1215, 255},
    {"Frame3", -1, ControlType::Frame, "Version", nullptr, 1680, 1440, 1695, 1095},
    {"Option3", -1, ControlType::OptionButton, "Full", "Frame3", 240, 360, 1215, 255, false},
    {"Option4", -1, ControlType::OptionButton, "Demo", "Frame3", 240, 720, 1215, 195, false},
};

const forms::MenuArgs kMenus[] = {
    {"mnuFile", "&File", nullptr},
    {"mnuExit", "E&xit", "mnuFile"},
    {"mnuHelp", "&Help", nullptr},
    {"mnuAbout", "&About", "mnuHelp"},
    {"mnuHelp2", "H&elp", "mnuHelp"},
};

}  // namespace

Form1::Form1()
    : forms::Window(kWindow),
      Picture1((AddControls(kControls, std::size(kControls)), Get<forms::PictureBox>("Picture1"))),
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
  AddMenus(kMenus, std::size(kMenus));
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
  platform::EndProcess();
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

void Form1::mnuExit_Click() { platform::EndProcess(); }

void Form1::mnuHelp2_Click() {
  mdlBenchmark::OpenDocument(mdlBenchmark::AppState.AppPath + "help.html");
}

Form1& MainForm() {
  forms::Window* window = forms::FindOpen(Form1::kName);
  if (window == nullptr) throw std::logic_error("the main window is not open");
  return static_cast<Form1&>(*window);
}
