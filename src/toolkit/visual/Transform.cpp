#include "toolkit/visual/Transform.h"

#include "toolkit/visual/LayoutQueue.h"

#include <cmath>
#include <numbers>

namespace Toolkit {

TOOLKIT_TYPE_IMPL(Transform, DependencyObject, "Transform")
void Transform::Describe(TypeBuilder<Transform>&) {}

void Transform::OnPropertyChanged(const PropertyChange& change) {
  DependencyObject::OnPropertyChanged(change);
  LayoutQueue::Current().VisualChanged();
}

TOOLKIT_TYPE_IMPL(ScaleTransform, Transform, "ScaleTransform")
void ScaleTransform::Describe(TypeBuilder<ScaleTransform>& type) {
  ScaleXProperty = type.Property<float>("ScaleX", 1.0f);
  ScaleYProperty = type.Property<float>("ScaleY", 1.0f);
}

TOOLKIT_TYPE_IMPL(TranslateTransform, Transform, "TranslateTransform")
void TranslateTransform::Describe(TypeBuilder<TranslateTransform>& type) {
  XProperty = type.Property<float>("X");
  YProperty = type.Property<float>("Y");
}

TOOLKIT_TYPE_IMPL(RotateTransform, Transform, "RotateTransform")
void RotateTransform::Describe(TypeBuilder<RotateTransform>& type) { AngleProperty = type.Property<float>("Angle"); }

Matrix RotateTransform::ToMatrix() const {
  const float radians = Get<float>(AngleProperty) * std::numbers::pi_v<float> / 180;
  const float c = std::cos(radians), s = std::sin(radians);
  return {c, s, -s, c, 0, 0};
}

TOOLKIT_TYPE_IMPL(TransformGroup, Transform, "TransformGroup")
void TransformGroup::Describe(TypeBuilder<TransformGroup>& type) {
  type.List<&TransformGroup::AddChild>("Children");
  type.Content("Children");
}

Matrix TransformGroup::ToMatrix() const {
  Matrix result;
  for (const Ptr<Transform>& child : children) result = result.Then(child->ToMatrix());
  return result;
}

} // namespace Toolkit
