#include "toolkit/controls/ScrollThumb.h"

#include "toolkit/render/Painter.h"

#include <algorithm>

namespace Toolkit {

namespace {
constexpr float ShortestThumb = 20;
/// A bar at rest is this wide and stands off the edge by as much as a wide one does.
constexpr float RestingWidth = 4, HoveredWidth = 7, EdgeGap = 1.5f;
} // namespace

bool ScrollThumb::ScrollTo(float wanted) {
  wanted = std::clamp(wanted, 0.0f, std::max(0.0f, extent - Page()));
  if (wanted == offset) return false;
  offset = wanted;
  return true;
}

bool ScrollThumb::Show(float top, float height) {
  if (top < offset || height > Page()) return ScrollTo(top);
  if (top + height > offset + Page()) return ScrollTo(top + height - Page());
  return false;
}

Rect ScrollThumb::Track() const {
  if (!IsNeeded()) return {};
  if (axis == Axis::Horizontal) return {viewport.x, viewport.Bottom() - Width, viewport.width, Width};
  return {viewport.Right() - Width, viewport.y, Width, viewport.height};
}

Rect ScrollThumb::Thumb() const {
  const Rect track = Track();
  const float room = Length(track);
  if (room <= 0) return {};
  const float length = std::clamp(room * Page() / extent, std::min(ShortestThumb, room), room);
  const float at = Start(track) + (room - length) * offset / (extent - Page());
  if (axis == Axis::Horizontal) return {at, track.y, length, Width};
  return {track.x, at, Width, length};
}

bool ScrollThumb::Press(Point point) {
  if (!Track().Contains(point)) return false;
  const Rect thumb = Thumb();
  if (thumb.Contains(point)) {
    press = PressKind::Thumb;
    grip = Along(point) - Start(thumb);
  } else {
    press = PressKind::Track;
    ScrollTo(Along(point) < Start(thumb) ? offset - Page() : offset + Page());
  }
  return true;
}

bool ScrollThumb::DragTo(Point point) {
  const Rect track = Track();
  const float way = Length(track) - Length(Thumb());
  if (press != PressKind::Thumb || way <= 0) return false;
  return ScrollTo((Along(point) - grip - Start(track)) / way * (extent - Page()));
}

bool ScrollThumb::SetHovered(bool value) {
  if (value == isHovered) return false;
  isHovered = value;
  return true;
}

void ScrollThumb::Draw(Painter& painter, const Brush* brush) const {
  if (!IsNeeded()) return;
  const float width = isHovered || IsPressed() ? HoveredWidth : RestingWidth, round = width * 0.5f;
  Rect bar = Thumb();
  if (axis == Axis::Horizontal)
    bar = {bar.x + 1, bar.Bottom() - EdgeGap - width, bar.width - 2, width};
  else
    bar = {bar.Right() - EdgeGap - width, bar.y + 1, width, bar.height - 2};
  if (painter.IsTooSmall({bar.width, bar.height})) return;
  painter.DrawRectangle(bar, {round, round, round, round}, brush, nullptr, {});
}

} // namespace Toolkit
