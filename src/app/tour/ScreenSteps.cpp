// The round of a record on the sample host's customer screen, by mouse and keyboard.
#include "app/tour/Hands.h"
#include "app/tour/Tour.h"
#include "entry/frmEntry.h"
#include "entry/frmList.h"
#include "entry/frmLocate.h"
#include "menus/frmHelpText.h"
#include "menus/mdiMain.h"

namespace quorvel {
namespace {

// Fields of the customer screen.
enum CustomerField { kKey = 2, kName = 4, kPhone = 8, kRep = 10, kRepName, kLimit = 17 };

// The field shows this and has the keyboard to itself: no request of the screen is under way.
bool FieldShows(CustomerField field, const std::string& text) {
  return RecordShows() && EntryScreen()->txtEntry(field).Text() == text;
}

}  // namespace

std::vector<TourStep> ScreenSteps(QtBackend& backend) {
  const Hands user(backend);
  const auto type = [user](const char* text) { return [user, text] { user.Type(text); }; };
  const auto typeInto = [user](CustomerField field, const char* text) {
    return [user, field, text] {
      user.Click(EntryScreen()->txtEntry(field));
      user.Key(Qt::Key_A, Qt::ControlModifier);
      user.Type(text);
    };
  };
  const auto openMenuOf = [user](CustomerField field) {
    return [user, field] { user.RightClick(EntryScreen()->txtEntry(field)); };
  };
  const auto answer = [user] { user.AnswerBox(); };
  const auto click = [user](Button frmEntry::*button) {
    return [user, button] { user.Click(EntryScreen()->*button); };
  };

  // clang-format off
  return {
      {"screen-key-entry", KeyEntryShows, openMenuOf(kKey)},
      {"field-menu", PopupShows, type("l")},
      {"locator", [] { return DialogShows<frmLocate>(); }, type("pike\r")},
      {"locator-list", [] { return DialogShows<frmList>(); },
       [user] { user.Key(Qt::Key_Down); user.Key(Qt::Key_Return); }},
      {"", [] { return FieldShows(kKey, "C1016") || KeyEntryShows(); },
       [user] { if (!KeyEntryShows()) user.Click(EntryScreen()->cmdCancel); }},
      {"", KeyEntryShows, typeInto(kKey, "C1001\r")},
      {"record-found", [] { return FieldShows(kName, "Alder & Finch Hardware"); },
       typeInto(kLimit, "much\r")},
      {"field-refused", [] { return BoxShows("Entry must be numeric!"); }, answer},
      {"", [] { return FieldShows(kLimit, "$15,000.00"); }, typeInto(kRep, "R9\r")},
      {"lookup-refused", [] { return BoxShows("Item R9 not on file!"); }, answer},
      {"", [] { return FieldShows(kRep, "R1"); }, typeInto(kRep, "R2\r")},
      {"lookup", [] { return FieldShows(kRepName, "Omar Dale"); }, openMenuOf(kRep)},
      {"", PopupShows, type("i")},
      {"list", [] { return DialogShows<frmList>(); }, [user] { user.Key(Qt::Key_Home); user.Key(Qt::Key_Return); }},
      {"list-answer", [] { return FieldShows(kRepName, "Nora Beck"); }, click(&frmEntry::cmdHelp)},
      {"field-help", [] { return DialogShows<frmHelpText>(); }, [user] { user.Click(Form<frmHelpText>()->cmdExit); }},
      {"", [] { return !LoadedForm<frmHelpText>() && FieldShows(kRep, "R1"); },
       typeInto(kPhone, "555-0199\r")},
      {"record-changed", [] { return FieldShows(kPhone, "555-0199"); }, click(&frmEntry::cmdSave)},
      {"record-saved", KeyEntryShows, typeInto(kKey, "C1001\r")},
      {"", [] { return FieldShows(kPhone, "555-0199"); }, click(&frmEntry::cmdCancel)},
      {"", KeyEntryShows, click(&frmEntry::cmdExit)},
  };
  // clang-format on
}

std::vector<TourStep> OtherScreenSteps(QtBackend& backend) {
  const Hands user(backend);
  const auto open = [user](const char* option) { return [user, option] { user.Open(option); }; };
  const auto type = [user](const char* text) { return [user, text] { user.Type(text); }; };
  const auto size = [](int width, int height) {
    return [width, height] {
      Form<mdiMain>()->Width = width;
      Form<mdiMain>()->Height = height;
    };
  };
  const auto leave = [user] { user.Click(EntryScreen()->cmdCancel); };
  const auto close = [user] { user.Click(EntryScreen()->cmdExit); };

  // clang-format off
  return {
      {"", MainMenuShows, open("IC.ITEM")},
      {"", KeyEntryShows, type("I101\r")},
      {"item-screen", RecordShows, size(19800, 13200)},
      {"item-screen-large", RecordShows, size(10500, 7800)},
      {"item-screen-small", RecordShows, size(13200, 9600)},
      {"", RecordShows, leave},
      {"", KeyEntryShows, close},
      {"", MainMenuShows, open("AR.PRICE")},
      {"", KeyEntryShows, [user] { user.Type("C1003"); user.Key(Qt::Key_Tab); }},
      {"", KeyEntryShows, type("I127\r")},
      {"key-of-two-parts", KeyEntryShows, [user] { user.Click(EntryScreen()->cmdOK); }},
      {"price-screen", RecordShows, leave},
      {"", KeyEntryShows, close},
      {"", MainMenuShows, open("SO.ORDER")},
      {"", KeyEntryShows, type("5001\r")},
      {"order-screen", RecordShows, leave},
      {"", KeyEntryShows, close},
      {"", MainMenuShows, type("")},
  };
  // clang-format on
}

}  // namespace quorvel
