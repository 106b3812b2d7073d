#pragma once

#include <memory>

#include "platform/controls/Control.h"

class QWidget;

namespace quorvel {

class Button;
class CheckBox;
class ComboBox;
class ImageBox;
class Label;
class ListBox;
class ListView;
class OptionButton;
class PictureBox;
class ReportView;
class TabStrip;
class Terminal;
class TextBox;
class WidgetPeer;

// The peer of a control of any kind. Its widget lies on that of the control's parent, or on
// `inside` if the parent is the window.
std::unique_ptr<ControlPeer> MakeControlPeer(Control& control, QWidget* inside);

// One maker a kind; `parent` is the widget that the new one lies on.
std::unique_ptr<WidgetPeer> MakeLabel(Label& label, QWidget* parent);
std::unique_ptr<WidgetPeer> MakeButton(Button& button, QWidget* parent);
std::unique_ptr<WidgetPeer> MakeCheckBox(CheckBox& box, QWidget* parent);
std::unique_ptr<WidgetPeer> MakeOptionButton(OptionButton& option, QWidget* parent);
std::unique_ptr<WidgetPeer> MakeFrame(Control& frame, QWidget* parent);
std::unique_ptr<WidgetPeer> MakeHolder(Control& holder, QWidget* parent);
std::unique_ptr<WidgetPeer> MakePicture(PictureBox& box, QWidget* parent);
std::unique_ptr<WidgetPeer> MakeImage(ImageBox& box, QWidget* parent);
std::unique_ptr<WidgetPeer> MakeTextBox(TextBox& box, QWidget* parent);
std::unique_ptr<WidgetPeer> MakeComboBox(ComboBox& combo, QWidget* parent);
std::unique_ptr<WidgetPeer> MakeListBox(ListBox& list, QWidget* parent);
std::unique_ptr<WidgetPeer> MakeListView(ListView& list, QWidget* parent);
std::unique_ptr<WidgetPeer> MakeReportView(ReportView& view, QWidget* parent);
std::unique_ptr<WidgetPeer> MakeTabStrip(TabStrip& strip, QWidget* parent);
std::unique_ptr<WidgetPeer> MakeTerminal(Terminal& terminal, QWidget* parent);

}  // namespace quorvel
