#pragma once

#include "toolkit/base/DependencyObject.h"
#include "toolkit/base/Geometry.h"

#include <vector>

namespace Toolkit {

/// A map of coordinates that an element is drawn and hit through. It does not take part in layout.
class Transform : public DependencyObject {
  TOOLKIT_TYPE(Transform)
public:
  virtual Matrix ToMatrix() const { return {}; }

protected:
  Transform() = default;
  void OnPropertyChanged(const PropertyChange& change) override;
};

class ScaleTransform : public Transform {
  TOOLKIT_TYPE(ScaleTransform)
public:
  static inline const DependencyProperty* ScaleXProperty = nullptr;
  static inline const DependencyProperty* ScaleYProperty = nullptr;
  ScaleTransform() = default;
  float GetScaleX() const { return Get<float>(ScaleXProperty); }
  float GetScaleY() const { return Get<float>(ScaleYProperty); }
  void SetScaleX(float value) { SetValue(ScaleXProperty, value); }
  void SetScaleY(float value) { SetValue(ScaleYProperty, value); }
  Matrix ToMatrix() const override { return Matrix::Scale(GetScaleX(), GetScaleY()); }
};

class TranslateTransform : public Transform {
  TOOLKIT_TYPE(TranslateTransform)
public:
  static inline const DependencyProperty* XProperty = nullptr;
  static inline const DependencyProperty* YProperty = nullptr;
  TranslateTransform() = default;
  float GetX() const { return Get<float>(XProperty); }
  float GetY() const { return Get<float>(YProperty); }
  void SetX(float value) { SetValue(XProperty, value); }
  void SetY(float value) { SetValue(YProperty, value); }
  Matrix ToMatrix() const override { return Matrix::Translation(GetX(), GetY()); }
};

class RotateTransform : public Transform {
  TOOLKIT_TYPE(RotateTransform)
public:
  /// Degrees, clockwise.
  static inline const DependencyProperty* AngleProperty = nullptr;
  RotateTransform() = default;
  Matrix ToMatrix() const override;
};

/// Applies its parts in order.
class TransformGroup : public Transform {
  TOOLKIT_TYPE(TransformGroup)
public:
  TransformGroup() = default;
  void AddChild(Transform* child) { children.emplace_back(child); }
  size_t ChildCount() const { return children.size(); }
  Transform* Child(size_t index) const { return children[index].Get(); }
  Matrix ToMatrix() const override;

private:
  std::vector<Ptr<Transform>> children;
};

} // namespace Toolkit
