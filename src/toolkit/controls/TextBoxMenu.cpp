#include "toolkit/controls/TextBoxMenu.h"

#include "toolkit/controls/ContextMenu.h"
#include "toolkit/controls/MenuItem.h"
#include "toolkit/controls/PopupLayer.h"
#include "toolkit/controls/TextEditor.h"

namespace Toolkit {

bool TextBoxMenu::Open(TextBox& box, const Rect& anchor) {
  if (!PopupLayer::Of(box)) return false;
  using Command = TextEditor::Command;
  struct Row {
    const char* header;
    const char* keys;
    Command command;
  };
  auto menu = MakePtr<ContextMenu>();
  for (const Row& row : {Row{"Undo", "Ctrl+Z", Command::Undo}, Row{"Redo", "Ctrl+Y", Command::Redo},
                         Row{"Cut", "Ctrl+X", Command::Cut}, Row{"Copy", "Ctrl+C", Command::Copy},
                         Row{"Paste", "Ctrl+V", Command::Paste}, Row{"Select All", "Ctrl+A", Command::SelectAll}}) {
    auto item = MakePtr<MenuItem>();
    item->SetHeader(row.header);
    item->SetValue(MenuItem::InputGestureTextProperty, row.keys);
    item->SetValue(UIElement::IsEnabledProperty, box.Editor().CanDo(row.command));
    item->AddHandler(MenuItem::ClickEvent,
                     RoutedEventHandler::From(
                         [owner = WeakPtr<TextBox>(&box), command = row.command](Object*, const RoutedEventArgs&) {
                           if (TextBox* at = owner.Get(); at && at->Focus()) at->Editor().Do(command);
                         }));
    menu->AddItem(item.Get());
  }
  menu->SetLogicalParent(&box);
  menu->anchor = anchor;
  menu->SetIsOpen(true);
  return true;
}

} // namespace Toolkit
