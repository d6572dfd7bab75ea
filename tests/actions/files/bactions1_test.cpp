#include "actions/files/bactions1.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "platform/fileops.h"
#include "platform/lasterror.h"
#include "rtl/strutils.h"
#include "support/recordinghost.h"
#include "support/tempdir.h"

namespace jx {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

// Runs a file or directory action on `path` with the recording host.
template <class A>
class PathActionTest : public ::testing::Test {
 protected:
  bool Run(const std::string& path) {
    h.Action.SetFileOrDirectory(path);
    return h.Action.Execute();
  }
  test::TempDir dir;
  test::Hosted<A> h;
};

std::string ValidationOf(TCustomJXAction& action) {
  test::RecordingValidation errors;
  EXPECT_FALSE(action.Validate(errors));
  return errors.Errors.size() == 1 ? errors.Errors[0] : "";
}

Lines HiddenOf(const TCustomJXAction& action) {
  TStringList list;
  action.GetHiddenProperties(list);
  return list.Lines();
}

// ---- Check if File Exists ----

using FileExistsTest = PathActionTest<TFileExistsAction>;

TEST_F(FileExistsTest, ModesMapTheAnswerAndTheVariableGetsIt) {
  h.Action.SetVariable("FOUND");
  EXPECT_TRUE(Run(dir.Path()));  // a directory counts
  EXPECT_EQ(Variant(true), h.Host.Variables["FOUND"]);
  h.Action.SetExistsMode(feFailIfExists);
  EXPECT_FALSE(Run(dir.WriteFile("a.txt")));

  h.Action.SetExistsMode(feIgnore);
  EXPECT_TRUE(Run(dir / "missing"));
  EXPECT_EQ(Variant(false), h.Host.Variables["FOUND"]);
  EXPECT_EQ((Lines{"File or Folder Exists", "File or Folder Exists", "File or Folder is missing"}), h.Host.Lines);

  EXPECT_FALSE(Run("%NOPE%/a"));  // an expansion error fails silently
  EXPECT_EQ(3u, h.Host.Lines.size());
}

TEST_F(FileExistsTest, OldFailIfExistsFlagSetsTheModeAndIsNeverSaved) {
  const TPropertyInfo* flag = TFileExistsAction::ClassInfo().FindProperty("FailIfExists");
  ASSERT_NE(nullptr, flag);
  EXPECT_TRUE(flag->WriteOnly && !flag->Stored);
  flag->SetText(h.Action, "True");
  EXPECT_EQ(feFailIfExists, h.Action.ExistsMode());
  flag->SetText(h.Action, "False");
  EXPECT_EQ(feFailIfMissing, h.Action.ExistsMode());
  EXPECT_EQ(Lines{"FailIfExists"}, HiddenOf(h.Action));
  EXPECT_EQ("FileOrDirectory: Field is empty!", ValidationOf(h.Action));
}

// ---- Create Directory ----

using CreateDirectoryTest = PathActionTest<TCreateDirectoryAction>;

TEST_F(CreateDirectoryTest, EmptyExpansionSucceedsSilentlyAndAnExistingDirectoryCountsAsCreated) {
  h.Host.Variables["EMPTY"] = std::string("  ");
  EXPECT_TRUE(Run("%EMPTY%"));
  EXPECT_TRUE(h.Host.Lines.empty());
  EXPECT_TRUE(Run(" " + dir.Path() + " "));
  EXPECT_EQ(Lines{"Created directory : " + dir.Path()}, h.Host.Blocks.at(0));
}

TEST_F(CreateDirectoryTest, MissingParentsOnlyWithForce) {
  const std::string deep = dir / "a/b";
  EXPECT_FALSE(Run(deep));
  EXPECT_EQ(Lines{"Unable to Create directory : " + deep}, h.Host.Lines);
  h.Action.SetForce(true);
  EXPECT_TRUE(Run(deep));
  EXPECT_TRUE(fs::is_directory(deep));

  EXPECT_FALSE(Run("%NOPE%/x"));
  EXPECT_EQ((Lines{"Unable to Create directory : ", "Variable \"NOPE\" is not defined"}), h.Host.Blocks.back());
}

// ---- Delete Directory ----

class DeleteDirectoryTest : public PathActionTest<TDeleteDirectoryAction> {
 protected:
  ~DeleteDirectoryTest() override { SetCurrentDir(saved_cwd_); }
  // The second line of the failure block: the text RaiseLastOSError gives `code`.
  Lines Failure(const std::string& target, uint32_t code) {
    return {"Unable to Delete Directory : " + target,
            "System Error.  Code: " + IntToStr(code) + ".\n" + SysErrorMessage(code)};
  }
  std::string saved_cwd_ = GetCurrentDir();
};

TEST_F(DeleteDirectoryTest, MissingDirectoryCountsAsDeleted) {
  EXPECT_TRUE(Run(dir / "missing"));
  EXPECT_TRUE(h.Host.Lines.empty());
}

TEST_F(DeleteDirectoryTest, LeavesTheDirectoryForTheRootFirst) {
  const std::string target = dir.MakeDir("target");
  SetCurrentDir(target);
  EXPECT_TRUE(Run(target));
  EXPECT_FALSE(fs::exists(target));
  EXPECT_EQ("/", GetCurrentDir());

  // A relative path still names the directory it named before the move.
  dir.WriteFile("relative/a.txt");
  SetCurrentDir(dir.Path());
  h.Action.SetDeleteTree(true);
  EXPECT_TRUE(Run("relative"));
  EXPECT_FALSE(fs::exists(dir / "relative"));
}

TEST_F(DeleteDirectoryTest, NonEmptyDirectoryNeedsDeleteTree) {
  const std::string target = dir.MakeDir("target");
  dir.WriteFile("target/sub/.hidden");
  EXPECT_FALSE(Run(target));  // the system's "Directory not empty"
  EXPECT_EQ(Failure(target, kErrorDirNotEmpty), h.Host.Blocks.at(0));

  h.Action.SetDeleteTree(true);
  EXPECT_TRUE(Run(target));
  EXPECT_FALSE(fs::exists(target));
}

TEST_F(DeleteDirectoryTest, ReadOnlyEntriesGoOnlyWithDeleteReadOnly) {
  const std::string target = dir.MakeDir("target");
  const std::string locked = dir.WriteFile("target/sub/locked");
  ::chmod(locked.c_str(), 0444);
  ::chmod(target.c_str(), 0555);
  h.Action.SetDeleteTree(true);
  EXPECT_FALSE(Run(target));
  EXPECT_EQ(Failure(target, kErrorAccessDenied), h.Host.Blocks.at(0));
  EXPECT_TRUE(fs::exists(locked));

  h.Action.SetDeleteReadOnly(true);
  EXPECT_TRUE(Run(target));
  EXPECT_FALSE(fs::exists(target));
}

TEST_F(DeleteDirectoryTest, TreeDeletionTakesLinksNotWhatTheyPointTo) {
  const std::string outside = dir.WriteFile("outside/keep.txt");
  fs::create_directory_symlink(dir / "outside", dir.MakeDir("target") + "/link");
  h.Action.SetDeleteTree(true);
  EXPECT_TRUE(Run(dir / "target"));
  EXPECT_FALSE(fs::exists(dir / "target"));
  EXPECT_TRUE(fs::exists(outside));
}

// Only the create page shows Force; neither page shows DeleteTree.
TEST(DirectoryActions, CaptionsAndPageFlags) {
  TCreateDirectoryAction create;
  TDeleteDirectoryAction del;
  EXPECT_EQ("Directory: The directory to create has not been set", ValidationOf(create));
  EXPECT_EQ("Directory: The directory to delete has not been set", ValidationOf(del));
  EXPECT_EQ(SetOf({fdIsDir, fdForce}), create.GetFlags());
  EXPECT_EQ(SetOf({fdIsDir}), del.GetFlags());
  EXPECT_EQ(Lines{"Force"}, HiddenOf(del));
  del.SetFileOrDirectory("out");
  EXPECT_EQ("Delete Directory (out)", del.GetDescription());
}

}  // namespace
}  // namespace jx
