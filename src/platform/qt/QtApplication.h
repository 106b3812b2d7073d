#pragma once

#include <QLockFile>
#include <QPointer>
#include <QStringList>
#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "platform/Application.h"
#include "platform/qt/CopyRegistry.h"

namespace quorvel {

// The application folder is $QUORVEL_HOME; without it, the folder of the program on Windows and the
// user's folder for data elsewhere (usually ~/.local/share/quorvel).
class QtApplication : public Application {
 public:
  // `arguments` are those of the program, its own name first.
  explicit QtApplication(const QStringList& arguments);
  // The window that comes to the front when another copy asks for this one.
  void SetMainWindow(QWidget* window) { window_ = window; }

  std::string Folder() override;
  std::string OwnPathOf(const std::string& name) override;
  char PathSeparator() const override;
  std::vector<std::string> Drives() override;
  std::string ShortDate() override;
  std::string CommandLine() const override { return commandLine_; }
  std::string Title() const override { return title_; }
  void SetTitle(const std::string& title) override { title_ = title; }
  bool OtherCopyRuns() override { return copies_.OtherCopyRuns(); }
  bool ActivateCopy(const std::string& title) override;

 private:
  void ComeToFront();

  std::string commandLine_;
  std::string title_ = "Quorvel GUI";
  QPointer<QWidget> window_;
  CopyRegistry copies_;
  std::vector<std::unique_ptr<QLockFile>> taken_;  // names that this copy has
};

}  // namespace quorvel
