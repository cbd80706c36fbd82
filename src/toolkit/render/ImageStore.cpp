#include "toolkit/render/ImageStore.h"

#include "toolkit/base/Diagnostics.h"
#include "toolkit/render/RowOperations.h"

#include <png.h>

namespace Toolkit {

namespace {

/// Larger pictures are taken for broken files: decoding one would exhaust the memory.
constexpr uint64_t MaximumPixels = 64u << 20;

std::shared_ptr<const Bitmap> Decode(const std::string& path, std::string& error) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  if (!png_image_begin_read_from_file(&image, path.c_str())) {
    error = image.message;
    return nullptr;
  }
  if (image.width == 0 || image.height == 0 || uint64_t{image.width} * image.height > MaximumPixels) {
    png_image_free(&image);
    error = "unusable size";
    return nullptr;
  }
  image.format = PNG_FORMAT_RGBA;
  std::vector<uint8_t> bytes(PNG_IMAGE_SIZE(image));
  if (!png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr)) {
    error = image.message;
    return nullptr;
  }
  std::vector<Pixel> pixels(size_t{image.width} * image.height);
  for (size_t i = 0; i < pixels.size(); ++i) {
    const uint8_t* rgba = &bytes[i * 4];
    const uint32_t alpha = rgba[3];
    pixels[i] =
        alpha << 24 | Divide255(rgba[0] * alpha) << 16 | Divide255(rgba[1] * alpha) << 8 | Divide255(rgba[2] * alpha);
  }
  return std::make_shared<Bitmap>(static_cast<int>(image.width), static_cast<int>(image.height), std::move(pixels));
}

} // namespace

ImageStore& ImageStore::Instance() {
  static ImageStore instance;
  return instance;
}

std::shared_ptr<const Bitmap> ImageStore::Load(const std::string& path) {
  const auto [entry, isNew] = bitmaps.try_emplace(path);
  if (isNew) {
    std::string error;
    entry->second = Decode(path, error);
    if (!entry->second) TOOLKIT_WARN("Image", "The image '" + path + "' cannot be read: " + error + ".");
  }
  return entry->second;
}

} // namespace Toolkit
