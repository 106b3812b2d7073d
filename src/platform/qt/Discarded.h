#pragma once

#include <QObject>
#include <QPointer>
#include <vector>

class QWidget;

namespace quorvel {

// The widgets and menus that windows and controls have left behind. Such an object stays alive as
// long as an event of its own, of anything inside it, or of what was inside it is being delivered:
// the handler may be in a wait that serves others. The loop of events deletes what is free.
class Discarded : public QObject {
 public:
  Discarded() = default;
  ~Discarded() override { DeleteAll(); }
  Discarded(const Discarded&) = delete;
  Discarded& operator=(const Discarded&) = delete;

  // While this lives, an event is being delivered to `receiver`.
  class Delivery {
   public:
    Delivery(Discarded& owner, QObject* receiver);
    ~Delivery();
    Delivery(const Delivery&) = delete;
    Delivery& operator=(const Delivery&) = delete;

   private:
    Discarded& owner_;
  };

  // Takes over a widget, still where it was: inside of what it belongs to.
  void Take(QWidget* widget);
  // What is left, at the end of the program.
  void DeleteAll();

 protected:
  bool event(QEvent* event) override;

 private:
  struct Running {
    QPointer<QObject> receiver;
    std::vector<const QObject*> around{};  // what it was inside of when a part of that was taken
    bool keeps = false;                    // something waits for its end
  };
  static bool IsInside(const Running& running, const QObject& object);
  void DeleteSoon();
  void DeleteFree();

  std::vector<Running> running_;
  std::vector<QPointer<QWidget>> left_;
  bool posted_ = false;
};

// Deletes a widget that nobody needs any more, hidden, when no event of it is being delivered.
void Discard(QWidget* widget);

}  // namespace quorvel
