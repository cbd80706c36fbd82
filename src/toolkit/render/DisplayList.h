#pragma once

#include "toolkit/render/Paint.h"
#include "toolkit/render/PathOutline.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace Toolkit {

class TextLayout;
class DisplayList;

/// One drawing step. What does not fit stands in the list's side tables, at `payload`.
struct DisplayEntry {
  enum class Kind : uint8_t {
    /// `bounds` with `paint`.
    PlainRectangle,
    /// `bounds` with a BoxShape: radii and a border of `secondPaint`.
    Box,
    /// A PathShape with fill `paint` and stroke `secondPaint`.
    Path,
    Text,
    /// A ShadowShape with `paint`.
    Shadow,
    List,
    /// Up to the matching Pop, whose index is `end`: a matrix, a clip (`bounds` with radii), an opacity.
    PushTransform,
    PushClip,
    PushOpacity,
    Pop,
  };
  static constexpr uint16_t NoPaint = 0xffff;

  Kind kind = Kind::Pop;
  uint16_t paint = NoPaint, secondPaint = NoPaint;
  uint32_t payload = 0;
  uint32_t end = 0;
  /// All that the entry paints, in the list's coordinates inside the pushed transforms.
  Rect bounds;
};

/// A recorded drawing that never changes. Made by a Painter, drawn by a rasteriser on any thread, and shared: a node
/// keeps its list until it changes, and the canvas's list refers to it.
class DisplayList {
public:
  struct BoxShape {
    CornerRadius radii;
    Thickness border;
  };
  struct PathShape {
    PathOutline outline;
    Point offset;
    float thickness = 0;
    /// Lengths in the list's coordinates, drawn and left out in turn; empty for a solid line.
    std::vector<float> dashes;
  };
  struct TextShape {
    std::shared_ptr<const TextLayout> layout;
    Point origin;
    float size = 0;
  };
  struct ShadowShape {
    Rect box;
    float radius = 0;
    /// Half the width of the soft edge.
    float blur = 0;
  };
  struct ListShape {
    std::shared_ptr<const DisplayList> list;
    Point offset;
  };

  /// The box of all that is painted, clips left aside; empty if nothing is.
  const Rect& Bounds() const { return bounds; }
  bool IsEmpty() const { return entries.empty(); }
  /// What the list holds in memory, nested lists and shared layouts and images left aside.
  size_t ByteSize() const;

  const std::vector<DisplayEntry>& Entries() const { return entries; }
  const Paint& PaintAt(uint16_t index) const { return paints[index]; }
  const BoxShape& BoxAt(uint32_t index) const { return boxes[index]; }
  const PathShape& PathAt(uint32_t index) const { return paths[index]; }
  const TextShape& TextAt(uint32_t index) const { return texts[index]; }
  const ShadowShape& ShadowAt(uint32_t index) const { return shadows[index]; }
  const ListShape& ListAt(uint32_t index) const { return lists[index]; }
  const Matrix& MatrixAt(uint32_t index) const { return matrices[index]; }
  float OpacityAt(uint32_t index) const { return opacities[index]; }

private:
  friend class Painter;

  Rect bounds;
  std::vector<DisplayEntry> entries;
  std::vector<Paint> paints;
  std::vector<BoxShape> boxes;
  std::vector<PathShape> paths;
  std::vector<TextShape> texts;
  std::vector<ShadowShape> shadows;
  std::vector<ListShape> lists;
  std::vector<Matrix> matrices;
  std::vector<float> opacities;
};

} // namespace Toolkit
