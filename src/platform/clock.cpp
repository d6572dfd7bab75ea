#include "platform/clock.h"

#include <cmath>

#include "platform/backend.h"

namespace jx {
namespace {

constexpr double kUnixEpoch = 25569.0;  // 1970-01-01 as a TDateTime
constexpr int64_t kSecondsPerDay = 86400;

}  // namespace

TDateTime Now() {
  int64_t seconds = 0;
  int32_t nanoseconds = 0;
  backend::ReadUtcClock(seconds, nanoseconds);
  return UnixTimeToLocal(seconds, nanoseconds / 1000000 * 1000000);
}

TDateTime Date() { return std::floor(Now()); }

TDateTime UnixTimeToLocal(int64_t unix_seconds, int32_t nanoseconds) {
  const int64_t local_seconds = unix_seconds + backend::UtcOffsetAt(unix_seconds);
  return kUnixEpoch + (static_cast<double>(local_seconds) + nanoseconds / 1e9) / kSecondsPerDay;
}

// Rounds to the millisecond first, so that a value made from a whole second
// comes back as that second despite the rounding of the double.
int64_t LocalToUnixTime(TDateTime local) {
  const int64_t local_ms = std::llround((local - kUnixEpoch) * kSecondsPerDay * 1000.0);
  const int64_t local_seconds = local_ms >= 0 ? local_ms / 1000 : -((-local_ms + 999) / 1000);
  return backend::LocalWallToUnix(local_seconds);
}

}  // namespace jx
