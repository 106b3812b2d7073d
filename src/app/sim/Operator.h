#pragma once

#include <string>
#include <vector>

#include "app/sim/Failure.h"
#include "app/sim/Hands.h"
#include "app/sim/Random.h"
#include "app/sim/Story.h"

namespace quorvel {
class frmEntry;
class frmSubMenu;
}  // namespace quorvel

namespace quorvel::sim {

// Somebody in front of the desktop. Every act is interpreted by its dice and by what is to be seen.
class Operator {
 public:
  // `configuration`: the file that is chosen for a session.
  Operator(Hands& hands, const Story& story, std::string configuration)
      : hands_(hands),
        person_(RowOf(story.kind).person),
        configuration_(std::move(configuration)) {}

  void Do(const Act& act);
  // The box in front is answered so that nothing more comes of it, but for the ways out.
  void AnswerForTheEnd(const OpenBox& box);
  // One of the entries that end programs of the host, each in its turn.
  void EndProgram(int turn);

 private:
  friend struct WorkRow;
  using Words = std::vector<std::string>;

  void Work(Random& dice);
  void Connect(Random& dice);
  void Answer(const OpenBox& box, Random& dice);
  void StartSession();

  void WorkInMenu(Random& dice);
  void WorkInScreen(Random& dice);
  void WorkAtKey(frmEntry& screen, Random& dice);
  void WorkInRecord(frmEntry& screen, Random& dice);
  void WorkInTerminal(Random& dice);
  void WorkInList(Random& dice);
  void WorkInConnect(Random& dice);
  void WorkInPassword(Random& dice);
  void WorkInLocator(Random& dice);
  void WorkInHelp(Random& dice);
  void WorkInDialog(Random& dice);

  void RunOption(frmSubMenu& menu, Random& dice);
  void EnterKey(Random& dice);
  void EditField(frmEntry& screen, Random& dice);
  void SaveFromLastField(frmEntry& screen);
  void PickRowOf(Control& list, Random& dice);

  void Fumble(Random& dice);
  void FumbleControl(Window& window, Random& dice);
  void FumbleKey(Random& dice);

  Hands& hands_;
  const OperatorKind person_;
  const std::string configuration_;
};

}  // namespace quorvel::sim
