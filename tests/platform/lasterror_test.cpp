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

TEST(LastError, EndOfSearchIsNotFileNotFound) { EXPECT_NE(kErrorFileNotFound, kErrorNoMoreFiles); }

TEST(RaiseLastOSError, CarriesCodeAndText) {
  SetLastError(EACCES);
  try {
    RaiseLastOSError();
    FAIL() << "no exception";
  } catch (const EOSError& e) {
    EXPECT_EQ(static_cast<uint32_t>(EACCES), e.ErrorCode);
    EXPECT_EQ("System Error.  Code: 13.\nPermission denied", e.Message());
  }
}

TEST(RaiseLastOSError, WithoutAnError) {
  SetLastError(0);
  try {
    RaiseLastOSError();
    FAIL() << "no exception";
  } catch (const EOSError& e) {
    EXPECT_EQ(0u, e.ErrorCode);
    EXPECT_EQ("A call to an OS function failed", e.Message());
  }
}

}  // namespace
}  // namespace jx
