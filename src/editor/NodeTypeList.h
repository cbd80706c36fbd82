#pragma once

#include "editor/CreateNodeButton.h"
#include "toolkit/controls/Panel.h"
#include "workspace/NodeBlueprint.h"

#include <optional>
#include <string>
#include <vector>

namespace Tesselor {

/// The types of one category of the nodes menu, as a column of buttons of one height. A button is made when its place
/// comes into sight and kept for the next time; the column is as high as if all were there.
class NodeTypeList : public Toolkit::Panel {
  TOOLKIT_TYPE(NodeTypeList)
public:
  struct Entry {
    std::string id;
    const NodeBlueprint* blueprint = nullptr;
    Toolkit::Ptr<CreateNodeButton> button;
  };

  /// For documents only.
  NodeTypeList() = default;
  /// `rowHeight` is shared by all lists of a menu, which outlives them: 0 until the first of them has found it out.
  NodeTypeList(std::vector<Entry> all, float& rowHeight) : entries(std::move(all)), rowHeight(&rowHeight) {}

  const std::vector<Entry>& Entries() const { return entries; }
  /// Lists these entries, by rising index.
  void Show(std::vector<size_t> indices);
  const std::vector<size_t>& Shown() const { return shown; }
  const Entry& ShownAt(size_t position) const { return entries[shown[position]]; }
  /// Makes what stands between two heights of this element's coordinates, and a little more.
  void BringIn(float top, float bottom);
  /// Marks the entry at a position of the list, or none.
  void Mark(std::optional<size_t> position);
  /// Where an entry stands, in this element's coordinates.
  Toolkit::Rect PlaceOf(size_t position) const;

protected:
  void PrepareForMeasure() override;
  Toolkit::Size MeasureOverride(Toolkit::Size available) override;
  Toolkit::Size ArrangeOverride(Toolkit::Size finalSize) override;

private:
  void MakeRow(size_t position);

  std::vector<Entry> entries;
  std::vector<size_t> shown;
  /// The positions of the children, rising.
  std::vector<size_t> made;
  std::optional<size_t> marked;
  float* rowHeight = nullptr;
};

} // namespace Tesselor
