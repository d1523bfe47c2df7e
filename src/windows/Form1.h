// The main window: resolutions, renderer, variant, the four test buttons and the menus.
#pragma once

#include "benchmark/catalogue.h"
#include "platform/forms/window.h"

class Form1 : public forms::Window {
 public:
  static constexpr const char* kName = "Form1";
  Form1();

  forms::PictureBox& Picture1;
  forms::CheckBox* Check1[catalogue::kResolutionCount] = {};
  forms::CommandButton& Command1;  // CPU Benchmark
  forms::CommandButton& Command2;  // High Quality
  forms::CommandButton& Command3;  // Low Quality
  forms::CommandButton& Command4;  // Custom Test
  forms::OptionButton& Option1;    // Direct3D
  forms::OptionButton& Option2;    // OpenGL
  forms::OptionButton& Option3;    // Full
  forms::OptionButton& Option4;    // Demo

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  void Command1_Click();
  void Command2_Click();
  void Command3_Click();
  void Command4_Click();
  void mnuExit_Click();
  void mnuHelp2_Click();
};

// The main window; it is open for the whole life of the process.
Form1& MainForm();
