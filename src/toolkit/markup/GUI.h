#pragma once

#include "toolkit/base/Object.h"

#include <string_view>

namespace Toolkit {

class FrameworkElement;

/// Documents by name.
class GUI {
public:
  /// Gives the text of a document; empty optional text (null data) if there is none of that name. The text must stay
  /// valid for the life of the process.
  using DocumentProvider = std::string_view (*)(std::string_view name);
  static void SetDocumentProvider(DocumentProvider provider);

  /// Builds `component`'s tree from the document: the root element's attributes and children apply to the object
  /// itself, and the handlers that its class describes answer the events. Each document is compiled once.
  /// Returns false, with a diagnostic, if the document is missing, broken or that of another class.
  static bool LoadComponent(FrameworkElement& component, std::string_view documentName);

  /// Makes the object that a document describes; null, with a diagnostic, if that fails.
  static Ptr<Object> Load(std::string_view documentName);
  /// The class that a document's root names by x:Class; null, with a diagnostic, if there is none.
  static const Type* ClassOf(std::string_view documentName);
};

} // namespace Toolkit
