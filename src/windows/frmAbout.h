// The About window: the product's title, version and credits, its web site, and the system
// information tool.
#pragma once

#include <string>

#include "platform/forms/window.h"

class frmAbout : public forms::Window {
 public:
  static constexpr const char* kName = "frmAbout";
  frmAbout();

  forms::CommandButton& cmdOK;
  forms::CommandButton& cmdSysInfo;
  forms::Label& lblTitle;
  forms::Label& lblVersion;
  forms::PictureBox& Picture1;  // the banner, which leads to the web site

  // Starts the system information tool that the registry names, or tells that there is none.
  void StartSysInfo();
  // Reads one registry value as text: true when it was read.
  bool GetKeyValue(platform::KeyHandle& KeyRoot, std::string& KeyName, std::string& SubKeyRef,
                   std::string& KeyVal);

 protected:
  void Form_Load() override;
};
