#include "fields/FieldFloat.h"

#include "fields/FieldOptions.h"
#include "fields/NumberFilter.h"
#include "fields/NumberText.h"
#include "fields/WrittenNumber.h"

#include <cjson/cJSON.h>
#include <limits>

namespace Tesselor {

namespace {

const Toolkit::SharedString& InitialText() {
  static const Toolkit::SharedString text("0.0");
  return text;
}

using Limits = std::numeric_limits<double>;

} // namespace

TOOLKIT_TYPE_IMPL(FieldFloat, FieldNumber, "Tesselor.FieldFloat")
void FieldFloat::Describe(Toolkit::TypeBuilder<FieldFloat>&) {}

FieldFloat::FieldFloat() : FieldNumber(InitialText(), {Limits::lowest(), Limits::max()}) {}

void FieldFloat::InitializeComponent() { LoadNumberDocument("FieldFloat.xaml"); }

std::optional<double> FieldFloat::ReadDefault(const FieldOptions& options) const {
  return options.Number(FieldOption::Default);
}

double FieldFloat::NumberOf(const cJSON& item) const { return item.valuedouble; }

std::string FieldFloat::TextOf(double number) const { return FloatText(number); }

double FieldFloat::WrittenNumber(std::string_view text) const { return WrittenDouble(text); }

bool FieldFloat::IsSame(double number, std::string_view text) const {
  const std::optional<double> shown = ParseDouble(text);
  return shown && AreNear(number, *shown);
}

std::optional<std::string> FieldFloat::Filter(std::string_view text, Bounds bounds, NumberEntry entry) const {
  return FilterFloatText(text, bounds.min, bounds.max, entry);
}

std::optional<std::string> FieldFloat::Finish(std::string_view text, Bounds bounds) const {
  return FinishFloatText(text, bounds.min, bounds.max);
}

} // namespace Tesselor
