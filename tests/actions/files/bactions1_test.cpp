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
using test::Hosted;
using test::RecordingValidation;
using test::TempDir;
using Lines = std::vector<std::string>;

Lines ListOf(void (TCustomJXAction::*get)(TStrings&) const, const TCustomJXAction& action) {
  TStringList list;
  (action.*get)(list);
  return list.Lines();
}

// The text of the error that RaiseLastOSError raises for `code`.
std::string OSErrorText(uint32_t code) {
  return "System Error.  Code: " + IntToStr(code) + ".\n" + SysErrorMessage(code);
}

std::string ValidationOf(TCustomJXAction& action) {
  RecordingValidation errors;
  EXPECT_FALSE(action.Validate(errors));
  return errors.Errors.size() == 1 ? errors.Errors[0] : "";
}

// ---- Check if File Exists ----

class FileExistsTest : public ::testing::Test {
 protected:
  bool Run(const std::string& path, TFileExistsMode mode) {
    h.Action.SetFileOrDirectory(path);
    h.Action.SetExistsMode(mode);
    return h.Action.Execute();
  }
  TempDir dir;
  Hosted<TFileExistsAction> h;
};

TEST_F(FileExistsTest, FilesAndDirectoriesBothExist) {
  h.Action.SetVariable("FOUND");
  EXPECT_TRUE(Run(dir.WriteFile("a.txt"), feFailIfMissing));
  EXPECT_TRUE(Run(dir.Path(), feFailIfMissing));
  EXPECT_FALSE(Run(dir.Path(), feFailIfExists));
  EXPECT_EQ(Variant(true), h.Host.Variables["FOUND"]);
  EXPECT_EQ(Lines(3, "File or Folder Exists"), h.Host.Lines);
}

TEST_F(FileExistsTest, IgnoreSucceedsButStillReportsTheAnswer) {
  h.Action.SetVariable("FOUND");
  EXPECT_TRUE(Run(dir / "missing", feIgnore));
  EXPECT_EQ(Variant(false), h.Host.Variables["FOUND"]);
  EXPECT_EQ(Lines{"File or Folder is missing"}, h.Host.Lines);
  EXPECT_FALSE(Run(dir / "missing", feFailIfMissing));
  EXPECT_TRUE(Run(dir / "missing", feFailIfExists));
}

TEST_F(FileExistsTest, ExpansionErrorFailsSilently) {
  EXPECT_FALSE(Run("%NOPE%/a", feIgnore));
  EXPECT_TRUE(h.Host.Lines.empty());
}

TEST_F(FileExistsTest, OldFailIfExistsFlagSetsTheModeAndIsNeverSaved) {
  const TPropertyInfo* flag = TFileExistsAction::ClassInfo().FindProperty("FailIfExists");
  ASSERT_NE(nullptr, flag);
  EXPECT_TRUE(flag->WriteOnly);
  EXPECT_FALSE(flag->Stored);
  flag->SetText(h.Action, "True");
  EXPECT_EQ(feFailIfExists, h.Action.ExistsMode());
  flag->SetText(h.Action, "False");
  EXPECT_EQ(feFailIfMissing, h.Action.ExistsMode());
  EXPECT_EQ(Lines{"FailIfExists"}, ListOf(&TCustomJXAction::GetHiddenProperties, h.Action));
  EXPECT_EQ("FileOrDirectory: Field is empty!", ValidationOf(h.Action));
}

// ---- Create Directory ----

class CreateDirectoryTest : public ::testing::Test {
 protected:
  bool Run(const std::string& path) {
    h.Action.SetFileOrDirectory(path);
    return h.Action.Execute();
  }
  TempDir dir;
  Hosted<TCreateDirectoryAction> h;
};

TEST_F(CreateDirectoryTest, EmptyExpansionSucceedsAndLogsNothing) {
  h.Host.Variables["EMPTY"] = std::string("  ");
  EXPECT_TRUE(Run("%EMPTY%"));
  EXPECT_TRUE(h.Host.Lines.empty());
}

TEST_F(CreateDirectoryTest, AnExistingDirectoryCountsAsCreated) {
  EXPECT_TRUE(Run(" " + dir.Path() + " "));
  EXPECT_EQ(Lines{"Created directory : " + dir.Path()}, h.Host.Blocks.at(0));
}

TEST_F(CreateDirectoryTest, MissingParentsOnlyWithForce) {
  const std::string deep = dir / "a/b";
  EXPECT_FALSE(Run(deep));
  EXPECT_EQ(Lines{"Unable to Create directory : " + deep}, h.Host.Lines);
  h.Action.SetForce(true);
  EXPECT_TRUE(Run(deep));
  EXPECT_EQ("Created directory : " + deep, h.Host.Lines.back());
  EXPECT_TRUE(fs::is_directory(deep));
}

TEST_F(CreateDirectoryTest, ExpansionErrorIsLoggedWithItsMessage) {
  EXPECT_FALSE(Run("%NOPE%/x"));
  EXPECT_EQ((Lines{"Unable to Create directory : ", "Variable \"NOPE\" is not defined"}), h.Host.Blocks.at(0));
}

// ---- Delete Directory ----

class DeleteDirectoryTest : public ::testing::Test {
 protected:
  ~DeleteDirectoryTest() override { SetCurrentDir(saved_cwd_); }
  bool Run(const std::string& path) {
    h.Action.SetFileOrDirectory(path);
    return h.Action.Execute();
  }
  static void MakeReadOnly(const std::string& path) { ::chmod(path.c_str(), 0555); }

  std::string saved_cwd_ = GetCurrentDir();
  TempDir dir;
  Hosted<TDeleteDirectoryAction> h;
};

TEST_F(DeleteDirectoryTest, MissingDirectoryCountsAsDeleted) {
  EXPECT_TRUE(Run(dir / "missing"));
  EXPECT_TRUE(h.Host.Lines.empty());
}

TEST_F(DeleteDirectoryTest, LeavesTheDirectoryBeforeRemovingIt) {
  const std::string target = dir.MakeDir("target");
  SetCurrentDir(target);
  EXPECT_TRUE(Run(target));
  EXPECT_FALSE(fs::exists(target));
  EXPECT_EQ("/", GetCurrentDir());
}

TEST_F(DeleteDirectoryTest, NonEmptyDirectoryNeedsDeleteTree) {
  const std::string target = dir.MakeDir("target");
  dir.WriteFile("target/sub/.hidden");
  dir.WriteFile("target/a.txt");
  EXPECT_FALSE(Run(target));
  EXPECT_EQ("Directory not empty", SysErrorMessage(kErrorDirNotEmpty));
  EXPECT_EQ((Lines{"Unable to Delete Directory : " + target, OSErrorText(kErrorDirNotEmpty)}), h.Host.Blocks.at(0));

  h.Action.SetDeleteTree(true);
  EXPECT_TRUE(Run(target));
  EXPECT_FALSE(fs::exists(target));
}

TEST_F(DeleteDirectoryTest, ReadOnlyFileInsideGoesOnlyWithDeleteReadOnly) {
  const std::string target = dir.MakeDir("target");
  const std::string locked = dir.WriteFile("target/sub/locked");
  ::chmod(locked.c_str(), 0444);
  h.Action.SetDeleteTree(true);
  EXPECT_FALSE(Run(target));
  EXPECT_TRUE(fs::exists(locked));
  EXPECT_EQ((Lines{"Unable to Delete Directory : " + target, OSErrorText(kErrorAccessDenied)}), h.Host.Blocks.at(0));

  h.Action.SetDeleteReadOnly(true);
  EXPECT_TRUE(Run(target));
  EXPECT_FALSE(fs::exists(target));
}

TEST_F(DeleteDirectoryTest, ReadOnlyDirectoryItselfGoesOnlyWithDeleteReadOnly) {
  const std::string target = dir.MakeDir("target");
  MakeReadOnly(target);
  EXPECT_FALSE(Run(target));
  EXPECT_TRUE(fs::exists(target));
  h.Action.SetDeleteReadOnly(true);
  EXPECT_TRUE(Run(target));
  EXPECT_FALSE(fs::exists(target));
}

// A link inside the tree goes as a link; what it points to stays.
TEST_F(DeleteDirectoryTest, TreeDeletionDoesNotFollowLinks) {
  const std::string outside = dir.WriteFile("outside/keep.txt");
  const std::string target = dir.MakeDir("target");
  fs::create_directory_symlink(dir / "outside", dir / "target/link");
  h.Action.SetDeleteTree(true);
  EXPECT_TRUE(Run(target));
  EXPECT_FALSE(fs::exists(target));
  EXPECT_TRUE(fs::exists(outside));
}

// ---- what the editor shows ----

TEST(DirectoryActions, CaptionsHelpAndFlags) {
  TCreateDirectoryAction create;
  TDeleteDirectoryAction del;
  EXPECT_EQ("Directory: The directory to create has not been set", ValidationOf(create));
  EXPECT_EQ("Directory: The directory to delete has not been set", ValidationOf(del));
  EXPECT_EQ(SetOf({fdIsDir, fdForce}), create.GetFlags());
  EXPECT_EQ(SetOf({fdIsDir}), del.GetFlags());
  const std::string force_help =
      "Force=Use Force Directories to create a directory and all parent directories that do not already exist.";
  EXPECT_EQ((Lines{force_help, "FileOrDirectory=The Directory to Create."}),
            ListOf(&TCustomJXAction::GetPropertyHelp, create));
  EXPECT_EQ((Lines{"FileOrDirectory=Directory", "DeleteTree=Delete Tree",
                   "DeleteReadOnly=Delete Read Only Directories", "DeleteHidden=Delete Hidden Directories"}),
            ListOf(&TCustomJXAction::GetPropertyAlias, del));
  EXPECT_EQ(Lines{"Force"}, ListOf(&TCustomJXAction::GetHiddenProperties, del));

  // The directory is a description key.
  del.SetFileOrDirectory("out");
  EXPECT_EQ("Delete Directory (out)", del.GetDescription());
}

}  // namespace
}  // namespace jx
