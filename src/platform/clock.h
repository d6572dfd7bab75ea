// The local clock and the local-time conversions of file times.
#pragma once

#include <cstdint>

#include "rtl/datetime.h"

namespace jx {

TDateTime Now();   // local date and time, millisecond resolution
TDateTime Date();  // today, time part 0
// Local TDateTime of a point in seconds since the Unix epoch (UTC), and back.
TDateTime UnixTimeToLocal(int64_t unix_seconds, int32_t nanoseconds = 0);
int64_t LocalToUnixTime(TDateTime local);

}  // namespace jx
