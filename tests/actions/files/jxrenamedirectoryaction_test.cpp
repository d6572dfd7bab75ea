#include "actions/files/jxrenamedirectoryaction.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/recordinghost.h"
#include "support/tempdir.h"

namespace jx {
namespace {

namespace fs = std::filesystem;
using test::Hosted;
using test::RecordingValidation;
using test::TempDir;
using Lines = std::vector<std::string>;

class RenameDirTest : public ::testing::Test {
 protected:
  bool RenameDirectory(const std::string& source, const std::string& new_name) {
    h.Action.SetSourceDirectory(source);
    h.Action.SetNewDirName(new_name);
    return h.Action.Execute();
  }

  TempDir dir;
  Hosted<TRenameDirAction> h;
};

TEST_F(RenameDirTest, DefaultsAndStaticDescriptions) {
  EXPECT_TRUE(h.Action.RenameDir());
  EXPECT_EQ("Rename File or Directory", h.Action.GetActionName());
  EXPECT_EQ("Plugins\\RenameDirectory.html", h.Action.GetQuickHelpFilename());
  EXPECT_EQ(2460, h.Action.GetHelpTopicID());
}

TEST_F(RenameDirTest, ValidationChecksTheSourceOfTheModeAndTheNewName) {
  RecordingValidation for_dir;
  EXPECT_FALSE(h.Action.Validate(for_dir));
  EXPECT_EQ((Lines{"Directory: The existing directory has not been set",
                   "New name: The new name of the directory or file has not been set"}),
            for_dir.Errors);

  h.Action.SetRenameDir(false);
  h.Action.SetSourceDirectory("ignored in file mode");
  RecordingValidation for_file;
  EXPECT_FALSE(h.Action.Validate(for_file));
  EXPECT_EQ((Lines{"File: The existing file name has not been set",
                   "New name: The new name of the directory or file has not been set"}),
            for_file.Errors);
}

TEST_F(RenameDirTest, RenamesADirectoryGivenWithATrailingDelimiter) {
  dir.WriteFile("old/a.txt");
  EXPECT_TRUE(RenameDirectory(dir / "old/", "new"));
  EXPECT_EQ((Lines{"Directory renamed"}), h.Host.Lines);
  EXPECT_TRUE(fs::exists(dir / "new/a.txt"));
  EXPECT_FALSE(fs::exists(dir / "old"));
}

TEST_F(RenameDirTest, RenamesAFile) {
  dir.WriteFile("a.txt", "A");
  h.Action.SetRenameDir(false);
  h.Action.SetSourceFile(dir / "a.txt");
  h.Action.SetNewDirName("b.txt");
  EXPECT_TRUE(h.Action.Execute());
  EXPECT_EQ((Lines{"File renamed"}), h.Host.Lines);
  EXPECT_EQ("A", test::ReadFile(dir / "b.txt"));
}

TEST_F(RenameDirTest, BackslashAndColonAreRefusedButASlashPasses) {
  dir.MakeDir("old");
  dir.MakeDir("into");
  EXPECT_FALSE(RenameDirectory(dir / "old", "a\\b"));
  EXPECT_FALSE(RenameDirectory(dir / "old", "c:d"));
  const Lines refused{"Error: New name contains illegal characters",
                      "Make sure new name does not contain path or drive information"};
  EXPECT_EQ((Lines{refused[0], refused[1], refused[0], refused[1]}), h.Host.Lines);
  EXPECT_TRUE(fs::exists(dir / "old"));

  h.Host.Lines.clear();
  EXPECT_TRUE(RenameDirectory(dir / "old", "into/moved"));
  EXPECT_EQ((Lines{"Directory renamed"}), h.Host.Lines);
  EXPECT_TRUE(fs::is_directory(dir / "into/moved"));
}

TEST_F(RenameDirTest, MissingSourceAndTakenName) {
  EXPECT_FALSE(RenameDirectory(dir / "none", "new"));
  h.Action.SetRenameDir(false);
  h.Action.SetSourceFile(dir / "none.txt");
  EXPECT_FALSE(h.Action.Execute());
  EXPECT_EQ((Lines{"Directory doesn't exist", "File doesn't exist"}), h.Host.Lines);

  h.Host.Lines.clear();
  h.Action.SetRenameDir(true);
  dir.MakeDir("old");
  dir.MakeDir("taken");
  EXPECT_FALSE(RenameDirectory(dir / "old", "taken"));
  EXPECT_EQ((Lines{"Rename failed: File exists"}), h.Host.Lines);
}

}  // namespace
}  // namespace jx
