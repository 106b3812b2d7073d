#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/controls/Control.h"
#include "platform/controls/Window.h"

namespace quorvel {

// A toolkit widget behind a control: what all kinds have in common. It mirrors the program's
// changes without hearing its own echo, and reports what the user does.
class WidgetPeer : public QObject, public ControlPeer {
 public:
  WidgetPeer(Control& control, QWidget* widget);
  ~WidgetPeer() override;

  void Update(Prop prop) override;
  void ShowFocus() override;

  QWidget* Widget() const { return widget_; }
  Control& control() const { return control_; }
  // The peer of the control whose widget is, or is around, this one; nullptr for none.
  static WidgetPeer* Around(const QWidget* widget);
  // Between these two a press of the mouse is delivered; what it causes comes behind it.
  void BeginPress() { ++presses_; }
  std::vector<std::function<void()>> EndPress();
  // Does `cause` now, or behind the press that is being delivered.
  void BehindPress(std::function<void()> cause);
  // Brings the widget's accessible name and description up to date.
  void Describe();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  // Applies everything; called at the end of the kinds' constructors.
  void UpdateAll();
  // True while the program's change is mirrored: the widget's signals are its echo.
  bool Mirroring() const { return mirroring_ > 0; }
  struct Mirror {
    explicit Mirror(WidgetPeer& owner) : peer(owner) { ++peer.mirroring_; }
    ~Mirror() { --peer.mirroring_; }
    Mirror(const Mirror&) = delete;
    Mirror& operator=(const Mirror&) = delete;
    WidgetPeer& peer;
  };
  // The kind's own half of a change.
  virtual void Apply(Prop prop) = 0;

 private:
  void Place();
  void Colour();
  bool TakeMouse(QEvent& event);

  Control& control_;
  QPointer<QWidget> widget_;
  const QWidget* const key_;  // in the list of all peers
  int mirroring_ = 0;
  int presses_ = 0;
  std::vector<std::function<void()>> causes_;
};

// The widget of a control whose window is loaded; nullptr otherwise.
QWidget* WidgetOf(const Control& control);

}  // namespace quorvel
