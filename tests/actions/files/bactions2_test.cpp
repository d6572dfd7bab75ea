#include "actions/files/bactions2.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "actions/files/fileactiontest.h"

namespace jx {
namespace {

namespace fs = std::filesystem;
using test::Outcome;
using DeleteFilesTest = test::FileActionTest<TDeleteFilesAction>;

// Hidden files match; directories and other names do not. The spec goes
// through description key 1, although the action has one key only.
TEST_F(DeleteFilesTest, DeletesMatchingFilesOnlyAndLogsOneBlock) {
  for (const char* name : {"a.o", "b.o", ".h.o", "c.txt", "sub.o/inner.o"}) dir.WriteFile(name);
  host.Variables["OUT"] = dir.Path();
  EXPECT_TRUE(Run({{"FileSpec", "  %OUT%/*.o  "}}).first);
  EXPECT_EQ((std::vector<test::Lines>{{"Deleting files : " + (dir / "*.o"), "3 Files Deleted."}}), host.Blocks);
  EXPECT_EQ(3, action.FilesAffected());
  EXPECT_EQ(1, host.KeyUpdates.at(0).Index);
  for (const char* gone : {"a.o", "b.o", ".h.o"}) EXPECT_FALSE(fs::exists(dir / gone)) << gone;
  for (const char* kept : {"c.txt", "sub.o/inner.o"}) EXPECT_TRUE(fs::exists(dir / kept)) << kept;
  EXPECT_EQ(Outcome(true, {"Deleting files : " + (dir / "c.txt"), "1 Files Deleted."}),
            Run({{"FileSpec", dir / "c.txt"}}));
}

// FailIfNoFile is on unless turned off. An expansion error clears the count.
TEST_F(DeleteFilesTest, NothingToDeleteFailsOnlyWithFailIfNoFileAndAnExpansionErrorFails) {
  const std::string spec = dir / "*.none";
  host.Variables["EMPTY"] = std::string(" ");
  EXPECT_EQ(Outcome(false, {"Deleting files : " + spec, "0 Files Deleted."}), Run({{"FileSpec", spec}}));
  EXPECT_EQ(Outcome(false, {}), Run({{"FileSpec", "%EMPTY%"}}));
  EXPECT_EQ(Outcome(true, {}), Run({{"FailIfNoFile", "False"}}));
  EXPECT_EQ(Outcome(true, {"Deleting files : " + spec, "0 Files Deleted."}), Run({{"FileSpec", spec}}));
  EXPECT_TRUE(Run({{"FileSpec", dir / "missing-dir/*.o"}}).first);
  EXPECT_TRUE(Run({{"FileSpec", dir.WriteFile("a.o")}}).first && action.FilesAffected() == 1);
  EXPECT_EQ(Outcome(false, {"Unable to Delete file : ", "--> Variable \"MISSING\" is not defined"}),
            Run({{"FileSpec", "%MISSING%/*.o"}}));
  EXPECT_EQ(0, action.FilesAffected());
}

TEST_F(DeleteFilesTest, ReadOnlyFileStopsTheRunUnlessAllowed) {
  const std::string locked = dir.WriteFile("locked.o");
  ::chmod(locked.c_str(), 0444);
  EXPECT_EQ(Outcome(false, {"Deleting files : " + (dir / "*.o"), " --> Error Deleting File : " + locked,
                            " --> Permission denied", "0 Files Deleted."}),
            Run({{"FileSpec", dir / "*.o"}}));
  EXPECT_TRUE(fs::exists(locked));
  EXPECT_EQ("1 Files Deleted.", Run({{"DeleteReadOnly", "True"}}).second.back());
  EXPECT_FALSE(fs::exists(locked));
}

}  // namespace
}  // namespace jx
