// The pictures that the host shows on the workstation: frames in; windows and boxes out.

#include "app/FarEndTest.h"
#include "menus/mdiMain.h"
#include "output/frmImage.h"

namespace quorvel {
namespace {

class ImagesTest : public FarEndTest {
 protected:
  ImagesTest() {
    LogIn();
    backend.pictureFiles = {{"chart.bmp", {320, 200}}, {"tall.png", {100, 400}}};
  }
  // A place and a size, in twips.
  struct Box {
    int top, left, width, height;
    bool operator==(const Box&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Box& b) {
      return out << b.top << ',' << b.left << ' ' << b.width << 'x' << b.height;
    }
  };
  frmImage* Image() { return LoadedForm<frmImage>(); }
  void Show(const Texts& fields) {
    Texts frame{"~SHOWIMAGE~"};
    frame.insert(frame.end(), fields.begin(), fields.end());
    backend.messageBoxes.clear();
    Deliver(FrameOf(frame));
  }
  Box Place() { return {Image()->Top, Image()->Left, Image()->Width, Image()->Height}; }
  // Of the picture, in pixels.
  std::pair<int, int> Shown() {
    const auto& picture = Image()->ledPicture.Shown();
    return picture ? std::pair{picture->Width(), picture->Height()} : std::pair{0, 0};
  }
  // Where a window of this size is centred over the main one.
  Box Centred(int width, int height) {
    const mdiMain& main = *Form<mdiMain>();
    return {main.Top + (main.Height - height) / 2, main.Left + (main.Width - width) / 2, width,
            height};
  }
};

TEST_F(ImagesTest, TheFirstShowingIsCentredWhateverTheHostSays) {
  struct Case {
    Texts fields;
    int width, height;  // of the picture, twips
  };
  const Case cases[] = {
      {{"chart.bmp"}, 4800, 3000},
      {{"chart.bmp", "600", "800", "", ""}, 4800, 3000},
      {{"chart.bmp", "600", "800", "3000", ""}, 3000, 3000},  // stretched
      {{"chart.bmp", "", "", "", "1500"}, 4800, 1500},
      {{"chart.bmp", "x", "1,", " 1500 ", "1.5E3"}, 1500, 1500},
  };
  for (const Case& c : cases) {
    Show(c.fields);
    ASSERT_TRUE(Image());
    const int width = c.width + 120;
    const int height = c.height + 700;
    EXPECT_EQ(Place().width, width);
    EXPECT_EQ(Place().height, height);
    EXPECT_NEAR(Place().top, Centred(width, height).top, 1);
    EXPECT_NEAR(Place().left, Centred(width, height).left, 1);
    EXPECT_EQ(Shown(), std::pair(c.width / 15, c.height / 15));
    EXPECT_EQ(Image()->ledPicture.Width(), c.width);
    EXPECT_EQ(Image()->ledPicture.Height(), c.height);
    EXPECT_EQ(Image()->Caption(), "Image Display - chart.bmp");
    EXPECT_TRUE(InFront(Image()));
    EXPECT_FALSE(Image()->IsModal());
    Image()->mnuExit.UserClick();
    EXPECT_FALSE(Image());
  }
}

TEST_F(ImagesTest, ComingBackShowsItAnew) {
  Show({"chart.bmp", "600", "800", "3000"});
  EXPECT_EQ(Line().TakeSent(), "");  // the host gets no answer
  // By the user: the message's place and size again.
  Image()->UserResize(9000, 6000);
  EXPECT_EQ(Shown(), std::pair((9000 - 120) / 15, 353));  // 5300 twips are 353.3 pixels
  LoadedForm<frmTelnet>()->UserActivate();
  backend.picturesRead.clear();
  Image()->UserActivate();
  EXPECT_EQ(Place(), (Box{600, 800, 3120, 3700}));
  EXPECT_EQ(Shown(), std::pair(200, 200));
  EXPECT_EQ(backend.picturesRead, Texts{"chart.bmp"});

  // By a second message, in front or not.
  Show({"tall.png", "150", "", "", "3000"});
  EXPECT_EQ(Place().top, 150);
  EXPECT_EQ(Place().width, 1620);
  EXPECT_EQ(Place().height, 3700);
  EXPECT_EQ(Image()->Caption(), "Image Display - tall.png");
  LoadedForm<frmTelnet>()->UserActivate();
  Show({"chart.bmp", "15", "30"});
  EXPECT_EQ(Place(), (Box{15, 30, 4920, 3700}));
  EXPECT_TRUE(InFront(Image()));
}

TEST_F(ImagesTest, ABadPathIsToldAndLeavesWhatThereIs) {
  Show({"none.bmp", "600", "800"});
  EXPECT_EQ(BoxTexts(), Texts{"Invalid Image path none.bmp"});
  ASSERT_TRUE(Image());  // open, without a picture
  EXPECT_EQ(Image()->Caption(), "Image Display");
  EXPECT_EQ(Shown(), std::pair(0, 0));
  Image()->UserResize(3000, 3000);
  Show({"chart.bmp", "600", "800"});
  EXPECT_TRUE(backend.messageBoxes.empty());
  const Box before = Place();
  Show({"broken.png", "900", "900", "900", "900"});
  EXPECT_EQ(BoxTexts(), Texts{"Invalid Image path broken.png"});
  EXPECT_EQ(Shown(), std::pair(320, 200));
  EXPECT_EQ(Image()->Caption(), "Image Display - chart.bmp");
  EXPECT_EQ(Place().width, before.width);
  EXPECT_EQ(Place().height, before.height);
}

// Numbers that are no lengths, and pictures larger than any window.
TEST_F(ImagesTest, SizesWithoutReason) {
  Show({"chart.bmp"});
  Show({"chart.bmp", "99999", "-99999", "40000", "40000"});
  EXPECT_NEAR(Place().top, Centred(4920, 3700).top, 1);  // 16 bits are not enough: as it is
  EXPECT_NEAR(Place().left, Centred(4920, 3700).left, 1);
  EXPECT_EQ(Place().width, 4920 + 120);
  EXPECT_EQ(Place().height, 3700 + 700);
  for (const char* none : {"0", "-5", "-32768"}) {
    Show({"chart.bmp", "0", "0", none, none});
    EXPECT_EQ(Place(), (Box{0, 0, 120, 700})) << none;
    EXPECT_EQ(Shown(), std::pair(320, 200)) << none;  // can't be as small as that
  }
  EXPECT_TRUE(backend.messageBoxes.empty());
  // A photograph keeps its proportions, and the screen holds it.
  backend.pictureFiles["photo.jpg"] = {6000, 4000};
  Show({"photo.jpg"});
  EXPECT_LE(Place().width, backend.screen.width);
  EXPECT_LE(Place().height, backend.screen.height);
  EXPECT_GT(Shown().second, 700);
  EXPECT_NEAR(Shown().first, Shown().second * 1.5, 2);
}

TEST_F(ImagesTest, TheTerminalGetsTheKeyboardBack) {
  Show({"chart.bmp"});
  user.Type("x");
  EXPECT_EQ(Line().TakeSent(), "");
  Image()->mnuExit.UserClick();
  backend.RunUntilIdle();
  user.Type("x");
  EXPECT_EQ(Line().TakeSent(), "x");
}

}  // namespace
}  // namespace quorvel
