#include "app/sim/HeadlessDesk.h"

#include <utility>

namespace quorvel::sim {

HeadlessDesk::HeadlessDesk(Network& network, Rules& rules, const Workplace& place)
    : network_(network), rules_(rules) {
  folder = place.Folder();
  commandLine = place.Configuration();
  drives = {place.Folder()};
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

std::unique_ptr<Desk> MakeHeadlessDesk(Network& network, Rules& rules, const Workplace& place) {
  return std::make_unique<HeadlessDesk>(network, rules, place);
}

}  // namespace quorvel::sim
