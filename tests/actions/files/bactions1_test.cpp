#include "actions/files/bactions1.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "platform/fileops.h"
#include "platform/lasterror.h"
#include "rtl/strutils.h"
#include "support/actiontest.h"

namespace jx {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

// Runs a file or directory action on `path` with the recording host.
template <class A>
class PathActionTest : public test::ActionTest<A> {
 protected:
  bool Run(const std::string& path) {
    this->action.SetFileOrDirectory(path);
    return this->action.Execute();
  }
};

// The one validation error of a new action of type A.
template <class A>
std::string ValidationOf() {
  A action;
  test::RecordingValidation errors;
  EXPECT_FALSE(action.Validate(errors));
  return errors.Errors.size() == 1 ? errors.Errors[0] : "";
}

// ---- Check if File Exists ----

using FileExistsTest = PathActionTest<TFileExistsAction>;

TEST_F(FileExistsTest, ModesMapTheAnswerAndTheVariableGetsIt) {
  action.SetVariable("FOUND");
  EXPECT_TRUE(Run(dir.Path()));  // a directory counts
  EXPECT_EQ(Variant(true), host.Variables["FOUND"]);
  action.SetExistsMode(feFailIfExists);
  EXPECT_FALSE(Run(dir.WriteFile("a.txt")));

  action.SetExistsMode(feIgnore);
  EXPECT_TRUE(Run(dir / "missing"));
  EXPECT_EQ(Variant(false), host.Variables["FOUND"]);
  EXPECT_EQ((Lines{"File or Folder Exists", "File or Folder Exists", "File or Folder is missing"}), host.Lines);

  EXPECT_FALSE(Run("%NOPE%/a"));  // an expansion error fails silently
  EXPECT_EQ(3u, host.Lines.size());
  EXPECT_EQ("FileOrDirectory: Field is empty!", ValidationOf<TFileExistsAction>());
}

TEST_F(FileExistsTest, OldFailIfExistsFlagSetsTheMode) {
  const TPropertyInfo* flag = TFileExistsAction::ClassInfo().FindProperty("FailIfExists");
  flag->SetText(action, "True");
  EXPECT_EQ(feFailIfExists, action.ExistsMode());
  flag->SetText(action, "False");
  EXPECT_EQ(feFailIfMissing, action.ExistsMode());
}

// ---- Create Directory ----

using CreateDirectoryTest = PathActionTest<TCreateDirectoryAction>;

TEST_F(CreateDirectoryTest, EmptyExpansionSucceedsSilentlyAndAnExistingDirectoryCountsAsCreated) {
  host.Variables["EMPTY"] = std::string("  ");
  EXPECT_TRUE(Run("%EMPTY%"));
  EXPECT_TRUE(host.Lines.empty());
  EXPECT_TRUE(Run(" " + dir.Path() + " "));
  EXPECT_EQ(Lines{"Created directory : " + dir.Path()}, host.Blocks.at(0));
}

TEST_F(CreateDirectoryTest, MissingParentsOnlyWithForce) {
  const std::string deep = dir / "a/b";
  EXPECT_FALSE(Run(deep));
  EXPECT_EQ(Lines{"Unable to Create directory : " + deep}, host.Lines);
  action.SetForce(true);
  EXPECT_TRUE(Run(deep));
  EXPECT_TRUE(fs::is_directory(deep));

  EXPECT_FALSE(Run("%NOPE%/x"));
  EXPECT_EQ((Lines{"Unable to Create directory : ", "Variable \"NOPE\" is not defined"}), host.Blocks.back());
  EXPECT_EQ("Directory: The directory to create has not been set", ValidationOf<TCreateDirectoryAction>());
}

// ---- Delete Directory ----

class DeleteDirectoryTest : public PathActionTest<TDeleteDirectoryAction> {
 protected:
  // The failure block: the target, then the text RaiseLastOSError gives `code`.
  Lines Failure(const std::string& target, uint32_t code) {
    return {"Unable to Delete Directory : " + target,
            "System Error.  Code: " + IntToStr(code) + ".\n" + SysErrorMessage(code)};
  }
};

TEST_F(DeleteDirectoryTest, MissingDirectoryCountsAsDeleted) {
  EXPECT_TRUE(Run(dir / "missing"));
  EXPECT_TRUE(host.Lines.empty());
  EXPECT_EQ("Directory: The directory to delete has not been set", ValidationOf<TDeleteDirectoryAction>());
}

// The working directory stays where it is, so that a relative path of a
// later action still means what it says.
TEST_F(DeleteDirectoryTest, RelativePathsKeepTheWorkingDirectory) {
  dir.WriteFile("gone/a.txt");
  test::CurrentDirScope cwd(dir.Path());
  action.SetDeleteTree(true);
  EXPECT_TRUE(Run("gone"));
  EXPECT_FALSE(fs::exists(dir / "gone"));
  ASSERT_EQ(dir.Path(), GetCurrentDir());  // else the create below would act on the root

  test::Hosted<TCreateDirectoryAction> create;
  create.Action.SetFileOrDirectory("made");
  EXPECT_TRUE(create.Action.Execute());
  EXPECT_TRUE(fs::is_directory(dir / "made"));
}

// Only a working directory inside the tree moves, to the root.
TEST_F(DeleteDirectoryTest, DeletesTheTreeThatHoldsTheWorkingDirectory) {
  const std::string inner = dir.MakeDir("target/sub");
  test::CurrentDirScope cwd(inner);
  action.SetDeleteTree(true);
  EXPECT_TRUE(Run(dir / "target"));
  EXPECT_FALSE(fs::exists(dir / "target"));
  EXPECT_EQ("/", GetCurrentDir());
}

TEST_F(DeleteDirectoryTest, NonEmptyDirectoryNeedsDeleteTree) {
  const std::string target = dir.MakeDir("target");
  dir.WriteFile("target/sub/.hidden");
  EXPECT_FALSE(Run(target));  // the system's "Directory not empty"
  EXPECT_EQ(Failure(target, kErrorDirNotEmpty), host.Blocks.at(0));

  action.SetDeleteTree(true);
  EXPECT_TRUE(Run(target));
  EXPECT_FALSE(fs::exists(target));
}

TEST_F(DeleteDirectoryTest, ReadOnlyEntriesGoOnlyWithDeleteReadOnly) {
  const std::string target = dir.MakeDir("target");
  const std::string locked = dir.WriteFile("target/sub/locked");
  ::chmod(locked.c_str(), 0444);
  ::chmod(target.c_str(), 0555);
  action.SetDeleteTree(true);
  EXPECT_FALSE(Run(target));
  EXPECT_EQ(Failure(target, kErrorAccessDenied), host.Blocks.at(0));
  EXPECT_TRUE(fs::exists(locked));

  action.SetDeleteReadOnly(true);
  EXPECT_TRUE(Run(target));
  EXPECT_FALSE(fs::exists(target));
}

TEST_F(DeleteDirectoryTest, TreeDeletionTakesLinksNotWhatTheyPointTo) {
  const std::string outside = dir.WriteFile("outside/keep.txt");
  fs::create_directory_symlink(dir / "outside", dir.MakeDir("target") + "/link");
  action.SetDeleteTree(true);
  EXPECT_TRUE(Run(dir / "target"));
  EXPECT_FALSE(fs::exists(dir / "target"));
  EXPECT_TRUE(fs::exists(outside));
}

}  // namespace
}  // namespace jx
