#include "demohost/Arguments.h"

#include <gtest/gtest.h>

namespace quorvel::demohost {
namespace {

TEST(Arguments, AreFollowedOrRefused) {
  const auto all = ParseArguments({"--port", "0", "--data", "x y.sqlite", "--reset"});
  EXPECT_EQ(all.error, "");
  EXPECT_EQ(all.port, 0);
  EXPECT_EQ(all.dataFile, "x y.sqlite");
  EXPECT_TRUE(all.reset);
  EXPECT_FALSE(ParseArguments({}).reset);

  const std::vector<std::vector<std::string>> wrong = {
      {"--port"},        {"--port", ""}, {"--port", "65536"}, {"--port", "-1"},
      {"--port", "23x"}, {"--data"},     {"--rest"},          {"file"},
  };
  for (const auto& words : wrong)
    EXPECT_NE(ParseArguments(words).error, "") << words.front() << words.back();
}

}  // namespace
}  // namespace quorvel::demohost
