#pragma once

#include <QLocalServer>
#include <QString>
#include <functional>

namespace quorvel {

// The running copies of the program of one user, each listening under a name of its own.
class CopyRegistry : public QObject {
 public:
  // Enters this copy; `raise` is called when another copy asks for `title`, which is asked for
  // with `title()` at that moment.
  CopyRegistry(std::function<QString()> title, std::function<void()> raise);
  ~CopyRegistry() override;

  // Whether another copy is running.
  bool OtherCopyRuns() const;
  // Asks the copy with this title to come to the front; false if there is none.
  bool Activate(const QString& title) const;

 private:
  static QString Folder();
  void Answer();

  std::function<QString()> title_;
  std::function<void()> raise_;
  QLocalServer server_;
};

}  // namespace quorvel
