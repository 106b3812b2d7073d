// Rebuilding the menu window for a menu of 100 options on ten tabs.

#include "app/Wiring.h"
#include "bench/TabReporter.h"
#include "link/HandOvers.h"
#include "link/Marks.h"
#include "link/SessionState.h"
#include "menus/frmSubMenu.h"
#include "platform/controls/Desktop.h"
#include "platform/headless/HeadlessBackend.h"

namespace {

void FillMenu() {
  std::string text = "A menu\xFE";
  for (int tab = 0; tab < 10; ++tab) text += "Tab " + std::to_string(tab) + quorvel::VM;
  std::string commands;
  for (int i = 0; i < 100; ++i) {
    text += quorvel::AM;
    text += "Option number " + std::to_string(i) + quorvel::VM + "Tab " + std::to_string(i % 10);
    commands += quorvel::AM;
    commands += "PROGRAM." + std::to_string(i);
  }
  quorvel::Session().MenuText = text;
  quorvel::Session().MenuCommands = commands;
}

void BuildMenu(benchmark::State& state) {
  quorvel::HeadlessBackend backend;
  quorvel::Desktop desktop(backend);
  quorvel::Session() = quorvel::SessionState{};
  quorvel::WireHandOvers();
  desktop.Handle(quorvel::EventKind::Program, [&] {
    quorvel::Ask().ShowMainWindow();
    FillMenu();
    auto& menu = *quorvel::Form<quorvel::frmSubMenu>();
    menu.Show();
    for (auto _ : state) menu.BuildMenu();
    if (menu.lstOptions(9).Items().size() != 10) state.SkipWithError("the menu is not built");
  });
}
BENCHMARK(BuildMenu)->Name("menu_100_options");

}  // namespace

int main(int argc, char** argv) {
  return quorvel::bench::Main(argc, argv);
}
