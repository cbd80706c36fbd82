#include "fields/FieldInt.h"

#include "fields/FieldOptions.h"
#include "fields/NumberFilter.h"
#include "fields/NumberText.h"
#include "fields/WrittenNumber.h"

#include <cjson/cJSON.h>
#include <cstdint>
#include <limits>

namespace Tesselor {

namespace {

const Toolkit::SharedString& InitialText() {
  static const Toolkit::SharedString text("0");
  return text;
}

using Limits = std::numeric_limits<int32_t>;

} // namespace

TOOLKIT_TYPE_IMPL(FieldInt, FieldNumber, "Tesselor.FieldInt")
void FieldInt::Describe(Toolkit::TypeBuilder<FieldInt>&) {}

FieldInt::FieldInt() : FieldNumber(InitialText(), {Limits::min(), Limits::max()}) {}

void FieldInt::InitializeComponent() { LoadNumberDocument("FieldInt.xaml"); }

std::optional<double> FieldInt::ReadDefault(const FieldOptions& options) const {
  return options.Integer(FieldOption::Default);
}

double FieldInt::NumberOf(const cJSON& item) const { return item.valueint; }

std::string FieldInt::TextOf(double number) const { return std::to_string(static_cast<int32_t>(number)); }

double FieldInt::WrittenNumber(std::string_view text) const { return WrittenInteger(text); }

bool FieldInt::IsSame(double number, std::string_view text) const { return ParseInteger(text) == number; }

std::optional<std::string> FieldInt::Filter(std::string_view text, Bounds bounds, NumberEntry entry) const {
  return FilterIntegerText(text, static_cast<int32_t>(bounds.min), static_cast<int32_t>(bounds.max), entry);
}

std::optional<std::string> FieldInt::Finish(std::string_view text, Bounds bounds) const {
  return FinishIntegerText(text, static_cast<int32_t>(bounds.min), static_cast<int32_t>(bounds.max));
}

} // namespace Tesselor
