#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <ctime>
#include <optional>

#include "platform/clock.h"

namespace jx {
namespace {

// Central European time, spelled as a rule so that no time zone database is
// needed: UTC+1, and UTC+2 from the last Sunday of March to that of October.
constexpr char kCentralEurope[] = "CET-1CEST,M3.5.0,M10.5.0/3";

class ClockTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (const char* tz = std::getenv("TZ")) saved_tz_ = tz;
    setenv("TZ", kCentralEurope, 1);
    tzset();
  }
  void TearDown() override {
    if (saved_tz_) {
      setenv("TZ", saved_tz_->c_str(), 1);
    } else {
      unsetenv("TZ");
    }
    tzset();
  }

 private:
  std::optional<std::string> saved_tz_;
};

constexpr double kMillisecond = 1.0 / 86400000.0;

TEST_F(ClockTest, UnixTimeToLocalAndBack) {
  const struct {
    int64_t unix_seconds;
    int32_t nanoseconds;
    TDateTime local;
  } cases[] = {
      {0, 0, EncodeDateTime(1970, 1, 1, 1, 0, 0, 0)},
      {1609459200, 0, EncodeDateTime(2021, 1, 1, 1, 0, 0, 0)},               // winter
      {1625140800, 250000000, EncodeDateTime(2021, 7, 1, 14, 0, 0, 250)},    // summer
      {1616893199, 999000000, EncodeDateTime(2021, 3, 28, 1, 59, 59, 999)},  // before clocks go forward
      {1616893200, 0, EncodeDateTime(2021, 3, 28, 3, 0, 0, 0)},
      {-86400, 0, EncodeDateTime(1969, 12, 31, 1, 0, 0, 0)},
      {4102444800, 0, EncodeDateTime(2100, 1, 1, 1, 0, 0, 0)},
  };
  for (const auto& c : cases) {
    EXPECT_NEAR(c.local, UnixTimeToLocal(c.unix_seconds, c.nanoseconds), kMillisecond / 10) << c.unix_seconds;
    EXPECT_EQ(c.unix_seconds, LocalToUnixTime(c.local)) << c.unix_seconds;
  }
}

TEST_F(ClockTest, NowHasWholeMilliseconds) {
  const TDateTime before = UnixTimeToLocal(std::time(nullptr));
  const TDateTime now = Now();
  const TDateTime after = UnixTimeToLocal(std::time(nullptr) + 1);
  EXPECT_LE(before, now);
  EXPECT_LT(now, after);
  const double ms = (now - std::floor(now)) * 86400000.0;
  EXPECT_NEAR(std::round(ms), ms, 0.01);
}

}  // namespace
}  // namespace jx
