#pragma once

#include "CapturedBoxes.h"
#include "CapturedLog.h"
#include "platform/JsonFile.h"
#include "workspace/Workspace.h"

#include <cmath>
#include <sstream>
#include <string>

namespace TestSupport {

/// What the log and the boxes of a test hold, a line each; line ends inside show as "\n". Starts both anew.
inline std::string TakeMessages(CapturedLog& log, CapturedBoxes& boxes) {
  std::ostringstream out;
  const auto write = [&](const char* kind, std::string text) {
    for (size_t at = 0; (at = text.find('\n', at)) != std::string::npos;) text.replace(at, 1, "\\n");
    out << "  " << kind << ": " << text << "\n";
  };
  for (const std::string& line : log.lines) write("log", line);
  for (const auto& box : boxes.boxes)
    write(box.image == Toolkit::MessageBoxImage::Error     ? "error box"
          : box.image == Toolkit::MessageBoxImage::Warning ? "warning box"
                                                           : "box",
          box.caption + ": " + box.text);
  log.lines.clear();
  boxes.boxes.clear();
  return out.str();
}

inline std::string DumpColor(const Toolkit::Color& color) {
  std::ostringstream out;
  for (const float channel : {color.r, color.g, color.b}) out << "," << std::lround(channel * 255);
  return out.str().substr(1);
}

inline void DumpFields(std::ostream& out, const std::vector<std::unique_ptr<Tesselor::NodeFieldBlueprint>>& fields) {
  for (const auto& field : fields)
    out << " field " << field->Id << ":" << field->Type
        << (field->Options ? Tesselor::PrintJson(field->Options.get(), Tesselor::JsonForm::Compact) : "");
}

inline void DumpPins(std::ostream& out, const char* side,
                     const std::vector<std::unique_ptr<Tesselor::NodePinBlueprint>>& pins) {
  for (const auto& pin : pins) {
    out << "    " << side << " " << pin->id << ":" << pin->Type << " " << DumpColor(pin->color) << " '" << pin->Label
        << "' '" << pin->Description << "'" << (pin->Multiple ? " multiple" : "") << (pin->IsMap ? " map" : "");
    if (pin->SpacingAbove) out << " spacing " << pin->SpacingAbove;
    DumpFields(out, pin->fields);
    out << "\n";
  }
}

/// A node type with its pins, fields and schema.
inline std::string Dump(const std::string& id, const Tesselor::NodeBlueprint& node) {
  std::ostringstream out;
  out << "  " << id << " '" << node.title << "' '" << node.Description << "' " << DumpColor(node.color)
      << (node.isPassthrough ? " passthrough" : "");
  if (node.isReference) out << " reference " << node.fileRefKey << "," << node.fileRefValue << "," << node.modifyKey;
  DumpFields(out, node.content);
  out << "\n";
  DumpPins(out, "input", node.inputs);
  DumpPins(out, "output", node.outputs);
  for (const std::string& key : node.schemaKeys) {
    out << "    key " << key;
    if (const std::string* field = node.schema.Find(key)) out << " -> " << *field;
    if (const auto* target = node.pinSchema.Find(key)) out << " -> " << target->node << " at " << target->pin;
    out << "\n";
  }
  return out.str();
}

} // namespace TestSupport
