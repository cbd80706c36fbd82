#pragma once

#include "toolkit/base/Geometry.h"
#include "toolkit/base/Observable.h"

namespace Tesselor {

/// The rubber-band rectangle in panel coordinates, as its bindings see it. A coordinate counts as changed only if it
/// moved by more than the smallest step of a 32-bit float at 1.
class BasicRectangle : public Toolkit::NotifyPropertyChangedBase {
  TOOLKIT_TYPE(BasicRectangle)
public:
  BasicRectangle() = default;
  float GetX() const { return x; }
  float GetY() const { return y; }
  float GetWidth() const { return width; }
  float GetHeight() const { return height; }
  void SetX(float value);
  void SetY(float value);
  void SetWidth(float value);
  void SetHeight(float value);
  Toolkit::Rect Get() const { return {x, y, width, height}; }
  void Set(const Toolkit::Rect& rect);

private:
  void Set(float& coordinate, float value, const char* name);

  float x = 0, y = 0, width = 0, height = 0;
};

} // namespace Tesselor
