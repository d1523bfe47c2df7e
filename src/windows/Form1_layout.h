// The main window's tables: the window, its controls and its menu. Form1 builds the window from
// them; the start-up benchmark's window made by hand in plain Win32 reads them too, so that it
// follows every change here without a copy to keep.
#pragma once

#include "benchmark/catalogue.h"
#include "platform/forms/args.h"
#include "windows/menu_commands.h"

namespace form1_layout {

using T = forms::ControlType;

inline constexpr forms::WindowArgs kWindow{.name = "Form1", .caption = "Kelvarnite UT2k3 Benchmark",
                                           .clientWidth = 5430, .clientHeight = 3810, .hasMenu = true};

inline constexpr forms::ControlArgs kControls[] = {
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

inline constexpr forms::MenuArgs kMenus[] = {
    {.name = "mnuFile", .caption = "&File"},
    {.name = "mnuExit", .caption = "E&xit", .parent = "mnuFile", .command = menu_commands::kExit},
    {.name = "mnuHelp", .caption = "&Help"},
    {.name = "mnuAbout", .caption = "&About", .parent = "mnuHelp", .command = menu_commands::kAbout},
    {.name = "mnuHelp2", .caption = "H&elp", .parent = "mnuHelp", .command = menu_commands::kHelp},
};

}  // namespace form1_layout
