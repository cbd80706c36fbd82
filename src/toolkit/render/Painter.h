#pragma once

#include "toolkit/render/DisplayList.h"

#include <memory>
#include <span>
#include <vector>

namespace Toolkit {

class Brush;
class PathGeometry;

/// Records a display list. Coordinates are device-independent pixels of the element that is drawn; brushes are
/// resolved at once, so later changes of a brush do not reach the list. What would paint nothing (no brush, no area,
/// numbers that are not finite) is left out.
class Painter {
public:
  /// `images` finds the pictures of image brushes; it must outlive the painter.
  explicit Painter(const ImageFinder* images = nullptr);
  /// For a nested list: the same images, and a detail of its own.
  Painter Nested(float detail) const;

  /// What of the list will be seen, and how many pixels one unit of the list's coordinates comes to: for those who
  /// record to leave out what would not show. Everything, and 1, unless set.
  void SetView(const Rect& visible, float detail);
  /// The part of the current coordinates that is seen: the view within the clips pushed so far.
  Rect VisibleArea() const;
  /// Pixels for one unit of the current coordinates.
  float Detail() const;
  /// True if a box of this size would hardly make a pixel; the painter remembers that something was left out.
  bool IsTooSmall(const Size& size);
  /// For who draws something simpler at this detail: the painter remembers that.
  void LeaveOut() { leftOut = true; }
  bool HasLeftOut() const { return leftOut; }
  const ImageFinder* Images() const { return images; }

  void DrawRectangle(const Rect& rect, const Brush* fill);
  /// The border lies inside of `rect`, the fill inside of the border.
  void DrawRectangle(const Rect& rect, const CornerRadius& radii, const Brush* fill, const Brush* border,
                     const Thickness& borderThickness);
  /// The outline's stroke lies half inside and half outside.
  void DrawEllipse(const Rect& box, const Brush* fill, const Brush* stroke, float thickness);
  /// Line ends are flat and joints round. `dashes` are lengths, drawn and left out in turn, in multiples of the
  /// thickness. A fill follows the even-odd rule.
  void DrawPath(const PathGeometry& geometry, const Brush* fill, const Brush* stroke, float thickness,
                std::span<const float> dashes = {});
  void DrawPath(PathOutline outline, const Brush* fill, const Brush* stroke, float thickness,
                std::span<const float> dashes = {});
  void DrawLine(Point from, Point to, const Brush* stroke, float thickness, std::span<const float> dashes = {});
  /// `origin` is the layout's upper left corner.
  void DrawText(std::shared_ptr<const TextLayout> layout, Point origin, const Brush* brush);
  void DrawImage(std::shared_ptr<const Bitmap> image, const Rect& rect);
  /// Repeats the image, one copy filling `tile`, over `rect`.
  void DrawTiledImage(std::shared_ptr<const Bitmap> image, const Rect& rect, const Rect& tile);
  /// The shadow of a box that stands at `box` already moved to where it falls, soft over `blurRadius` to both sides.
  void DrawShadow(const Rect& box, float cornerRadius, float blurRadius, const Color& color);
  /// A null or empty list draws nothing.
  void DrawList(std::shared_ptr<const DisplayList> list, Point offset = {});

  /// Each push ends with the `Pop` that matches it.
  void PushTransform(const Matrix& transform);
  void PushClip(const Rect& rect, const CornerRadius& radii = {});
  /// What is drawn until `Pop` shows through as a whole.
  void PushOpacity(float opacity);
  void Pop();

  /// The list recorded so far; the painter is empty afterwards. Every push must have been popped.
  std::shared_ptr<const DisplayList> Finish();

private:
  struct State {
    /// The entry to close; none for a move, which is added to the coordinates.
    uint32_t entry;
    Point offset;
    Matrix matrix;
    Rect visible;
  };
  static constexpr uint32_t NoEntry = 0xffffffff;

  Rect Moved(const Rect& rect) const;
  uint16_t Use(Paint paint);
  uint16_t Use(const Brush* brush, const Rect& area);
  DisplayEntry& Add(DisplayEntry::Kind kind, const Rect& bounds, size_t payload);
  void Push(DisplayEntry::Kind kind, const Rect& bounds, size_t payload);

  const ImageFinder* images;
  std::shared_ptr<DisplayList> list;
  std::vector<State> states;
  /// Added to all coordinates; then `matrix` leads to the list's own.
  Point offset;
  Matrix matrix;
  /// In the list's own coordinates.
  Rect visible;
  float detail = 1;
  bool leftOut = false;
};

} // namespace Toolkit
