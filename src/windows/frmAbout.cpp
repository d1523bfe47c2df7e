#include "windows/frmAbout.h"

#include <iterator>

#include "windows/product.h"

using T = forms::ControlType;

namespace {

constexpr std::int32_t kBlack = 0x000000;

// The corner of the client area stands at a fixed place on the screen.
const forms::WindowArgs kWindow{.name = "frmAbout", .clientWidth = 5730, .clientHeight = 4110,
                                .border = forms::BorderStyle::FixedDialog, .left = 2340, .top = 1935,
                                .defaultButton = "cmdOK", .cancelButton = "cmdOK"};

const forms::ControlArgs kControls[] = {
    {.name = "cmdOK", .type = T::CommandButton, .caption = "OK", .at = {2400, 3600, 1260, 345}},
    {.name = "cmdSysInfo", .type = T::CommandButton, .caption = "&System Info...",
     .at = {3840, 3600, 1245, 345}},
    {.name = "lblDescription", .type = T::Label,
     .caption = "Benchmark scripts by the Kelvarnite team", .at = {1050, 2805, 3885, 210},
     .color = kBlack},
    {.name = "lblDisclaimer", .type = T::Label, .caption = "Are you Kelvarnite?",
     .at = {1080, 3660, 1230, 225}, .color = kBlack, .flags = forms::kSmallText},
    {.name = "lblTitle", .type = T::Label, .at = {1050, 1920, 3885, 480}, .color = kBlack,
     .flags = forms::kLargeText},
    {.name = "lblVersion", .type = T::Label, .at = {1050, 2460, 3885, 225}},
    {.name = "Label1", .type = T::Label,
     .caption = "Front end by the Kelvarnite UT2k3 Benchmark team", .at = {1080, 3120, 3855, 255}},
    {.name = "Picture1", .type = T::PictureBox, .at = {240, 120, 5250, 1425},
     .picture = "ABOUT_BANNER", .flags = forms::kBorder | forms::kAutoSize},
    {.name = "Picture2", .type = T::PictureBox, .at = {240, 1920, 540, 540},
     .picture = "ABOUT_ICON", .flags = forms::kBorder | forms::kAutoSize},
    // Together an etched rule between the banner and the text.
    {.name = "Line1", .type = T::Line, .at = {105, 1620, 5654 - 105, 0}, .index = 0,
     .color = 0xFFFFFF, .borderWidth = 2},
    {.name = "Line1", .type = T::Line, .at = {90, 1605, 5654 - 90, 0}, .index = 1,
     .color = 0x808080},
};

}  // namespace

frmAbout::frmAbout()
    : forms::Window(kWindow, kControls),
      cmdOK(Get<forms::CommandButton>("cmdOK")),
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
