// POSIX backend: only calls of the POSIX systems we build for (Linux with
// glibc) live here; portable logic belongs above, in src/platform.

#include <time.h>

#include "platform/backend.h"

namespace jx::backend {
namespace {

// localtime_r, unlike localtime, need not read TZ; read it once here.
void EnsureTimeZoneRead() {
  static const bool read = (tzset(), true);
  (void)read;
}

}  // namespace

void ReadUtcClock(int64_t& seconds, int32_t& nanoseconds) {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  seconds = now.tv_sec;
  nanoseconds = static_cast<int32_t>(now.tv_nsec);
}

int64_t UtcOffsetAt(int64_t unix_seconds) {
  EnsureTimeZoneRead();
  const time_t point = static_cast<time_t>(unix_seconds);
  tm local{};
  return localtime_r(&point, &local) ? local.tm_gmtoff : 0;
}

// mktime normalises out-of-range fields, so the reading can be handed over as
// "day 1 + N of January 1970, S seconds" without splitting it into a date.
int64_t LocalWallToUnix(int64_t local_seconds) {
  constexpr int64_t kSecondsPerDay = 86400;
  int64_t days = local_seconds / kSecondsPerDay;
  int64_t seconds = local_seconds % kSecondsPerDay;
  if (seconds < 0) {
    seconds += kSecondsPerDay;
    --days;
  }
  tm local{};
  local.tm_year = 70;
  local.tm_mday = static_cast<int>(1 + days);
  local.tm_sec = static_cast<int>(seconds);
  local.tm_isdst = -1;
  return mktime(&local);
}

}  // namespace jx::backend
