#include "standin/game_config.h"

#include <cstdlib>

#include "standin/text.h"

namespace standin {

namespace {

const char* const kClient = "WinDrv.WindowsClient";
const char* const kD3DDevice = "D3DDrv.D3DRenderDevice";
const char* const kOpenGLDevice = "OpenGLDrv.OpenGLRenderDevice";

// The texture detail names from the lowest to the highest; each step costs the card more.
const char* const kTextureLevels[] = {"UltraLow", "VeryLow", "Low",      "Lower",    "Normal",
                                      "Higher",   "High",    "VeryHigh", "UltraHigh"};
const int kDefaultTextureLevel = 4;  // Normal
const char* const kTextureKeys[] = {"TextureDetailInterface",  "TextureDetailTerrain",
                                    "TextureDetailWeaponSkin", "TextureDetailPlayerSkin",
                                    "TextureDetailWorld",      "TextureDetailRenderMap",
                                    "TextureDetailLightmap"};
const int kGpuPerTextureStep = 50;

// A detail switch costs when it has the value costsWhen; a missing key takes the default.
struct DetailSwitch {
  bool onRenderDevice;  // in the render device's section, else in the client's
  const char* key;
  bool byDefault;
  bool costsWhen;
  int gpu, cpu;
};
const DetailSwitch kSwitches[] = {
    {false, "Decals", true, true, 300, 30},
    {false, "Coronas", true, true, 100, 0},
    {false, "DecoLayers", true, true, 400, 100},
    {false, "Projectors", true, true, 350, 80},
    {false, "NoDynamicLights", false, false, 500, 100},
    {true, "DetailTextures", true, true, 300, 0},
    {true, "UseTrilinear", false, true, 200, 0},
    {true, "HighDetailActors", false, true, 200, 60},
    {true, "SuperHighDetailActors", false, true, 300, 80},
};

bool ReadBool(const IniFile& ini, const char* section, const char* key, bool byDefault) {
  const std::string* value = ini.Find(section, key);
  if (!value) return byDefault;
  if (EqualsNoCase(*value, "True") || *value == "1") return true;
  if (EqualsNoCase(*value, "False") || *value == "0") return false;
  return byDefault;
}

int TextureLevel(const IniFile& ini, const char* key) {
  if (const std::string* value = ini.Find(kClient, key)) {
    for (int level = 0; level < 9; ++level) {
      if (EqualsNoCase(*value, kTextureLevels[level])) return level;
    }
  }
  return kDefaultTextureLevel;
}

int PhysicsCost(const IniFile& ini) {
  const std::string* value = ini.Find("Engine.LevelInfo", "PhysicsDetailLevel");
  if (value && EqualsNoCase(*value, "PDL_Low")) return 0;
  if (value && EqualsNoCase(*value, "PDL_High")) return 100;
  return 40;  // PDL_Medium, the game's default
}

int ViewportSize(const IniFile& ini, const char* key, int byDefault) {
  const std::string* value = ini.Find(kClient, key);
  const int size = value ? std::atoi(value->c_str()) : 0;
  return size > 0 ? size : byDefault;
}

}  // namespace

GameConfig ReadGameConfig(const IniFile& ini) {
  GameConfig config;
  // Without its package paths or its render device the game stops before any level.
  const std::string* device = ini.Find("Engine.Engine", "RenderDevice");
  const bool known =
      device && (EqualsNoCase(*device, kD3DDevice) || EqualsNoCase(*device, kOpenGLDevice));
  config.startable = ini.HasValue("Core.System", "Paths") && known;
  if (!config.startable) return config;
  config.renderer = EqualsNoCase(*device, kOpenGLDevice) ? Renderer::OGL : Renderer::D3D;
  const char* deviceSection = config.renderer == Renderer::OGL ? kOpenGLDevice : kD3DDevice;

  for (const char* key : kTextureKeys)
    config.gpuPermille += TextureLevel(ini, key) * kGpuPerTextureStep;
  for (const DetailSwitch& s : kSwitches) {
    const char* section = s.onRenderDevice ? deviceSection : kClient;
    if (ReadBool(ini, section, s.key, s.byDefault) == s.costsWhen) {
      config.gpuPermille += s.gpu;
      config.cpuPermille += s.cpu;
    }
  }
  config.cpuPermille += PhysicsCost(ini);
  config.viewportX = ViewportSize(ini, "FullscreenViewportX", 640);
  config.viewportY = ViewportSize(ini, "FullscreenViewportY", 480);
  return config;
}

GameConfig DefaultGameConfig() {
  IniFile defaults(
      std::string("[Core.System]\nPaths=../System/*.u\n[Engine.Engine]\nRenderDevice=") +
      kD3DDevice + "\n");
  return ReadGameConfig(defaults);
}

const char* RendererName(Renderer renderer) { return renderer == Renderer::OGL ? "OGL" : "D3D"; }

}  // namespace standin
