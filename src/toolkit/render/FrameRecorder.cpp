#include "toolkit/render/FrameRecorder.h"

#include "toolkit/render/DisplayListDamage.h"
#include "toolkit/render/Painter.h"
#include "toolkit/visual/UIElement.h"

#include <cmath>

namespace Toolkit {

FrameRecorder::Frame FrameRecorder::Record(UIElement& root, Size size, float scale) {
  Painter painter(&images);
  painter.SetView({0, 0, size.width, size.height}, scale);
  root.Render(painter);
  Frame frame;
  frame.list = painter.Finish();
  const PixelRect target{0, 0, static_cast<int>(std::ceil(size.width * scale)),
                         static_cast<int>(std::ceil(size.height * scale))};
  if (last && lastSize == size && lastScale == scale)
    frame.damage = FindDamage(*last, *frame.list, Matrix::Scale(scale, scale), target);
  else
    frame.damage = {target};
  last = frame.list;
  lastSize = size;
  lastScale = scale;
  return frame;
}

} // namespace Toolkit
