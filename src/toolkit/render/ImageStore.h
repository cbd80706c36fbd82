#pragma once

#include "toolkit/render/Bitmap.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace Toolkit {

/// Finds the picture that a document names; null if there is none.
using ImageFinder = std::function<std::shared_ptr<const Bitmap>(std::string_view path)>;

/// The pictures that were asked for, decoded once. Used on the user interface's thread.
class ImageStore {
public:
  /// The program's store.
  static ImageStore& Instance();

  /// The PNG file at a full path. Null, with one log line at the first time, if it is missing or broken.
  std::shared_ptr<const Bitmap> Load(const std::string& path);
  /// Forgets all pictures; those in use stay alive with their users.

private:
  std::unordered_map<std::string, std::shared_ptr<const Bitmap>> bitmaps;
};

} // namespace Toolkit
