#include "editor/NodeTypeList.h"

#include <algorithm>
#include <cmath>

namespace Tesselor {

namespace {

/// Rows beyond each end of what is in sight: for the next step of the wheel, and for Tab to go on to.
constexpr float RowsBeyond = 4;

} // namespace

TOOLKIT_TYPE_IMPL(NodeTypeList, Toolkit::Panel, "Tesselor.NodeTypeList")
void NodeTypeList::Describe(Toolkit::TypeBuilder<NodeTypeList>&) {}

void NodeTypeList::Show(std::vector<size_t> indices) {
  Mark({});
  if (indices == shown) return;
  shown = std::move(indices);
  made.clear();
  ClearChildren();
  InvalidateMeasure();
}

void NodeTypeList::BringIn(float top, float bottom) {
  if (!rowHeight || *rowHeight <= 0 || bottom <= 0) return;
  const auto last = static_cast<float>(shown.size());
  const float from = std::clamp(std::floor(top / *rowHeight) - RowsBeyond, 0.0f, last);
  const float to = std::clamp(std::ceil(bottom / *rowHeight) + RowsBeyond, 0.0f, last);
  for (auto position = static_cast<size_t>(from); position < static_cast<size_t>(to); ++position) MakeRow(position);
}

void NodeTypeList::MakeRow(size_t position) {
  const auto at = std::lower_bound(made.begin(), made.end(), position);
  if (at != made.end() && *at == position) return;
  Entry& entry = entries[shown[position]];
  if (!entry.button)
    entry.button = Toolkit::MakePtr<CreateNodeButton>(entry.id, entry.blueprint->title, entry.blueprint->color,
                                                      entry.blueprint->Description);
  entry.button->SetIsMarked(marked == position);
  const auto index = static_cast<size_t>(at - made.begin());
  made.insert(at, position);
  InsertChild(index, entry.button.Get());
}

void NodeTypeList::Mark(std::optional<size_t> position) {
  const auto light = [this](bool isMarked) {
    if (marked && entries[shown[*marked]].button) entries[shown[*marked]].button->SetIsMarked(isMarked);
  };
  light(false);
  marked = position;
  light(true);
}

Toolkit::Rect NodeTypeList::PlaceOf(size_t position) const {
  const float height = rowHeight ? *rowHeight : 0;
  return {0, static_cast<float>(position) * height, ActualWidth(), height};
}

void NodeTypeList::PrepareForMeasure() {
  Panel::PrepareForMeasure();
  if (rowHeight && *rowHeight <= 0 && !shown.empty()) MakeRow(0);
}

Toolkit::Size NodeTypeList::MeasureOverride(Toolkit::Size available) {
  if (!rowHeight) return {};
  Toolkit::Size wanted;
  for (size_t i = 0; i < ChildCount(); ++i) {
    Child(i)->Measure({available.width, Toolkit::Infinity});
    wanted.width = std::max(wanted.width, Child(i)->DesiredSize().width);
  }
  if (*rowHeight <= 0 && ChildCount() > 0) *rowHeight = Child(0)->DesiredSize().height;
  wanted.height = static_cast<float>(shown.size()) * *rowHeight;
  return wanted;
}

Toolkit::Size NodeTypeList::ArrangeOverride(Toolkit::Size finalSize) {
  for (size_t i = 0; i < ChildCount(); ++i) {
    const float width = std::max(finalSize.width, Child(i)->DesiredSize().width);
    Child(i)->Arrange({0, static_cast<float>(made[i]) * *rowHeight, width, *rowHeight});
  }
  return finalSize;
}

} // namespace Tesselor
