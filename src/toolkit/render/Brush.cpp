#include "toolkit/render/Brush.h"

namespace Toolkit {

const EnumDescription& DescribeEnum(TileMode) {
  static const EnumDescription description{{{"None", 0}, {"Tile", 1}}};
  return description;
}
const EnumDescription& DescribeEnum(BrushMappingMode) {
  static const EnumDescription description{{{"Absolute", 0}, {"RelativeToBoundingBox", 1}}};
  return description;
}
const EnumDescription& DescribeEnum(Stretch) {
  static const EnumDescription description{{{"None", 0}, {"Fill", 1}, {"Uniform", 2}, {"UniformToFill", 3}}};
  return description;
}

TOOLKIT_TYPE_IMPL(Brush, DependencyObject, "Brush")
void Brush::Describe(TypeBuilder<Brush>& type) {
  OpacityProperty = type.Property<float>("Opacity", 1.0f);
  type.Shareable();
}

TOOLKIT_TYPE_IMPL(SolidColorBrush, Brush, "SolidColorBrush")
void SolidColorBrush::Describe(TypeBuilder<SolidColorBrush>& type) {
  ColorProperty = type.Property<Color>("Color", Colors::Transparent);
}

SolidColorBrush::SolidColorBrush(const Color& color) {
  StaticType();
  SetValue(ColorProperty, color);
}

Ptr<Brush> SolidColorBrush::Clone() const {
  auto copy = MakePtr<SolidColorBrush>(GetColor());
  copy->SetValue(OpacityProperty, GetOpacity());
  return copy;
}

TOOLKIT_TYPE_IMPL(GradientStop, DependencyObject, "GradientStop")
void GradientStop::Describe(TypeBuilder<GradientStop>& type) {
  ColorProperty = type.Property<Color>("Color", Colors::Transparent);
  OffsetProperty = type.Property<float>("Offset");
  type.Shareable();
}

GradientStop::GradientStop(const Color& color, float offset) {
  StaticType();
  SetValue(ColorProperty, color);
  SetValue(OffsetProperty, offset);
}

TOOLKIT_TYPE_IMPL(LinearGradientBrush, Brush, "LinearGradientBrush")
void LinearGradientBrush::Describe(TypeBuilder<LinearGradientBrush>& type) {
  StartPointProperty = type.Property<Point>("StartPoint");
  EndPointProperty = type.Property<Point>("EndPoint", Point{1, 1});
  type.List<&LinearGradientBrush::AddStop>("GradientStops");
  type.Content("GradientStops");
}

Ptr<Brush> LinearGradientBrush::Clone() const {
  auto copy = MakePtr<LinearGradientBrush>();
  copy->SetStartPoint(Get<Point>(StartPointProperty));
  copy->SetEndPoint(Get<Point>(EndPointProperty));
  copy->SetValue(OpacityProperty, GetOpacity());
  copy->stops = stops;
  return copy;
}

TOOLKIT_TYPE_IMPL(ImageBrush, Brush, "ImageBrush")
void ImageBrush::Describe(TypeBuilder<ImageBrush>& type) {
  ImageSourceProperty = type.Property<SharedString>("ImageSource");
  TileModeProperty = type.Property<TileMode>("TileMode");
  ViewportProperty = type.Property<Rect>("Viewport", Rect{0, 0, 1, 1});
  ViewportUnitsProperty = type.Property<BrushMappingMode>("ViewportUnits", BrushMappingMode::RelativeToBoundingBox);
  StretchProperty = type.Property<Stretch>("Stretch", Stretch::Fill);
}

Ptr<Brush> ImageBrush::Clone() const {
  auto copy = MakePtr<ImageBrush>();
  for (const DependencyProperty* property : {ImageSourceProperty, TileModeProperty, ViewportProperty,
                                             ViewportUnitsProperty, StretchProperty, OpacityProperty})
    copy->SetValue(property, GetValue(property));
  return copy;
}

Ptr<SolidColorBrush> Brushes::Of(const Color& color) { return MakePtr<SolidColorBrush>(color); }

TOOLKIT_TYPE_IMPL(DropShadowEffect, DependencyObject, "DropShadowEffect")
void DropShadowEffect::Describe(TypeBuilder<DropShadowEffect>& type) {
  BlurRadiusProperty = type.Property<float>("BlurRadius", 5.0f);
  ShadowDepthProperty = type.Property<float>("ShadowDepth", 5.0f);
  OpacityProperty = type.Property<float>("Opacity", 1.0f);
  ColorProperty = type.Property<Color>("Color", Color{0, 0, 0, 1});
  type.Shareable();
}

} // namespace Toolkit
