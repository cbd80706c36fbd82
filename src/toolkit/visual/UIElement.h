#pragma once

#include "toolkit/base/DependencyObject.h"
#include "toolkit/base/Geometry.h"
#include "toolkit/base/RoutedEvent.h"

#include <memory>
#include <string_view>
#include <vector>

namespace Toolkit {

class LayoutQueue;
class Painter;

enum class Visibility : uint8_t { Collapsed = 0, Hidden = 1, Visible = 2 };
const EnumDescription& DescribeEnum(Visibility);

/// What a layout has changed of an element: its place on its parent alone, or also its size or what is below it.
enum class LayoutChange : uint8_t { PlaceOnly, Inside };

/// A node of the visual tree: layout, routed events, input and hit testing. The parent owns it; its pointer to the
/// parent is raw and cleared on detach.
class UIElement : public DependencyObject {
  TOOLKIT_TYPE(UIElement)
public:
  static inline const DependencyProperty* VisibilityProperty = nullptr;
  static inline const DependencyProperty* OpacityProperty = nullptr;
  static inline const DependencyProperty* IsEnabledProperty = nullptr;
  static inline const DependencyProperty* IsHitTestVisibleProperty = nullptr;
  static inline const DependencyProperty* FocusableProperty = nullptr;
  static inline const DependencyProperty* ClipToBoundsProperty = nullptr;
  static inline const DependencyProperty* RenderTransformProperty = nullptr;
  static inline const DependencyProperty* RenderTransformOriginProperty = nullptr;
  static inline const DependencyProperty* EffectProperty = nullptr;
  static inline const DependencyProperty* IsMouseOverProperty = nullptr;
  static inline const DependencyProperty* IsFocusedProperty = nullptr;
  /// The focus came by the keyboard, so that whoever looks at the window has to be shown where it is.
  static inline const DependencyProperty* IsFocusVisibleProperty = nullptr;

  static const RoutedEvent PreviewMouseDownEvent, MouseDownEvent, PreviewMouseUpEvent, MouseUpEvent;
  static const RoutedEvent PreviewMouseLeftButtonDownEvent, MouseLeftButtonDownEvent;
  static const RoutedEvent PreviewMouseLeftButtonUpEvent, MouseLeftButtonUpEvent;
  static const RoutedEvent PreviewMouseRightButtonDownEvent, MouseRightButtonDownEvent;
  static const RoutedEvent PreviewMouseRightButtonUpEvent, MouseRightButtonUpEvent;
  static const RoutedEvent PreviewMouseMoveEvent, MouseMoveEvent, MouseEnterEvent, MouseLeaveEvent;
  static const RoutedEvent PreviewMouseWheelEvent, MouseWheelEvent;
  /// Tunnelling, with `QueryCursorEventArgs`, whenever the display wants to know the cursor.
  static const RoutedEvent QueryCursorEvent;
  static const RoutedEvent PreviewKeyDownEvent, KeyDownEvent, PreviewKeyUpEvent, KeyUpEvent;
  static const RoutedEvent PreviewTextInputEvent, TextInputEvent;
  static const RoutedEvent GotFocusEvent, LostFocusEvent;
  /// Raised at the element that had the capture of the mouse, however that ended.
  static const RoutedEvent LostMouseCaptureEvent;

  ~UIElement() override;

  Visibility GetVisibility() const { return Get<Visibility>(VisibilityProperty); }
  void SetVisibility(Visibility value) { SetValue(VisibilityProperty, value); }
  bool IsEnabled() const;
  /// Visible, and so are all ancestors up to the root it hangs on.
  bool IsVisible() const;

  // The tree.
  UIElement* VisualParent() const { return visualParent; }
  /// The visual parent, or else the element that logically holds this one (content that is not shown yet).
  virtual UIElement* UIParent() const { return visualParent; }
  virtual size_t VisualChildCount() const { return 0; }
  virtual UIElement* VisualChild(size_t index) const { return nullptr; }
  DependencyObject* InheritanceParent() const override { return UIParent(); }
  bool IsAncestorOf(const UIElement* element) const;
  /// True while the element hangs below a root that is laid out.
  bool IsAttached() const { return attached; }
  /// Makes this element a root that is laid out and takes input, or ends that.
  void AttachAsRoot();
  void DetachAsRoot();

  // Layout.
  void Measure(Size available);
  void Arrange(const Rect& finalRect);
  Size DesiredSize() const { return desiredSize; }
  Size RenderSize() const { return renderSize; }
  float ActualWidth() const { return renderSize.width; }
  float ActualHeight() const { return renderSize.height; }
  /// The position in the parent, before any transform.
  Point Offset() const { return offset; }
  void InvalidateMeasure();
  void InvalidateArrange();
  void InvalidateVisual();
  bool IsMeasureValid() const { return !measureDirty; }
  bool IsArrangeValid() const { return !arrangeDirty; }
  /// Runs all layout that is due, of this element's whole root.
  void UpdateLayout();

  // Geometry.
  /// The map from this element's coordinates to its parent's.
  Matrix TransformToParent() const;
  /// The map from this element's coordinates to those of `ancestor`; to the root's if `ancestor` is null.
  Matrix TransformToAncestor(const UIElement* ancestor) const;
  Point PointFromRoot(Point rootPoint) const { return TransformToAncestor(nullptr).Inverse().Map(rootPoint); }
  /// The topmost element at a point of this element's coordinates, or null.
  virtual UIElement* HitTest(Point point);

  // Drawing.
  /// On a canvas that keeps drawings: the element is about to be recorded with so many pixels per unit. It may change
  /// what is inside of it, but neither its size nor its place.
  virtual void PrepareToRender(float detail) {}
  /// Records this element and all below it in the coordinates of its parent, as `OnRender` and `RenderChildren` tell,
  /// with its transform, effect, opacity and clip. What is hidden is left out, and so is what the painter's detail does
  /// not show.
  void Render(Painter& painter);
  /// The same in the element's own coordinates, without its place and its transform.
  void RenderContent(Painter& painter);
  /// The drawing of this element or of one below it has changed since it was last rendered.
  bool IsDrawingStale() const { return drawingStale; }
  /// The box, in its own coordinates, outside of which neither the element nor anything below it is drawn or hit.
  virtual Rect DrawnBounds() const { return {0, 0, renderSize.width, renderSize.height}; }

  // Events.
  void AddHandler(const RoutedEvent& event, RoutedEventHandler handler, bool handledEventsToo = false);
  void RemoveHandler(const RoutedEvent& event, const RoutedEventHandler& handler);
  /// Sends the event along its route, which is captured before the first call.
  void RaiseEvent(const RoutedEventArgs& args);

  /// Gives this element the keyboard focus; false if it cannot take it.
  bool Focus();
  bool IsFocused() const { return Get<bool>(IsFocusedProperty); }
  /// All mouse input goes to this element until it gives the mouse back, another takes it, or it can't be reached any
  /// more. False if it can't be reached now.
  bool CaptureMouse();
  /// Does nothing if this element does not hold the mouse.
  void ReleaseMouseCapture();
  bool HasMouseCapture() const;
  /// Where Tab reaches the element: in rising order, those of equal order as the tree has them. Negative: not at all.
  virtual int32_t TabOrder() const { return INT32_MAX; }
  /// Where typed text would appear, in the element's own coordinates, for the window of an input method. Without an
  /// extent if the element takes no text.
  virtual Rect CaretRectangle() const { return {}; }
  /// What an input method shows before it is settled, in UTF-8; empty ends it. `caret` is a byte offset into it.
  virtual void SetComposition(std::string_view text, size_t caret) {}
  /// Scrolls whatever lies around this element so that `area`, in its own coordinates, comes into sight.
  void BringIntoView(const Rect& area);
  void BringIntoView() { BringIntoView({0, 0, renderSize.width, renderSize.height}); }

protected:
  UIElement();

  /// A child was added to or taken from what `VisualChild` lists.
  void AddVisualChild(UIElement* child);
  void RemoveVisualChild(UIElement* child);
  /// As `RemoveVisualChild`, from a destructor: a child that goes with its parent is not told of the change, since who
  /// listens to it may be half destroyed. `ownReferences` is how many references the parent itself holds.
  void ReleaseVisualChild(UIElement* child, uint32_t ownReferences = 1);
  void OnPropertyChanged(const PropertyChange& change) override;
  void OnInheritedChanged(uint16_t bits) override;
  void RefreshInheritanceOfChildren(uint16_t changedBits) override;

  /// Returns the wanted size, margin included.
  virtual Size MeasureCore(Size available) { return {}; }
  virtual void ArrangeCore(const Rect& finalRect);
  /// A child's wanted size changed outside this element's own measure.
  virtual void OnChildDesiredSizeChanged(UIElement* child) { InvalidateMeasure(); }
  /// Arranges a child whose arrangement became invalid by itself. The base keeps the child's place.
  virtual void ArrangeDirtyChild(UIElement& child) { child.Arrange(child.finalRect); }
  /// True if `point` hits this element itself, apart from its children.
  virtual bool HitTestSelf(Point point) const { return false; }
  /// Draws the element itself, below its children, in its own coordinates.
  virtual void OnRender(Painter& painter) {}
  /// Renders the children in their order.
  virtual void RenderChildren(Painter& painter);
  /// With `tracksChildren`: the drawing of a direct child, or its place or transform, has changed.
  virtual void OnChildDrawingChanged(UIElement& child) {}
  /// Scrolls so that `area`, in the element's own coordinates, comes into sight as far as it can. Returns where it is
  /// then.
  virtual Rect Reveal(const Rect& area) { return area; }
  /// The class's own part in an event, before the handlers of this element.
  virtual void OnRoutedEvent(const RoutedEventArgs& args) {}
  /// The element has come below a root, or has left it.
  virtual void OnAttached() {}
  virtual void OnDetached() {}
  /// At the end of a layout, when nothing is due any more: this element or one below it has another place or size on
  /// its parent than before. What this makes due is laid out in the same run, which tells again whom that moved.
  virtual void OnLayoutChanged(LayoutChange change) {}
  void SetRenderSize(Size size, Point position);
  /// For classes whose `DrawnBounds` follows from what they hold: it has changed.
  void InvalidateBounds();
  bool HasHandler(const RoutedEvent& event) const;
  bool WasMeasured() const { return !neverMeasured; }

private:
  friend class LayoutQueue;
  friend class InputState;
  struct HandlerEntry {
    const RoutedEvent* event;
    bool handledEventsToo;
    RoutedEventHandler handler;
  };
  void InvokeHandlers(const RoutedEventArgs& args);
  void SetAttached(bool value);
  /// The element's place in its parent changed, its own drawing did not.
  void InvalidatePlace();
  /// Puts the elements at and above this one that want to know of a changed arrangement into the layout queue.
  void NoteLayoutChange(LayoutChange own, bool isFirst);

  UIElement* visualParent = nullptr;
  std::unique_ptr<std::vector<HandlerEntry>> handlers;
  Size desiredSize;
  Size previousAvailable;
  Size renderSize;
  Point offset;
  Rect finalRect;
  bool measureDirty : 1 = true;
  bool arrangeDirty : 1 = true;
  bool neverMeasured : 1 = true;
  bool neverArranged : 1 = true;
  bool measuring : 1 = false;
  bool inMeasureQueue : 1 = false;
  bool inArrangeQueue : 1 = false;
  bool inNoticeQueue : 1 = false;
  /// What the notice will tell.
  LayoutChange noticedChange : 1 = LayoutChange::PlaceOnly;
  bool inLoadedQueue : 1 = false;
  bool attached : 1 = false;
  bool drawingStale : 1 = true;

protected:
  /// Set by a class that needs its `OnAttached` and `OnDetached` called.
  bool wantsAttachment : 1 = false;
  /// Set by a class that needs its `OnChildDrawingChanged` called.
  bool tracksChildren : 1 = false;
  /// Set by a class that needs its `OnLayoutChanged` called.
  bool notesLayout : 1 = false;
};

} // namespace Toolkit
