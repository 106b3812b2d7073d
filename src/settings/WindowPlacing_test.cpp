#include "settings/WindowPlacing.h"

#include <gtest/gtest.h>

#include "platform/controls/Desktop.h"
#include "platform/controls/Window.h"
#include "platform/headless/HeadlessBackend.h"

namespace quorvel {
namespace {

struct Plain : Window {
  explicit Plain(const std::string& name) : Window(Kind::Dialog, name) {}
  void Put(int left, int top, int width, int height) {
    Left = left, Top = top, Width = width, Height = height;
  }
};

struct Place {
  int left, top, width, height;
};

TEST(WindowPlacing, OverAParent) {
  HeadlessBackend backend;
  backend.screen = {12000, 9000, 15};
  const Desktop desktop(backend);
  const struct {
    const char* what;
    const char* name;
    Place parent, child;
    int left, top;
  } cases[] = {
      {"in the middle", "frmAbout", {1000, 1000, 6000, 4000}, {0, 0, 2000, 1000}, 3000, 2500},
      {"halves to even", "frmAbout", {0, 0, 1001, 1003}, {0, 0, 0, 0}, 500, 502},
      {"lower than the middle", "frmConnect", {0, 600, 6000, 4800}, {0, 0, 2000, 2400}, 2000, 2600},
      {"frmConnect, same height",
       "frmConnect",
       {0, 600, 6000, 2400},
       {0, 0, 2000, 2400},
       2000,
       600},
      {"taller than its parent", "frmAbout", {0, 3000, 6000, 1000}, {0, 0, 6000, 2000}, 0, 2500},
      {"out at the right goes left", "frmAbout", {9000, 0, 4000, 1000}, {0, 0, 4000, 1000}, 0, 0},
      {"just as wide as the screen", "frmAbout", {600, 0, 12000, 1000}, {0, 0, 12000, 1000}, -1, 0},
      {"wider than the screen", "frmAbout", {0, 0, 12000, 1000}, {0, 0, 13000, 1000}, 0, 0},
      {"out at the left stays", "frmAbout", {-600, 0, 12000, 1000}, {0, 0, 13000, 1000}, -1100, 0},
      {"out at the bottom", "frmAbout", {0, 8000, 4000, 2000}, {0, 0, 4000, 1500}, 0, 7500},
      {"taller than the screen", "frmAbout", {0, 0, 4000, 9000}, {0, 0, 4000, 9500}, 0, -500},
  };
  for (const auto& c : cases) {
    const auto parent = std::make_shared<Plain>("parent");
    const auto child = std::make_shared<Plain>(c.name);
    parent->Put(c.parent.left, c.parent.top, c.parent.width, c.parent.height);
    child->Put(c.child.left, c.child.top, c.child.width, c.child.height);
    CenterOnParent(*parent, *child);
    EXPECT_EQ(child->Left(), c.left) << c.what;
    EXPECT_EQ(child->Top(), c.top) << c.what;
    EXPECT_EQ(child->Width(), c.child.width) << c.what;
    EXPECT_EQ(child->Height(), c.child.height) << c.what;
  }
}

TEST(WindowPlacing, OnTheScreen) {
  HeadlessBackend backend;
  backend.screen = {12000, 9000, 15};
  const Desktop desktop(backend);
  const struct {
    int width, height, left, top;
  } cases[] = {
      {2000, 1000, 5000, 4000},
      {12000, 9000, 0, 0},
      {13000, 9500, 0, 0},
      {11999, 8997, 0, 2},  // halves to even
  };
  for (const auto& c : cases) {
    const auto window = std::make_shared<Plain>("window");
    window->Put(-5, -5, c.width, c.height);
    CenterOnScreen(*window);
    EXPECT_EQ(window->Left(), c.left) << c.width;
    EXPECT_EQ(window->Top(), c.top) << c.height;
  }
}

}  // namespace
}  // namespace quorvel
