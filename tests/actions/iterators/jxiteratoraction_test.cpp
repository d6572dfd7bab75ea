// The iterators driven through the host's loop protocol: the loop they share,
// and how the File and Folder Iterators build their lists.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <tuple>

#include "actions/iterators/jxfileiterator.h"
#include "actions/iterators/jxfolderiteratoraction.h"
#include "rtl/sysutils.h"
#include "support/actiontest.h"
#include "support/looprunner.h"

namespace jx {
namespace {

using test::RunLoop;
using Lines = std::vector<std::string>;

template <class A>
class IteratorTest : public test::ActionTest<A> {
 protected:
  IteratorTest() { this->action.VariableName = "ITEM"; }
  // One loop; the children record the variable and the item index.
  test::LoopRun Run() {
    return RunLoop(this->action, [&] {
      seen.push_back(this->host.Variables["ITEM"].ToString());
      index_in_children.push_back(this->action.ItemIndex());
    });
  }
  Lines seen;
  std::vector<int> index_in_children;
};
using FileIteratorTest = IteratorTest<TFileIterator>;
using FolderIteratorTest = IteratorTest<TFolderIterator>;

// The index advances as the children start, so they see it one higher than
// the iterator's own Execute did; the end of the loop forgets the list.
TEST_F(FileIteratorTest, ThreeFilesRunTheChildrenThreeTimes) {
  for (const char* name : {"b.txt", "a.txt", "c.txt", "other.log", ".hidden.txt"}) dir.WriteFile(name);
  dir.MakeDir("folder.txt");
  action.FileSpec = dir / "*.txt";
  ASSERT_TRUE(action.Execute() && action.ItemIndex() == 1);  // as the iterator's own Execute sees it
  const test::LoopRun run = Run();
  EXPECT_TRUE(run.Result);
  EXPECT_EQ((std::vector<int>{1, 2, 1, 2, 1, 3}), run.Answers);
  EXPECT_EQ((std::vector<int>{2, 3, 4}), index_in_children);
  ASSERT_EQ(3u, seen.size());
  EXPECT_EQ((Lines{"Searching for Files...", "Found 3 Files.", seen[0] + "\n" + seen[1] + "\n" + seen[2] + "\n"}),
            host.Lines);
  std::sort(seen.begin(), seen.end());
  EXPECT_EQ((Lines{dir / "a.txt", dir / "b.txt", dir / "c.txt"}), seen);
  EXPECT_EQ(0, action.ItemCount());
}

TEST_F(FileIteratorTest, NoFileLeavesAtOnceAndKeepsTheVariable) {
  host.Variables["ITEM"] = std::string("before");
  for (const std::string& spec : {dir / "*.none", dir / "missing/*.txt"}) {
    action.FileSpec = spec;
    EXPECT_EQ((std::vector<int>{3}), Run().Answers);  // leave at once
  }
  EXPECT_EQ((Lines{"Searching for Files...", "Found 0 Files.", "", "Searching for Files...", "Found 0 Files.", ""}),
            host.Lines);
  EXPECT_EQ(Variant("before"), host.Variables["ITEM"]);
}

// Each directory's files before its subdirectories', depth first, in the file
// system's order; hidden directories are not entered, and neither is a link
// back up the tree.
TEST_F(FileIteratorTest, RecurseWalksTheTreeOnce) {
  for (const char* name : {"top.c", "a/a.c", "a/deep/d.c", "b/b.c", ".git/g.c", "a/.x.c", "a/a.h"}) dir.WriteFile(name);
  std::filesystem::create_directory_symlink("../..", dir / "a/deep/up");
  action.SetRecurse(true);
  action.FileSpec = dir / "*.c";
  EXPECT_TRUE(Run().Result);
  const Lines a_first = {dir / "top.c", dir / "a/a.c", dir / "a/deep/d.c", dir / "b/b.c"};
  const Lines b_first = {dir / "top.c", dir / "b/b.c", dir / "a/a.c", dir / "a/deep/d.c"};
  EXPECT_TRUE(seen == a_first || seen == b_first) << seen.size();
}

// The directory part as written, the bare name, and bare names for a spec
// without a directory part even with IncludeFilePath.
TEST_F(FileIteratorTest, NamesKeepTheDirectoryPartAsWritten) {
  dir.WriteFile("x.txt");
  const test::CurrentDirScope cwd(dir.Path());
  const std::tuple<std::string, bool, std::string> rows[] = {
      {dir.Path() + "//./x.*", true, dir.Path() + "//./x.txt"}, {dir / "x.*", false, "x.txt"}, {"x.*", true, "x.txt"}};
  for (const auto& [spec, include_path, expected] : rows) {
    seen.clear();
    action.FileSpec = spec;
    action.SetIncludeFilePath(include_path);
    Run();
    EXPECT_EQ((Lines{expected}), seen) << spec;
  }
}

// Each loop searches again: files made during a loop are seen by the next.
TEST_F(FileIteratorTest, EachLoopSearchesAgain) {
  dir.WriteFile("1.txt");
  action.FileSpec = dir / "*.txt";
  EXPECT_EQ(1, RunLoop(action, [&] { dir.WriteFile("2.txt"); }).ChildPasses);
  EXPECT_EQ(2, RunLoop(action, [] {}).ChildPasses);
}

struct RefusingHost : test::RecordingHost {
  void SetVariable(const std::string&, const Variant&) override { throw Exception("Variable is read-only"); }
};

// A spec that does not expand and an unreadable directory fail the pass; a
// variable the host refuses also marks the action failed.
TEST_F(FileIteratorTest, FailuresAreLoggedWithTheirReason) {
  std::filesystem::create_directory_symlink("self", dir / "self");
  for (const std::string& spec : {std::string("%MISSING%/*.txt"), dir / "self/*.txt"}) {
    action.FileSpec = spec;
    EXPECT_FALSE(action.Execute()) << spec;
  }
  EXPECT_EQ((Lines{"Error Setting File Spec", "--> Variable \"MISSING\" is not defined", "Searching for Files...",
                   "Error while searching for files : Too many levels of symbolic links"}),
            host.Lines);
  RefusingHost refusing;
  action.SetHost(&refusing);
  action.Reset();
  action.FileSpec = dir.WriteFile("x.txt");
  EXPECT_FALSE(action.Execute());
  EXPECT_EQ(TJXActionStatus::asFailed, action.GetActionStatus());
  EXPECT_EQ((Lines{"Error Setting Variable", "--> Variable is read-only"}),
            Lines(refusing.Lines.end() - 2, refusing.Lines.end()));
}

// An empty variable name fails at run time, not at validation; an empty
// source fails validation; a folder that cannot be read fails the search.
// Recurse and "include the path" stay consistent.
TEST(Iterators, VariableNameSourceAndCoupledOptions) {
  test::Hosted<TFileIterator> files;
  test::Hosted<TFolderIterator> folders;
  test::RecordingValidation errors;
  EXPECT_FALSE(files.Action.Execute() || folders.Action.Execute());
  EXPECT_TRUE(files.Host.Lines == folders.Host.Lines && files.Host.Lines == Lines{"Variable Name not set"});
  EXPECT_FALSE(files.Action.Validate(errors) || folders.Action.Validate(errors));
  EXPECT_EQ((Lines{"File Spec: File Spec has not been set", "Starting Folder: A starting folder has not been set"}),
            errors.Errors);
  test::TempDir dir;
  std::filesystem::create_directory_symlink("self", dir / "self");
  folders.Action.VariableName = "ITEM";
  folders.Action.StartingFolder = dir / "self";
  EXPECT_FALSE(folders.Action.Execute());
  EXPECT_EQ("Error while searching for folders : Too many levels of symbolic links", folders.Host.Lines.back());

  files.Action.SetIncludeFilePath(false);
  folders.Action.SetIncludeFolderPath(false);
  files.Action.SetRecurse(true);
  folders.Action.SetRecurse(true);
  EXPECT_TRUE(files.Action.IncludeFilePath() && folders.Action.IncludeFolderPath());
  files.Action.SetIncludeFilePath(false);
  folders.Action.SetIncludeFolderPath(false);
  EXPECT_FALSE(files.Action.Recurse() || folders.Action.Recurse());
}

// Depth-first pre-order, siblings in the file system's order; a link back up
// the tree is listed but not walked again.
TEST_F(FolderIteratorTest, RecurseListsEachFolderBeforeTheFoldersBelowIt) {
  for (const char* name : {"a/a1", "b", ".hidden"}) dir.MakeDir(name);
  dir.WriteFile("file");
  std::filesystem::create_directory_symlink("../..", dir / "a/a1/up");
  action.StartingFolder = dir.Path();
  action.SetRecurse(true);
  const test::LoopRun run = Run();
  EXPECT_EQ((std::vector<int>{2, 3, 4, 5}), index_in_children);
  const Lines a_first = {dir / "a", dir / "a/a1", dir / "a/a1/up", dir / "b"};
  const Lines b_first = {dir / "b", dir / "a", dir / "a/a1", dir / "a/a1/up"};
  EXPECT_TRUE(seen == a_first || seen == b_first) << seen.size();
  EXPECT_EQ("Found 4 Folders", host.Lines.at(1));
}

// A folder that does not expand, or expands to nothing (which would list the
// root), is reported by the host; nothing is searched, and the children still
// run once with the variable as it was.
TEST_F(FolderIteratorTest, AFolderThatDoesNotExpandGivesOnePassWithoutSearching) {
  host.Variables = {{"EMPTY", std::string()}, {"ITEM", std::string("before")}};
  for (const char* folder : {"%MISSING%", "%EMPTY%"}) {
    action.StartingFolder = folder;
    EXPECT_EQ((std::vector<int>{1, 3}), Run().Answers);
  }
  EXPECT_EQ((Lines{"before", "before"}), seen);
  EXPECT_EQ((Lines{"Unable to expand Starting Folder : Variable \"MISSING\" is not defined",
                   "Unable to expand Starting Folder : the expanded text is empty"}),
            host.Lines);
}

}  // namespace
}  // namespace jx
