// What the file actions share: validation of a new action,
// searches that fail or find no file, and walks that meet a link back up the tree.
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

#include "actions/files/bactions1.h"
#include "actions/files/bactions2.h"
#include "actions/files/jxcopymove.h"
#include "actions/files/jxfileattrib.h"
#include "actions/files/jxmovedirectoryaction.h"
#include "actions/files/jxrenamedirectoryaction.h"
#include "actions/files/jxrenamefile.h"
#include "actions/files/jxtouchfile.h"
#include "platform/lasterror.h"
#include "actions/files/fileactiontest.h"
#include "support/tempdir.h"

namespace jx {
namespace {

using test::Lines;
using test::Outcome;
using test::RunWith;

// The validation errors of a new action of type A with `properties` set,
// "caption: message" each.
template <class A>
Lines ErrorsOf(test::Properties properties = {}) {
  A action;
  test::SetProperties(action, properties);
  test::RecordingValidation errors;
  const bool valid = action.Validate(errors);
  EXPECT_EQ(errors.Errors.empty(), valid);
  return errors.Errors;
}

TEST(NewFileAction, ValidationReportsEveryRuleThatFails) {
  const Lines no_spec{"File Spec: The file spec has not been set"};
  const Lines copy{no_spec[0], "Target: The target file/directory has not been set"};
  const std::pair<Lines, Lines> rows[] = {
      {ErrorsOf<TDeleteFilesAction>(), no_spec}, {ErrorsOf<TSetFileAttributesAction>(), no_spec},
      {ErrorsOf<TTouchFilesAction>(), {"File Spec: File spec has not been set"}},
      {ErrorsOf<TCopyFilesAction>(), copy}, {ErrorsOf<TMoveFilesAction>(), copy},
      {ErrorsOf<TFileExistsAction>(), {"FileOrDirectory: Field is empty!"}},
      {ErrorsOf<TCreateDirectoryAction>(), {"Directory: The directory to create has not been set"}},
      {ErrorsOf<TDeleteDirectoryAction>(), {"Directory: The directory to delete has not been set"}},
      {ErrorsOf<TJXMoveDirectoryAction>(),
       {"Source directory: A source directory has not been specified",
        "Destination directory: A destination directory has not been specified"}},
      {ErrorsOf<TRenameDirAction>(),
       {"Directory: The existing directory has not been set",
        "New name: The new name of the directory or file has not been set"}},
      {ErrorsOf<TRenameDirAction>({{"RenameDir", "False"}, {"SourceDirectory", "x"}, {"NewDirName", "y"}}),
       {"File: The existing file name has not been set"}},
      {ErrorsOf<TSetVariableAction>(), {}},  // a missing name fails the run instead
  };
  for (const auto& [errors, expected] : rows) EXPECT_EQ(expected, errors);
}

// A directory that cannot be read (a link that leads to itself) ends each
// action's search with the system's text, on the action's failure path.
TEST(FileActionSearch, FailureIsTheActionsFailure) {
  test::TempDir dir;
  std::filesystem::create_directory_symlink("loop", dir / "loop");
  const std::string spec = dir / "loop/*.txt", out = dir / "out", error = SysErrorMessage(ELOOP);
  const std::pair<Outcome, Lines> rows[] = {
      {RunWith<TDeleteFilesAction>({{"FileSpec", spec}}),
       {"Deleting files : " + spec, " --> Error Deleting File : " + spec, " --> " + error, "0 Files Deleted."}},
      {RunWith<TCopyFilesAction>({{"FileSpec", spec}, {"Target", out}}),
       {"Copying files : " + spec + " -> " + out, "Failed to copy File : " + spec + " -> " + out,
        "Win32 Error : " + error, "0 Files Copied."}},
      {RunWith<TMoveFilesAction>({{"FileSpec", spec}, {"Target", out}}),
       {"Moving files : " + spec + " -> " + out, " --> Error Moving File : " + spec + " -> " + out, " --> " + error,
        "0 Files Moved."}},
      {RunWith<TTouchFilesAction>({{"FileSpec", spec}}), {error, "Processed : 0 File(s)"}},
      {RunWith<TSetFileAttributesAction>({{"FileSpec", spec}, {"Archive", "asSet"}}),
       {"Error processing File Spec : " + error}},
      {RunWith<TRenameFilesAction>({{"SourceSpec", spec}, {"TargetSpec", "*.bak"}}), {error}},
  };
  for (const auto& [outcome, lines] : rows) EXPECT_EQ(Outcome(false, lines), outcome);
}

// A link that leads nowhere is found by the search but is no file to copy or move.
TEST(FileActionSearch, LinkThatLeadsNowhere) {
  test::TempDir dir;
  std::filesystem::create_symlink("nowhere", dir / "a");
  const std::string spec = dir / "*", out = dir / "out", failure = dir / "a" + " -> " + out + "/a";
  EXPECT_EQ(Outcome(false, {"Copying files : " + spec + " -> " + out, "Failed to copy File : " + failure,
                            "Win32 Error : No such file or directory", "0 Files Copied."}),
            RunWith<TCopyFilesAction>({{"FileSpec", spec}, {"Target", out}, {"TargetIsDir", "True"}}));
  EXPECT_EQ(Outcome(false, {"Moving files : " + spec + " -> " + out, " --> Error Moving File : " + failure,
                            " --> Source File Does not exist", "0 Files Moved."}),
            RunWith<TMoveFilesAction>(
                {{"FileSpec", spec}, {"Target", out}, {"TargetIsDir", "True"}, {"StopOnAnyErrors", "True"}}));
}

// Links are followed, but a link back up the tree leads into a directory the
// walk stands in, which is not entered again.
TEST(FileActionWalk, LinkBackUpTheTreeIsNotWalkedAgain) {
  test::TempDir dir;
  const std::string a = dir.WriteFile("src/a.txt"), b = dir.WriteFile("src/sub/b.txt");
  std::filesystem::create_directory_symlink("..", dir / "src/sub/back");
  const std::string spec = dir / "src/*.txt", out = dir / "out";
  const std::pair<Outcome, Lines> rows[] = {
      {RunWith<TCopyFilesAction>(
           {{"FileSpec", spec}, {"Target", out}, {"Recurse", "True"}, {"TargetIsDir", "True"}, {"Force", "True"}}),
       {"Copying files : " + spec + " -> " + out, "2 Files Copied."}},
      {RunWith<TTouchFilesAction>({{"FileSpec", spec}, {"Recurse", "True"}}), {"Processed : 2 File(s)"}},
      {RunWith<TSetFileAttributesAction>(
           {{"FileSpec", spec}, {"Recurse", "True"}, {"Archive", "asSet"}, {"LogAllFiles", "True"}}),
       {"Processed File : " + a, "Processed File : " + b}},
  };
  for (const auto& [outcome, lines] : rows) EXPECT_EQ(Outcome(true, lines), outcome);
  EXPECT_TRUE(std::filesystem::exists(out + "/sub/b.txt"));
  EXPECT_FALSE(std::filesystem::exists(out + "/sub/back"));
}

}  // namespace
}  // namespace jx
