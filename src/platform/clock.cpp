#include "platform/clock.h"

#include <cmath>

#include "platform/backend.h"

namespace jx {

// Whole milliseconds, the resolution the clock promises.
TDateTime Now() {
  int64_t seconds = 0;
  int32_t nanoseconds = 0;
  backend::ReadUtcClock(seconds, nanoseconds);
  return UnixTimeToLocal(seconds, nanoseconds / 1000000 * 1000000);
}

TDateTime Date() { return std::floor(Now()); }

TDateTime UnixTimeToLocal(int64_t unix_seconds, int32_t nanoseconds) {
  return UnixToDateTime(unix_seconds, backend::UtcOffsetAt(unix_seconds)) + nanoseconds / (MSecsPerDay * 1e6);
}

int64_t LocalToUnixTime(TDateTime local) { return backend::LocalPartsToUnix(DecodeDateTime(local)); }

}  // namespace jx
