#include "actions/files/bactions1.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "actions/files/fileactiontest.h"
#include "platform/fileops.h"
#include "platform/lasterror.h"
#include "rtl/strutils.h"

namespace jx {
namespace {

namespace fs = std::filesystem;
using test::Outcome;
using FileExistsTest = test::FileActionTest<TFileExistsAction>;
using CreateDirectoryTest = test::FileActionTest<TCreateDirectoryAction>;

// A directory counts; an expansion error fails silently.
TEST_F(FileExistsTest, ModesMapTheAnswerAndTheVariableGetsIt) {
  const std::string exists = "File or Folder Exists", missing = "File or Folder is missing";
  EXPECT_EQ(Outcome(false, {missing}), Run({{"FileOrDirectory", dir / "none"}, {"Variable", "FOUND"}}));
  EXPECT_EQ(Variant(false), host.Variables["FOUND"]);
  EXPECT_EQ(Outcome(true, {exists}), Run({{"FileOrDirectory", dir.Path()}}));
  EXPECT_EQ(Variant(true), host.Variables["FOUND"]);
  EXPECT_EQ(Outcome(false, {exists}), Run({{"ExistsMode", "feFailIfExists"}}));
  EXPECT_EQ(Outcome(true, {exists}), Run({{"FailIfExists", "False"}}));  // as older projects say
  EXPECT_EQ(Outcome(true, {missing}), Run({{"ExistsMode", "feIgnore"}, {"FileOrDirectory", dir / "none"}}));
  EXPECT_EQ(Outcome(false, {}), Run({{"FileOrDirectory", "%NOPE%/a"}}));
}

// An existing directory counts as created; an empty expansion succeeds silently.
TEST_F(CreateDirectoryTest, MissingParentsOnlyWithForce) {
  const std::string deep = dir / "a/b";
  host.Variables["EMPTY"] = std::string("  ");
  EXPECT_EQ(Outcome(true, {}), Run({{"FileOrDirectory", "%EMPTY%"}}));
  EXPECT_EQ(Outcome(true, {"Created directory : " + dir.Path()}), Run({{"FileOrDirectory", " " + dir.Path() + " "}}));
  EXPECT_EQ(Outcome(false, {"Unable to Create directory : " + deep}), Run({{"FileOrDirectory", deep}}));
  EXPECT_EQ(Outcome(true, {"Created directory : " + deep}), Run({{"Force", "True"}}));
  EXPECT_TRUE(fs::is_directory(deep));
  EXPECT_EQ(Outcome(false, {"Unable to Create directory : ", "Variable \"NOPE\" is not defined"}),
            Run({{"FileOrDirectory", "%NOPE%/x"}}));
}

class DeleteDirectoryTest : public test::FileActionTest<TDeleteDirectoryAction> {
 protected:
  DeleteDirectoryTest() { action.SetDeleteTree(true); }
  // The failure block: the target, then the text RaiseLastOSError gives `code`.
  Outcome Failure(const std::string& target, uint32_t code) {
    const std::string text = "System Error.  Code: " + IntToStr(code) + ".\n" + SysErrorMessage(code);
    return {false, {"Unable to Delete Directory : " + target, text}};
  }
};

// A missing directory counts as deleted; a full one needs DeleteTree.
TEST_F(DeleteDirectoryTest, MissingOrNonEmptyDirectory) {
  dir.WriteFile("target/sub/.hidden");
  EXPECT_EQ(Outcome(true, {}), Run({{"FileOrDirectory", dir / "missing"}}));
  EXPECT_EQ(Failure(dir / "target", kErrorDirNotEmpty),
            Run({{"FileOrDirectory", dir / "target"}, {"DeleteTree", "False"}}));
  EXPECT_EQ(Outcome(true, {}), Run({{"DeleteTree", "True"}}));
  EXPECT_FALSE(fs::exists(dir / "target"));
}

// The working directory stays where it is, so that a relative path of a
// later action still means what it says.
TEST_F(DeleteDirectoryTest, RelativePathsKeepTheWorkingDirectory) {
  dir.WriteFile("gone/a.txt");
  test::CurrentDirScope cwd(dir.Path());
  EXPECT_TRUE(Run({{"FileOrDirectory", "gone"}}).first);
  EXPECT_FALSE(fs::exists(dir / "gone"));
  ASSERT_EQ(dir.Path(), GetCurrentDir());  // else the create below would act on the root
  EXPECT_TRUE(test::RunWith<TCreateDirectoryAction>({{"FileOrDirectory", "made"}}).first);
  EXPECT_TRUE(fs::is_directory(dir / "made"));
}

// Only a working directory inside the tree moves, to the root.
TEST_F(DeleteDirectoryTest, DeletesTheTreeThatHoldsTheWorkingDirectory) {
  test::CurrentDirScope cwd(dir.MakeDir("target/sub"));
  EXPECT_TRUE(Run({{"FileOrDirectory", dir / "target"}}).first);
  EXPECT_FALSE(fs::exists(dir / "target"));
  EXPECT_EQ("/", GetCurrentDir());
}

TEST_F(DeleteDirectoryTest, ReadOnlyEntriesGoOnlyWithDeleteReadOnly) {
  const std::string target = dir.MakeDir("target"), locked = dir.WriteFile("target/sub/locked");
  ::chmod(locked.c_str(), 0444);
  ::chmod(target.c_str(), 0555);
  EXPECT_EQ(Failure(target, kErrorAccessDenied), Run({{"FileOrDirectory", target}}));
  EXPECT_TRUE(fs::exists(locked));
  EXPECT_TRUE(Run({{"DeleteReadOnly", "True"}}).first);
  EXPECT_FALSE(fs::exists(target));
}

TEST_F(DeleteDirectoryTest, TreeDeletionTakesLinksNotWhatTheyPointTo) {
  const std::string outside = dir.WriteFile("outside/keep.txt");
  fs::create_directory_symlink(dir / "outside", dir.MakeDir("target") + "/link");
  EXPECT_TRUE(Run({{"FileOrDirectory", dir / "target"}}).first);
  EXPECT_FALSE(fs::exists(dir / "target"));
  EXPECT_TRUE(fs::exists(outside));
}

}  // namespace
}  // namespace jx
