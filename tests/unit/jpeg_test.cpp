#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/jpeg.h"

namespace {

std::string Bytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  EXPECT_TRUE(in) << path;
  return std::string(std::istreambuf_iterator<char>(in), {});
}

bool Decode(const std::string& bytes, jpeg::Image& image) {
  return jpeg::Decode(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size(), image);
}

// The logo as the program stores it (full colour resolution), and the same picture with its
// colour sampled at half resolution and restart markers, and in grey: each pixel of a flat
// region as a reference decoder gives it, give or take the rounding of the transform.
TEST(Jpeg, DecodesTheKindsOfBaselineFile) {
  const std::string golden = KELVARNITE_GOLDEN_DIR;
  const struct {
    std::string file;
    int rgb[5][3];
  } rows[] = {
      {KELVARNITE_DATA_DIR "/logo.jpg",
       {{92, 99, 109}, {198, 199, 204}, {250, 250, 250}, {40, 43, 50}, {254, 0, 39}}},
      {golden + "/logo-420-restart.jpg",
       {{94, 98, 107}, {204, 204, 206}, {252, 252, 252}, {39, 44, 50}, {255, 0, 40}}},
      {golden + "/logo-grey.jpg", {{98, 98, 98}, {204, 204, 204}, {252, 252, 252}, {43, 43, 43}, {57, 57, 57}}},
  };
  const int points[5][2] = {{0, 0}, {40, 40}, {150, 30}, {300, 20}, {342, 82}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.file);
    jpeg::Image image;
    ASSERT_TRUE(Decode(Bytes(row.file), image));
    ASSERT_EQ(image.width * 1000 + image.height, 343 * 1000 + 83);
    for (int p = 0; p < 5; ++p) {
      const std::uint8_t* pixel = &image.rgb[(points[p][1] * image.width + points[p][0]) * 3];
      for (int c = 0; c < 3; ++c) EXPECT_NEAR(pixel[c], row.rgb[p][c], 2) << p << " " << c;
    }
  }
  // Components in scans of their own, 17 pixels wide: column 16 has its own colour blocks
  // (tests/golden/make-jpegs.py), with Y 128, Cb 190 and Cr 128.
  jpeg::Image image;
  ASSERT_TRUE(Decode(Bytes(golden + "/odd-width-scans.jpg"), image));
  const int odd[] = {128, 107, 238};
  for (int c = 0; c < 3; ++c) EXPECT_NEAR(image.rgb[16 * 3 + c], odd[c], 2) << c;
  // A progressive file, a file cut short, a DC value beyond any 8-bit picture and a frame over
  // 4096 pixels a side are refused.
  EXPECT_FALSE(Decode(Bytes(golden + "/logo-progressive.jpg"), image));
  EXPECT_FALSE(Decode(Bytes(KELVARNITE_DATA_DIR "/logo.jpg").substr(0, 3000), image));
  EXPECT_FALSE(Decode(Bytes(golden + "/dc-overflow.jpg"), image));
  EXPECT_FALSE(Decode(Bytes(golden + "/wide.jpg"), image));
}

}  // namespace
