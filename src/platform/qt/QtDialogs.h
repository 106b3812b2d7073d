#pragma once

#include "platform/CommonDialogs.h"

class QDialog;

namespace quorvel {

class QtPrinter;

// The toolkit's own dialogs, modal over the window that is active.
class QtDialogs : public CommonDialogs {
 public:
  explicit QtDialogs(QtPrinter& printer) : printer_(printer) {}

  std::optional<std::string> ChooseFile(const FileDialog& dialog) override;
  std::optional<std::uint32_t> ChooseColour(std::uint32_t present) override;
  std::optional<quorvel::Font> ChooseFont(const quorvel::Font& present) override;
  bool ChoosePrinter() override;

 private:
  QtPrinter& printer_;
};

}  // namespace quorvel
