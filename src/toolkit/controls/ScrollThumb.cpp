#include "toolkit/controls/ScrollThumb.h"

#include "toolkit/render/Painter.h"

#include <algorithm>

namespace Toolkit {

namespace {
constexpr float ShortestThumb = 20;
} // namespace

bool ScrollThumb::ScrollTo(float wanted) {
  wanted = std::clamp(wanted, 0.0f, std::max(0.0f, extent - viewport.height));
  if (wanted == offset) return false;
  offset = wanted;
  return true;
}

bool ScrollThumb::Show(float top, float height) {
  if (top < offset) return ScrollTo(top);
  if (top + height > offset + viewport.height) return ScrollTo(top + height - viewport.height);
  return false;
}

Rect ScrollThumb::Track() const {
  if (!IsNeeded()) return {};
  return {viewport.Right() - Width, viewport.y, Width, viewport.height};
}

Rect ScrollThumb::Thumb() const {
  const Rect track = Track();
  if (track.height <= 0) return {};
  const float length =
      std::clamp(track.height * viewport.height / extent, std::min(ShortestThumb, track.height), track.height);
  const float way = extent - viewport.height;
  return {track.x, track.y + (track.height - length) * (way > 0 ? offset / way : 0), Width, length};
}

bool ScrollThumb::Press(Point point) {
  if (!Track().Contains(point)) return false;
  const Rect thumb = Thumb();
  grip = thumb.Contains(point) ? point.y - thumb.y : thumb.height * 0.5f;
  isDragged = true;
  return true;
}

bool ScrollThumb::DragTo(Point point) {
  const Rect track = Track(), thumb = Thumb();
  const float way = track.height - thumb.height;
  if (!isDragged || way <= 0) return false;
  return ScrollTo((point.y - grip - track.y) / way * (extent - viewport.height));
}

void ScrollThumb::Draw(Painter& painter, const Brush* brush) const {
  if (!IsNeeded()) return;
  const Rect thumb = Thumb();
  painter.DrawRectangle({thumb.x + 3, thumb.y + 1, Width - 5, thumb.height - 2}, {2.5f, 2.5f, 2.5f, 2.5f}, brush,
                        nullptr, {});
}

} // namespace Toolkit
