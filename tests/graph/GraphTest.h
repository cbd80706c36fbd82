#pragma once

#include "nodes/NodeTest.h"

namespace TestSupport {

/// Base of the tests of the graph: nodes "A" with one `Multiple` pin "In" and "Out" of one type, "S" with single pins
/// of that type, "B" with a pin of another type on each side, and links.
class GraphTest : public NodeTest {
protected:
  GraphTest() {
    const std::string pin = ",'Type':'T','color':'red'";
    AddSchema("{'id':'A','title':'A','color':'red','inputs':[{'id':'In'" + pin +
              ",'Multiple':true}],'outputs':[{'id':'Out'" + pin +
              ",'Multiple':true}],'content':[{'Id':'text','Type':'SmallString'}]}");
    AddSchema("{'id':'S','title':'S','color':'red','inputs':[{'id':'In'" + pin + "}],'outputs':[{'id':'Out'" + pin +
              "}]}");
    AddSchema("{'id':'B','title':'B','color':'red','inputs':[{'id':'In','Type':'U','color':'blue'}],"
              "'outputs':[{'id':'Out','Type':'U','color':'blue'}]}");
  }

  Tesselor::ContentNode& AddAt(const std::string& id, float left, float top) {
    Tesselor::ContentNode& node = Add(id);
    TestGraph::Place(node, left, top);
    return node;
  }
  Toolkit::Ptr<Tesselor::Connection> Connect(Tesselor::ContentNode& from, Tesselor::ContentNode& to) {
    auto connection = Toolkit::MakePtr<Tesselor::Connection>(*from.FirstOutput(), *to.FirstInput());
    view->Attach(*connection);
    return connection;
  }
  /// The indices that the nodes show.
  static std::vector<int> Indices(const std::vector<Tesselor::ContentNode*>& nodes) {
    std::vector<int> indices;
    for (const Tesselor::ContentNode* node : nodes) indices.push_back(node->arrayIndex);
    return indices;
  }
};

} // namespace TestSupport
