#include "platform/jpeg.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace jpeg {
namespace {

// Where each coefficient of the zig-zag order stands in the 8x8 block.
constexpr std::uint8_t kNatural[64] = {
    0,  1,  8,  16, 9,  2,  3,  10, 17, 24, 32, 25, 18, 11, 4,  5,  12, 19, 26, 33, 40, 48,
    41, 34, 27, 20, 13, 6,  7,  14, 21, 28, 35, 42, 49, 56, 57, 50, 43, 36, 29, 22, 15, 23,
    30, 37, 44, 51, 58, 59, 52, 45, 38, 31, 39, 46, 53, 60, 61, 54, 47, 55, 62, 63};

constexpr double kPi = 3.14159265358979323846;

struct Huffman {
  std::uint8_t symbols[256] = {};
  int minCode[17] = {}, maxCode[17] = {}, first[17] = {};
};

struct Component {
  int id = 0, h = 1, v = 1, quant = 0, dcTable = 0, acTable = 0, predictor = 0;
  int stride = 0;  // of the plane, in samples
  std::vector<std::uint8_t> plane;
};

class Decoder {
 public:
  Decoder(const std::uint8_t* data, std::size_t size) : at_(data), end_(data + size) {}

  bool Run(Image& image) {
    if (Byte() != 0xFF || Byte() != 0xD8) return false;
    bool framed = false;
    for (;;) {
      if (at_ >= end_ || Byte() != 0xFF) return false;
      std::uint8_t marker = Byte();
      while (marker == 0xFF && at_ < end_) marker = Byte();  // fill bytes
      if (marker == 0xD9) return framed && Finish(image);    // end of image
      const int length = Word() - 2;
      if (length < 0 || length > end_ - at_) return false;
      const std::uint8_t* segment = at_;
      bool ok = true;
      if (marker == 0xC0 || marker == 0xC1) {
        ok = !framed && Frame(length);
        framed = true;
      } else if ((marker >= 0xC2 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 &&
                  marker != 0xCC)) {
        return false;  // progressive, lossless or arithmetic-coded
      } else if (marker == 0xC4) {
        ok = HuffmanTables(segment + length);
      } else if (marker == 0xDB) {
        ok = QuantTables(segment + length);
      } else if (marker == 0xDD) {
        restartInterval_ = length >= 2 ? Word() : 0;
      } else if (marker == 0xDA) {
        if (!framed || !Scan(length)) return false;
        continue;  // the scan has read its segment and its coded data
      }
      if (!ok) return false;
      at_ = segment + length;
    }
  }

 private:
  std::uint8_t Byte() { return at_ < end_ ? *at_++ : 0; }
  int Word() {
    const int high = Byte();
    return high << 8 | Byte();
  }

  bool QuantTables(const std::uint8_t* segmentEnd) {
    while (at_ < segmentEnd) {
      const int info = Byte(), precision = info >> 4, table = info & 3;
      if (precision != 0) return false;
      for (int k = 0; k < 64; ++k) quant_[table][k] = Byte();
    }
    return at_ == segmentEnd;
  }

  bool HuffmanTables(const std::uint8_t* segmentEnd) {
    while (at_ < segmentEnd) {
      const int info = Byte();
      if ((info >> 4) > 1 || (info & 15) > 3) return false;
      Huffman& table = (info >> 4) == 0 ? dc_[info & 3] : ac_[info & 3];
      int counts[17] = {}, total = 0;
      for (int length = 1; length <= 16; ++length) total += counts[length] = Byte();
      if (total > 256) return false;
      for (int i = 0; i < total; ++i) table.symbols[i] = Byte();
      for (int length = 1, code = 0, index = 0; length <= 16; ++length) {
        table.first[length] = index;
        table.minCode[length] = code;
        table.maxCode[length] = counts[length] != 0 ? code + counts[length] - 1 : -1;
        code = (code + counts[length]) << 1;
        index += counts[length];
      }
    }
    return at_ == segmentEnd;
  }

  bool Frame(int length) {
    if (Byte() != 8) return false;
    height_ = Word();
    width_ = Word();
    count_ = Byte();
    if (width_ <= 0 || height_ <= 0 || width_ > 4096 || height_ > 4096 ||
        (count_ != 1 && count_ != 3) || length != 6 + 3 * count_) {
      return false;
    }
    for (int i = 0; i < count_; ++i) {
      Component& c = components_[i];
      c.id = Byte();
      const int sampling = Byte();
      c.h = sampling >> 4;
      c.v = sampling & 15;
      c.quant = Byte() & 3;
      if (c.h < 1 || c.h > 2 || c.v < 1 || c.v > 2) return false;
      maxH_ = std::max(maxH_, c.h);
      maxV_ = std::max(maxV_, c.v);
    }
    mcusAcross_ = (width_ + 8 * maxH_ - 1) / (8 * maxH_);
    mcusDown_ = (height_ + 8 * maxV_ - 1) / (8 * maxV_);
    for (int i = 0; i < count_; ++i) {
      Component& c = components_[i];
      c.stride = mcusAcross_ * c.h * 8;
      c.plane.assign(static_cast<std::size_t>(c.stride) * mcusDown_ * c.v * 8, 0);
    }
    return true;
  }

  // The coded data: bits, most significant first, with a 0xFF byte stuffed by a zero. A marker
  // ends the data; beyond it the bits read as zeros.
  int Bit() {
    if (bitCount_ == 0) {
      if (at_ >= end_ || (at_[0] == 0xFF && at_ + 1 < end_ && at_[1] != 0x00)) {
        bits_ = 0;
      } else {
        bits_ = *at_++;
        if (bits_ == 0xFF && at_ < end_) ++at_;  // the stuffed zero
      }
      bitCount_ = 8;
    }
    return (bits_ >> --bitCount_) & 1;
  }

  int Bits(int count) {
    int value = 0;
    while (count-- > 0) value = value << 1 | Bit();
    return value;
  }

  // A difference of the given size in bits: its sign is in its first bit.
  int Extended(int size) {
    if (size == 0) return 0;
    const int value = Bits(size);
    return value < (1 << (size - 1)) ? value - (1 << size) + 1 : value;
  }

  int Symbol(const Huffman& table) {
    for (int length = 1, code = 0; length <= 16; ++length) {
      code = code << 1 | Bit();
      if (code <= table.maxCode[length]) {
        return table.symbols[(table.first[length] + code - table.minCode[length]) & 255];
      }
    }
    return -1;
  }

  bool Block(Component& c, int x, int y) {
    float coefficients[64] = {};
    const int dcSize = Symbol(dc_[c.dcTable]);
    if (dcSize < 0 || dcSize > 11) return false;
    c.predictor += Extended(dcSize);
    if (c.predictor < -32768 || c.predictor > 32767) return false;  // beyond any 8-bit picture
    coefficients[0] = static_cast<float>(c.predictor * quant_[c.quant][0]);
    for (int k = 1; k < 64;) {
      const int symbol = Symbol(ac_[c.acTable]);
      if (symbol < 0) return false;
      const int run = symbol >> 4, size = symbol & 15;
      if (size == 0) {
        if (run != 15) break;  // the rest of the block is zero
        k += 16;
        continue;
      }
      k += run;
      if (k > 63) return false;
      coefficients[kNatural[k]] = static_cast<float>(Extended(size) * quant_[c.quant][k]);
      ++k;
    }
    InverseTransform(coefficients, &c.plane[static_cast<std::size_t>(y) * c.stride + x], c.stride);
    return true;
  }

  static void InverseTransform(const float* in, std::uint8_t* out, int stride) {
    static const auto cosines = [] {
      std::vector<float> table(64);
      for (int x = 0; x < 8; ++x) {
        for (int u = 0; u < 8; ++u) {
          const double scale = u == 0 ? std::sqrt(0.125) : 0.5;
          table[x * 8 + u] = static_cast<float>(scale * std::cos((2 * x + 1) * u * kPi / 16));
        }
      }
      return table;
    }();
    float rows[64];
    for (int v = 0; v < 8; ++v) {
      for (int x = 0; x < 8; ++x) {
        float sum = 0;
        for (int u = 0; u < 8; ++u) sum += cosines[x * 8 + u] * in[v * 8 + u];
        rows[v * 8 + x] = sum;
      }
    }
    for (int y = 0; y < 8; ++y) {
      for (int x = 0; x < 8; ++x) {
        float sum = 128.5f;
        for (int v = 0; v < 8; ++v) sum += cosines[y * 8 + v] * rows[v * 8 + x];
        out[y * stride + x] = static_cast<std::uint8_t>(std::clamp(sum, 0.0f, 255.0f));
      }
    }
  }

  bool Scan(int length) {
    const int count = Byte();
    if (count < 1 || count > count_ || length != 4 + 2 * count) return false;
    Component* scan[3] = {};
    for (int i = 0; i < count; ++i) {
      const int id = Byte(), tables = Byte();
      for (int j = 0; j < count_; ++j) {
        if (components_[j].id == id) scan[i] = &components_[j];
      }
      if (scan[i] == nullptr || (tables >> 4) > 3 || (tables & 15) > 3) return false;
      scan[i]->dcTable = tables >> 4;
      scan[i]->acTable = tables & 15;
      scan[i]->predictor = 0;
    }
    at_ += 3;  // spectral selection and approximation: fixed in a baseline scan
    // One component alone is coded block by block over its own size; several, by units that
    // hold each one's blocks.
    const bool single = count == 1;
    const int across = single ? (width_ * scan[0]->h + 8 * maxH_ - 1) / (8 * maxH_) : mcusAcross_;
    const int down = single ? (height_ * scan[0]->v + 8 * maxV_ - 1) / (8 * maxV_) : mcusDown_;
    bitCount_ = 0;
    for (int unit = 0; unit < across * down; ++unit) {
      if (restartInterval_ != 0 && unit != 0 && unit % restartInterval_ == 0) {
        bitCount_ = 0;
        while (at_ + 1 < end_ && !(at_[0] == 0xFF && at_[1] >= 0xD0 && at_[1] <= 0xD7)) ++at_;
        at_ += 2;
        for (int i = 0; i < count; ++i) scan[i]->predictor = 0;
      }
      const int ux = unit % across, uy = unit / across;
      for (int i = 0; i < count; ++i) {
        Component& c = *scan[i];
        const int h = single ? 1 : c.h, v = single ? 1 : c.v;
        for (int by = 0; by < v; ++by) {
          for (int bx = 0; bx < h; ++bx) {
            if (!Block(c, (ux * h + bx) * 8, (uy * v + by) * 8)) return false;
          }
        }
      }
    }
    // The next marker follows the coded data.
    while (at_ + 1 < end_ && !(at_[0] == 0xFF && at_[1] != 0x00 && (at_[1] < 0xD0 || at_[1] > 0xD7))) {
      ++at_;
    }
    return at_ + 1 < end_;
  }

  bool Finish(Image& image) {
    image.width = width_;
    image.height = height_;
    image.rgb.resize(static_cast<std::size_t>(width_) * height_ * 3);
    auto sample = [&](const Component& c, int x, int y) {
      return static_cast<float>(c.plane[static_cast<std::size_t>(y * c.v / maxV_) * c.stride + x * c.h / maxH_]);
    };
    std::uint8_t* out = image.rgb.data();
    for (int y = 0; y < height_; ++y) {
      for (int x = 0; x < width_; ++x, out += 3) {
        const float luma = sample(components_[0], x, y);
        if (count_ == 1) {
          out[0] = out[1] = out[2] = static_cast<std::uint8_t>(luma);
          continue;
        }
        const float cb = sample(components_[1], x, y) - 128, cr = sample(components_[2], x, y) - 128;
        const float rgb[3] = {luma + 1.402f * cr, luma - 0.344136f * cb - 0.714136f * cr, luma + 1.772f * cb};
        for (int i = 0; i < 3; ++i) out[i] = static_cast<std::uint8_t>(std::clamp(rgb[i] + 0.5f, 0.0f, 255.0f));
      }
    }
    return true;
  }

  const std::uint8_t* at_;
  const std::uint8_t* end_;
  std::uint16_t quant_[4][64] = {};
  Huffman dc_[4], ac_[4];
  Component components_[3];
  int count_ = 0, width_ = 0, height_ = 0, maxH_ = 1, maxV_ = 1, mcusAcross_ = 0, mcusDown_ = 0;
  int restartInterval_ = 0, bits_ = 0, bitCount_ = 0;
};

}  // namespace

bool Decode(const std::uint8_t* data, std::size_t size, Image& image) {
  if (data == nullptr) return false;
  try {
    return Decoder(data, size).Run(image);
  } catch (const std::bad_alloc&) {
    return false;  // a frame far larger than any stored picture
  }
}

}  // namespace jpeg
