#pragma once

#include "toolkit/base/ObservableCollection.h"
#include "toolkit/controls/Control.h"
#include "toolkit/controls/Panel.h"

#include <vector>

namespace Toolkit {

class DataTemplate;
class ItemsPanelTemplate;
class ItemsControl;

/// Finds the element that shows an item. Containers exist from the first measure on.
class ItemContainerGenerator {
public:
  explicit ItemContainerGenerator(const ItemsControl& owner) : owner(owner) {}
  /// Null if the item has no container yet.
  FrameworkElement* ContainerFromItem(const Object* item) const;
  FrameworkElement* ContainerFromIndex(size_t index) const;

private:
  const ItemsControl& owner;
};

/// Shows a list of items, each through the item template, on a panel.
class ItemsControl : public Control, private CollectionObserver {
  TOOLKIT_TYPE(ItemsControl)
public:
  static inline const DependencyProperty* ItemsSourceProperty = nullptr;
  static inline const DependencyProperty* ItemTemplateProperty = nullptr;
  static inline const DependencyProperty* ItemsPanelProperty = nullptr;
  static inline const DependencyProperty* DisplayMemberPathProperty = nullptr;
  static inline const DependencyProperty* ItemContainerStyleProperty = nullptr;

  ItemsControl();
  ~ItemsControl() override;

  /// The items in order: those of `ItemsSource` if it is set, else those added by a document or by code.
  size_t ItemCount() const;
  Object* ItemAt(size_t index) const;
  ObservableCollection<Object>& Items();
  void AddItem(Object* item);
  void SetItemsSource(ObservableCollectionBase* source) { SetValue(ItemsSourceProperty, source); }
  const ItemContainerGenerator& GetItemContainerGenerator() const { return generator; }
  Panel* ItemsHost() const { return host.Get(); }

  size_t VisualChildCount() const override;
  UIElement* VisualChild(size_t index) const override;

protected:
  void PrepareForMeasure() override;
  void OnPropertyChanged(const PropertyChange& change) override;
  Size MeasureOverride(Size available) override;
  Size ArrangeOverride(Size finalSize) override;
  /// A new container for `item`. The base makes a presenter of the item template, or takes an element item itself.
  virtual Ptr<FrameworkElement> CreateContainer(Object* item);
  /// How many of the items have containers, from the first one on.
  virtual size_t ContainerCount() const { return ItemCount(); }
  /// Another number of containers is due.
  void InvalidateContainers();
  /// The items changed; containers follow at the next measure.
  virtual void OnItemsChanged(const CollectionChange& change) {}
  /// The panel that containers go to: the host made here, or one that a template names.
  virtual Ptr<Panel> CreateHost();

private:
  friend class ItemContainerGenerator;
  void OnCollectionChanged(const CollectionChange& change) final;
  void GenerateContainers();
  const ObservableCollectionBase* Source() const;

  ItemContainerGenerator generator;
  Ptr<ObservableCollection<Object>> ownItems;
  Ptr<Panel> host;
  std::vector<Ptr<Object>> containerItems;
  // Bindings made for `DisplayMemberPath`; their expressions refer to them.
  std::vector<Ptr<Object>> memberBindings;
  bool containersDue = true;
};

} // namespace Toolkit
