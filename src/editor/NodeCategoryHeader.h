#pragma once

#include "toolkit/base/Color.h"
#include "toolkit/controls/UserControl.h"

#include <string_view>

namespace Tesselor {

/// The header of one category of the nodes menu: its name behind a bar of its colour.
class NodeCategoryHeader : public Toolkit::UserControl {
  TOOLKIT_TYPE(NodeCategoryHeader)
public:
  explicit NodeCategoryHeader(std::string_view name);
  void SetColor(const Toolkit::Color& color);
};

} // namespace Tesselor
