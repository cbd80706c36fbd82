#pragma once

#include "platform/JsonFile.h"
#include "toolkit/base/Geometry.h"

#include <vector>

namespace Tesselor {

class Graph;
class NodeEditorCanvas;
class Workspace;

/// Copies the selected nodes, with what lies in selected groups, to the desktop's clipboard. With nothing selected,
/// that becomes empty. False if it stays as it was: when the nodes are nested too deeply, which the user is told, or
/// when the desktop refuses.
bool CopySelected(const Graph& graph);

/// Copies the same and takes all that was copied out of the graph, as one step. False and nothing if it can't be
/// copied.
bool CutSelected(Graph& graph);

/// Makes nodes of a clipboard's objects on the canvas, on whose panel the graph stands, as one step, and selects them.
class NodePasting {
public:
  /// All outlive this.
  NodePasting(NodeEditorCanvas& canvas, Graph& graph, const Workspace& workspace)
      : canvas(canvas), graph(graph), workspace(workspace) {}
  /// At the mouse, or in the middle of the view if it is elsewhere.
  void Paste(const std::vector<JsonPtr>& objects);
  /// Copies and pastes what is selected beside it, without the desktop's clipboard.
  void Duplicate();

private:
  Toolkit::Point PastePlace() const;
  void PasteAt(const std::vector<JsonPtr>& objects, Toolkit::Point place);

  NodeEditorCanvas& canvas;
  Graph& graph;
  const Workspace& workspace;
};

} // namespace Tesselor
