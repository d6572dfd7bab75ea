#include "actions/files/jxrenamedirectoryaction.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/actiontest.h"

namespace jx {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

class RenameDirTest : public test::ActionTest<TRenameDirAction> {
 protected:
  bool RenameDirectory(const std::string& source, const std::string& new_name) {
    action.SetSourceDirectory(source);
    action.SetNewDirName(new_name);
    return action.Execute();
  }
  bool RenameFile(const std::string& source, const std::string& new_name) {
    action.SetRenameDir(false);
    action.SetSourceFile(source);
    action.SetNewDirName(new_name);
    return action.Execute();
  }
};

TEST_F(RenameDirTest, ValidationChecksTheSourceOfTheModeAndTheNewName) {
  test::RecordingValidation for_dir;
  EXPECT_FALSE(action.Validate(for_dir));
  action.SetRenameDir(false);
  action.SetSourceDirectory("ignored in file mode");
  test::RecordingValidation for_file;
  EXPECT_FALSE(action.Validate(for_file));
  const std::string no_name = "New name: The new name of the directory or file has not been set";
  EXPECT_EQ((Lines{"Directory: The existing directory has not been set", no_name}), for_dir.Errors);
  EXPECT_EQ((Lines{"File: The existing file name has not been set", no_name}), for_file.Errors);
}

TEST_F(RenameDirTest, RenamesADirectoryGivenWithATrailingDelimiterOrAFile) {
  dir.WriteFile("old/a.txt");
  dir.WriteFile("a.txt", "A");
  EXPECT_TRUE(RenameDirectory(dir / "old/", "new"));
  EXPECT_TRUE(RenameFile(dir / "a.txt", "b.txt"));
  EXPECT_EQ((Lines{"Directory renamed", "File renamed"}), host.Lines);
  EXPECT_TRUE(fs::exists(dir / "new/a.txt"));
  EXPECT_FALSE(fs::exists(dir / "old"));
  EXPECT_EQ("A", test::ReadFile(dir / "b.txt"));
}

TEST_F(RenameDirTest, BackslashAndColonAreRefusedButASlashPasses) {
  dir.MakeDir("old");
  dir.MakeDir("into");
  EXPECT_FALSE(RenameDirectory(dir / "old", "a\\b"));
  EXPECT_FALSE(RenameDirectory(dir / "old", "c:d"));
  const Lines refused{"Error: New name contains illegal characters",
                      "Make sure new name does not contain path or drive information"};
  EXPECT_EQ((Lines{refused[0], refused[1], refused[0], refused[1]}), host.Lines);
  EXPECT_TRUE(fs::exists(dir / "old"));

  EXPECT_TRUE(RenameDirectory(dir / "old", "into/moved"));
  EXPECT_TRUE(fs::is_directory(dir / "into/moved"));
}

TEST_F(RenameDirTest, MissingSourceTakenNameAndEmptyNewName) {
  dir.MakeDir("old");
  dir.MakeDir("taken");
  host.Variables["EMPTY"] = std::string();
  EXPECT_FALSE(RenameDirectory(dir / "none", "new"));
  EXPECT_FALSE(RenameDirectory(dir / "old", "taken"));
  EXPECT_FALSE(RenameDirectory(dir / "old", "%EMPTY%"));
  EXPECT_FALSE(RenameFile(dir / "none.txt", "new"));
  EXPECT_EQ((Lines{"Directory doesn't exist", "Rename failed: File exists",
                   "Unable to expand New Name : the expanded text is empty", "File doesn't exist"}),
            host.Lines);
  EXPECT_TRUE(fs::is_directory(dir / "old"));
}

// A bare directory name is renamed where it is, not moved to the root.
TEST_F(RenameDirTest, BareNameStaysInTheWorkingDirectory) {
  dir.MakeDir("rdir");
  test::CurrentDirScope cwd(dir.Path());
  EXPECT_TRUE(RenameDirectory("rdir", "renamed"));
  EXPECT_TRUE(fs::is_directory(dir / "renamed"));
}

}  // namespace
}  // namespace jx
