// The local clock, file times and the locale's date and time conventions.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>

#include "platform/backend.h"
#include "platform/clock.h"
#include "platform/filetime.h"
#include "platform/lasterror.h"
#include "platform/localeinfo.h"
#include "rtl/sysutils.h"
#include "support/tempdir.h"

namespace jx {
namespace {

// Sets an environment variable for the lifetime of a scope.
struct EnvScope {
  EnvScope(const char* name, const char* value) : name(name), old(std::getenv(name) ? std::getenv(name) : "") {
    setenv(name, value, 1);
    tzset();
  }
  ~EnvScope() {
    old.empty() ? unsetenv(name) : setenv(name, old.c_str(), 1);
    tzset();
  }
  const char* name;
  std::string old;
};

// Central European time as a rule, so that no time zone database is needed.
TEST(Clock, UnixTimeToLocalAndBack) {
  EnvScope tz("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
  const struct { int64_t unix_seconds; int32_t nanoseconds; TDateTime local; } cases[] = {
      {0, 0, EncodeDateTime(1970, 1, 1, 1, 0, 0, 0)}, {-86400, 0, EncodeDateTime(1969, 12, 31, 1, 0, 0, 0)},
      {1625140800, 250000000, EncodeDateTime(2021, 7, 1, 14, 0, 0, 250)},  // summer
      {1616893199, 999000000, EncodeDateTime(2021, 3, 28, 1, 59, 59, 999)},  // before clocks go forward
      {1616893200, 0, EncodeDateTime(2021, 3, 28, 3, 0, 0, 0)}, {4102444800, 0, EncodeDateTime(2100, 1, 1, 1, 0, 0, 0)},
  };
  for (const auto& c : cases) {
    EXPECT_NEAR(c.local, UnixTimeToLocal(c.unix_seconds, c.nanoseconds), 1e-9) << c.unix_seconds;
    EXPECT_EQ(c.unix_seconds, LocalToUnixTime(c.local)) << c.unix_seconds;
  }
}

// Seconds halve into the packed value; years outside 1980..2107 give 0.
TEST(FileDate, PacksAndUnpacks) {
  const std::pair<TDateTime, uint32_t> packed[] = {
      {EncodeDateTime(2020, 1, 2, 3, 4, 5, 0), 0x50221882}, {EncodeDateTime(2020, 1, 2, 3, 4, 4, 999), 0x50221882},
      {EncodeDateTime(1980, 1, 1, 0, 0, 0, 0), 0x00210000}, {EncodeDateTime(2107, 12, 31, 23, 59, 59, 0), 0xFF9FBF7D},
      {EncodeDateTime(1979, 12, 31, 23, 59, 59, 0), 0}, {EncodeDateTime(2108, 1, 1, 0, 0, 0, 0), 0},
  };
  for (const auto& [value, bits] : packed) EXPECT_EQ(bits, uint32_t(DateTimeToFileDate(value))) << DateTimeToISO(value);
  EXPECT_EQ("2020-01-02T03:04:04", DateTimeToISO(FileDateToDateTime(0x50221882)));
  TDateTime value = 7;
  for (const int32_t bits : {0, 0x5022001E, 0x5022C000}) EXPECT_FALSE(TryFileDateToDateTime(bits, value)) << bits;
  EXPECT_EQ(7, value);  // month 0, 60 seconds, hour 24: refused, the value left alone
  EXPECT_THROW(FileDateToDateTime(0), EConvertError);
}

// The last-write time in local time, to the millisecond; the access time
// stays. A read-only file is refused at once (a pipe: see Touch File(s)).
TEST(FileDate, LastWriteTime) {
  test::TempDir dir;
  const std::string file = dir.WriteFile("a.txt", "keep");
  const timespec times[2] = {{1000000000, 0}, {1000000000, 0}};
  ASSERT_EQ(0, utimensat(AT_FDCWD, file.c_str(), times, 0));
  TFileHandle handle = TFileHandle::OpenForWrite(file);
  ASSERT_TRUE(handle.SetLastWriteTime(EncodeDateTime(2010, 7, 8, 9, 10, 11, 345)));
  TDateTime read = 0;
  ASSERT_TRUE(FileGetDate(file, read));
  EXPECT_EQ("2010-07-08T09:10:11.345", DateTimeToISO(read));
  struct stat st{};
  ASSERT_EQ(0, stat(file.c_str(), &st));
  EXPECT_EQ(1000000000, st.st_atim.tv_sec);
  ASSERT_EQ(0, chmod(file.c_str(), 0444));
  EXPECT_FALSE(FileSetDate(file, EncodeDateTime(2001, 1, 1, 0, 0, 0, 0)));
  EXPECT_EQ(kErrorAccessDenied, GetLastError());
}

TLocaleTimeInfo Locale(const char* date, const char* time) {
  TLocaleTimeInfo info;
  info.DateFormat = date;
  info.TimeFormat = time;
  info.TimeAmPmFormat = "%I:%M:%S %p";
  return info;
}

TEST(LocaleInfo, StrftimeFormatsBecomePatterns) {
  const struct { TLocaleTimeInfo info; const char *short_date, *long_time, *short_time, *separators; } cases[] = {
      {Locale("%m/%d/%Y", "%r"), "mm/dd/yyyy", "hh:nn:ss AMPM", "hh:nn AMPM", "/:"},
      {Locale("%d.%m.%Y", "%T"), "dd/mm/yyyy", "hh:nn:ss", "hh:nn", ".:"},
      {Locale("%Y-%m-%d", "%H.%M.%S"), "yyyy/mm/dd", "hh:nn:ss", "hh:nn", "-."},
      {Locale("%D", "%X"), "mm/dd/yy", "h:mm:ss AMPM", "h:mm AMPM", "/:"},  // a format naming itself: classic
      {Locale("%e/%-m/%y", "%l:%M %p"), "d/m/yy", "h:nn AMPM", "h:nn AMPM", "/:"},
      {Locale("%a %d %b %Y", "%Hh%M"), "ddd dd mmm yyyy", "hh\"h\"nn", "hh\"h\"nn", "/:"},
      {Locale("%Y年%m月%d日", "%H:%M:%S"), "yyyy年mm月dd日", "hh:nn:ss", "hh:nn", "/:"},
  };
  for (const auto& c : cases) {
    const TFormatSettings s = FormatSettingsFromLocale(c.info);
    const std::string separators{s.DateSeparator, s.TimeSeparator};
    EXPECT_EQ(std::tuple(c.short_date, c.long_time, c.short_time, c.separators),
              std::tuple(s.ShortDateFormat, s.LongTimeFormat, s.ShortTimeFormat, separators))
        << c.info.DateFormat << " | " << c.info.TimeFormat;
  }
  // Literal text that a pattern would read is quoted.
  EXPECT_EQ("dd\" de \"mmmm\" de \"yyyy", StrftimeToPattern("%d de %B de %Y", Locale("", ""), 0, '/'));
  EXPECT_EQ("'say \"'dd%\"x\"", StrftimeToPattern("say \"%d%%x%Z", Locale("", ""), 0, '/'));
}

TEST(LocaleInfo, ClassicAndUnknownLocalesGiveNothing) {
  TLocaleTimeInfo info;
  for (const char* name : {"C", "POSIX", "C.UTF-8", "xx_NOWHERE.UTF-8"}) {
    EnvScope locale("LC_ALL", name);
    EXPECT_FALSE(backend::ReadLocaleTimeInfo(info)) << name;
  }
}

}  // namespace
}  // namespace jx
