#include <gtest/gtest.h>

#include <cerrno>
#include <thread>

#include "platform/lasterror.h"
#include "rtl/sysutils.h"

namespace jx {
namespace {

TEST(SysErrorMessage, IsTheSystemText) {
  EXPECT_EQ("Permission denied", SysErrorMessage(EACCES));
  EXPECT_EQ("No such file or directory", SysErrorMessage(kErrorFileNotFound));
  EXPECT_EQ("", SysErrorMessage(0));
}

TEST(LastError, BelongsToTheThread) {
  SetLastError(kErrorAccessDenied);
  uint32_t seen_by_other = 1;
  std::thread([&] { seen_by_other = GetLastError(); }).join();
  EXPECT_EQ(0u, seen_by_other);
  EXPECT_EQ(kErrorAccessDenied, GetLastError());
}

TEST(RaiseLastOSError, CarriesCodeAndText) {
  const struct {
    uint32_t code;
    const char* message;
  } cases[] = {{EACCES, "System Error.  Code: 13.\nPermission denied"}, {0, "A call to an OS function failed"}};
  for (const auto& c : cases) {
    SetLastError(c.code);
    try {
      RaiseLastOSError();
      ADD_FAILURE() << "no exception for " << c.code;
    } catch (const EOSError& e) {
      EXPECT_EQ(c.code, e.ErrorCode);
      EXPECT_EQ(c.message, e.Message());
    }
  }
}

}  // namespace
}  // namespace jx
