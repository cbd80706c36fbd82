#include "toolkit/render/RowOperations.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace Toolkit {
namespace {

Pixel RandomPixel(std::mt19937& random) {
  const uint32_t alpha = random() % 4 == 0 ? 255 : random() % 256;
  return alpha << 24 | random() % (alpha + 1) << 16 | random() % (alpha + 1) << 8 | random() % (alpha + 1);
}

/// Every width up to a few registers, so that all remainders occur; masks of nothing, of everything and in between.
TEST(RowOperations, GiveTheSamePixelsInBothForms) {
  std::mt19937 random(7);
  const RowOperations& plain = RowOperations::Plain();
  const RowOperations& wide = RowOperations::Fastest();
  for (int round = 0; round < 600; ++round) {
    const int count = round % 23;
    std::vector<Pixel> row(25), source(25);
    std::vector<uint8_t> mask(25);
    for (size_t i = 0; i < row.size(); ++i) {
      row[i] = RandomPixel(random);
      source[i] = RandomPixel(random);
      mask[i] = round % 3 == 0 ? 255 : round % 3 == 1 ? 0 : static_cast<uint8_t>(random());
    }
    const Pixel color = RandomPixel(random);
    const auto compare = [&](const char* name, auto&& operation) {
      std::vector<Pixel> first = row, second = row;
      operation(plain, first.data());
      operation(wide, second.data());
      ASSERT_EQ(first, second) << name << ", width " << count;
      for (size_t i = static_cast<size_t>(count); i < row.size(); ++i)
        ASSERT_EQ(second[i], row[i]) << name << " wrote behind the row's end";
    };
    compare("blendColor", [&](const RowOperations& o, Pixel* to) { o.blendColor(to, count, color); });
    compare("blendColorMask",
            [&](const RowOperations& o, Pixel* to) { o.blendColorMask(to, mask.data(), count, color); });
    compare("blendPixels", [&](const RowOperations& o, Pixel* to) { o.blendPixels(to, source.data(), count); });
    compare("blendPixelsMask",
            [&](const RowOperations& o, Pixel* to) { o.blendPixelsMask(to, source.data(), mask.data(), count); });

    StrokeSegment segment;
    segment.x = static_cast<float>(random() % 2000) / 100;
    segment.y = static_cast<float>(random() % 400) / 100;
    const float angle = static_cast<float>(random() % 628) / 100;
    segment.directionX = std::cos(angle);
    segment.directionY = std::sin(angle);
    segment.length = static_cast<float>(random() % 3000) / 100;
    segment.reach = 0.5f + static_cast<float>(random() % 500) / 100;
    segment.flatStart = round % 4 == 0;
    segment.flatEnd = round % 5 == 0;
    std::vector<uint8_t> first = mask, second = mask;
    plain.coverSegment(first.data(), count, 3, 2, segment);
    wide.coverSegment(second.data(), count, 3, 2, segment);
    ASSERT_EQ(first, second) << "coverSegment, width " << count;
  }
}

TEST(RowOperations, BlendWithExactEnds) {
  for (const RowOperations* operations : {&RowOperations::Plain(), &RowOperations::Fastest()}) {
    const Pixel below = 0xff336699, color = 0xffc08040;
    std::vector<Pixel> row(7, below);
    const uint8_t mask[7] = {0, 255, 0, 255, 128, 0, 255};
    operations->blendColorMask(row.data(), mask, 7, color);
    EXPECT_EQ(row[0], below);
    EXPECT_EQ(row[1], color);
    EXPECT_EQ(row[5], below);
    EXPECT_EQ(row[6], color);
    EXPECT_EQ(row[4], 0xff79736cu);
    // Half of white over nothing stays premultiplied.
    std::vector<Pixel> empty(4, 0);
    const uint8_t half[4] = {128, 128, 128, 128};
    operations->blendColorMask(empty.data(), half, 4, 0xffffffff);
    EXPECT_EQ(empty[2], 0x80808080u);
  }
}

} // namespace
} // namespace Toolkit
