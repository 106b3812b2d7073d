#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace quorvel {

// The dialog in which the user picks a file to open or a name to save under.
struct FileDialog {
  enum class Purpose { Open, Save };

  // Classic flag bits of the file dialogs.
  static constexpr int kOverwritePrompt = 2;
  static constexpr int kHideReadOnly = 4;
  static constexpr int kPathMustExist = 2048;
  static constexpr int kFileMustExist = 4096;

  Purpose purpose = Purpose::Open;
  std::string title;             // empty: the platform's own title
  std::string initialFolder;     // empty: the platform's choice
  std::string fileName;          // preset name or path
  std::string defaultExtension;  // added to a name without one, no dot
  std::string filter;            // pairs "Description | *.ext" joined by " | "
  int flags = 0;
};

// A font as dialogs and controls name it; size in points.
struct Font {
  std::string name;
  double size = 0;  // 0: the platform's own size
  bool bold = false;
  bool italic = false;

  bool operator==(const Font&) const = default;
};

// The platform's own dialogs. Each blocks, serving events, and gives nothing when the user cancels.
class CommonDialogs {
 public:
  virtual ~CommonDialogs() = default;
  virtual std::optional<std::string> ChooseFile(const FileDialog& dialog) = 0;
  // Colours are numbers with blue in the high byte: red + 256 * green + 65536 * blue.
  virtual std::optional<std::uint32_t> ChooseColour(std::uint32_t present) = 0;
  virtual std::optional<Font> ChooseFont(const Font& present) = 0;
  // Lets the user pick and set up the current printer; false when cancelled.
  virtual bool ChoosePrinter() = 0;
};

}  // namespace quorvel
