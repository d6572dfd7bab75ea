#include "platform/filetime.h"

#include <utility>

namespace jx {

namespace {

constexpr int kFirstFileDateYear = 1980;
constexpr int kLastFileDateYear = 2107;  // seven bits of years

// The fields of a packed value, unchecked: a month of 0 or 13 passes through.
TDateTimeParts Unpack(int32_t file_date) {
  const uint32_t date = static_cast<uint32_t>(file_date) >> 16;
  const uint32_t time = static_cast<uint32_t>(file_date) & 0xFFFF;
  TDateTimeParts t;
  t.Year = static_cast<int>(date >> 9) + kFirstFileDateYear;
  t.Month = static_cast<int>((date >> 5) & 0x0F);
  t.Day = static_cast<int>(date & 0x1F);
  t.Hour = static_cast<int>(time >> 11);
  t.Minute = static_cast<int>((time >> 5) & 0x3F);
  t.Second = static_cast<int>(time & 0x1F) * 2;
  return t;
}

}  // namespace

int32_t DateTimeToFileDate(TDateTime value) {
  const TDateTimeParts t = DecodeDateTime(value);
  if (t.Year < kFirstFileDateYear || t.Year > kLastFileDateYear) return 0;
  const auto field = [](int v) { return static_cast<uint32_t>(v); };
  const uint32_t date = (field(t.Year - kFirstFileDateYear) << 9) | (field(t.Month) << 5) | field(t.Day);
  const uint32_t time = (field(t.Hour) << 11) | (field(t.Minute) << 5) | field(t.Second / 2);
  return static_cast<int32_t>((date << 16) | time);
}

bool TryFileDateToDateTime(int32_t file_date, TDateTime& value) {
  const TDateTimeParts t = Unpack(file_date);
  TDateTime day = 0;
  TDateTime time_of_day = 0;
  if (!TryEncodeDate(t.Year, t.Month, t.Day, day) || !TryEncodeTime(t.Hour, t.Minute, t.Second, 0, time_of_day)) {
    return false;
  }
  value = day + time_of_day;
  return true;
}

TDateTime FileDateToDateTime(int32_t file_date) {
  const TDateTimeParts t = Unpack(file_date);
  return EncodeDate(t.Year, t.Month, t.Day) + EncodeTime(t.Hour, t.Minute, t.Second, 0);
}

bool FileSetDate(const std::string& path, TDateTime value) {
  TFileHandle file = TFileHandle::OpenForWrite(path);
  return file.IsOpen() && file.SetLastWriteTime(value);
}

TFileHandle::~TFileHandle() { Close(); }

TFileHandle::TFileHandle(TFileHandle&& other) noexcept : native_(std::exchange(other.native_, kNoFile)) {}

TFileHandle& TFileHandle::operator=(TFileHandle&& other) noexcept {
  if (this != &other) {
    Close();
    native_ = std::exchange(other.native_, kNoFile);
  }
  return *this;
}

}  // namespace jx
