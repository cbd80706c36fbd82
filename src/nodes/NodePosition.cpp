#include "nodes/NodePosition.h"

#include "nodes/BaseNode.h"
#include "nodes/NodeKeys.h"
#include "toolkit/controls/Canvas.h"

#include <algorithm>
#include <cjson/cJSON.h>
#include <cmath>
#include <cstdint>
#include <limits>

namespace Tesselor {

namespace {

double Coordinate(const cJSON* position, const char* key, PositionPrecision precision) {
  const cJSON* item = cJSON_GetObjectItem(position, key);
  if (!cJSON_IsNumber(item)) return 0;
  return precision == PositionPrecision::Whole ? item->valueint : item->valuedouble;
}

/// A coordinate that was never set, or that no integer can hold, must not end in an undefined conversion.
double TruncateToInteger(double value) {
  if (std::isnan(value)) return 0;
  constexpr double lowest = std::numeric_limits<int32_t>::min();
  constexpr double highest = std::numeric_limits<int32_t>::max();
  return static_cast<int32_t>(std::clamp(value, lowest, highest));
}

Toolkit::Point FilePosition(const BaseNode& node) {
  const Toolkit::Point offset = CanvasOffset(node);
  return {Toolkit::Canvas::GetLeft(&node) - offset.x, Toolkit::Canvas::GetTop(&node) - offset.y};
}

void AddPosition(cJSON* json, double x, double y) {
  cJSON* position = cJSON_AddObjectToObject(json, Keys::Position);
  cJSON_AddNumberToObject(position, Keys::X, x);
  cJSON_AddNumberToObject(position, Keys::Y, y);
}

} // namespace

Toolkit::Point CanvasOffset(const BaseNode& node) {
  const Toolkit::UIElement* parent = node.UIParent();
  const auto* canvas = Toolkit::DynamicCast<Toolkit::Canvas>(parent);
  return canvas ? Toolkit::Point{canvas->ActualWidth() / 2, canvas->ActualHeight() / 2} : Toolkit::Point{};
}

float SnapToGrid(double value) { return std::round(static_cast<float>(value) * 5) / 5; }

void LoadPosition(BaseNode& node, const cJSON* json, PositionPrecision precision) {
  const cJSON* position = cJSON_GetObjectItem(json, Keys::RootNodePosition);
  if (!position) position = cJSON_GetObjectItem(json, Keys::Position);
  ApplyPosition(node, position, precision);
}

void ApplyPosition(BaseNode& node, const cJSON* position, PositionPrecision precision) {
  if (!position) return;
  const Toolkit::Point offset = CanvasOffset(node);
  const double x = Coordinate(position, Keys::X, precision) + offset.x;
  const double y = Coordinate(position, Keys::Y, precision) + offset.y;
  Toolkit::Canvas::SetTop(&node, SnapToGrid(y));
  Toolkit::Canvas::SetLeft(&node, SnapToGrid(x));
}

void SavePosition(const BaseNode& node, cJSON* json) {
  const Toolkit::Point position = FilePosition(node);
  AddPosition(json, TruncateToInteger(position.x), TruncateToInteger(position.y));
}

void SaveExactPosition(const BaseNode& node, cJSON* json) {
  const Toolkit::Point offset = CanvasOffset(node);
  AddPosition(json, double(Toolkit::Canvas::GetLeft(&node)) - offset.x,
              double(Toolkit::Canvas::GetTop(&node)) - offset.y);
}

} // namespace Tesselor
