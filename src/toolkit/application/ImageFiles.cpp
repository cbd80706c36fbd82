#include "toolkit/application/ImageFiles.h"

#include "toolkit/controls/Image.h"
#include "toolkit/render/ImageStore.h"

#include <png.h>

#include <unordered_map>

namespace Toolkit {

namespace {
std::string& Root() {
  static auto* root = new std::string();
  return *root;
}
std::unordered_map<std::string, Size>& Sizes() {
  static auto* sizes = new std::unordered_map<std::string, Size>();
  return *sizes;
}

std::string FullPath(std::string_view path) {
  return Root().empty() ? std::string(path) : Root() + "/" + std::string(path);
}
} // namespace

void ImageFiles::SetRoot(std::string root) {
  Root() = std::move(root);
  Sizes().clear();
  Image::SetSizeProvider(&ImageFiles::SizeOf);
}

Size ImageFiles::SizeOf(std::string_view path) {
  if (path.empty()) return {};
  auto [entry, isNew] = Sizes().try_emplace(std::string(path));
  if (isNew) {
    const std::string file = FullPath(path);
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_file(&image, file.c_str())) {
      entry->second = {static_cast<float>(image.width), static_cast<float>(image.height)};
      png_image_free(&image);
    }
  }
  return entry->second;
}

std::shared_ptr<const Bitmap> ImageFiles::Find(std::string_view path) {
  return path.empty() ? nullptr : ImageStore::Instance().Load(FullPath(path));
}

} // namespace Toolkit
