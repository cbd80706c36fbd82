#include "toolkit/markup/Binding.h"

#include "toolkit/markup/BindingExpression.h"
#include "toolkit/markup/MarkupExtension.h"

#include <charconv>

namespace Toolkit {

TOOLKIT_TYPE_IMPL(ValueConverter, Object, "ValueConverter")
void ValueConverter::Describe(TypeBuilder<ValueConverter>&) {}

TOOLKIT_TYPE_IMPL(Binding, BindingBase, "Binding")
void Binding::Describe(TypeBuilder<Binding>&) {}

void Binding::Step::Resolve(const Type& type) const {
  if (knownType == &type) return;
  knownType = &type;
  knownProperty = type.FindProperty(name);
  knownMember = knownProperty ? nullptr : type.FindMember(name);
}

void Binding::SetPath(std::string_view text) {
  path.clear();
  while (!text.empty()) {
    const size_t dot = std::min(text.find('.'), text.size());
    Step step;
    step.name = Symbol(text.substr(0, dot));
    path.push_back(step);
    text.remove_prefix(std::min(dot + 1, text.size()));
  }
}

std::unique_ptr<ValueExpression> Binding::CreateExpression(const DependencyProperty* property,
                                                           const NameScope* scope) const {
  auto expression = std::make_unique<BindingExpression>(*this, scope);
  expression->property = property;
  return expression;
}

bool Binding::Parse(std::string_view text, const ParseContext& context, std::string& error) {
  MarkupExtension parsed;
  if (!parsed.Parse(text, error)) return false;
  for (const MarkupExtension::Argument& argument : parsed.arguments) {
    const std::string_view name = argument.name, value = argument.value;
    auto choose = [&](auto& target, std::initializer_list<std::string_view> names) {
      int index = 0;
      for (std::string_view candidate : names) {
        if (candidate == value) {
          target = static_cast<std::remove_reference_t<decltype(target)>>(index);
          return true;
        }
        ++index;
      }
      return false;
    };
    bool known = true;
    if (name.empty() || name == "Path") {
      SetPath(value);
    } else if (name == "Mode") {
      known = choose(mode, {"Default", "OneWay", "TwoWay", "OneTime", "OneWayToSource"});
    } else if (name == "UpdateSourceTrigger") {
      known = choose(updateSourceTrigger, {"Default", "PropertyChanged", "LostFocus", "Explicit"});
    } else if (name == "ElementName") {
      elementName = Symbol(value);
    } else if (name == "StringFormat") {
      stringFormat = value.substr(value.starts_with("{}") ? 2 : 0);
    } else if (name == "FallbackValue") {
      fallbackValue = Value(SharedString(value));
    } else if (name == "ConverterParameter") {
      converterParameter = Value(SharedString(value));
    } else if (name == "Delay") {
      known = std::from_chars(value.data(), value.data() + value.size(), delay).ec == std::errc();
    } else if (name == "Source" || name == "Converter") {
      MarkupExtension resource;
      known = resource.Parse(value, error) && resource.name == "StaticResource" && resource.arguments.size() == 1;
      Object* object = known ? context.FindResource(resource.arguments[0].value) : nullptr;
      known = object != nullptr;
      if (name == "Source")
        source = Ptr<Object>(object);
      else
        known = known && (converter = Ptr<ValueConverter>(DynamicCast<ValueConverter>(object)));
    } else if (name == "RelativeSource") {
      MarkupExtension relative;
      known = relative.Parse(value, error) && relative.name == "RelativeSource";
      for (const MarkupExtension::Argument& part : relative.arguments) {
        if (part.name.empty() || part.name == "Mode") {
          if (part.value == "Self")
            relativeSource = RelativeSourceMode::Self;
          else if (part.value == "TemplatedParent")
            relativeSource = RelativeSourceMode::TemplatedParent;
          else if (part.value == "FindAncestor")
            relativeSource = RelativeSourceMode::FindAncestor;
          else
            known = false;
        } else if (part.name == "AncestorType") {
          std::string_view typeName = part.value;
          MarkupExtension type;
          if (typeName.starts_with("{")) {
            known = known && type.Parse(typeName, error) && type.arguments.size() == 1;
            typeName = known ? std::string_view(type.arguments[0].value) : std::string_view();
          }
          ancestorType = context.FindType(typeName);
          relativeSource = RelativeSourceMode::FindAncestor;
          known = known && ancestorType;
        } else {
          known = false;
        }
      }
    } else {
      known = false;
    }
    if (!known) {
      error = "binding argument '" + std::string(name) + "=" + std::string(value) + "' is not understood";
      return false;
    }
  }
  return true;
}

} // namespace Toolkit
