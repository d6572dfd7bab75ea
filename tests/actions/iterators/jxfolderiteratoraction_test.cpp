#include "actions/iterators/jxfolderiteratoraction.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <utility>

#include "support/looprunner.h"
#include "support/recordinghost.h"
#include "support/tempdir.h"

namespace jx {
namespace {

using test::Hosted;
using test::RunLoop;
using test::TempDir;
using Lines = std::vector<std::string>;

class FolderIteratorTest : public ::testing::Test {
 protected:
  FolderIteratorTest() {
    h.Action.VariableName = "DIR";
    h.Action.StartingFolder = dir.Path();
    for (const char* name : {"a/a1", "b", ".hidden"}) dir.MakeDir(name);
    dir.WriteFile("file");
  }
  test::LoopRun Run() {
    return RunLoop(h.Action, [&] {
      seen.push_back(h.Host.Variables["DIR"].ToString());
      index_in_children.push_back(h.Action.ItemIndex());
    });
  }

  TempDir dir;
  Hosted<TFolderIterator> h;
  Lines seen;
  std::vector<int> index_in_children;
};

// Depth-first pre-order; the order of siblings is the file system's.
TEST_F(FolderIteratorTest, RecurseListsEachFolderBeforeTheFoldersBelowIt) {
  h.Action.SetRecurse(true);
  const test::LoopRun run = Run();
  EXPECT_EQ(3, run.ChildPasses);
  EXPECT_EQ((std::vector<int>{2, 3, 4}), index_in_children);
  const Lines a_first = {dir / "a", dir / "a/a1", dir / "b"};
  const Lines b_first = {dir / "b", dir / "a", dir / "a/a1"};
  EXPECT_TRUE(seen == a_first || seen == b_first) << seen.size();
  ASSERT_EQ(3u, h.Host.Lines.size());
  EXPECT_EQ("Searching for Folders...", h.Host.Lines[0]);
  EXPECT_EQ("Found 3 Folders", h.Host.Lines[1]);
}

TEST_F(FolderIteratorTest, BareNamesWithoutThePath) {
  h.Action.SetIncludeFolderPath(false);
  Run();
  std::sort(seen.begin(), seen.end());
  EXPECT_EQ((Lines{"a", "b"}), seen);
}

// The host reports a folder that does not expand, or expands to nothing (which
// would otherwise list the root); nothing is searched, and the children still
// run once, with the variable as it was, before the loop ends.
TEST_F(FolderIteratorTest, AFolderThatDoesNotExpandGivesOnePassWithoutSearching) {
  h.Host.Variables["EMPTY"] = std::string();
  const std::pair<const char*, const char*> rows[] = {
      {"%MISSING%", "Unable to expand Starting Folder : Variable \"MISSING\" is not defined"},
      {"%EMPTY%", "Unable to expand Starting Folder : the expanded text is empty"}};
  for (const auto& [folder, message] : rows) {
    h.Host.Variables["DIR"] = std::string("before");
    h.Host.Lines.clear();
    seen.clear();
    h.Action.StartingFolder = folder;
    const test::LoopRun run = Run();
    EXPECT_TRUE(run.Result);
    EXPECT_EQ((std::vector<int>{1, 3}), run.Answers);
    EXPECT_EQ((Lines{"before"}), seen);
    EXPECT_EQ((Lines{message}), h.Host.Lines);
  }
}

TEST_F(FolderIteratorTest, ValidationAndTheVariableName) {
  h.Action.VariableName = "";
  EXPECT_FALSE(h.Action.Execute());
  EXPECT_EQ((Lines{"Variable Name not set"}), h.Host.Lines);

  test::RecordingValidation errors;
  EXPECT_TRUE(h.Action.Validate(errors));
  h.Action.StartingFolder = "";
  EXPECT_FALSE(h.Action.Validate(errors));
  EXPECT_EQ((Lines{"Starting Folder: A starting folder has not been set"}), errors.Errors);
}

TEST_F(FolderIteratorTest, CoupledOptionsAndHiddenResults) {
  TFolderIterator a;
  EXPECT_FALSE(a.Recurse());
  EXPECT_TRUE(a.IncludeFolderPath());
  a.SetRecurse(true);
  a.SetIncludeFolderPath(false);
  EXPECT_FALSE(a.Recurse());
  a.SetRecurse(true);
  EXPECT_TRUE(a.IncludeFolderPath());
  TStringList hidden;
  a.GetHiddenProperties(hidden);
  EXPECT_EQ((Lines{"FolderIndex", "FolderCount"}), hidden.Lines());
}

// A link back up the tree is listed, but not walked again.
TEST_F(FolderIteratorTest, ALinkBackUpTheTreeIsNotWalkedAgain) {
  std::filesystem::create_directory_symlink("../..", dir / "a/a1/up");
  h.Action.SetRecurse(true);
  EXPECT_TRUE(Run().Result);
  const Lines a_first = {dir / "a", dir / "a/a1", dir / "a/a1/up", dir / "b"};
  const Lines b_first = {dir / "b", dir / "a", dir / "a/a1", dir / "a/a1/up"};
  EXPECT_TRUE(seen == a_first || seen == b_first) << seen.size();
}

TEST_F(FolderIteratorTest, AFolderThatCannotBeReadFailsTheSearch) {
  std::filesystem::create_directory_symlink("self", dir / "self");
  h.Action.StartingFolder = dir / "self";
  EXPECT_FALSE(h.Action.Execute());
  EXPECT_EQ((Lines{"Searching for Folders...", "Error while searching for folders : Too many levels of symbolic links"}),
            h.Host.Lines);
}

}  // namespace
}  // namespace jx
