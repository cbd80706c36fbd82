#pragma once

#include "toolkit/render/DisplayList.h"
#include "toolkit/render/ImageStore.h"
#include "toolkit/render/PixelBuffer.h"

#include <memory>
#include <vector>

namespace Toolkit {

class UIElement;

/// Records the frames of one window, and knows what changed from one to the next.
class FrameRecorder {
public:
  explicit FrameRecorder(ImageFinder images) : images(std::move(images)) {}

  struct Frame {
    std::shared_ptr<const DisplayList> list;
    /// In pixels; empty if the frame looks like the one before.
    std::vector<PixelRect> damage;
  };

  /// Records the root, which is laid out in `size`, for a display of `scale` pixels per unit. After a change of size or
  /// scale all is damaged.
  Frame Record(UIElement& root, Size size, float scale);
  /// What was recorded last; null before.
  const std::shared_ptr<const DisplayList>& Last() const { return last; }

private:
  ImageFinder images;
  std::shared_ptr<const DisplayList> last;
  Size lastSize;
  float lastScale = 0;
};

} // namespace Toolkit
