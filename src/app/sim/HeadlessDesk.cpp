#include "app/sim/HeadlessDesk.h"

#include <utility>

namespace quorvel::sim {

HeadlessDesk::HeadlessDesk(const DeskSetup& setup) : network_(setup.network), rules_(setup.rules) {
  folder = setup.place.Folder();
  commandLine = setup.place.Configuration();
  drives = {setup.place.Folder()};
  printerFails = setup.setting.printerFails;
  pictureFiles["picture.bmp"] = {320, 200};
}

void HeadlessDesk::Play(std::function<bool()> next) {
  onIdle = std::move(next);
  RunUntilIdle();
}

MessageBoxAnswer HeadlessDesk::ShowMessageBox(const MessageBoxRequest& request) {
  rules_.OnBox(request);
  return HeadlessBackend::ShowMessageBox(request);
}

std::unique_ptr<WindowPeer> HeadlessDesk::MakePeer(Window& window) {
  rules_.OnLoad(window);
  return HeadlessBackend::MakePeer(window);
}

void HeadlessDesk::ForgetThePast() {
  messageBoxes.clear();
  pointers.clear();
  printed.clear();
  picturesRead.clear();
  started.clear();
  faxes.clear();
  if (fileDialogs.size() > 1) fileDialogs.erase(fileDialogs.begin(), fileDialogs.end() - 1);
}

std::unique_ptr<Desk> MakeHeadlessDesk(const DeskSetup& setup) {
  return std::make_unique<HeadlessDesk>(setup);
}

}  // namespace quorvel::sim
