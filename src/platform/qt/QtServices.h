#pragma once

#include <QPointer>
#include <QPrinter>
#include <QStringList>
#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "platform/Application.h"
#include "platform/CommonDialogs.h"
#include "platform/qt/CopyRegistry.h"

class QDialog;
class QPainter;

namespace quorvel {

class QtApplication : public Application {
 public:
  explicit QtApplication(const QStringList& arguments);
  void SetMainWindow(QWidget* window) { window_ = window; }

  std::string Folder() override;
  char PathSeparator() const override;
  std::string CommandLine() const override { return commandLine_; }
  std::string Title() const override { return title_; }
  void SetTitle(const std::string& title) override { title_ = title; }
  bool OtherCopyRuns() override { return copies_.OtherCopyRuns(); }
  bool ActivateCopy(const std::string& title) override;

 private:
  std::string commandLine_;
  std::string title_ = "Quorvel GUI";
  QPointer<QWidget> window_;
  CopyRegistry copies_;
};

class QtDialogs : public CommonDialogs {
 public:
  std::optional<std::string> ChooseFile(const FileDialog& dialog) override;
  std::optional<std::uint32_t> ChooseColour(std::uint32_t present) override;
  std::optional<quorvel::Font> ChooseFont(const quorvel::Font& present) override;
  bool ChoosePrinter() override;
  // The program ends: closes the dialog that is open.
  void CloseOpen();

 private:
  int Exec(QDialog& dialog, const char* name);
  QPointer<QDialog> open_;
};

class QtClipboard : public Clipboard {
 public:
  std::string Text() override;
  void SetText(const std::string& text) override;
  void Clear() override;
};

// The current printer; where the system has none, a PDF file in the application folder's place for
// documents takes the pages.
class QtPrinter : public Printer {
 public:
  QtPrinter();
  ~QtPrinter() override;
  void PrintText(const std::string& text) override;
  void EndDocument() override;
  void PrintScreen(const std::vector<std::string>& lines) override;

  QPrinter& Current();

 private:
  void PrintLine(const QString& line);

  std::unique_ptr<QPrinter> printer_;
  std::unique_ptr<QPainter> painter_;
  double y_ = 0;
};

class QtPrograms : public Programs {
 public:
  void Start(const std::string& commandLine, ProgramWindow window) override;
};

}  // namespace quorvel
