#include "platform/quickpress.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace ZOVEngine {
namespace {

using ::testing::ElementsAre;

/// A button that is down in some steps and whose presses leave the queue in others.
class QuickPressTest : public ::testing::Test {
 protected:
  /// A step: 'P' takes the press, '.' takes another event, 'E' finds the queue empty.
  void Step(char event, bool down) {
    press.BeginPump();
    if (event == 'P') press.TakePress();
    if (event == 'E') press.SetEmpty();
    press.See(down);
    polled.push_back(press.IsStruck() || down);
  }
  void Steps(const std::string& events, const std::string& down) {
    for (std::size_t i = 0; i < events.size(); ++i) Step(events[i], down[i] == '1');
  }

  QuickPress press;
  std::vector<bool> polled;
};

TEST_F(QuickPressTest, APressThatIsOverWhenItIsTakenIsSeenOnce) {
  Steps("P.E", "000");
  EXPECT_THAT(polled, ElementsAre(true, false, false));
}

TEST_F(QuickPressTest, APressThatLastsIsSeenAsLongAsItLasts) {
  Steps("PEE.E", "11100");
  EXPECT_THAT(polled, ElementsAre(true, true, true, false, false));
}

TEST_F(QuickPressTest, APressThatWasSeenBeforeItIsTakenDoesNotCountAgain) {
  Steps("...P.E", "110000");
  EXPECT_THAT(polled, ElementsAre(true, true, false, false, false, false));
}

TEST_F(QuickPressTest, OfTwoThatWereSeenNoneCountsAgainAndAThirdDoes) {
  Steps("....P.P.P.E", "10100000000");
  EXPECT_THAT(polled, ElementsAre(true, false, true, false, false, false, false, false, true, false,
                                  false));
}

TEST_F(QuickPressTest, AQuickPressAfterOneThatLastedIsSeen) {
  Steps("P.P.E", "10000");
  EXPECT_THAT(polled, ElementsAre(true, false, true, false, false));
}

TEST_F(QuickPressTest, APressWhoseEventNeverComesHidesNoLaterOne) {
  Steps(".EP.", "1000");
  EXPECT_THAT(polled, ElementsAre(true, false, true, false));
}

}  // namespace
}  // namespace ZOVEngine
