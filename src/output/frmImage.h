#pragma once

#include "platform/controls/ImageBox.h"
#include "platform/controls/Window.h"

namespace quorvel {

// Shows a picture file of the workstation, as the host asks by ImageArgs. It is not modal; whenever
// the user comes back to it the file is read anew and gets the place and size that the host asked.
class frmImage : public Window {
 public:
  frmImage();

  ImageBox ledPicture{*this, "ledPicture"};
  MenuItem mnuExit{*this, "mnuExit", "&Exit"};

  // Shows what ImageArgs asks: path, top, left, width, height; lengths in twips. A path without a
  // picture is told in a box.
  void ShowImage();

 protected:
  void Form_Load() override;
  void Form_Activate() override;
  void Form_Resize() override;
  void Form_Unload(bool& cancel) override;

 private:
  // Twips.
  struct Size {
    int width = 0;
    int height = 0;
  };
  Size OwnSize() const;
  void ResizeToControl();

  bool firstShow_ = false;  // from the load to the first activation
  bool ready_ = true;       // false while ShowImage sizes the window
};

}  // namespace quorvel
