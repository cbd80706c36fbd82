#include "editor/VersionsPanel.h"

#include "toolkit/controls/ButtonBase.h"
#include "toolkit/markup/GUI.h"

#include <cstdio>
#include <ctime>

namespace Tesselor {

using Toolkit::Ptr;
using Toolkit::SharedString;

namespace {

SharedString LocalTime(std::chrono::system_clock::time_point point) {
  const std::time_t time = std::chrono::system_clock::to_time_t(point);
  std::tm local{};
  char text[32];
  if (!localtime_r(&time, &local)) return {};
  return SharedString(std::string_view(text, std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &local)));
}

SharedString SizeText(uintmax_t bytes) {
  char text[32];
  if (bytes < 1024)
    std::snprintf(text, sizeof text, "%ju bytes", bytes);
  else if (bytes < 1024 * 1024)
    std::snprintf(text, sizeof text, "%.1f KB", static_cast<double>(bytes) / 1024);
  else
    std::snprintf(text, sizeof text, "%.1f MB", static_cast<double>(bytes) / (1024 * 1024));
  return SharedString(text);
}

} // namespace

TOOLKIT_TYPE_IMPL(VersionLine, Toolkit::NotifyPropertyChangedBase, "Tesselor.VersionLine")
void VersionLine::Describe(Toolkit::TypeBuilder<VersionLine>& type) {
  type.Member<&VersionLine::GetTime>("Time");
  type.Member<&VersionLine::GetSize>("Size");
}

VersionLine::VersionLine(FileHistory::Version version)
    : version(std::move(version)), time(LocalTime(this->version.time)), size(SizeText(this->version.size)) {}

TOOLKIT_TYPE_IMPL(VersionsPanel, Toolkit::UserControl, "Tesselor.VersionsPanel")
void VersionsPanel::Describe(Toolkit::TypeBuilder<VersionsPanel>& type) {
  EmptyTextProperty = type.Property<SharedString>("EmptyText");
  type.Member<&VersionsPanel::ReflectedLines>("Lines");
  type.Handler<&VersionsPanel::OnOpenClicked>("OnOpenClicked", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&VersionsPanel::OnCloseClicked>("OnCloseClicked", Toolkit::ButtonBase::ClickEvent);
}

VersionsPanel::VersionsPanel() : lines(Toolkit::MakePtr<Toolkit::ObservableCollection<VersionLine>>()) {
  SetDataContext(this);
  Toolkit::GUI::LoadComponent(*this, "VersionsPanel.xaml");
}

void VersionsPanel::List(const std::vector<FileHistory::Version>& versions) {
  lines->Clear();
  for (const FileHistory::Version& version : versions) lines->Add(Toolkit::MakePtr<VersionLine>(version));
  SetValue(EmptyTextProperty, versions.empty() ? std::string_view("Nothing was kept of this file yet.") : "");
}

void VersionsPanel::OnOpenClicked(Toolkit::Object*, const Toolkit::RoutedEventArgs& args) {
  const auto* button = Toolkit::DynamicCast<Toolkit::FrameworkElement>(args.source);
  const Ptr<VersionLine> line(button ? Toolkit::DynamicCast<VersionLine>(button->GetDataContext()) : nullptr);
  if (line && chosen) chosen(*line);
}

} // namespace Tesselor
