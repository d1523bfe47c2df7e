#include "windows/frmAbout.h"

#include <iterator>

#include "windows/product.h"

using forms::ControlType;

namespace {

constexpr std::int32_t kBlack = 0x000000;

// The corner of the client area stands at a fixed place on the screen.
const forms::WindowArgs kWindow{"frmAbout", "", 5730, 4110, forms::BorderStyle::FixedDialog,
                                false, 2340, 1935, "cmdOK", "cmdOK"};

const forms::ControlArgs kControls[] = {
    {"cmdOK", -1, ControlType::CommandButton, "OK", nullptr, 2400, 3600, 1260, 345},
    {"cmdSysInfo", -1, ControlType::CommandButton, "&System Info...", nullptr, 3840, 3600, 1245, 345},
    {"lblDescription", -1, ControlType::Label, "Benchmark scripts by the Kelvarnite team",
     nullptr, 1050, 2805, 3885, 210, true, 0, kBlack},
    {"lblDisclaimer", -1, ControlType::Label, "Are you Kelvarnite?", nullptr, 1080, 3660, 1230, 225,
     true, 0, kBlack, 1, nullptr, forms::kSmallText},
    {"lblTitle", -1, ControlType::Label, "", nullptr, 1050, 1920, 3885, 480, true, 0, kBlack, 1,
     nullptr, forms::kLargeText},
    {"lblVersion", -1, ControlType::Label, "", nullptr, 1050, 2460, 3885, 225},
    {"Label1", -1, ControlType::Label, "Front end by the Kelvarnite UT2k3 Benchmark team", nullptr,
     1080, 3120, 3855, 255},
    {"Picture1", -1, ControlType::PictureBox, "", nullptr, 240, 120, 5250, 1425, true, 0,
     forms::kSystemColor, 1, "ABOUT_BANNER", forms::kBorder | forms::kAutoSize},
    {"Picture2", -1, ControlType::PictureBox, "", nullptr, 240, 1920, 540, 540, true, 0,
     forms::kSystemColor, 1, "ABOUT_ICON", forms::kBorder | forms::kAutoSize},
    // Together an etched rule between the banner and the text.
    {"Line1", 0, ControlType::Line, "", nullptr, 105, 1620, 5654 - 105, 0, true, 0, 0xFFFFFF, 2},
    {"Line1", 1, ControlType::Line, "", nullptr, 90, 1605, 5654 - 90, 0, true, 0, 0x808080, 1},
};

}  // namespace

frmAbout::frmAbout()
    : forms::Window(kWindow),
      cmdOK((AddControls(kControls, std::size(kControls)), Get<forms::CommandButton>("cmdOK"))),
      cmdSysInfo(Get<forms::CommandButton>("cmdSysInfo")),
      lblTitle(Get<forms::Label>("lblTitle")),
      lblVersion(Get<forms::Label>("lblVersion")),
      Picture1(Get<forms::PictureBox>("Picture1")) {
  Picture1.SetToolTipText(product::LogoToolTip());
  Get<forms::Label>("Label1").SetToolTipText(std::string("Write to the authors at ") +
                                             product::kContactAddress);
  cmdOK.Click = [this] { forms::Unload(*this); };
  cmdSysInfo.Click = [this] { StartSysInfo(); };
  Picture1.Click = [] {
    platform::ShellExecuteA(0, nullptr, product::kWebAddress, nullptr, "C:\\", platform::kShowNormal);
  };
}

void frmAbout::Form_Load() {
  SetCaption("About " + platform::ApplicationTitle());
  const platform::Version version = platform::ApplicationVersion();
  lblVersion.SetCaption("Version " + std::to_string(version.major) + "." +
                        std::to_string(version.minor) + "." + std::to_string(version.revision));
  lblTitle.SetCaption(platform::ApplicationTitle());
}
