// The peers of labels, buttons, boxes to tick, frames, holders and pictures.

#include <QCheckBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "platform/controls/ImageBox.h"
#include "platform/controls/SimpleControls.h"
#include "platform/qt/ControlPeers.h"
#include "platform/qt/Looks.h"
#include "platform/qt/Pictures.h"
#include "platform/qt/QtPictures.h"
#include "platform/qt/Text.h"
#include "platform/qt/WidgetPeer.h"

namespace quorvel {
namespace {

constexpr int kUsualPicture = 64;  // pixels, where nobody says how large

class LabelPeer : public WidgetPeer {
 public:
  LabelPeer(Label& label, QWidget* parent) : WidgetPeer(label, new QLabel(parent)), label_(label) {
    Own()->setTextFormat(Qt::PlainText);
    UpdateAll();
  }
  void Apply(Prop prop) override {
    if (prop == Prop::Look) return Arrange();
    if (prop != Prop::Caption && prop != Prop::AccessibleText) return;
    // Only a label that stands for something leads anywhere: in any other an "&" is text.
    const Control* buddy = label_.Buddy();
    Own()->setBuddy(buddy ? WidgetOf(*buddy) : nullptr);
    Own()->setText(Own()->buddy() ? ToMnemonic(label_.Caption()) : ToCaption(label_.Caption()));
  }

 private:
  QLabel* Own() { return static_cast<QLabel*>(Widget()); }
  // On a grid its text stands on the line of the boxes beside it.
  void Arrange() {
    const bool centred = label_.Look().onGrid || !label_.window().layout().empty();
    Own()->setWordWrap(!label_.Look().onGrid);
    Own()->setAlignment(Qt::AlignLeft | (centred ? Qt::AlignVCenter : Qt::AlignTop));
  }
  Label& label_;
};

class ButtonPeer : public WidgetPeer {
 public:
  ButtonPeer(Button& button, QWidget* parent)
      : WidgetPeer(button, new QPushButton(parent)), button_(button) {
    Own()->setAutoDefault(false);
    if (!button.FocusOnClick) Own()->setFocusPolicy(Qt::NoFocus);
    connect(Own(), &QPushButton::clicked, this, [this] { button_.UserClick(); });
    UpdateAll();
  }
  void Apply(Prop prop) override {
    if (prop == Prop::Caption || prop == Prop::Picture) {
      Own()->setText(ToMnemonic(button_.Caption()));
      Own()->setIcon(button_.Caption().empty() ? PictureIcon(button_.Picture()) : QIcon());
    }
    if (prop == Prop::Default) Own()->setDefault(button_.Default());
  }

 private:
  QPushButton* Own() { return static_cast<QPushButton*>(Widget()); }
  Button& button_;
};

class CheckPeer : public WidgetPeer {
 public:
  CheckPeer(CheckBox& box, QWidget* parent) : WidgetPeer(box, new QCheckBox(parent)), box_(box) {
    connect(Own(), &QCheckBox::clicked, this, [this](bool value) { box_.UserToggle(value); });
    UpdateAll();
  }
  void Apply(Prop prop) override {
    if (prop == Prop::Caption) Own()->setText(ToMnemonic(box_.Caption()));
    if (prop == Prop::Value) Own()->setChecked(box_.Value());
  }

 private:
  QCheckBox* Own() { return static_cast<QCheckBox*>(Widget()); }
  CheckBox& box_;
};

class OptionPeer : public WidgetPeer {
 public:
  OptionPeer(OptionButton& option, QWidget* parent)
      : WidgetPeer(option, new QRadioButton(parent)), option_(option) {
    Own()->setAutoExclusive(false);  // the controls know their groups
    connect(Own(), &QRadioButton::clicked, this, [this] {
      const QPointer<OptionPeer> self(this);
      option_.UserClick();
      if (self) self->Update(Prop::Value);  // it stays chosen when clicked again
    });
    UpdateAll();
  }
  void Apply(Prop prop) override {
    if (prop == Prop::Caption) Own()->setText(ToMnemonic(option_.Caption()));
    if (prop == Prop::Value) Own()->setChecked(option_.Value());
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::KeyPress) {
      const int key = static_cast<QKeyEvent*>(event)->key();
      const bool on = key == Qt::Key_Down || key == Qt::Key_Right;
      if (on || key == Qt::Key_Up || key == Qt::Key_Left) {
        ChooseNeighbour(on ? 1 : -1);
        return true;
      }
    }
    return WidgetPeer::eventFilter(watched, event);
  }

 private:
  QRadioButton* Own() { return static_cast<QRadioButton*>(Widget()); }
  // The arrow keys go round the options of a group.
  void ChooseNeighbour(int step) {
    std::vector<Control*> group;
    for (Control* other : option_.parent().Children()) {
      if (other->kind() == ControlKind::OptionButton && (other == &option_ || other->Reachable())) {
        group.push_back(other);
      }
    }
    const auto size = static_cast<std::ptrdiff_t>(group.size());
    const auto here = std::find(group.begin(), group.end(), &option_) - group.begin();
    Control* next = group[static_cast<std::size_t>((here + step + size) % size)];
    if (next != &option_) next->UserClick();
  }

  OptionButton& option_;
};

class FramePeer : public WidgetPeer {
 public:
  FramePeer(Control& frame, QWidget* parent) : WidgetPeer(frame, new QGroupBox(parent)) {
    UpdateAll();
  }
  void Apply(Prop prop) override {
    if (prop != Prop::Caption) return;
    static_cast<QGroupBox*>(Widget())->setTitle(ToMnemonic(control().Caption()));
  }
};

// Panels and elastic containers hold, and show nothing themselves.
class HolderPeer : public WidgetPeer {
 public:
  HolderPeer(Control& holder, QWidget* parent) : WidgetPeer(holder, new QWidget(parent)) {
    UpdateAll();
  }
  void Apply(Prop) override {}
};

class PicturePeer : public WidgetPeer {
 public:
  PicturePeer(PictureBox& box, QWidget* parent) : WidgetPeer(box, new QLabel(parent)), box_(box) {
    UpdateAll();
  }
  void Apply(Prop prop) override {
    if (prop != Prop::Picture && prop != Prop::Width && prop != Prop::Height) return;
    auto* label = static_cast<QLabel*>(Widget());
    const int side = std::min(ToPixels(box_.Width()), ToPixels(box_.Height()));
    const int shown = side > 0 ? side : kUsualPicture;
    label->setPixmap(
        PictureIcon(box_.Picture()).pixmap(QSize(shown, shown), label->devicePixelRatio()));
  }

 private:
  PictureBox& box_;
};

class ImagePeer : public WidgetPeer {
 public:
  ImagePeer(ImageBox& box, QWidget* parent) : WidgetPeer(box, new QLabel(parent)), box_(box) {
    static_cast<QLabel*>(Widget())->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    UpdateAll();
  }
  void Apply(Prop prop) override {
    if (prop != Prop::Picture) return;
    auto* label = static_cast<QLabel*>(Widget());
    const auto* picture = static_cast<const QtPicture*>(box_.Shown().get());
    label->setPixmap(picture ? QPixmap::fromImage(picture->Image()) : QPixmap());
  }

 private:
  ImageBox& box_;
};

}  // namespace

std::unique_ptr<WidgetPeer> MakeLabel(Label& label, QWidget* parent) {
  return std::make_unique<LabelPeer>(label, parent);
}
std::unique_ptr<WidgetPeer> MakeButton(Button& button, QWidget* parent) {
  return std::make_unique<ButtonPeer>(button, parent);
}
std::unique_ptr<WidgetPeer> MakeCheckBox(CheckBox& box, QWidget* parent) {
  return std::make_unique<CheckPeer>(box, parent);
}
std::unique_ptr<WidgetPeer> MakeOptionButton(OptionButton& option, QWidget* parent) {
  return std::make_unique<OptionPeer>(option, parent);
}
std::unique_ptr<WidgetPeer> MakeFrame(Control& frame, QWidget* parent) {
  return std::make_unique<FramePeer>(frame, parent);
}
std::unique_ptr<WidgetPeer> MakeHolder(Control& holder, QWidget* parent) {
  return std::make_unique<HolderPeer>(holder, parent);
}
std::unique_ptr<WidgetPeer> MakeImage(ImageBox& box, QWidget* parent) {
  return std::make_unique<ImagePeer>(box, parent);
}
std::unique_ptr<WidgetPeer> MakePicture(PictureBox& box, QWidget* parent) {
  return std::make_unique<PicturePeer>(box, parent);
}

}  // namespace quorvel
