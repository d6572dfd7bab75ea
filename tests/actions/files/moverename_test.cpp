// Move Directory, Rename File or Directory, and Rename Files: entries given
// a new place or name.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "actions/files/fileactiontest.h"
#include "actions/files/jxmovedirectoryaction.h"
#include "actions/files/jxrenamedirectoryaction.h"
#include "actions/files/jxrenamefile.h"

namespace jx {
namespace {

namespace fs = std::filesystem;
using test::Outcome;

class DirectoryMoveTest : public ::testing::Test {
 protected:
  DirectoryMoveTest() {
    dir.WriteFile("old/a.txt", "A");
    dir.MakeDir("taken");
  }
  Outcome Move(const std::string& from, const std::string& to) {
    return test::RunWith<TJXMoveDirectoryAction>({{"Directory", from}, {"DestinationDirectory", to}}, variables);
  }
  Outcome RenameDir(const std::string& source, const std::string& new_name) {
    return test::RunWith<TRenameDirAction>({{"SourceDirectory", source}, {"NewDirName", new_name}}, variables);
  }
  Outcome RenameFile(const std::string& source, const std::string& new_name) {
    return test::RunWith<TRenameDirAction>({{"RenameDir", "False"}, {"SourceFile", source}, {"NewDirName", new_name}});
  }

  test::TempDir dir;
  std::map<std::string, Variant> variables{{"D", dir.Path()}, {"EMPTY", std::string()}};
};

TEST_F(DirectoryMoveTest, MoveTakesTheContentsButDoesNotGoOntoAnotherDirectory) {
  const std::string src = dir / "old", dst = dir / "dst";
  EXPECT_EQ(Outcome(false, {"Error moving Directory : " + src + " - to : " + (dir / "taken"), "Error : File exists"}),
            Move(src, dir / "taken"));
  EXPECT_EQ(Outcome(true, {"Directory : " + src + " - moved to : " + dst}), Move("%D%/old", "%D%/dst"));
  EXPECT_FALSE(fs::exists(src));
  EXPECT_EQ("A", test::ReadFile(dir / "dst/a.txt"));
}

// Either path failing to expand, or expanding to nothing, ends the action
// with the host's one line; nothing moves.
TEST_F(DirectoryMoveTest, MoveExpansionFailuresAreReportedByTheHost) {
  const std::string src = dir / "old", dst = dir / "dst";
  EXPECT_EQ(Outcome(false, {"Unable to expand Directory : Variable \"MISSING\" is not defined"}),
            Move("%MISSING%", dst));
  EXPECT_EQ(Outcome(false, {"Unable to expand Directory : the expanded text is empty"}), Move("%EMPTY%", dst));
  EXPECT_EQ(Outcome(false, {"Unable to expand DestinationDirectory : the expanded text is empty"}),
            Move(src, "%EMPTY%"));
  EXPECT_TRUE(fs::is_directory(src));
  EXPECT_FALSE(fs::exists(dst));
}

TEST_F(DirectoryMoveTest, RenamesADirectoryGivenWithATrailingDelimiterOrAFile) {
  dir.WriteFile("a.txt", "A");
  EXPECT_EQ(Outcome(true, {"Directory renamed"}), RenameDir(dir / "old/", "new"));
  EXPECT_EQ(Outcome(true, {"File renamed"}), RenameFile(dir / "a.txt", "b.txt"));
  EXPECT_TRUE(fs::exists(dir / "new/a.txt"));
  EXPECT_EQ("A", test::ReadFile(dir / "b.txt"));
}

// Only '\' and ':' are looked for: a '/' passes, and the directory moves.
TEST_F(DirectoryMoveTest, RenameRefusesBackslashAndColonButASlashPasses) {
  const Outcome refused{false,
                        {"Error: New name contains illegal characters",
                         "Make sure new name does not contain path or drive information"}};
  EXPECT_EQ(refused, RenameDir(dir / "old", "a\\b"));
  EXPECT_EQ(refused, RenameDir(dir / "old", "c:d"));
  EXPECT_EQ(Outcome(true, {"Directory renamed"}), RenameDir(dir / "old", "taken/moved"));
  EXPECT_TRUE(fs::is_directory(dir / "taken/moved"));
}

TEST_F(DirectoryMoveTest, RenameOfAMissingSourceOntoATakenNameOrToAnEmptyName) {
  EXPECT_EQ(Outcome(false, {"Directory doesn't exist"}), RenameDir(dir / "none", "new"));
  EXPECT_EQ(Outcome(false, {"Rename failed: File exists"}), RenameDir(dir / "old", "taken"));
  EXPECT_EQ(Outcome(false, {"Unable to expand New Name : the expanded text is empty"}),
            RenameDir(dir / "old", "%EMPTY%"));
  EXPECT_EQ(Outcome(false, {"File doesn't exist"}), RenameFile(dir / "none.txt", "new"));
  EXPECT_TRUE(fs::is_directory(dir / "old"));
}

// A bare directory name is renamed where it is, not moved to the root.
TEST_F(DirectoryMoveTest, RenameOfABareNameStaysInTheWorkingDirectory) {
  test::CurrentDirScope cwd(dir.Path());
  EXPECT_EQ(Outcome(true, {"Directory renamed"}), RenameDir("old", "renamed"));
  EXPECT_TRUE(fs::is_directory(dir / "renamed"));
}

using Names = std::set<std::string>;

// The names a directory holding `files` has after renaming `source` to `target`.
Names Renamed(const Names& files, const std::string& source, const std::string& target) {
  test::TempDir dir;
  for (const std::string& file : files) dir.WriteFile(file);
  // Failure, whatever happened: the action's established outcome.
  EXPECT_EQ(Outcome(false, {}),
            test::RunWith<TRenameFilesAction>({{"SourceSpec", dir / source}, {"TargetSpec", target}}));
  Names names;
  for (const auto& e : fs::directory_iterator(dir.Path())) names.insert(e.path().filename().string());
  return names;
}

// A literal name part is appended to the name built for the entry before.
TEST(RenameFiles, NewNamesFromThePattern) {
  EXPECT_EQ((Names{"a.bak", "b.bak", "c.log"}), Renamed({"a.txt", "b.txt", "c.log"}, "*.txt", "*.bak"));
  EXPECT_EQ((Names{"a.b.b.txt"}), Renamed({"a.b.txt"}, "a.b.txt", "*.*"));
  EXPECT_EQ((Names{"READMEREADME"}), Renamed({"README"}, "README", "*.*"));
  EXPECT_EQ((Names{"new.txt", "new.txtnew.txt"}), Renamed({"one.src", "two.src"}, "*.src", "new.txt"));
  EXPECT_EQ((Names{"d.bak"}), Renamed({"d.txt/inner.txt"}, "*.txt", "*.bak"));  // directories too
  EXPECT_EQ((Names{"new."}), Renamed({"a.txt"}, "a.txt", "new"));
  EXPECT_EQ((Names{"a."}), Renamed({"a.txt"}, "a.txt", "*"));
}

TEST(RenameFiles, ExpansionErrorIsOneStatusMessage) {
  test::Hosted<TRenameFilesAction> h;
  h.Action.SetSourceSpec("*.txt");
  h.Action.SetTargetSpec("%MISSING%.bak");
  EXPECT_FALSE(h.Action.Execute());
  EXPECT_EQ((std::vector<std::vector<std::string>>{{"Variable \"MISSING\" is not defined"}}), h.Host.Blocks);
}

}  // namespace
}  // namespace jx
