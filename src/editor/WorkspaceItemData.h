#pragma once

#include "toolkit/base/Observable.h"
#include "toolkit/base/SharedString.h"

namespace Tesselor {

/// One entry of the workspace selection: a root's menu name.
class WorkspaceItemData : public Toolkit::NotifyPropertyChangedBase {
  TOOLKIT_TYPE(WorkspaceItemData)
public:
  WorkspaceItemData() = default;
  explicit WorkspaceItemData(std::string_view name) : value(name) {}
  std::string_view GetValue() const { return value.View(); }

private:
  Toolkit::SharedString value;
};

} // namespace Tesselor
