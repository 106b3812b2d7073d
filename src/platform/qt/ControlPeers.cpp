#include "platform/qt/ControlPeers.h"

#include "platform/controls/ImageBox.h"
#include "platform/controls/Lists.h"
#include "platform/controls/ReportView.h"
#include "platform/controls/SimpleControls.h"
#include "platform/controls/TabStrip.h"
#include "platform/controls/TerminalControl.h"
#include "platform/controls/TextBox.h"
#include "platform/qt/TerminalWidget.h"
#include "platform/qt/WidgetPeer.h"

namespace quorvel {
namespace {

class TerminalPeer : public WidgetPeer {
 public:
  TerminalPeer(Terminal& terminal, QWidget* parent)
      : WidgetPeer(terminal, new TerminalWidget(terminal, parent)) {
    UpdateAll();
  }
  void Apply(Prop prop) override { static_cast<TerminalWidget*>(Widget())->TakeChange(prop); }
};

}  // namespace

std::unique_ptr<WidgetPeer> MakeTerminal(Terminal& terminal, QWidget* parent) {
  return std::make_unique<TerminalPeer>(terminal, parent);
}

std::unique_ptr<ControlPeer> MakeControlPeer(Control& control, QWidget* inside) {
  const Control* outer = control.parent().AsControl();
  QWidget* parent = outer ? WidgetOf(*outer) : inside;
  switch (control.kind()) {
    case ControlKind::Label:
      return MakeLabel(static_cast<Label&>(control), parent);
    case ControlKind::TextBox:
      return MakeTextBox(static_cast<TextBox&>(control), parent);
    case ControlKind::ComboBox:
      return MakeComboBox(static_cast<ComboBox&>(control), parent);
    case ControlKind::ListBox:
      return MakeListBox(static_cast<ListBox&>(control), parent);
    case ControlKind::ListView:
      return MakeListView(static_cast<ListView&>(control), parent);
    case ControlKind::ReportView:
      return MakeReportView(static_cast<ReportView&>(control), parent);
    case ControlKind::Button:
      return MakeButton(static_cast<Button&>(control), parent);
    case ControlKind::CheckBox:
      return MakeCheckBox(static_cast<CheckBox&>(control), parent);
    case ControlKind::OptionButton:
      return MakeOptionButton(static_cast<OptionButton&>(control), parent);
    case ControlKind::Frame:
      return MakeFrame(control, parent);
    case ControlKind::Panel:
    case ControlKind::Elastic:
      return MakeHolder(control, parent);
    case ControlKind::PictureBox:
      return MakePicture(static_cast<PictureBox&>(control), parent);
    case ControlKind::ImageBox:
      return MakeImage(static_cast<ImageBox&>(control), parent);
    case ControlKind::TabStrip:
      return MakeTabStrip(static_cast<TabStrip&>(control), parent);
    case ControlKind::Terminal:
      return MakeTerminal(static_cast<Terminal&>(control), parent);
  }
  return nullptr;
}

}  // namespace quorvel
