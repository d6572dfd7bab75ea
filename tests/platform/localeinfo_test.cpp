#include "platform/localeinfo.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

#include "platform/backend.h"

namespace jx {
namespace {

TLocaleTimeInfo Locale(const char* date, const char* time, const char* ampm = "%I:%M:%S %p") {
  TLocaleTimeInfo info;
  info.DateFormat = date;
  info.TimeFormat = time;
  info.TimeAmPmFormat = ampm;
  info.AmString = "AM";
  info.PmString = "PM";
  return info;
}

struct Row {
  TLocaleTimeInfo Info;
  const char* ShortDate;
  char DateSeparator;
  const char* LongTime;
  const char* ShortTime;
  char TimeSeparator;
};

const Row kRows[] = {
    {Locale("%m/%d/%Y", "%r"), "mm/dd/yyyy", '/', "hh:nn:ss AMPM", "hh:nn AMPM", ':'},
    {Locale("%d.%m.%Y", "%T"), "dd/mm/yyyy", '.', "hh:nn:ss", "hh:nn", ':'},
    {Locale("%Y-%m-%d", "%H.%M.%S"), "yyyy/mm/dd", '-', "hh:nn:ss", "hh:nn", '.'},
    // A time format that names itself gives nothing, and the classic one stays.
    {Locale("%D", "%X"), "mm/dd/yy", '/', "h:mm:ss AMPM", "h:mm AMPM", ':'},
    {Locale("%e/%-m/%y", "%l:%M %p"), "d/m/yy", '/', "h:nn AMPM", "h:nn AMPM", ':'},
    {Locale("%a %d %b %Y", "%Hh%M"), "ddd dd mmm yyyy", '/', "hh\"h\"nn", "hh\"h\"nn", ':'},
    {Locale("%Y\xE5\xB9\xB4%m\xE6\x9C\x88%d\xE6\x97\xA5", "%H:%M:%S"), "yyyy\xE5\xB9\xB4mm\xE6\x9C\x88" "dd\xE6\x97\xA5",
     '/', "hh:nn:ss", "hh:nn", ':'},
};

TEST(LocaleInfo, StrftimeFormatsBecomePatterns) {
  for (const Row& row : kRows) {
    const TFormatSettings s = FormatSettingsFromLocale(row.Info);
    const std::string where = row.Info.DateFormat + " | " + row.Info.TimeFormat;
    EXPECT_EQ(row.ShortDate, s.ShortDateFormat) << where;
    EXPECT_EQ(row.DateSeparator, s.DateSeparator) << where;
    EXPECT_EQ(row.TimeSeparator, s.TimeSeparator) << where;
    EXPECT_EQ(row.LongTime, s.LongTimeFormat) << where;
    EXPECT_EQ(row.ShortTime, s.ShortTimeFormat) << where;
  }
}

TEST(LocaleInfo, LiteralsThatThePatternWouldReadAreQuoted) {
  const TLocaleTimeInfo info = Locale("", "");
  EXPECT_EQ("dd\" de \"mmmm\" de \"yyyy", StrftimeToPattern("%d de %B de %Y", info, 0, '/'));
  EXPECT_EQ("'say \"'dd%\"x\"", StrftimeToPattern("say \"%d%%x%Z", info, 0, '/'));
}

// The backend reads the user's locale from the environment; the classic
// locales and unknown names give nothing, and the settings stay classic.
class LocaleEnvironment : public ::testing::Test {
 protected:
  LocaleEnvironment() {
    if (const char* value = std::getenv("LC_ALL")) saved_ = value;
  }
  ~LocaleEnvironment() override {
    if (saved_) setenv("LC_ALL", saved_->c_str(), 1);
    else unsetenv("LC_ALL");
  }
  std::optional<std::string> saved_;
};

TEST_F(LocaleEnvironment, ClassicAndUnknownLocalesGiveNothing) {
  TLocaleTimeInfo info;
  for (const char* name : {"C", "POSIX", "C.UTF-8", "xx_NOWHERE.UTF-8"}) {
    setenv("LC_ALL", name, 1);
    EXPECT_FALSE(backend::ReadLocaleTimeInfo(info)) << name;
  }
}

}  // namespace
}  // namespace jx
