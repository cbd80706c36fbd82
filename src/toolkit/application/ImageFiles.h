#pragma once

#include "toolkit/base/Geometry.h"
#include "toolkit/render/Bitmap.h"

#include <memory>
#include <string>
#include <string_view>

namespace Toolkit {

/// The image files that documents name, below one directory.
class ImageFiles {
public:
  /// An empty root means the current directory. Images find their sizes here from now on.
  static void SetRoot(std::string root);
  /// The image's size in pixels, read from the file's head and then remembered; zero if there is no such image.
  static Size SizeOf(std::string_view path);
  /// The picture, decoded once; null, with one log line, if there is none.
  static std::shared_ptr<const Bitmap> Find(std::string_view path);
};

} // namespace Toolkit
