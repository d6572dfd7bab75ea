#include "actions/files/jxcopymove.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "platform/attributes.h"
#include "platform/fileidentity.h"
#include "platform/filetime.h"
#include "support/actiontest.h"
#include "support/recordinghost.h"
#include "support/tempdir.h"

namespace jx {
namespace {

namespace fs = std::filesystem;
using test::Hosted;
using test::ReadFile;
using test::RecordingValidation;
using test::TempDir;
using Lines = std::vector<std::string>;

template <class A>
class FilesActionTest : public ::testing::Test {
 protected:
  bool Run(const std::string& spec, const std::string& target) {
    h.Host.Lines.clear();
    h.Action.SetFileSpec(spec);
    h.Action.SetTarget(target);
    return h.Action.Execute();
  }

  TempDir dir;
  Hosted<A> h;
};

using CopyFilesTest = FilesActionTest<TCopyFilesAction>;
using MoveFilesTest = FilesActionTest<TMoveFilesAction>;

TEST(CopyMoveActions, DefaultsNamesAndPropertyLists) {
  TCopyFilesAction copy;
  TMoveFilesAction move;
  for (const TCustomCopyFilesAction* a : std::initializer_list<const TCustomCopyFilesAction*>{&copy, &move}) {
    EXPECT_FALSE(a->GetForceDir() || a->TargetIsDir() || a->FailIfExists() || a->OverwriteReadOnly() ||
                 a->Recurse() || a->ClearAttributes() || a->FailIfZeroFiles());
  }
  EXPECT_FALSE(move.StopOnAnyErrors());
  EXPECT_EQ("Move File(s)", move.GetActionName());
  EXPECT_EQ("Plugins\\MoveFiles.html", move.GetQuickHelpFilename());
  EXPECT_EQ(555, move.GetHelpTopicID());
  EXPECT_EQ("Copy File(s)", copy.GetActionName());
  EXPECT_EQ("Plugins\\CopyFiles.html", copy.GetQuickHelpFilename());
  EXPECT_EQ(554, copy.GetHelpTopicID());

  TStringList alias, help, hidden;
  copy.GetPropertyAlias(alias);
  copy.GetPropertyHelp(help);
  move.GetHiddenProperties(hidden);
  EXPECT_EQ((Lines{"[Misc]", "Force=Force Directories", "FileSpec=File Specification", "Target=Destination",
                   "TargetIsDir=Destination Is Directory", "FailIfExists=Fail if Exists",
                   "OverwriteReadOnly=Overwrite Read Only", "ClearAttributes=Clear Attributes"}),
            alias.Lines());
  EXPECT_EQ("Recurse=Resurse Sub Directories", help[6]);
  EXPECT_EQ(8, help.Count());
  EXPECT_EQ((Lines{"ErrorCount"}), hidden.Lines());
  EXPECT_EQ(nullptr, TMoveFilesAction::ClassInfo().FindProperty("Recurse"));
  EXPECT_EQ(nullptr, TCopyFilesAction::ClassInfo().FindProperty("StopOnAnyErrors"));
}

TEST_F(CopyFilesTest, FileSpecIsTheDescriptionKeyAndValidateTestsBothTexts) {
  RecordingValidation errors;
  EXPECT_FALSE(h.Action.Validate(errors));
  EXPECT_EQ((Lines{"File Spec: The file spec has not been set", "Target: The target file/directory has not been set"}),
            errors.Errors);

  h.Action.SetFileSpec("%SRC%/*.txt");
  ASSERT_EQ(1u, h.Host.KeyUpdates.size());
  EXPECT_EQ(0, h.Host.KeyUpdates[0].Index);
  EXPECT_EQ("%SRC%/*.txt", h.Action.GetDescriptionKeyValue(3));
  h.Action.SetTarget("%OUT%");
  RecordingValidation none;
  EXPECT_TRUE(h.Action.Validate(none));
}

TEST_F(CopyFilesTest, ExpansionFailuresAndEmptyTexts) {
  h.Host.Variables["SRC"] = dir.Path();
  EXPECT_FALSE(Run("%MISSING%/*", "out"));
  EXPECT_FALSE(Run("%SRC%/*", "%MISSING%"));
  EXPECT_EQ((std::vector<Lines>{{"Unable to Copy files : ", "Variable \"MISSING\" is not defined"},
                                {"Unable to Copy files : " + (dir / "*"), "Variable \"MISSING\" is not defined"}}),
            h.Host.Blocks);
  EXPECT_FALSE(Run("  ", "out"));
  EXPECT_FALSE(Run(dir / "*", " "));
  EXPECT_EQ(2u, h.Host.Blocks.size());
}

TEST_F(CopyFilesTest, CopiesMatchingFilesIntoADirectoryItCreates) {
  dir.WriteFile("src/a.txt", "a");
  dir.WriteFile("src/b.txt", "b");
  dir.WriteFile("src/c.log", "c");
  dir.WriteFile("src/sub.txt/inner.txt", "i");
  h.Action.SetTargetIsDir(true);
  h.Action.SetForceDir(true);

  EXPECT_TRUE(Run(dir / "src/*.txt", dir / "out/new/"));

  EXPECT_EQ((Lines{"Copying files : " + (dir / "src/*.txt") + " -> " + (dir / "out/new/"), "2 Files Copied."}),
            h.Host.Lines);
  EXPECT_EQ("a", ReadFile(dir / "out/new/a.txt"));
  EXPECT_EQ("b", ReadFile(dir / "out/new/b.txt"));
  EXPECT_EQ(2, std::distance(fs::directory_iterator(dir / "out/new"), fs::directory_iterator()));
}

TEST_F(CopyFilesTest, SeveralMatchesGoOntoOneFileUnlessItExists) {
  dir.WriteFile("a.txt", "a");
  dir.WriteFile("b.txt", "b");
  EXPECT_TRUE(Run(dir / "*.txt", dir / "one.dat"));
  EXPECT_EQ("2 Files Copied.", h.Host.Lines.back());

  fs::remove(dir / "one.dat");
  h.Action.SetFailIfExists(true);
  EXPECT_FALSE(Run(dir / "*.txt", dir / "one.dat"));
  const std::string second = ReadFile(dir / "one.dat") == "a" ? "b.txt" : "a.txt";
  EXPECT_EQ((Lines{"Copying files : " + (dir / "*.txt") + " -> " + (dir / "one.dat"),
                   "Failed to copy File : " + (dir / second) + " -> " + (dir / "one.dat"), "File Already Exists!",
                   "1 Files Copied."}),
            h.Host.Lines);
}

// "*" takes the subdirectories from the file search, "*.txt" searches again;
// neither descends into hidden directories.
TEST_F(CopyFilesTest, RecurseRebuildsTheTreeWithForce) {
  dir.WriteFile("src/a.txt", "a");
  dir.WriteFile("src/s1/x.log", "x");
  dir.WriteFile("src/s1/s2/c.txt", "c");
  dir.WriteFile("src/.hidden/d.txt", "d");
  h.Action.SetRecurse(true);
  h.Action.SetTargetIsDir(true);
  h.Action.SetForceDir(true);
  EXPECT_TRUE(Run(dir / "src/*.txt", dir / "out"));
  EXPECT_EQ("2 Files Copied.", h.Host.Lines.back());
  EXPECT_EQ("c", ReadFile(dir / "out/s1/s2/c.txt"));
  EXPECT_FALSE(fs::exists(dir / "out/s1/x.log"));

  fs::remove_all(dir / "out");
  EXPECT_TRUE(Run(dir / "src/*", dir / "out"));
  EXPECT_EQ("3 Files Copied.", h.Host.Lines.back());
  EXPECT_EQ("x", ReadFile(dir / "out/s1/x.log"));
  EXPECT_FALSE(fs::exists(dir / "out/.hidden"));
}

// The failure below the top directory is logged, yet the copy succeeds; the
// failed directory's own subdirectories are not visited.
TEST_F(CopyFilesTest, FailureInASubdirectoryDoesNotFailTheCopy) {
  dir.WriteFile("src/a.txt", "a");
  dir.WriteFile("src/s1/b.txt", "b");
  dir.WriteFile("src/s1/s2/c.txt", "c");
  dir.MakeDir("out");
  h.Action.SetRecurse(true);
  h.Action.SetTargetIsDir(true);
  EXPECT_TRUE(Run(dir / "src/*.txt", dir / "out"));
  EXPECT_EQ((Lines{"Copying files : " + (dir / "src/*.txt") + " -> " + (dir / "out"),
                   "Failed to copy File : " + (dir / "src/s1/b.txt") + " -> " + (dir / "out/s1/b.txt"),
                   "Win32 Error : No such file or directory", "1 Files Copied."}),
            h.Host.Lines);
  EXPECT_EQ(1, h.Action.FilesAffected());
}

TEST_F(CopyFilesTest, ReadOnlyDestinationNeedsOverwriteReadOnly) {
  const std::string source = dir.WriteFile("a", "new");
  const std::string dest = dir.WriteFile("b", "old");
  ASSERT_TRUE(FileSetAttr(dest, faReadOnly | faArchive));
  EXPECT_FALSE(Run(source, dest));
  EXPECT_EQ((Lines{"Copying files : " + source + " -> " + dest, "Failed to copy File : " + source + " -> " + dest,
                   "File Already Exists and is marked as Read Only", "0 Files Copied."}),
            h.Host.Lines);
  EXPECT_EQ("old", ReadFile(dest));

  h.Action.SetOverwriteReadOnly(true);
  EXPECT_TRUE(Run(source, dest));
  EXPECT_EQ("new", ReadFile(dest));
  EXPECT_EQ(faNormal, FileGetAttr(dest));
}

TEST_F(CopyFilesTest, ClearAttributesClearsEveryAttribute) {
  const std::string source = dir.WriteFile("a", "x");
  ASSERT_TRUE(FileSetAttr(source, faReadOnly | faHidden | faSysFile | faArchive));
  h.Action.SetClearAttributes(true);
  EXPECT_TRUE(Run(source, dir / "b"));
  EXPECT_EQ(faNormal, FileGetAttr(dir / "b"));
}

TEST_F(CopyFilesTest, NoMatchFailsOnlyWithFailIfZeroFiles) {
  EXPECT_TRUE(Run(dir / "*.none", dir / "out"));
  EXPECT_EQ("0 Files Copied.", h.Host.Lines.back());
  h.Action.SetFailIfZeroFiles(true);
  EXPECT_FALSE(Run(dir / "*.none", dir / "out"));
}

TEST_F(MoveFilesTest, MovesTheTopDirectoryOnly) {
  dir.WriteFile("src/a", "a");
  dir.WriteFile("src/.b", "b");
  dir.WriteFile("src/sub/c", "c");
  h.Action.SetTargetIsDir(true);
  h.Action.SetForceDir(true);
  EXPECT_TRUE(Run(dir / "src/*", dir / "out"));
  EXPECT_EQ((Lines{"Moving files : " + (dir / "src/*") + " -> " + (dir / "out"), "2 Files Moved."}), h.Host.Lines);
  EXPECT_EQ("b", ReadFile(dir / "out/.b"));
  EXPECT_TRUE(fs::exists(dir / "src/sub/c"));
  EXPECT_FALSE(fs::exists(dir / "src/a"));
}

TEST_F(MoveFilesTest, ExistingTargetIsReplacedUnlessFailIfExistsOrReadOnly) {
  const std::string source = dir.WriteFile("a", "new");
  const std::string dest = dir.WriteFile("b", "old");
  const std::string failure = " --> Error Moving File : " + source + " -> " + dest;
  h.Action.SetFailIfExists(true);
  EXPECT_FALSE(Run(source, dest));
  EXPECT_EQ((Lines{"Moving files : " + source + " -> " + dest, failure,
                   " --> The target File exists and \"Fail if Exists\" is checked", "0 Files Moved."}),
            h.Host.Lines);

  h.Action.SetFailIfExists(false);
  ASSERT_TRUE(FileSetAttr(dest, faReadOnly));
  EXPECT_FALSE(Run(source, dest));
  EXPECT_EQ((Lines{failure, " --> The target File is marked \"Read Only\""}),
            Lines(h.Host.Lines.begin() + 1, h.Host.Lines.end() - 1));

  h.Action.SetOverwriteReadOnly(true);
  h.Action.SetClearAttributes(true);
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
              h.Host.Lines);
    EXPECT_EQ(1, h.Action.ErrorCount());
    EXPECT_EQ("data", ReadFile(file));
  }
}

TEST_F(MoveFilesTest, FailedMovesCountUnlessStopOnAnyErrors) {
  dir.WriteFile("a", "a");
  dir.WriteFile("b", "b");
  h.Action.SetTargetIsDir(true);
  EXPECT_TRUE(Run(dir / "?", dir / "missing"));
  EXPECT_EQ(2, h.Action.ErrorCount());
  EXPECT_EQ(" --> No such file or directory", h.Host.Lines[2]);
  EXPECT_EQ(6u, h.Host.Lines.size());

  h.Action.SetStopOnAnyErrors(true);
  EXPECT_FALSE(Run(dir / "?", dir / "missing"));
  EXPECT_EQ(1, h.Action.ErrorCount());
  EXPECT_EQ("0 Files Moved.", h.Host.Lines.back());
  EXPECT_EQ(4u, h.Host.Lines.size());
}

TEST_F(MoveFilesTest, ExpansionErrorAndZeroFiles) {
  EXPECT_FALSE(Run("%MISSING%", "out"));
  EXPECT_EQ((Lines{" --> Unable to Move files : ", "Variable \"MISSING\" is not defined"}), h.Host.Lines);
  EXPECT_TRUE(Run(dir / "*.none", dir / "out"));
  h.Action.SetFailIfZeroFiles(true);
  EXPECT_FALSE(Run(dir / "*.none", dir / "out"));
  EXPECT_EQ((Lines{"Moving files : " + (dir / "*.none") + " -> " + (dir / "out"), "0 Files Moved."}), h.Host.Lines);
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
  h.Action.SetTargetIsDir(true);

  EXPECT_TRUE(Run(shm.Path + "/*.txt", dir.Path()));
  EXPECT_EQ((Lines{"Moving files : " + shm.Path + "/*.txt -> " + dir.Path(), "1 Files Moved."}), h.Host.Lines);
  EXPECT_FALSE(fs::exists(source));
  EXPECT_EQ("data", ReadFile(dir / "a.txt"));
  TDateTime moved = 0;
  EXPECT_TRUE(FileGetDate(dir / "a.txt", moved));
  EXPECT_NEAR(time, moved, 1e-3 / 86400);  // to the millisecond
}

// A spec without directory part is read in the working directory, and so is
// its recursion.
TEST_F(CopyFilesTest, BareSpecMeansTheWorkingDirectory) {
  dir.WriteFile("a.txt", "a");
  dir.WriteFile("s/b.txt", "b");
  TempDir out;
  test::CurrentDirScope cwd(dir.Path());
  h.Action.SetRecurse(true);
  h.Action.SetTargetIsDir(true);
  h.Action.SetForceDir(true);
  EXPECT_TRUE(Run("*.txt", out.Path()));
  EXPECT_EQ("2 Files Copied.", h.Host.Lines.back());
  EXPECT_EQ("a", ReadFile(out / "a.txt"));
  EXPECT_EQ("b", ReadFile(out / "s/b.txt"));
}

}  // namespace
}  // namespace jx
