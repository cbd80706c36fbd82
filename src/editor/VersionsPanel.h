#pragma once

#include "document/FileHistory.h"
#include "toolkit/base/Observable.h"
#include "toolkit/base/ObservableCollection.h"
#include "toolkit/base/SharedString.h"
#include "toolkit/controls/UserControl.h"

#include <functional>

namespace Tesselor {

/// One earlier version of the file, as its line tells it.
class VersionLine : public Toolkit::NotifyPropertyChangedBase {
  TOOLKIT_TYPE(VersionLine)
public:
  VersionLine() = default;
  explicit VersionLine(FileHistory::Version version);
  const FileHistory::Version& Version() const { return version; }
  /// Local, to the second.
  Toolkit::SharedString GetTime() const { return time; }
  Toolkit::SharedString GetSize() const { return size; }

private:
  FileHistory::Version version;
  Toolkit::SharedString time, size;
};

/// The list of the file's earlier versions. It shows what it is given and tells what was chosen.
class VersionsPanel : public Toolkit::UserControl {
  TOOLKIT_TYPE(VersionsPanel)
public:
  /// What stands in place of an empty list.
  static inline const Toolkit::DependencyProperty* EmptyTextProperty = nullptr;

  VersionsPanel();
  void List(const std::vector<FileHistory::Version>& versions);
  /// The user chose a version.
  std::function<void(const VersionLine& line)> chosen;
  std::function<void()> closed;

private:
  Toolkit::ObservableCollectionBase* ReflectedLines() const { return lines.Get(); }
  void OnOpenClicked(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnCloseClicked(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args) { closed(); }

  Toolkit::Ptr<Toolkit::ObservableCollection<VersionLine>> lines;
};

} // namespace Tesselor
