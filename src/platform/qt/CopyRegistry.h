#pragma once

#include <QLocalServer>
#include <QString>
#include <functional>

namespace quorvel {

// The running copies of the program of one user, across processes. Each listens under a name of its
// own and leaves that name in a folder that only this user can enter. Needs a QCoreApplication, no
// window.
class CopyRegistry : public QObject {
 public:
  // Enters this copy. `title` gives what it is called now; `raise` is called when another copy asks
  // for it by that title.
  CopyRegistry(std::function<QString()> title, std::function<void()> raise);
  ~CopyRegistry() override;
  CopyRegistry(const CopyRegistry&) = delete;
  CopyRegistry& operator=(const CopyRegistry&) = delete;

  // Whether another copy is running. Names that copies have left behind are cleaned away.
  bool OtherCopyRuns() const;
  // Where the copies of this user can lock this path against each other.
  QString LockOf(const QString& path) const;
  // Asks the copies for the one with this title and has it come to the front; false if there is
  // none.
  bool Activate(const QString& title) const;

 private:
  QStringList Others() const;
  void Answer();

  std::function<QString()> title_;
  std::function<void()> raise_;
  QString folder_;
  QString name_;
  QLocalServer server_;
};

}  // namespace quorvel
