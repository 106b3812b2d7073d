// What opened last answers first: boxes, lists, passwords and dialogs that the host and the user
// open over one another, in every order.

#include "app/SlowHostTest.h"
#include "entry/frmList.h"
#include "link/frmPassword.h"
#include "menus/frmHelpText.h"
#include "menus/frmSubMenu.h"
#include "output/frmExpSel.h"

namespace quorvel {
namespace {

class OrderOfOpening : public SlowHostTest {
 protected:
  OrderOfOpening() { backend.answersAtOnce = false; }

  void MeanwhileDeliver(const Texts& fields) {
    Meanwhile([this, fields] { Line().Deliver(FrameOf(fields)); });
  }
  void MeanwhileAnswerBox(const std::string& text, MessageBoxAnswer answer = MessageBoxAnswer::Ok) {
    Meanwhile([this, text, answer] {
      HeadlessBox* box = backend.BoxInFront();
      ASSERT_NE(box, nullptr) << text;
      EXPECT_EQ(box->message.text, text);
      box->answer = answer;
      box->Close();
    });
  }
  void MeanwhilePick(const std::string& caption, int row) {
    Meanwhile([this, caption, row] {
      frmList* list = LoadedForm<frmList>();
      ASSERT_NE(list, nullptr);
      EXPECT_EQ(list->Caption(), caption);
      EXPECT_EQ(backend.BoxInFront(), nullptr);
      EXPECT_TRUE(list->TakesInput());
      list->lstItems.UserPick(row);
      user.Press(KeyCode::Return);
    });
  }
  static Texts ListOf(const std::string& caption) {
    return {"~LISTBOX~", caption, "0,0,0,0", caption + "1", caption + "2"};
  }
};

TEST_F(OrderOfOpening, AListOverTheLogOffQuestion) {
  Deliver(FrameOf({"~STARTMENU~", "M", "Main\xFEOne", "", ""}));
  MeanwhileDeliver(ListOf("L"));
  MeanwhilePick("L", 1);
  MeanwhileAnswerBox("Are you sure you want to log off?", MessageBoxAnswer::No);
  Click(LoadedForm<frmSubMenu>()->cmdLogoff);
  ExpectDone();
  EXPECT_EQ(plain, "L2\r");
  EXPECT_TRUE(LoadedForm<frmSubMenu>()->TakesInput());
}

TEST_F(OrderOfOpening, APasswordOverABoxOverAList) {
  MeanwhileDeliver({"~MSGBOX~", "T", "first"});
  MeanwhileDeliver({"~GETPASSWORD~", "PGM"});
  Meanwhile([this] {
    EXPECT_TRUE(InFront(LoadedForm<frmPassword>()));
    EXPECT_FALSE(LoadedForm<frmList>()->TakesInput());
    user.Type("secret\r");
  });
  MeanwhileAnswerBox("first");
  MeanwhilePick("L", 0);
  Deliver(FrameOf(ListOf("L")));
  PlayOn();
  ExpectDone();
  EXPECT_EQ(plain, "secret\r\rL1\r");
}

// One of a kind at a time, each with what it set: the first word of the line, or all of it.
TEST_F(OrderOfOpening, ASecondOfItsKindWaits) {
  MeanwhileDeliver({"~LISTBOXF~", "M", "0,0,0,0", "whole line"});
  MeanwhileDeliver(ListOf("N"));
  MeanwhilePick("L", 0);
  MeanwhilePick("M", 0);
  MeanwhilePick("N", 1);
  Deliver(FrameOf({"~LISTBOX~", "L", "0,0,0,0", "first word"}));
  ExpectDone();
  EXPECT_EQ(std::exchange(plain, ""), "first\rwhole line\rN2\r");

  MeanwhileDeliver({"~GETPASSWORD~", "TWO"});
  Meanwhile([this] {
    EXPECT_EQ(LoadedForm<frmPassword>()->lblPgm.Caption(), "ONE");
    user.Type("a\r");
  });
  Meanwhile([this] {
    EXPECT_EQ(LoadedForm<frmPassword>()->lblPgm.Caption(), "TWO");
    user.Type("b\r");
  });
  Deliver(FrameOf({"~GETPASSWORD~", "ONE"}));
  ExpectDone();
  EXPECT_EQ(plain, "a\rb\r");
}

// A printer dialog is open when a capture ends and its report is to be exported; twice.
TEST_F(OrderOfOpening, AnExportOverThePrinterDialog) {
  Session().ExportType = 2;
  Session().ExportCommands[0] = "* Editor                         edit @";
  const auto report = [this] {
    MeanwhileDeliver({"~CAPTURE-ON~", "", "", ""});
    MeanwhileDeliver({"~CAPTURE-OFF~"});
    Meanwhile([this] {
      HeadlessBox* box = backend.BoxInFront();
      ASSERT_NE(box, nullptr);
      EXPECT_EQ(box->kind, HeadlessBox::Kind::File);
      box->file = folder.Path() + "/report.txt";
      box->Close();
    });
  };
  report();
  report();  // another one while the first waits for its command
  for (int i = 0; i < 2; ++i) {
    Meanwhile([] {
      frmExpSel* select = LoadedForm<frmExpSel>();
      if (!select) return;  // both have been answered by the one window
      EXPECT_TRUE(select->TakesInput());
      select->UserClose();
    });
  }
  Meanwhile([this] {
    HeadlessBox* box = backend.BoxInFront();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->kind, HeadlessBox::Kind::Printer);
    box->Close();
  });
  Do([] { LoadedForm<frmTelnet>()->mnuOptPrinter.UserClick(); });
  ExpectDone();
  EXPECT_TRUE(LoadedForm<frmTelnet>()->TakesInput());
}

// A modal window whose showing fails is gone, and so is what it asked.
TEST_F(OrderOfOpening, AModalWindowThatFailsLeavesNothing) {
  class Failing : public Window {
   public:
    Failing() : Window(Kind::Dialog, "Failing") {}

   protected:
    void Form_Activate() override { throw RuntimeError(Failure::Overflow); }
  };
  MeanwhileAnswerBox("Run-time error '6':\n\nOverflow");
  Run([] { Form<Failing>()->ShowModal(); });
  ExpectDone();
  EXPECT_EQ(LoadedForm<Failing>(), nullptr);
  EXPECT_TRUE(LoadedForm<frmTelnet>()->TakesInput());
}

}  // namespace
}  // namespace quorvel
