#pragma once

#include "toolkit/base/Geometry.h"
#include "toolkit/base/Observable.h"

namespace Tesselor {

/// The cut line in panel coordinates, as its bindings see it. A coordinate counts as changed only if it moved by more
/// than the smallest step of a 32-bit float at 1.
class BasicLine : public Toolkit::NotifyPropertyChangedBase {
  TOOLKIT_TYPE(BasicLine)
public:
  BasicLine() = default;
  float GetX1() const { return x1; }
  float GetY1() const { return y1; }
  float GetX2() const { return x2; }
  float GetY2() const { return y2; }
  void SetX1(float value);
  void SetY1(float value);
  void SetX2(float value);
  void SetY2(float value);
  void SetEnds(Toolkit::Point from, Toolkit::Point to);

private:
  void Set(float& coordinate, float value, const char* name);

  float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
};

} // namespace Tesselor
