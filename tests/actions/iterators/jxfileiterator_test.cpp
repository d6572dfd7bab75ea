#include "actions/iterators/jxfileiterator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "rtl/sysutils.h"
#include "support/looprunner.h"
#include "support/recordinghost.h"
#include "support/tempdir.h"

namespace jx {
namespace {

using test::RecordingHost;
using test::RunLoop;
using test::TempDir;
using Lines = std::vector<std::string>;

// Records FileIndex as the iterator's own Execute leaves it.
class ObservedFileIterator : public TFileIterator {
 public:
  bool Execute() override {
    const bool result = TFileIterator::Execute();
    IndexInExecute.push_back(ItemIndex());
    return result;
  }
  std::vector<int> IndexInExecute;
};

class FileIteratorTest : public ::testing::Test {
 protected:
  FileIteratorTest() {
    it.SetHost(&host);
    it.VariableName = "FILE";
  }
  // Runs the loop over `spec`; the children record the variable and FileIndex.
  test::LoopRun Run(const std::string& spec) {
    it.FileSpec = spec;
    return RunLoop(it, [&] {
      seen.push_back(host.Variables["FILE"].ToString());
      index_in_children.push_back(it.ItemIndex());
    });
  }
  static std::string ListText(const Lines& names) {
    TStringList list;
    for (const std::string& name : names) list.Add(name);
    return list.GetText();
  }

  TempDir dir;
  RecordingHost host;
  ObservedFileIterator it;
  Lines seen;
  std::vector<int> index_in_children;
};

TEST_F(FileIteratorTest, ThreeFilesRunTheChildrenThreeTimes) {
  for (const char* name : {"b.txt", "a.txt", "c.txt", "other.log", ".hidden.txt"}) dir.WriteFile(name);
  dir.MakeDir("folder.txt");
  const test::LoopRun run = Run(dir / "*.txt");

  EXPECT_TRUE(run.Result);
  EXPECT_EQ(3, run.ChildPasses);
  EXPECT_EQ((std::vector<int>{1, 2, 1, 2, 1, 3}), run.Answers);
  EXPECT_EQ((std::vector<int>{1, 2, 3}), it.IndexInExecute);
  EXPECT_EQ((std::vector<int>{2, 3, 4}), index_in_children);
  // The files come in the order the search found them, which the log shows.
  ASSERT_EQ(3u, host.Lines.size());
  EXPECT_EQ((Lines{"Searching for Files...", "Found 3 Files.", ListText(seen)}), host.Lines);
  Lines sorted = seen;
  std::sort(sorted.begin(), sorted.end());
  EXPECT_EQ((Lines{dir / "a.txt", dir / "b.txt", dir / "c.txt"}), sorted);
  EXPECT_EQ(0, it.ItemCount());  // the end of the loop resets it
}

TEST_F(FileIteratorTest, NoFileLeavesAtOnceAndKeepsTheVariable) {
  host.Variables["FILE"] = std::string("before");
  for (const std::string& spec : {dir / "*.none", dir / "missing/*.txt"}) {
    host.Lines.clear();
    const test::LoopRun run = Run(spec);
    EXPECT_TRUE(run.Result);
    EXPECT_EQ(0, run.ChildPasses);
    EXPECT_EQ((std::vector<int>{3}), run.Answers);
    EXPECT_EQ((Lines{"Searching for Files...", "Found 0 Files.", ""}), host.Lines);
  }
  EXPECT_EQ(Variant("before"), host.Variables["FILE"]);
}

TEST_F(FileIteratorTest, EmptyVariableNameFailsAtRunTimeOnly) {
  it.VariableName = "";
  it.FileSpec = dir / "*";
  test::RecordingValidation errors;
  EXPECT_TRUE(it.Validate(errors));
  EXPECT_FALSE(it.Execute());
  EXPECT_EQ((Lines{"Variable Name not set"}), host.Lines);

  it.FileSpec = "";
  EXPECT_FALSE(it.Validate(errors));
  EXPECT_EQ((Lines{"File Spec: File Spec has not been set"}), errors.Errors);
}

// Files of a directory first, then each subdirectory's, depth first; the
// order of the two subdirectories is the file system's.
TEST_F(FileIteratorTest, RecurseListsEachDirectoryBeforeItsSubdirectories) {
  for (const char* name : {"top.c", "a/a.c", "a/deep/d.c", "b/b.c", ".git/g.c", "a/.x.c", "a/a.h"}) dir.WriteFile(name);
  it.SetRecurse(true);
  Run(dir / "*.c");
  const Lines a_first = {dir / "top.c", dir / "a/a.c", dir / "a/deep/d.c", dir / "b/b.c"};
  const Lines b_first = {dir / "top.c", dir / "b/b.c", dir / "a/a.c", dir / "a/deep/d.c"};
  EXPECT_TRUE(seen == a_first || seen == b_first) << ListText(seen);
}

TEST_F(FileIteratorTest, NamesKeepTheDirectoryPartAsWritten) {
  dir.WriteFile("x.txt");
  Run(dir.Path() + "//./x.*");
  EXPECT_EQ((Lines{dir.Path() + "//./x.txt"}), seen);

  seen.clear();
  it.SetIncludeFilePath(false);
  Run(dir / "x.*");
  EXPECT_EQ((Lines{"x.txt"}), seen);

  // No directory part: bare names even with IncludeFilePath.
  const std::filesystem::path cwd = std::filesystem::current_path();
  std::filesystem::current_path(dir.Path());
  seen.clear();
  it.SetIncludeFilePath(true);
  Run("x.*");
  std::filesystem::current_path(cwd);
  EXPECT_EQ((Lines{"x.txt"}), seen);
}

TEST_F(FileIteratorTest, CoupledOptionsAndHiddenResults) {
  TFileIterator a;
  TStringList hidden;
  a.GetHiddenProperties(hidden);
  EXPECT_EQ((Lines{"FileIndex", "FileCount"}), hidden.Lines());
  EXPECT_FALSE(a.Recurse());
  EXPECT_TRUE(a.IncludeFilePath());
  a.SetRecurse(true);
  a.SetIncludeFilePath(false);
  EXPECT_FALSE(a.Recurse());
  a.SetRecurse(true);
  EXPECT_TRUE(a.IncludeFilePath());
}

// Each loop searches again; files made by the children during a loop are
// not seen until the next one.
TEST_F(FileIteratorTest, EachLoopSearchesAgain) {
  dir.WriteFile("1.txt");
  it.FileSpec = dir / "*.txt";
  EXPECT_EQ(1, RunLoop(it, [&] { dir.WriteFile("2.txt"); }).ChildPasses);
  EXPECT_EQ(2, RunLoop(it, [] {}).ChildPasses);
  EXPECT_EQ(2, std::count(host.Lines.begin(), host.Lines.end(), "Searching for Files..."));
}

TEST_F(FileIteratorTest, StopSignalEndsTheLoopBetweenPasses) {
  for (const char* name : {"1", "2", "3"}) dir.WriteFile(name);
  it.FileSpec = dir / "*";
  const test::LoopRun run = RunLoop(it, [&] { host.Stop = true; });
  EXPECT_FALSE(run.Result);
  EXPECT_EQ(1, run.ChildPasses);

  // A new build starts afresh.
  host.Stop = false;
  it.ResetBuildStatus();
  EXPECT_EQ(0, it.ItemCount());
}

TEST_F(FileIteratorTest, ExpansionErrorIsLogged) {
  it.FileSpec = "%MISSING%/*.txt";
  EXPECT_FALSE(it.Execute());
  EXPECT_EQ((Lines{"Error Setting File Spec", "--> Variable \"MISSING\" is not defined"}), host.Lines);
}

class RefusingHost : public RecordingHost {
 public:
  void SetVariable(const std::string&, const Variant&) override { throw Exception("Variable is read-only"); }
};

TEST_F(FileIteratorTest, AVariableThatCannotBeSetFailsTheAction) {
  RefusingHost refusing;
  it.SetHost(&refusing);
  dir.WriteFile("x.txt");
  it.FileSpec = dir / "*.txt";
  EXPECT_FALSE(it.Execute());
  EXPECT_EQ(TJXActionStatus::asFailed, it.GetActionStatus());
  EXPECT_EQ((Lines{"Error Setting Variable", "--> Variable is read-only"}),
            Lines(refusing.Lines.end() - 2, refusing.Lines.end()));
}

// A link back up the tree is followed, but a directory the walk already
// stands in is not entered again.
TEST_F(FileIteratorTest, ALinkBackUpTheTreeIsNotWalkedAgain) {
  dir.WriteFile("top.c");
  dir.WriteFile("a/x.c");
  std::filesystem::create_directory_symlink("..", dir / "a/back");
  it.SetRecurse(true);
  EXPECT_TRUE(Run(dir / "*.c").Result);
  EXPECT_EQ((Lines{dir / "top.c", dir / "a/x.c"}), seen);
}

// A directory that cannot be read fails the search, with the system's reason.
TEST_F(FileIteratorTest, ADirectoryThatCannotBeReadFailsTheSearch) {
  std::filesystem::create_directory_symlink("self", dir / "self");
  std::vector<std::pair<std::string, std::string>> rows = {{"self", "Too many levels of symbolic links"}};
  dir.MakeDir("locked");
  std::filesystem::permissions(dir / "locked", std::filesystem::perms::none);
  std::error_code denied;
  std::filesystem::directory_iterator(dir / "locked", denied);
  if (denied) rows.emplace_back("locked", "Permission denied");  // not when root runs the tests
  for (const auto& [name, reason] : rows) {
    host.Lines.clear();
    it.FileSpec = dir / name + "/*.txt";
    EXPECT_FALSE(it.Execute());
    EXPECT_EQ((Lines{"Searching for Files...", "Error while searching for files : " + reason}), host.Lines);
  }
  std::filesystem::permissions(dir / "locked", std::filesystem::perms::owner_all);
}

}  // namespace
}  // namespace jx
