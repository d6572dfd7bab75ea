#include "actions/files/jxrenamedirectoryaction.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "actions/files/fileactiontest.h"
#include "support/actiontest.h"

namespace jx {
namespace {

namespace fs = std::filesystem;
using test::Outcome;

Outcome RenameDir(const std::string& source, const std::string& new_name,
                  const std::map<std::string, Variant>& variables = {}) {
  return test::RunWith<TRenameDirAction>({{"SourceDirectory", source}, {"NewDirName", new_name}}, variables);
}

Outcome RenameFile(const std::string& source, const std::string& new_name) {
  return test::RunWith<TRenameDirAction>({{"RenameDir", "False"}, {"SourceFile", source}, {"NewDirName", new_name}});
}

TEST(RenameDir, RenamesADirectoryGivenWithATrailingDelimiterOrAFile) {
  test::TempDir dir;
  dir.WriteFile("old/a.txt");
  dir.WriteFile("a.txt", "A");
  EXPECT_EQ(Outcome(true, {"Directory renamed"}), RenameDir(dir / "old/", "new"));
  EXPECT_EQ(Outcome(true, {"File renamed"}), RenameFile(dir / "a.txt", "b.txt"));
  EXPECT_TRUE(fs::exists(dir / "new/a.txt"));
  EXPECT_EQ("A", test::ReadFile(dir / "b.txt"));
}

// Only '\' and ':' are looked for: a '/' passes, and the directory moves.
TEST(RenameDir, BackslashAndColonAreRefusedButASlashPasses) {
  test::TempDir dir;
  dir.MakeDir("old");
  dir.MakeDir("into");
  const Outcome refused{false,
                        {"Error: New name contains illegal characters",
                         "Make sure new name does not contain path or drive information"}};
  EXPECT_EQ(refused, RenameDir(dir / "old", "a\\b"));
  EXPECT_EQ(refused, RenameDir(dir / "old", "c:d"));
  EXPECT_EQ(Outcome(true, {"Directory renamed"}), RenameDir(dir / "old", "into/moved"));
  EXPECT_TRUE(fs::is_directory(dir / "into/moved"));
}

TEST(RenameDir, MissingSourceTakenNameAndEmptyNewName) {
  test::TempDir dir;
  dir.MakeDir("old");
  dir.MakeDir("taken");
  EXPECT_EQ(Outcome(false, {"Directory doesn't exist"}), RenameDir(dir / "none", "new"));
  EXPECT_EQ(Outcome(false, {"Rename failed: File exists"}), RenameDir(dir / "old", "taken"));
  EXPECT_EQ(Outcome(false, {"Unable to expand New Name : the expanded text is empty"}),
            RenameDir(dir / "old", "%EMPTY%", {{"EMPTY", std::string()}}));
  EXPECT_EQ(Outcome(false, {"File doesn't exist"}), RenameFile(dir / "none.txt", "new"));
  EXPECT_TRUE(fs::is_directory(dir / "old"));
}

// A bare directory name is renamed where it is, not moved to the root.
TEST(RenameDir, BareNameStaysInTheWorkingDirectory) {
  test::TempDir dir;
  dir.MakeDir("rdir");
  test::CurrentDirScope cwd(dir.Path());
  EXPECT_EQ(Outcome(true, {"Directory renamed"}), RenameDir("rdir", "renamed"));
  EXPECT_TRUE(fs::is_directory(dir / "renamed"));
}

}  // namespace
}  // namespace jx
