#pragma once

#include <QPointer>
#include <QWidget>
#include <memory>

#include "platform/controls/Control.h"
#include "platform/controls/Window.h"

namespace quorvel {

// A toolkit widget behind a control: what all kinds have in common.
class WidgetPeer : public QObject, public ControlPeer {
 public:
  WidgetPeer(Control& control, QWidget* widget);
  ~WidgetPeer() override;

  void Update(Prop prop) override;
  void ShowFocus() override;

  QWidget* Widget() const { return widget_; }
  // Where the controls that lie on this one are put; `child` tells its page.
  virtual QWidget* Inside(const Control& child);
  // Twips that the inside lies below the control's own corner.
  virtual int InsideTop() const { return 0; }
  Control& control() const { return control_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  // Applies everything; called by the kinds' constructors.
  void UpdateAll();
  // True while the program's change is mirrored: the widget's signals are its echo.
  bool Mirroring() const { return mirroring_ > 0; }
  struct Mirror {
    explicit Mirror(WidgetPeer& of) : peer(of) { ++peer.mirroring_; }
    ~Mirror() { --peer.mirroring_; }
    Mirror(const Mirror&) = delete;
    Mirror& operator=(const Mirror&) = delete;
    WidgetPeer& peer;
  };
  // The kind's own half of a change.
  virtual void Apply(Prop prop) = 0;

 private:
  void ApplyCommon(Prop prop);

  Control& control_;
  QPointer<QWidget> widget_;
  int mirroring_ = 0;
};

// The peer of a control; its widget's parent is the widget that the control lies on.
std::unique_ptr<ControlPeer> MakeControlPeer(Control& control, QWidget* windowInside);

// The widget of a control whose window is loaded; nullptr otherwise.
QWidget* WidgetOf(const Control& control);

// Twips and pixels; 15 twips are a pixel at 96 dpi.
int ToPixels(int twips);
int ToTwips(int pixels);

// `text` and, where the environment asks for it, the code name for test tools.
QString AccessibleDescription(const QString& text, const std::string& codeName);

// The toolkit's font for a control's; an empty name or size 0 is the desktop's own.
QFont ToQFont(const Font& font);
QColor ToQColor(int colour);

}  // namespace quorvel
