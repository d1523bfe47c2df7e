#include "standin/model.h"

#include <algorithm>

#include "standin/text.h"

namespace standin {

namespace {

// Open arenas cost the processor more (more to see, more actors); the fill weight stands for
// overdraw: terrain, sky and water.
const Level kLevels[] = {
    {"BR-Anubis", 6100, 1050},         {"BR-Bifrost", 6600, 1150},
    {"BR-Disclosure", 5600, 950},      {"BR-IceFields", 6900, 1200},
    {"BR-Skyline", 7100, 1250},        {"BR-Slaughterhouse", 5700, 950},
    {"BR-TwinTombs", 6200, 1050},      {"CTF-Chrome", 5300, 900},
    {"CTF-Citadel", 6800, 1200},       {"CTF-December", 6300, 1100},
    {"CTF-Face3", 7200, 1300},         {"CTF-Geothermal", 5900, 1000},
    {"CTF-LostFaith", 6100, 1050},     {"CTF-Magma", 6400, 1100},
    {"CTF-Maul", 6600, 1150},          {"CTF-Orbital2", 5800, 1000},
    {"DM-Antalus", 6900, 1250},        {"DM-Asbestos", 4900, 850},
    {"DM-Compressed", 5000, 850},      {"DM-Curse3", 5500, 950},
    {"DM-Flux2", 5100, 900},           {"DM-Gael", 5400, 950},
    {"DM-Inferno", 6000, 1000},        {"DM-Insidious", 5300, 900},
    {"DM-Leviathan", 5900, 1050},      {"DM-Oceanic", 6000, 1100},
    {"DM-Phobos2", 5700, 1000},        {"DM-Plunge", 5800, 1000},
    {"DM-Serpentine", 5600, 950},      {"DM-TokaraForest", 7000, 1300},
    {"DM-TrainingDay", 4800, 850},     {"DOM-Core", 5600, 950},
    {"DOM-OutRigger", 6300, 1100},     {"DOM-Ruination", 6000, 1050},
    {"DOM-ScorchedEarth", 6700, 1200}, {"DOM-SepukkuGorge", 6500, 1150},
    {"DOM-SunTemple", 6400, 1150},
};

const std::uint64_t kPicosPerPixel = 2300;  // card time of one pixel at the lowest detail
const int kSegmentFrames = 90;              // the flyby changes its view every three seconds

// Per renderer: its driver's share of processor time and of card time, in thousandths.
int CpuWeight(Renderer renderer) { return renderer == Renderer::OGL ? 1040 : 1000; }
int GpuWeight(Renderer renderer) { return renderer == Renderer::OGL ? 1080 : 1000; }

// FNV-1a: a fixed, well-spread number from the run's inputs.
std::uint32_t Hash(const std::string& text) {
  std::uint32_t hash = 2166136261u;
  for (char c : text) {
    hash ^= static_cast<unsigned char>(c);
    hash *= 16777619u;
  }
  return hash;
}

// xorshift32: the same sequence from the same seed on every machine.
class Random {
 public:
  explicit Random(std::uint32_t seed) : state_(seed ? seed : 1u) {}
  // A whole number from 0 to range - 1.
  std::uint32_t Below(std::uint32_t range) {
    state_ ^= state_ << 13;
    state_ ^= state_ >> 17;
    state_ ^= state_ << 5;
    return state_ % range;
  }

 private:
  std::uint32_t state_;
};

std::uint64_t Scale(std::uint64_t value, int permille) {
  return value * static_cast<std::uint64_t>(permille) / 1000;
}

// Millionths of a frame per second, rounded, for `frames` frames in `micros` microseconds.
std::uint64_t Rate(std::uint64_t frames, std::uint64_t micros) {
  return (frames * 1000000000000ULL + micros / 2) / micros;
}

}  // namespace

const Level* FindLevel(const std::string& name) {
  for (const Level& level : kLevels) {
    if (EqualsNoCase(level.name, name)) return &level;
  }
  return nullptr;
}

RunResult RunBenchmark(const RunInputs& in) {
  const std::string inputs = std::string(in.level->name) + "|" + std::to_string(in.width) + "x" +
                             std::to_string(in.height) + "|" + RendererName(in.renderer) + "|" +
                             std::to_string(in.gpuPermille) + "|" + std::to_string(in.cpuPermille) +
                             "|" + std::to_string(in.seconds);
  RunResult result{};
  result.seed = Hash(inputs);
  Random random(result.seed);

  // The processor and the card work side by side; the slower one sets the pace and a quarter
  // of the other's time is not hidden behind it.
  std::uint64_t cpu = Scale(Scale(in.level->cpuMicros, in.cpuPermille), CpuWeight(in.renderer));
  if (!in.noSound) cpu = Scale(cpu, 1050);
  const std::uint64_t pixels =
      static_cast<std::uint64_t>(in.width) * static_cast<std::uint64_t>(in.height);
  std::uint64_t gpu = pixels * kPicosPerPixel / 1000;  // nanoseconds
  gpu = Scale(Scale(Scale(gpu, in.level->fillPermille), in.gpuPermille), GpuWeight(in.renderer)) /
        1000;
  const std::uint64_t frameMicros = std::max(cpu, gpu) + std::min(cpu, gpu) / 4;

  const int frames = in.seconds * kFramesPerSecond;
  // The scene's weight, in thousandths, glides from one view of the flyby to the next.
  std::uint32_t from = 0, to = 800 + random.Below(550);
  std::uint64_t counted = 0, countedMicros = 0, sumOfRates = 0, slowest = 0, fastest = ~0ULL;
  for (int frame = 0; frame < frames; ++frame) {
    const int step = frame % kSegmentFrames;
    if (step == 0) {
      from = to;
      to = 800 + random.Below(550);
    }
    std::int64_t weight =
        (std::int64_t{from} * (kSegmentFrames - step) + std::int64_t{to} * step) / kSegmentFrames;
    weight += std::int64_t{random.Below(101)} - 50;                 // jitter of 5 %
    if (random.Below(160) == 0) weight += 500 + random.Below(700);  // a hitch: loading, effects
    const std::uint64_t micros =
        std::max<std::uint64_t>(1, Scale(frameMicros, static_cast<int>(weight)));
    result.totalMicros += micros;
    if (frame < kDroppedFrames) continue;
    ++counted;
    countedMicros += micros;
    sumOfRates += Rate(1, micros);
    slowest = std::max(slowest, micros);
    fastest = std::min(fastest, micros);
  }
  result.low = Rate(1, slowest);
  result.high = Rate(1, fastest);
  result.average = Rate(counted, countedMicros);
  result.score = sumOfRates / counted;
  return result;
}

}  // namespace standin
