#include "editor/BasicLine.h"

#include <cmath>
#include <limits>

namespace Tesselor {

TOOLKIT_TYPE_IMPL(BasicLine, Toolkit::NotifyPropertyChangedBase, "Tesselor.BasicLine")
void BasicLine::Describe(Toolkit::TypeBuilder<BasicLine>& type) {
  type.Member<&BasicLine::GetX1, &BasicLine::SetX1>("X1");
  type.Member<&BasicLine::GetY1, &BasicLine::SetY1>("Y1");
  type.Member<&BasicLine::GetX2, &BasicLine::SetX2>("X2");
  type.Member<&BasicLine::GetY2, &BasicLine::SetY2>("Y2");
}

void BasicLine::Set(float& coordinate, float value, const char* name) {
  if (std::abs(coordinate - value) <= std::numeric_limits<float>::epsilon()) return;
  coordinate = value;
  OnPropertyChanged(name);
}

void BasicLine::SetX1(float value) { Set(x1, value, "X1"); }
void BasicLine::SetY1(float value) { Set(y1, value, "Y1"); }
void BasicLine::SetX2(float value) { Set(x2, value, "X2"); }
void BasicLine::SetY2(float value) { Set(y2, value, "Y2"); }

void BasicLine::SetEnds(Toolkit::Point from, Toolkit::Point to) {
  SetX1(from.x);
  SetY1(from.y);
  SetX2(to.x);
  SetY2(to.y);
}

} // namespace Tesselor
