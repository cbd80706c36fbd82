#include "toolkit/application/ToolkitRegistration.h"

#include "toolkit/application/Application.h"
#include "toolkit/application/MessageBoxView.h"
#include "toolkit/application/Window.h"
#include "toolkit/base/ObservableCollection.h"
#include "toolkit/controls/Border.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/CheckBox.h"
#include "toolkit/controls/ComboBox.h"
#include "toolkit/controls/ComboBoxList.h"
#include "toolkit/controls/ContentPresenter.h"
#include "toolkit/controls/ContextMenu.h"
#include "toolkit/controls/DockPanel.h"
#include "toolkit/controls/EventTrigger.h"
#include "toolkit/controls/Grid.h"
#include "toolkit/controls/HeaderedContentControl.h"
#include "toolkit/controls/Image.h"
#include "toolkit/controls/Label.h"
#include "toolkit/controls/ListView.h"
#include "toolkit/controls/LongList.h"
#include "toolkit/controls/Menu.h"
#include "toolkit/controls/MenuItem.h"
#include "toolkit/controls/Popup.h"
#include "toolkit/controls/PopupLayer.h"
#include "toolkit/controls/ScrollViewer.h"
#include "toolkit/controls/Shapes.h"
#include "toolkit/controls/Slider.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/controls/TextBlock.h"
#include "toolkit/controls/TextBox.h"
#include "toolkit/controls/ToolTip.h"
#include "toolkit/controls/UserControl.h"
#include "toolkit/markup/Binding.h"
#include "toolkit/markup/Template.h"
#include "toolkit/render/Brush.h"
#include "toolkit/render/PathGeometry.h"
#include "toolkit/visual/Behavior.h"
#include "toolkit/visual/Style.h"
#include "toolkit/visual/Transform.h"

namespace Toolkit {

namespace {
template <class... Classes> void Describe() { (Classes::StaticType(), ...); }
} // namespace

void RegisterToolkitTypes() {
  Describe<UIElement, FrameworkElement, Behavior, BindingBase, Style, Trigger, ConditionProbe, ResourceDictionary,
           Transform, ScaleTransform, TranslateTransform, RotateTransform, TransformGroup>();
  Describe<Brush, SolidColorBrush, GradientStop, LinearGradientBrush, ImageBrush, DropShadowEffect, PathSegment,
           LineSegment, BezierSegment, PathFigure, PathGeometry>();
  Describe<Binding, ValueConverter, FrameworkTemplate, ControlTemplate, DataTemplate, ItemsPanelTemplate,
           ElementFactory, ObservableCollectionBase>();
  Describe<TextElement, TextBlock, Panel, StackPanel, Canvas, Grid, RowDefinition, ColumnDefinition, DockPanel, Border,
           Control, ContentControl, ContentPresenter, UserControl, ButtonBase, Button, CheckBox, Slider, TextBox,
           HeaderedContentControl, GroupBox, Expander, ScrollViewer, ItemsControl, Selector, ComboBox, ComboBoxList,
           ListLine, LongList, ListView, GridView, GridViewColumn, GridViewColumnHeader, GridViewRow, Label, ToolTip,
           Image, Shape, Rectangle, Ellipse, Line, Path, HeaderedItemsControl, MenuItem, MenuBase, Menu, MenuSurface,
           ContextMenu, Popup, PopupLayer, TriggerAction, ChangePropertyAction, EventTrigger>();
  Describe<Application, Window, MessageBoxView>();
}

} // namespace Toolkit
