#pragma once

#include "fields/FieldNumber.h"

namespace Tesselor {

/// A whole number, edited as text.
class FieldInt : public FieldNumber {
  TOOLKIT_TYPE(FieldInt)
public:
  FieldInt();

private:
  void InitializeComponent() override;
  bool HasSizeOfItsOptions() const override { return true; }
  std::optional<double> ReadDefault(const FieldOptions& options) const override;
  double NumberOf(const cJSON& item) const override;
  std::string TextOf(double number) const override;
  double WrittenNumber(std::string_view text) const override;
  bool IsSame(double number, std::string_view text) const override;
  std::optional<std::string> Filter(std::string_view text, Bounds bounds, NumberEntry entry) const override;
  std::optional<std::string> Finish(std::string_view text, Bounds bounds) const override;
};

} // namespace Tesselor
