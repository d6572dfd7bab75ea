#include "actions/files/jxcopymove.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "actions/files/fileactiontest.h"
#include "platform/attributes.h"
#include "platform/fileidentity.h"

namespace jx {
namespace {

namespace fs = std::filesystem;
using test::Lines;
using test::Outcome;
using test::ReadFile;
using CopyFilesTest = test::FileActionTest<TCopyFilesAction>;
using MoveFilesTest = test::FileActionTest<TMoveFilesAction>;

TEST_F(CopyFilesTest, ExpansionFailuresEmptyTextsAndNoMatch) {
  host.Variables["SRC"] = dir.Path();
  const std::string failure = "Variable \"MISSING\" is not defined";
  EXPECT_EQ(Outcome(false, {"Unable to Copy files : ", failure}), Run({{"FileSpec", "%MISSING%/*"}, {"Target", "o"}}));
  EXPECT_EQ(Outcome(false, {"Unable to Copy files : " + (dir / "*"), failure}),
            Run({{"FileSpec", "%SRC%/*"}, {"Target", "%MISSING%"}}));
  EXPECT_EQ(Outcome(false, {}), Run({{"FileSpec", "  "}, {"Target", "o"}}));
  EXPECT_EQ(Outcome(false, {}), Run({{"FileSpec", "%SRC%/*"}, {"Target", " "}}));
  EXPECT_EQ(0, host.KeyUpdates.at(0).Index);  // FileSpec is description key 0
  EXPECT_TRUE(Run({{"FileSpec", dir / "*.none"}, {"Target", dir / "out"}}).first);
  EXPECT_FALSE(Run({{"FailIfZeroFiles", "True"}}).first);
}

// A spec without directory part is read in the working directory. Without
// Recurse a directory whose name matches is passed by; with it every
// subdirectory but a hidden one is rebuilt under the target.
TEST_F(CopyFilesTest, CopiesIntoADirectoryItCreates) {
  for (const char* name : {"a.txt", "b.txt", "c.log", "sub.txt/d.txt", "s1/s2/e.txt", ".hidden/f.txt"}) {
    dir.WriteFile(std::string("src/") + name, name);
  }
  test::CurrentDirScope cwd(dir / "src");
  const std::string out = dir / "out/new/";
  // Else the recursion below might walk the root.
  ASSERT_EQ(Outcome(true, {"Copying files : *.txt -> " + out, "2 Files Copied."}),
            Run({{"FileSpec", "*.txt"}, {"Target", out}, {"TargetIsDir", "True"}, {"Force", "True"}}));
  EXPECT_EQ("b.txt", ReadFile(out + "b.txt"));
  EXPECT_EQ(2, std::distance(fs::directory_iterator(out), fs::directory_iterator()));
  EXPECT_EQ("4 Files Copied.", Run({{"Target", dir / "tree"}, {"Recurse", "True"}}).second.back());
  EXPECT_EQ("s1/s2/e.txt", ReadFile(dir / "tree/s1/s2/e.txt"));
  EXPECT_FALSE(fs::exists(dir / "tree/.hidden"));
}

TEST_F(CopyFilesTest, SeveralMatchesGoOntoOneFileUnlessItExists) {
  for (const std::string name : {"a", "b"}) dir.WriteFile(name + ".txt", name);
  const std::string one = dir / "one.dat";
  EXPECT_TRUE(Run({{"FileSpec", dir / "*.txt"}, {"Target", one}}).first);
  fs::remove(one);
  const Outcome outcome = Run({{"FailIfExists", "True"}});
  const std::string second = dir / (ReadFile(one) == "a" ? "b.txt" : "a.txt");
  EXPECT_EQ(Outcome(false, {"Copying files : " + (dir / "*.txt") + " -> " + one,
                            "Failed to copy File : " + second + " -> " + one, "File Already Exists!",
                            "1 Files Copied."}),
            outcome);
}

// The failure below the top directory is logged, yet the copy succeeds; the
// failed directory's own subdirectories are not visited.
TEST_F(CopyFilesTest, FailureInASubdirectoryDoesNotFailTheCopy) {
  for (const char* name : {"src/a.txt", "src/s1/b.txt", "src/s1/s2/c.txt"}) dir.WriteFile(name);
  const std::string spec = dir / "src/*.txt", out = dir.MakeDir("out");
  EXPECT_EQ(Outcome(true, {"Copying files : " + spec + " -> " + out,
                           "Failed to copy File : " + (dir / "src/s1/b.txt") + " -> " + out + "/s1/b.txt",
                           "Win32 Error : No such file or directory", "1 Files Copied."}),
            Run({{"FileSpec", spec}, {"Target", out}, {"Recurse", "True"}, {"TargetIsDir", "True"}}));
}

TEST_F(CopyFilesTest, ReadOnlyDestinationNeedsOverwriteReadOnlyAndClearAttributesClearsAll) {
  const std::string source = dir.WriteFile("a", "new"), dest = dir.WriteFile("b", "old");
  ASSERT_TRUE(FileSetAttr(source, faHidden | faSysFile | faArchive));
  ASSERT_TRUE(FileSetAttr(dest, faReadOnly | faArchive));
  const std::string copying = source + " -> " + dest;
  EXPECT_EQ(Outcome(false, {"Copying files : " + copying, "Failed to copy File : " + copying,
                            "File Already Exists and is marked as Read Only", "0 Files Copied."}),
            Run({{"FileSpec", source}, {"Target", dest}}));
  EXPECT_TRUE(Run({{"OverwriteReadOnly", "True"}, {"ClearAttributes", "True"}}).first);
  EXPECT_EQ("new", ReadFile(dest));
  EXPECT_EQ(faNormal, FileGetAttr(dest));
}

TEST_F(MoveFilesTest, MovesTheTopDirectoryOnly) {
  for (const char* name : {"src/a", "src/.b", "src/sub/c"}) dir.WriteFile(name, name);
  EXPECT_EQ(Outcome(true, {"Moving files : " + (dir / "src/*") + " -> " + (dir / "out"), "2 Files Moved."}),
            Run({{"FileSpec", dir / "src/*"}, {"Target", dir / "out"}, {"TargetIsDir", "True"}, {"Force", "True"}}));
  EXPECT_EQ("src/.b", ReadFile(dir / "out/.b"));
  EXPECT_TRUE(fs::exists(dir / "src/sub/c"));
}

TEST_F(MoveFilesTest, ExistingTargetIsReplacedUnlessFailIfExistsOrReadOnly) {
  const std::string source = dir.WriteFile("a", "new"), dest = dir.WriteFile("b", "old");
  const std::string head = "Moving files : " + source + " -> " + dest;
  const std::string failure = " --> Error Moving File : " + source + " -> " + dest;
  EXPECT_EQ(Outcome(false, {head, failure, " --> The target File exists and \"Fail if Exists\" is checked",
                            "0 Files Moved."}),
            Run({{"FileSpec", source}, {"Target", dest}, {"FailIfExists", "True"}}));
  ASSERT_TRUE(FileSetAttr(dest, faReadOnly));
  EXPECT_EQ(Outcome(false, {head, failure, " --> The target File is marked \"Read Only\"", "0 Files Moved."}),
            Run({{"FailIfExists", "False"}}));
  ASSERT_TRUE(FileSetAttr(source, faHidden));
  EXPECT_TRUE(Run({{"OverwriteReadOnly", "True"}, {"ClearAttributes", "True"}}).first);
  EXPECT_EQ("new", ReadFile(dest));
  EXPECT_EQ(faNormal, FileGetAttr(dest));
}

// The same file, however spelled, is never deleted: the move onto itself
// fails and is counted, and the file stays.
TEST_F(MoveFilesTest, MovingAFileOntoItselfKeepsIt) {
  const std::string file = dir.WriteFile("d/f.txt", "data");
  test::CurrentDirScope cwd(dir.Path());
  for (const auto& [spec, target] : {std::pair<std::string, std::string>{file, file}, {"d/f.txt", "./d/f.txt"}}) {
    const std::string moving = spec + " -> " + target;
    EXPECT_EQ(Outcome(true, {"Moving files : " + moving, " --> Error Moving File : " + moving, " --> File exists",
                             "0 Files Moved."}),
              Run({{"FileSpec", spec}, {"Target", target}}));
    EXPECT_EQ(1, action.ErrorCount());
    EXPECT_EQ("data", ReadFile(file));
  }
}

TEST_F(MoveFilesTest, FailedMovesCountUnlessStopOnAnyErrors) {
  for (const char* name : {"a", "b"}) dir.WriteFile(name);
  const Outcome counted = Run({{"FileSpec", dir / "?"}, {"Target", dir / "missing"}, {"TargetIsDir", "True"}});
  EXPECT_TRUE(counted.first);
  EXPECT_EQ(2, action.ErrorCount());
  EXPECT_EQ(" --> No such file or directory", counted.second.at(2));
  EXPECT_EQ(6u, counted.second.size());
  EXPECT_EQ(4u, Run({{"StopOnAnyErrors", "True"}}).second.size());
  EXPECT_EQ(1, action.ErrorCount());
}

TEST_F(MoveFilesTest, ExpansionErrorAndZeroFiles) {
  EXPECT_EQ(Outcome(false, {" --> Unable to Move files : ", "Variable \"MISSING\" is not defined"}),
            Run({{"FileSpec", "%MISSING%"}, {"Target", "out"}}));
  EXPECT_TRUE(Run({{"FileSpec", dir / "*.none"}, {"Target", dir / "out"}}).first);
  EXPECT_EQ(Outcome(false, {"Moving files : " + (dir / "*.none") + " -> " + (dir / "out"), "0 Files Moved."}),
            Run({{"FailIfZeroFiles", "True"}}));
}

// /dev/shm is a file system apart from the temporary directory's: the file is
// copied there and its source deleted (what the copy keeps is the platform's).
TEST_F(MoveFilesTest, AFileGoesToAnotherFileSystem) {
  TFileIdentity from, to;
  ASSERT_TRUE(GetFileIdentity("/dev/shm", from) && GetFileIdentity(dir.Path(), to));
  if (from.Device == to.Device) GTEST_SKIP() << "/dev/shm and " << dir.Path() << " share a file system";
  const std::string shm = "/dev/shm/jxmove-" + std::to_string(::getpid());
  fs::create_directories(shm);
  std::ofstream(shm + "/a.txt") << "data";
  EXPECT_EQ(Outcome(true, {"Moving files : " + shm + "/*.txt -> " + dir.Path(), "1 Files Moved."}),
            Run({{"FileSpec", shm + "/*.txt"}, {"Target", dir.Path()}, {"TargetIsDir", "True"}}));
  EXPECT_TRUE(fs::is_empty(shm));
  fs::remove_all(shm);
  EXPECT_EQ("data", ReadFile(dir / "a.txt"));
}

}  // namespace
}  // namespace jx
