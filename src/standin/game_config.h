// What the stand-in takes from the game's ini file: whether the game could start with it, the
// renderer, the detail as two costs, and the screen size for a line without a resolution.
#pragma once

#include <string>

#include "standin/ini_file.h"

namespace standin {

enum class Renderer { D3D, OGL };

struct GameConfig {
  bool startable = true;
  Renderer renderer = Renderer::D3D;
  // The cost of the detail settings to the graphics card and to the processor, in thousandths
  // of the cost of the lowest detail (1000).
  int gpuPermille = 1000;
  int cpuPermille = 1000;
  int viewportX = 640, viewportY = 480;
};

// The configuration of an ini file that could be read; keys it lacks take the game's defaults.
GameConfig ReadGameConfig(const IniFile& ini);
// A missing ini file: the game's defaults throughout.
GameConfig DefaultGameConfig();

const char* RendererName(Renderer renderer);

}  // namespace standin
