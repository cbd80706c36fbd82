#include "nodes/TitleBrushes.h"

#include <array>
#include <map>

namespace Tesselor {

namespace {

constexpr Toolkit::Color FrameEnd = Toolkit::Color::FromBytes(0x26, 0x3D, 0x65);

TitleBrushes MakeBrushes(Toolkit::Color color) {
  TitleBrushes brushes;
  brushes.solid = Toolkit::Brushes::Of(color);
  brushes.gradient = Toolkit::MakePtr<Toolkit::LinearGradientBrush>();
  brushes.gradient->SetStartPoint({0.8f, 0});
  brushes.gradient->SetEndPoint({0.9f, 1});
  color.a = 1;
  brushes.gradient->AddStop(Toolkit::MakePtr<Toolkit::GradientStop>(color, 0.0f).Get());
  brushes.gradient->AddStop(Toolkit::MakePtr<Toolkit::GradientStop>(FrameEnd, 1.0f).Get());
  return brushes;
}

} // namespace

const TitleBrushes& TitleBrushes::Of(const Toolkit::Color& color) {
  // Schemas name a few dozen colours. They live until the process ends, as the blueprints that ask for them do.
  static auto* known = new std::map<std::array<float, 4>, TitleBrushes>();
  const std::array<float, 4> key{color.r, color.g, color.b, color.a};
  const auto found = known->find(key);
  return found != known->end() ? found->second : known->emplace(key, MakeBrushes(color)).first->second;
}

} // namespace Tesselor
