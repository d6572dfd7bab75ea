#include "actions/files/jxcopymove.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "platform/attributes.h"
#include "platform/fileidentity.h"
#include "platform/filetime.h"
#include "support/actiontest.h"

namespace jx {
namespace {

namespace fs = std::filesystem;
using test::ReadFile;
using Lines = std::vector<std::string>;

template <class A>
class FilesActionTest : public test::ActionTest<A> {
 protected:
  bool Run(const std::string& spec, const std::string& target) {
    this->host.Lines.clear();
    this->action.SetFileSpec(spec);
    this->action.SetTarget(target);
    return this->action.Execute();
  }
};

using CopyFilesTest = FilesActionTest<TCopyFilesAction>;
using MoveFilesTest = FilesActionTest<TMoveFilesAction>;

TEST_F(CopyFilesTest, FileSpecIsTheDescriptionKeyAndValidateTestsBothTexts) {
  test::RecordingValidation errors;
  EXPECT_FALSE(action.Validate(errors));
  EXPECT_EQ((Lines{"File Spec: The file spec has not been set", "Target: The target file/directory has not been set"}),
            errors.Errors);
  action.SetFileSpec("%SRC%/*.txt");
  ASSERT_EQ(1u, host.KeyUpdates.size());
  EXPECT_EQ(0, host.KeyUpdates[0].Index);
  EXPECT_EQ("%SRC%/*.txt", action.GetDescriptionKeyValue(3));
}

TEST_F(CopyFilesTest, ExpansionFailuresAndEmptyTexts) {
  host.Variables["SRC"] = dir.Path();
  EXPECT_FALSE(Run("%MISSING%/*", "out"));
  EXPECT_FALSE(Run("%SRC%/*", "%MISSING%"));
  EXPECT_FALSE(Run("  ", "out"));
  EXPECT_FALSE(Run(dir / "*", " "));
  EXPECT_EQ((std::vector<Lines>{{"Unable to Copy files : ", "Variable \"MISSING\" is not defined"},
                                {"Unable to Copy files : " + (dir / "*"), "Variable \"MISSING\" is not defined"}}),
            host.Blocks);
}

TEST_F(CopyFilesTest, CopiesMatchingFilesIntoADirectoryItCreates) {
  dir.WriteFile("src/a.txt", "a");
  dir.WriteFile("src/b.txt", "b");
  dir.WriteFile("src/c.log", "c");
  dir.WriteFile("src/sub.txt/inner.txt", "i");
  action.SetTargetIsDir(true);
  action.SetForceDir(true);
  EXPECT_TRUE(Run(dir / "src/*.txt", dir / "out/new/"));
  EXPECT_EQ((Lines{"Copying files : " + (dir / "src/*.txt") + " -> " + (dir / "out/new/"), "2 Files Copied."}),
            host.Lines);
  EXPECT_EQ("a", ReadFile(dir / "out/new/a.txt"));
  EXPECT_EQ("b", ReadFile(dir / "out/new/b.txt"));
  EXPECT_EQ(2, std::distance(fs::directory_iterator(dir / "out/new"), fs::directory_iterator()));
}

TEST_F(CopyFilesTest, SeveralMatchesGoOntoOneFileUnlessItExists) {
  dir.WriteFile("a.txt", "a");
  dir.WriteFile("b.txt", "b");
  EXPECT_TRUE(Run(dir / "*.txt", dir / "one.dat"));
  EXPECT_EQ("2 Files Copied.", host.Lines.back());

  fs::remove(dir / "one.dat");
  action.SetFailIfExists(true);
  EXPECT_FALSE(Run(dir / "*.txt", dir / "one.dat"));
  const std::string second = ReadFile(dir / "one.dat") == "a" ? "b.txt" : "a.txt";
  EXPECT_EQ((Lines{"Copying files : " + (dir / "*.txt") + " -> " + (dir / "one.dat"),
                   "Failed to copy File : " + (dir / second) + " -> " + (dir / "one.dat"), "File Already Exists!",
                   "1 Files Copied."}),
            host.Lines);
}

// Neither "*.txt" nor "*" descends into hidden directories.
TEST_F(CopyFilesTest, RecurseRebuildsTheTreeWithForce) {
  dir.WriteFile("src/a.txt", "a");
  dir.WriteFile("src/s1/x.log", "x");
  dir.WriteFile("src/s1/s2/c.txt", "c");
  dir.WriteFile("src/.hidden/d.txt", "d");
  action.SetRecurse(true);
  action.SetTargetIsDir(true);
  action.SetForceDir(true);
  EXPECT_TRUE(Run(dir / "src/*.txt", dir / "out"));
  EXPECT_EQ("2 Files Copied.", host.Lines.back());
  EXPECT_EQ("c", ReadFile(dir / "out/s1/s2/c.txt"));
  EXPECT_FALSE(fs::exists(dir / "out/s1/x.log"));

  fs::remove_all(dir / "out");
  EXPECT_TRUE(Run(dir / "src/*", dir / "out"));
  EXPECT_EQ("3 Files Copied.", host.Lines.back());
  EXPECT_FALSE(fs::exists(dir / "out/.hidden"));
}

// The failure below the top directory is logged, yet the copy succeeds; the
// failed directory's own subdirectories are not visited.
TEST_F(CopyFilesTest, FailureInASubdirectoryDoesNotFailTheCopy) {
  dir.WriteFile("src/a.txt", "a");
  dir.WriteFile("src/s1/b.txt", "b");
  dir.WriteFile("src/s1/s2/c.txt", "c");
  dir.MakeDir("out");
  action.SetRecurse(true);
  action.SetTargetIsDir(true);
  EXPECT_TRUE(Run(dir / "src/*.txt", dir / "out"));
  EXPECT_EQ((Lines{"Copying files : " + (dir / "src/*.txt") + " -> " + (dir / "out"),
                   "Failed to copy File : " + (dir / "src/s1/b.txt") + " -> " + (dir / "out/s1/b.txt"),
                   "Win32 Error : No such file or directory", "1 Files Copied."}),
            host.Lines);
}

TEST_F(CopyFilesTest, ReadOnlyDestinationNeedsOverwriteReadOnlyAndClearAttributesClearsAll) {
  const std::string source = dir.WriteFile("a", "new");
  const std::string dest = dir.WriteFile("b", "old");
  ASSERT_TRUE(FileSetAttr(source, faHidden | faSysFile | faArchive));
  ASSERT_TRUE(FileSetAttr(dest, faReadOnly | faArchive));
  EXPECT_FALSE(Run(source, dest));
  EXPECT_EQ((Lines{"Copying files : " + source + " -> " + dest, "Failed to copy File : " + source + " -> " + dest,
                   "File Already Exists and is marked as Read Only", "0 Files Copied."}),
            host.Lines);
  EXPECT_EQ("old", ReadFile(dest));

  action.SetOverwriteReadOnly(true);
  action.SetClearAttributes(true);
  EXPECT_TRUE(Run(source, dest));
  EXPECT_EQ("new", ReadFile(dest));
  EXPECT_EQ(faNormal, FileGetAttr(dest));
}

// A spec without directory part is read in the working directory, and so is
// its recursion.
TEST_F(CopyFilesTest, BareSpecMeansTheWorkingDirectory) {
  dir.WriteFile("a.txt", "a");
  dir.WriteFile("s/b.txt", "b");
  test::TempDir out;
  test::CurrentDirScope cwd(dir.Path());
  action.SetTargetIsDir(true);
  action.SetForceDir(true);
  EXPECT_TRUE(Run("a.txt", out.Path()));
  ASSERT_EQ("a", ReadFile(out / "a.txt"));  // else the recursion might walk the root
  action.SetRecurse(true);
  EXPECT_TRUE(Run("*.txt", out.Path()));
  EXPECT_EQ("2 Files Copied.", host.Lines.back());
  EXPECT_EQ("b", ReadFile(out / "s/b.txt"));
}

// A link that leads nowhere is found by the search but is no file to copy or move.
TEST(CopyMoveFiles, SourceThatDoesNotExist) {
  test::TempDir dir;
  fs::create_symlink("nowhere", dir / "a");
  const std::string spec = dir / "*", source = dir / "a", out = dir / "out";
  test::Hosted<TCopyFilesAction> copy;
  test::Hosted<TMoveFilesAction> move;
  move.Action.SetStopOnAnyErrors(true);
  for (TCustomCopyFilesAction* action : std::initializer_list<TCustomCopyFilesAction*>{&copy.Action, &move.Action}) {
    action->SetFileSpec(spec);
    action->SetTarget(out);
    action->SetTargetIsDir(true);
    EXPECT_FALSE(action->Execute());
  }
  EXPECT_EQ((Lines{"Copying files : " + spec + " -> " + out, "Failed to copy File : " + source + " -> " + out + "/a",
                   "Win32 Error : No such file or directory", "0 Files Copied."}),
            copy.Host.Lines);
  EXPECT_EQ((Lines{"Moving files : " + spec + " -> " + out, " --> Error Moving File : " + source + " -> " + out + "/a",
                   " --> Source File Does not exist", "0 Files Moved."}),
            move.Host.Lines);
}

TEST_F(MoveFilesTest, MovesTheTopDirectoryOnly) {
  dir.WriteFile("src/a", "a");
  dir.WriteFile("src/.b", "b");
  dir.WriteFile("src/sub/c", "c");
  action.SetTargetIsDir(true);
  action.SetForceDir(true);
  EXPECT_TRUE(Run(dir / "src/*", dir / "out"));
  EXPECT_EQ((Lines{"Moving files : " + (dir / "src/*") + " -> " + (dir / "out"), "2 Files Moved."}), host.Lines);
  EXPECT_EQ("b", ReadFile(dir / "out/.b"));
  EXPECT_TRUE(fs::exists(dir / "src/sub/c"));
  EXPECT_FALSE(fs::exists(dir / "src/a"));
}

TEST_F(MoveFilesTest, ExistingTargetIsReplacedUnlessFailIfExistsOrReadOnly) {
  const std::string source = dir.WriteFile("a", "new");
  const std::string dest = dir.WriteFile("b", "old");
  const std::string failure = " --> Error Moving File : " + source + " -> " + dest;
  action.SetFailIfExists(true);
  EXPECT_FALSE(Run(source, dest));
  EXPECT_EQ((Lines{"Moving files : " + source + " -> " + dest, failure,
                   " --> The target File exists and \"Fail if Exists\" is checked", "0 Files Moved."}),
            host.Lines);

  action.SetFailIfExists(false);
  ASSERT_TRUE(FileSetAttr(dest, faReadOnly));
  EXPECT_FALSE(Run(source, dest));
  EXPECT_EQ((Lines{failure, " --> The target File is marked \"Read Only\""}),
            Lines(host.Lines.begin() + 1, host.Lines.end() - 1));

  action.SetOverwriteReadOnly(true);
  action.SetClearAttributes(true);
  ASSERT_TRUE(FileSetAttr(source, faHidden));
  EXPECT_TRUE(Run(source, dest));
  EXPECT_EQ("new", ReadFile(dest));
  EXPECT_EQ(faNormal, FileGetAttr(dest));
  EXPECT_FALSE(fs::exists(source));
}

// The same file, however spelled, is never deleted: the move onto itself
// fails and is counted, and the file stays.
TEST_F(MoveFilesTest, MovingAFileOntoItselfKeepsIt) {
  const std::string file = dir.WriteFile("d/f.txt", "data");
  test::CurrentDirScope cwd(dir.Path());
  for (const auto& [spec, target] : {std::pair<std::string, std::string>{file, file}, {"d/f.txt", "./d/f.txt"}}) {
    EXPECT_TRUE(Run(spec, target));
    EXPECT_EQ((Lines{"Moving files : " + spec + " -> " + target, " --> Error Moving File : " + spec + " -> " + target,
                     " --> File exists", "0 Files Moved."}),
              host.Lines);
    EXPECT_EQ(1, action.ErrorCount());
    EXPECT_EQ("data", ReadFile(file));
  }
}

TEST_F(MoveFilesTest, FailedMovesCountUnlessStopOnAnyErrors) {
  dir.WriteFile("a", "a");
  dir.WriteFile("b", "b");
  action.SetTargetIsDir(true);
  EXPECT_TRUE(Run(dir / "?", dir / "missing"));
  EXPECT_EQ(2, action.ErrorCount());
  EXPECT_EQ(" --> No such file or directory", host.Lines[2]);
  EXPECT_EQ(6u, host.Lines.size());

  action.SetStopOnAnyErrors(true);
  EXPECT_FALSE(Run(dir / "?", dir / "missing"));
  EXPECT_EQ(1, action.ErrorCount());
  EXPECT_EQ(4u, host.Lines.size());
}

TEST_F(MoveFilesTest, ExpansionErrorAndZeroFiles) {
  EXPECT_FALSE(Run("%MISSING%", "out"));
  EXPECT_EQ((Lines{" --> Unable to Move files : ", "Variable \"MISSING\" is not defined"}), host.Lines);
  EXPECT_TRUE(Run(dir / "*.none", dir / "out"));
  action.SetFailIfZeroFiles(true);
  EXPECT_FALSE(Run(dir / "*.none", dir / "out"));
  EXPECT_EQ((Lines{"Moving files : " + (dir / "*.none") + " -> " + (dir / "out"), "0 Files Moved."}), host.Lines);
}

// A directory in /dev/shm, a file system apart from the temporary directory's.
struct SharedMemoryDir {
  SharedMemoryDir() { fs::create_directories(Path); }
  ~SharedMemoryDir() { fs::remove_all(Path); }
  const std::string Path = "/dev/shm/jxmove-" + std::to_string(::getpid());
};

TEST_F(MoveFilesTest, AFileGoesToAnotherFileSystemWithItsTime) {
  SharedMemoryDir shm;
  TFileIdentity from, to;
  ASSERT_TRUE(GetFileIdentity(shm.Path, from) && GetFileIdentity(dir.Path(), to));
  if (from.Device == to.Device) GTEST_SKIP() << "/dev/shm and " << dir.Path() << " share a file system";
  const std::string source = shm.Path + "/a.txt";
  { std::ofstream(source) << "data"; }
  const TDateTime time = EncodeDateTime(2001, 5, 6, 10, 11, 12, 0);
  ASSERT_TRUE(FileSetDate(source, time));
  action.SetTargetIsDir(true);

  EXPECT_TRUE(Run(shm.Path + "/*.txt", dir.Path()));
  EXPECT_EQ((Lines{"Moving files : " + shm.Path + "/*.txt -> " + dir.Path(), "1 Files Moved."}), host.Lines);
  EXPECT_FALSE(fs::exists(source));
  EXPECT_EQ("data", ReadFile(dir / "a.txt"));
  TDateTime moved = 0;
  EXPECT_TRUE(FileGetDate(dir / "a.txt", moved));
  EXPECT_NEAR(time, moved, 1e-3 / 86400);  // to the millisecond
}

}  // namespace
}  // namespace jx
