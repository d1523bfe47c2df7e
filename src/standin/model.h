// The benchmark flyby: a fixed number of frames whose times follow the level, the screen
// size, the renderer and the detail, varied frame by frame from a seed. All arithmetic is on
// whole numbers, so a run gives the same digits on every machine.
#pragma once

#include <cstdint>
#include <string>

#include "standin/game_config.h"

namespace standin {

struct Level {
  const char* name;  // as the game spells the map
  int cpuMicros;     // processor time of a frame at the lowest detail
  int fillPermille;  // how much the card draws per pixel, 1000 for a typical level
};

// The level of that name in any case, or null for a map the game does not have.
const Level* FindLevel(const std::string& name);

struct RunInputs {
  const Level* level;
  int width, height;
  Renderer renderer;
  int gpuPermille, cpuPermille;
  bool noSound;
  int seconds;  // from 1
};

// Rates are in millionths of a frame per second.
struct RunResult {
  std::uint64_t low, average, high, score;
  std::uint32_t seed;
  std::uint64_t totalMicros;  // the time of all frames, the dropped ones included
};

const int kFramesPerSecond = 30;  // the flyby's fixed tick
const int kDroppedFrames = 10;    // the first frames, while the level settles

RunResult RunBenchmark(const RunInputs& inputs);

}  // namespace standin
