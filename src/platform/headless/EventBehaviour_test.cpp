// Events, waits and yields; run-time failures; the end of the process.

#include <ctime>
#include <new>

#include "platform/headless/BehaviourTestForms.h"

namespace quorvel {
namespace {

class EventBehaviour : public BehaviourTest {
 protected:
  static void PostNote(EventKind kind, const std::string& entry) {
    desktop().Post(kind, [entry] { Note(entry); });
  }
  // Something of every kind arrives: a block, a key, and what the program posts itself.
  void OneOfEach() {
    PostNote(EventKind::Receive, "block");
    PostNote(EventKind::Program, "program");
    user->TypeAhead("k");
  }
  void ShowWithKeyNote() {
    ShowOne();
    One().onKeyDown = [](KeyEvent&) { Note("key"); };
  }
  static Entries Sorted(Entries entries) {
    std::sort(entries.begin(), entries.end());
    return entries;
  }
};

TEST_F(EventBehaviour, APlainYieldInAReceiveEventServesOnlyTheProgram) {
  ShowWithKeyNote();
  Do(
      [&] {
        OneOfEach();
        for (int i = 0; i < 3; ++i) desktop().Yield();
        // Nor is it another event that may let them in.
        desktop().Post(EventKind::Program, [] { desktop().Yield(); });
        desktop().Yield();
        EXPECT_EQ(Take(), Entries{"program"});
      },
      EventKind::Receive);
  EXPECT_EQ(Sorted(Take()), (Entries{"block", "key"}));
  EXPECT_EQ(One().txtA.Text(), "k");
}

TEST_F(EventBehaviour, OtherPlacesServeEverything) {
  struct Case {
    const char* what;
    EventKind kind;
    std::function<void()> serve;
  };
  bool waiting = false;
  const auto wait = [&] {
    waiting = true;
    user->Meanwhile([&] { waiting = false; });
    desktop().WaitWhile([&] { return waiting; });
  };
  const std::vector<Case> cases = {
      {"a yield of the program", EventKind::Program, [] { desktop().Yield(); }},
      {"a wait in a receive event", EventKind::Receive, wait},
      {"a wait in an event posted in a receive event", EventKind::Receive,
       [&] {
         desktop().Post(EventKind::Program, wait);
         desktop().Yield();
       }},
      {"a modal window in a receive event", EventKind::Receive,
       [&] {
         user->Meanwhile([] { Inner().Unload(); });
         Inner().ShowModal();
         One().txtA.SetFocus();
         std::erase_if(Journal(), [](const std::string& e) { return e.find('.') != e.npos; });
       }},
  };
  ShowWithKeyNote();
  for (const Case& c : cases) {
    Do(
        [&] {
          OneOfEach();
          c.serve();
          Entries served = Sorted(Take());
          // A key has nowhere to go but to the modal window.
          if (served.size() == 2) served.insert(served.begin() + 1, "key");
          EXPECT_EQ(served, (Entries{"block", "key", "program"})) << c.what;
        },
        c.kind);
    EXPECT_EQ(Take(), Entries{}) << c.what;
  }
}

TEST_F(EventBehaviour, AMessageBoxInAReceiveEventLetsTheNextBlockIn) {
  ShowOne();
  user->AnswerBox(MessageBoxAnswer::Ok, [&] { user->ServeUntilIdle(); });
  Do(
      [] {
        PostNote(EventKind::Receive, "second block");
        Note("box opens");
        desktop().MsgBox("From the host");
        Note("box closed");
      },
      EventKind::Receive);
  EXPECT_EQ(Take(), (Entries{"box opens", "second block", "box closed"}));
}

TEST_F(EventBehaviour, ABoxForEveryBlockNestsToALimitAndLosesNone) {
  constexpr int kBlocks = 100;
  ShowOne();
  int depth = 0, deepest = 0, done = 0;
  for (int i = 0; i < kBlocks; ++i) {
    user->AnswerBox(MessageBoxAnswer::Ok, [&] { user->ServeUntilIdle(); });
    desktop().Post(EventKind::Receive, [&] {
      deepest = std::max(deepest, ++depth);
      desktop().MsgBox("Again");
      --depth;
      ++done;
    });
  }
  user->ServeUntilIdle();
  EXPECT_EQ(done, kBlocks);
  EXPECT_EQ(user->boxes.size(), static_cast<std::size_t>(kBlocks));
  EXPECT_GT(deepest, 1);
  EXPECT_LT(deepest, 50);
}

TEST_F(EventBehaviour, WaitsNest) {
  ShowOne();
  bool outer = true, inner = true;
  const auto innerWait = [&] {
    Note("inner begins");
    desktop().WaitWhile([&] { return inner; });
    Note("inner ends");
  };
  user->Meanwhile([&] { desktop().Post(EventKind::Receive, innerWait); });
  user->Meanwhile([&] { outer = false; });  // the outer one can't return before the inner one
  user->Meanwhile([&] {
    Note("inner may end");
    inner = false;
  });
  Do([&] {
    desktop().WaitWhile([&] { return outer; });
    Note("outer ends");
  });
  EXPECT_EQ(Take(), (Entries{"inner begins", "inner may end", "inner ends", "outer ends"}));
  // A condition that is false already waits for nothing.
  Do([] { desktop().WaitWhile([] { return false; }); });
}

TEST_F(EventBehaviour, AWaitSleeps) {
  constexpr int kWait = 500;  // ms
  ShowOne();
  bool waiting = true;
  user->Meanwhile([&] { waiting = false; }, kWait);
  const std::clock_t before = std::clock();
  Do([&] { desktop().WaitWhile([&] { return waiting; }); });
  const double used = 1000.0 * static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
  EXPECT_LT(used, kWait / 4) << "ms of processor time";
}

TEST_F(EventBehaviour, FailuresEndInOneBoxAndTheSessionGoesOn) {
  ShowOne();
  ControlArray<TextBox> txtEntry(One(), "txtEntry");
  struct Case {
    std::function<void()> fail;
    const char* box;
  };
  const std::vector<Case> cases = {
      {[] { throw RuntimeError(Failure::TypeMismatch); }, "Run-time error '13':\n\nType mismatch"},
      {[] { throw RuntimeError(Failure::FileNotFound, "File not found: a.inf"); },
       "Run-time error '53':\n\nFile not found: a.inf"},
      {[] { throw std::bad_alloc(); }, "Run-time error '7':\n\nOut of memory"},
      {[&] { txtEntry(3).Text = "x"; },
       "Run-time error '340':\n\nControl array element does not exist"},
  };
  for (const Case& c : cases) {
    const auto fail = [&] {
      c.fail();
      Note("unreachable");
    };
    One().cmdOK.Click = fail;
    Click(One().cmdOK);
    Do(fail, EventKind::Receive);
    EXPECT_EQ(TakeBoxes(), (Entries{c.box, c.box}));
  }
  One().cmdOK.Click = {};
  Do([] { One().txtB.SetFocus(); });
  EXPECT_EQ(Take(), (Entries{"One.cmdOK.GotFocus", "One.txtB.GotFocus"}));
  Type("on");
  EXPECT_EQ(One().txtB.Text(), "on");
}

TEST_F(EventBehaviour, AFailureEndsAtTheEdgeOfItsOwnEvent) {
  ShowOne();
  bool waiting = true;
  user->Meanwhile(
      [] { desktop().Post(EventKind::Receive, [] { throw RuntimeError(Failure::Overflow); }); });
  user->Meanwhile([&] { waiting = false; });
  Do([&] {
    desktop().WaitWhile([&] { return waiting; });
    Note("the outer handler goes on");
    try {
      throw RuntimeError(Failure::DiskFull);
    } catch (const RuntimeError& failure) {
      Note("caught " + std::to_string(failure.number()));  // ends where the procedure says so
    }
  });
  EXPECT_EQ(Take(), (Entries{"the outer handler goes on", "caught 61"}));
  EXPECT_EQ(TakeBoxes(), Entries{"Run-time error '6':\n\nOverflow"});
}

// Notes its own end, as files and locks in a handler must end when it is unwound.
struct NoteAtEnd {
  explicit NoteAtEnd(std::string entry) : text(std::move(entry)) {}
  ~NoteAtEnd() { Note(text); }
  NoteAtEnd(const NoteAtEnd&) = delete;
  NoteAtEnd& operator=(const NoteAtEnd&) = delete;
  const std::string text;
};

TEST_F(EventBehaviour, TheEndOfTheProcessUnwindsEveryWait) {
  for (const bool insideBox : {false, true}) {
    Journal().clear();
    user.reset();  // one desktop at a time
    user = MakeTestDesktop();
    ShowShell();
    ShowOne();
    const auto end = [] {
      const NoteAtEnd mark("end unwound");
      desktop().EndProcess();
      Note("unreachable");
    };
    user->Meanwhile([] {
      desktop().Post(EventKind::Receive, [] {
        const NoteAtEnd mark("modal unwound");
        Inner().ShowModal();
        Note("unreachable");
      });
    });
    user->Meanwhile([&] {
      desktop().Post(EventKind::Program, [&] {
        const NoteAtEnd mark("innermost unwound");
        if (insideBox) {
          user->AnswerBox(MessageBoxAnswer::Ok, [&] { desktop().Handle(EventKind::User, end); });
          desktop().MsgBox("Going");
        } else {
          desktop().Handle(EventKind::User, end);
          desktop().Yield();
        }
        Note("unreachable");
      });
    });
    Do([] {
      const NoteAtEnd mark("wait unwound");
      desktop().WaitWhile([] { return !desktop().IsEnding(); });
      Note("unreachable");
    });
    Entries entries = Take();
    std::erase_if(entries, [](const std::string& e) { return e.starts_with("Inner."); });
    EXPECT_EQ(entries,
              (Entries{"end unwound", "innermost unwound", "modal unwound", "wait unwound"}));
    EXPECT_TRUE(desktop().IsEnding());
    EXPECT_FALSE(desktop().IsHandling());
    EXPECT_EQ(user->boxes.size(), insideBox ? 1u : 0u) << "the end is quiet";
    PostNote(EventKind::Program, "unreachable");
    user->ServeUntilIdle();
    EXPECT_EQ(Take(), Entries{});
  }
}

}  // namespace
}  // namespace quorvel
