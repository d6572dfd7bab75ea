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

int64_t LocalPartsToUnix(const TDateTimeParts& local) {
  tm fields{};
  fields.tm_year = local.Year - 1900;
  fields.tm_mon = local.Month - 1;
  fields.tm_mday = local.Day;
  fields.tm_hour = local.Hour;
  fields.tm_min = local.Minute;
  fields.tm_sec = local.Second;
  fields.tm_isdst = -1;
  return mktime(&fields);
}

}  // namespace jx::backend
