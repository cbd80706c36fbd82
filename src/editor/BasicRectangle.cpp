#include "editor/BasicRectangle.h"

#include <cmath>
#include <limits>

namespace Tesselor {

TOOLKIT_TYPE_IMPL(BasicRectangle, Toolkit::NotifyPropertyChangedBase, "Tesselor.BasicRectangle")
void BasicRectangle::Describe(Toolkit::TypeBuilder<BasicRectangle>& type) {
  type.Member<&BasicRectangle::GetX, &BasicRectangle::SetX>("X");
  type.Member<&BasicRectangle::GetY, &BasicRectangle::SetY>("Y");
  type.Member<&BasicRectangle::GetWidth, &BasicRectangle::SetWidth>("Width");
  type.Member<&BasicRectangle::GetHeight, &BasicRectangle::SetHeight>("Height");
}

void BasicRectangle::Set(float& coordinate, float value, const char* name) {
  if (std::abs(coordinate - value) <= std::numeric_limits<float>::epsilon()) return;
  coordinate = value;
  OnPropertyChanged(name);
}

void BasicRectangle::SetX(float value) { Set(x, value, "X"); }
void BasicRectangle::SetY(float value) { Set(y, value, "Y"); }
void BasicRectangle::SetWidth(float value) { Set(width, value, "Width"); }
void BasicRectangle::SetHeight(float value) { Set(height, value, "Height"); }

void BasicRectangle::Set(const Toolkit::Rect& rect) {
  SetX(rect.x);
  SetY(rect.y);
  SetWidth(rect.width);
  SetHeight(rect.height);
}

} // namespace Tesselor
