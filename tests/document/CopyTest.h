#pragma once

#include "DocumentTest.h"
#include "document/ClipboardText.h"
#include "document/NodeCopy.h"
#include "document/NodePaste.h"
#include "graph/Connection.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <string>
#include <vector>

namespace TestSupport {

/// Base of the tests that copy from a graph and paste into it. Besides the types of `DocumentTest`, "Odd" has two input
/// pins of one type and an output pin that its schema has no key for, and "File" stands for another file.
class CopyTest : public DocumentTest {
protected:
  using Nodes = std::vector<Toolkit::Ptr<Tesselor::BaseNode>>;

  CopyTest() {
    AddSchema("{'id':'Odd','title':'Odd','color':'red','inputs':[{'id':'a','Type':'T','color':'red'},"
              "{'id':'b','Type':'T','color':'red','Multiple':true}],"
              "'outputs':[{'id':'free','Type':'T','color':'red','Multiple':true}],"
              "'content':[{'Id':'label','Type':'SmallString','Options':{'Default':''}}],'Schema':{'Label':'label'}}");
    AddSchema("{'id':'File','title':'File','color':'red','isreference':true,'filerefkey':'FileId','filerefvalue':'Id',"
              "'modifykey':'Values','inputs':[{'id':'in','Type':'T','color':'red'}]}");
  }

  /// Imports the members of a root "n0". Each node gets the title of its place in the document, "n1" and so on, and a
  /// place of its own, lower than that of the node before and on no whole number.
  void Load(const std::string& members) {
    StartView("Doc");
    ASSERT_TRUE(Import("{'$NodeId':'Doc-1'" + (members.empty() ? "" : "," + members) + "}"));
    for (size_t i = 0; i < (*view)->ContentNodes().size(); ++i) {
      Node(i).SetTitle("n" + std::to_string(i));
      const float step = static_cast<float>(i);
      TestGraph::Place(Node(i), 1000.25f + step * 60, 500.25f + step * 10.5f);
    }
  }
  Tesselor::ContentNode& Node(size_t index) { return *(*view)->ContentNodes().at(index); }
  Tesselor::ContentNode& AddNode(const char* type) {
    const auto node = workspace->nodeDictionary->CreateNode(type, true);
    const size_t count = (*view)->ContentNodes().size();
    (*view)->Add(*node, {1000.25f + static_cast<float>(count) * 60, 500.25f + static_cast<float>(count) * 10.5f});
    node->SetTitle("n" + std::to_string(count));
    return *node;
  }
  void Join(Tesselor::ContentNode& parent, const char* output, Tesselor::ContentNode& child, const char* input) {
    (*view)->Attach(*Toolkit::MakePtr<Tesselor::Connection>(*child.FindPin(input), *parent.FindPin(output)));
  }

  void Select(const std::vector<size_t>& indices) {
    (*view)->Selected().Clear();
    for (const size_t index : indices) (*view)->Selected().Add(Node(index));
  }
  void SelectAll() {
    (*view)->Selected().Clear();
    for (const auto& node : (*view)->ContentNodes()) (*view)->Selected().Add(*node);
    for (const auto& node : (*view)->GroupNodes()) (*view)->Selected().Add(*node);
    for (const auto& node : (*view)->CommentNodes()) (*view)->Selected().Add(*node);
  }
  std::string Copied() { return Tesselor::CopySelection(**view).value().text; }
  /// The same, each object compact and on a line of its own.
  std::string CopiedObjects() {
    std::string text;
    for (const auto& object : Tesselor::ReadClipboardText(Copied()))
      text += (text.empty() ? "" : "\n") + Tesselor::PrintJson(object.get(), Tesselor::JsonForm::Compact);
    return text;
  }
  Nodes Paste(const std::string& text, Toolkit::Point place = {200, 100}) {
    return Tesselor::NodePaste(**view, *workspace).Run(Tesselor::ReadClipboardText(text), place);
  }

  /// Some nodes, a line for each in the order of their titles: title, place beside the upper left of all, type,
  /// comment, key in a map, which output pins it doesn't show, and what of them hangs on which pin.
  static std::string Show(const Nodes& nodes) {
    float left = INFINITY, top = INFINITY;
    for (const auto& node : nodes) left = std::min(left, node->Bounds().x), top = std::min(top, node->Bounds().y);
    std::vector<std::string> lines;
    for (const auto& node : nodes) {
      const Toolkit::Rect box = node->Bounds();
      std::ostringstream line;
      line << node->Title() << " at " << box.x - left << "," << box.y - top;
      if (const auto* content = Toolkit::DynamicCast<Tesselor::ContentNode>(node.Get()))
        ShowContent(*content, nodes, line);
      else
        line << " " << box.width << "x" << box.height;
      lines.push_back(line.str());
    }
    std::sort(lines.begin(), lines.end());
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    return text;
  }
  Nodes All() {
    SelectAll();
    return (*view)->Selected().GetNodes();
  }

private:
  static void ShowContent(const Tesselor::ContentNode& node, const Nodes& nodes, std::ostream& line) {
    Tesselor::BaseField* key = node.FindField("key");
    line << " " << node.TypeId() << " '" << node.GetFieldCommentData()->GetValue() << "' "
         << (node.mapKey.empty() && key ? key->GetValueAsString() : node.mapKey);
    for (const auto& [id, pin] : node.pins) {
      if (pin->IsInput()) continue;
      if (!pin->IsVisible()) line << " without " << id;
      for (const Tesselor::NodePinData* other : pin->connections)
        if (std::find(nodes.begin(), nodes.end(), other->owner) != nodes.end())
          line << " " << id << ">" << other->owner->Title() << "." << other->owner->KeyOf(*other);
    }
  }
};

} // namespace TestSupport
