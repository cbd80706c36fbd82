#include "Picture.h"

#include <gtest/gtest.h>
#include <png.h>

#include <algorithm>
#include <cmath>

namespace TestSupport {

Picture Picture::Part(const Toolkit::Rect& part) const {
  const int left = std::max(0, static_cast<int>(std::floor(part.x)));
  const int top = std::max(0, static_cast<int>(std::floor(part.y)));
  const int right = std::min(width, static_cast<int>(std::ceil(part.Right())));
  const int bottom = std::min(height, static_cast<int>(std::ceil(part.Bottom())));
  Picture cut(std::max(0, right - left), std::max(0, bottom - top));
  for (int y = 0; y < cut.height; ++y)
    for (int x = 0; x < cut.width; ++x) cut.pixels[static_cast<size_t>(y * cut.width + x)] = At(left + x, top + y);
  return cut;
}

void Picture::WritePng(const std::string& path) const {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(width);
  image.height = static_cast<png_uint_32>(height);
  image.format = PNG_FORMAT_BGRA;
  png_image_write_to_file(&image, path.c_str(), 0, pixels.data(), 0, nullptr);
}

Picture Picture::ReadPng(const std::string& path) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  if (!png_image_begin_read_from_file(&image, path.c_str())) return {0, 0};
  image.format = PNG_FORMAT_BGRA;
  Picture picture(static_cast<int>(image.width), static_cast<int>(image.height));
  if (!png_image_finish_read(&image, nullptr, picture.pixels.data(), 0, nullptr)) return {0, 0};
  return picture;
}

void ExpectEqual(const Picture& actual, const Picture& expected, const std::string& name) {
  const std::string path = std::string(TESSELOR_TEST_OUTPUT_DIR) + "/" + name;
  if (actual.width != expected.width || actual.height != expected.height) {
    actual.WritePng(path + ".actual.png");
    ADD_FAILURE() << name << " is " << actual.width << " x " << actual.height << ", expected " << expected.width
                  << " x " << expected.height << "; see " << path << ".actual.png";
    return;
  }
  if (actual.pixels == expected.pixels) return;
  Picture difference(actual.width, actual.height);
  int count = 0;
  for (size_t i = 0; i < actual.pixels.size(); ++i)
    if (actual.pixels[i] != expected.pixels[i] && ++count) difference.pixels[i] = 0xffff0000;
  actual.WritePng(path + ".actual.png");
  expected.WritePng(path + ".expected.png");
  difference.WritePng(path + ".difference.png");
  ADD_FAILURE() << count << " pixels differ; see " << path << ".*.png";
}

} // namespace TestSupport
