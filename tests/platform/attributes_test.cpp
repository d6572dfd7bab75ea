// The POSIX mapping of attributes: mode bits and the "user.DOSATTRIB"
// extended attribute, checked on the file itself.
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/xattr.h>

#include <cerrno>

#include "platform/attributes.h"
#include "platform/copymove.h"
#include "platform/findfile.h"
#include "platform/lasterror.h"
#include "support/tempdir.h"

namespace jx {
namespace {

mode_t ModeOf(const std::string& path) {
  struct stat st{};
  stat(path.c_str(), &st);
  return st.st_mode & 07777;
}

// The stored text, or "<none>" when the extended attribute is absent.
std::string StoredText(const std::string& path) {
  char value[64];
  const ssize_t size = getxattr(path.c_str(), "user.DOSATTRIB", value, sizeof value);
  return size >= 0 ? std::string(value, static_cast<size_t>(size)) : "<none>";
}

bool HasExtendedAttributes(const std::string& path) {
  return setxattr(path.c_str(), "user.jxprobe", "1", 1, 0) == 0 || errno != ENOTSUP;
}

class AttributesTest : public ::testing::Test {
 protected:
  test::TempDir dir_;
  const std::string file_ = dir_.WriteFile("file.txt");
};

TEST_F(AttributesTest, ReadOnlyIsTheOwnersWriteBit) {
  ASSERT_EQ(0, chmod(file_.c_str(), 0666));
  EXPECT_EQ(faNormal, FileGetAttr(file_));
  ASSERT_TRUE(FileSetAttr(file_, faReadOnly));
  EXPECT_EQ(0444u, ModeOf(file_));
  EXPECT_EQ(faReadOnly, FileGetAttr(file_));
  ASSERT_TRUE(FileSetAttr(file_, faNormal));
  EXPECT_EQ(0644u, ModeOf(file_));
  ASSERT_EQ(0, chmod(file_.c_str(), 0466));  // others may write, the owner may not
  EXPECT_EQ(faReadOnly, FileGetAttr(file_));
}

TEST_F(AttributesTest, FlagsAreStoredAsHexText) {
  if (!HasExtendedAttributes(file_)) GTEST_SKIP() << "no extended attributes on the temporary file system";
  const struct {
    uint32_t attr;
    const char* stored;
  } cases[] = {
      {faHidden, "0x2"},
      {faSysFile | faArchive, "0x24"},
      {faHidden | faSysFile | faArchive | faReadOnly, "0x26"},
      {faArchive | faDirectory | faVolumeID, "0x20"},
      {faNormal, "<none>"},
  };
  for (const auto& c : cases) {
    ASSERT_TRUE(FileSetAttr(file_, c.attr)) << c.stored;
    EXPECT_EQ(c.stored, StoredText(file_));
    const uint32_t settable = c.attr & (faReadOnly | faHidden | faSysFile | faArchive);
    EXPECT_EQ(settable != 0 ? settable : faNormal, FileGetAttr(file_)) << c.stored;
  }
}

TEST_F(AttributesTest, ForeignStoredBitsAreIgnored) {
  if (!HasExtendedAttributes(file_)) GTEST_SKIP() << "no extended attributes on the temporary file system";
  const struct {
    std::string stored;
    uint32_t attr;
  } cases[] = {
      {"0x21", faArchive},  // read-only comes from the mode, not from here
      {std::string("0x2\0", 4), faHidden},
      {"0X4", faSysFile},
      {"junk", faNormal},
      {"0x", faNormal},
  };
  for (const auto& c : cases) {
    ASSERT_EQ(0, setxattr(file_.c_str(), "user.DOSATTRIB", c.stored.data(), c.stored.size(), 0));
    EXPECT_EQ(c.attr, FileGetAttr(file_)) << c.stored;
  }
}

TEST_F(AttributesTest, DotNamesAreHiddenByName) {
  const std::string dotted = dir_.WriteFile(".dotted");
  EXPECT_EQ(faHidden, FileGetAttr(dotted));
  ASSERT_TRUE(FileSetAttr(dotted, faHidden | faReadOnly));
  EXPECT_EQ("<none>", StoredText(dotted));
  ASSERT_TRUE(FileSetAttr(dotted, 0));
  EXPECT_EQ(faHidden, FileGetAttr(dotted));
}

TEST_F(AttributesTest, Directories) {
  const std::string sub = dir_.MakeDir("sub");
  EXPECT_EQ(faDirectory, FileGetAttr(sub));
  EXPECT_EQ(faDirectory, FileGetAttr(sub + "/."));
  ASSERT_TRUE(FileSetAttr(sub, faReadOnly));
  EXPECT_EQ(faDirectory | faReadOnly, FileGetAttr(sub));
}

TEST_F(AttributesTest, MissingPath) {
  EXPECT_EQ(kInvalidFileAttributes, FileGetAttr(dir_ / "missing"));
  EXPECT_EQ(kErrorFileNotFound, GetLastError());
  EXPECT_FALSE(FileSetAttr(dir_ / "missing", faReadOnly));
  EXPECT_EQ(kErrorFileNotFound, GetLastError());
}

// Switched off, a file system with extended attributes acts as one without:
// a system file reads as normal, searches admit it, copies drop the bits, and
// only read-only can still be changed.
TEST_F(AttributesTest, StoredAttributesSwitchedOff) {
  if (!HasExtendedAttributes(file_)) GTEST_SKIP() << "no extended attributes on the temporary file system";
  ASSERT_TRUE(FileSetAttr(file_, faSysFile | faArchive));
  struct SwitchOff {
    SwitchOff() { SetStoredAttributesUsed(false); }
    ~SwitchOff() { SetStoredAttributesUsed(true); }
  } switched_off;

  EXPECT_EQ(faNormal, FileGetAttr(file_));
  EXPECT_EQ(faHidden, FileGetAttr(dir_.WriteFile(".dotted")));
  TSearchRec rec;
  EXPECT_EQ(0, FindFirst(file_, faReadOnly | faArchive, rec, TFindDetail::Kind));
  EXPECT_EQ("file.txt", rec.Name);
  EXPECT_EQ(0, FindFirst(file_, faReadOnly | faArchive, rec, TFindDetail::Full));
  EXPECT_EQ(faNormal, rec.Attr);
  FindClose(rec);

  EXPECT_FALSE(FileSetAttr(file_, faHidden));
  EXPECT_EQ(kErrorNotSupported, GetLastError());
  ASSERT_TRUE(FileSetAttr(file_, faReadOnly));
  EXPECT_EQ(faReadOnly, FileGetAttr(file_));
  ASSERT_TRUE(CopyFileTo(file_, dir_ / "copy.txt", true));
  EXPECT_EQ("<none>", StoredText(dir_ / "copy.txt"));
  EXPECT_EQ("0x24", StoredText(file_));  // left as it was
}

}  // namespace
}  // namespace jx
