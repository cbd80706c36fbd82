#pragma once

#include "toolkit/base/RoutedEvent.h"
#include "toolkit/visual/UIElement.h"

#include <string_view>

namespace Tesselor {

/// One event attribute of a document on its way to the handler that it names.
class EventAttribute {
public:
  EventAttribute(Toolkit::Object* source, std::string_view eventName, std::string_view handlerName)
      : source(Toolkit::DynamicCast<Toolkit::UIElement>(source)), eventName(eventName), handlerName(handlerName) {}

  /// Connects `Method` of `target` if the attribute is of this event and names this handler.
  template <auto Method, class C>
  bool Connect(const Toolkit::RoutedEvent& event, std::string_view handler, C* target) const {
    if (!source || eventName != event.name.Text() || handlerName != handler) return false;
    source->AddHandler(event, Toolkit::RoutedEventHandler::From<Method>(target));
    return true;
  }

private:
  Toolkit::UIElement* source;
  std::string_view eventName;
  std::string_view handlerName;
};

} // namespace Tesselor
