#include "actions/files/jxrenamefile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "support/recordinghost.h"
#include "support/tempdir.h"

namespace jx {
namespace {

namespace fs = std::filesystem;
using test::Hosted;
using test::TempDir;
using Names = std::set<std::string>;

class RenameFilesTest : public ::testing::Test {
 protected:
  bool Run(const std::string& source, const std::string& target) {
    h.Action.SetSourceSpec(source);
    h.Action.SetTargetSpec(target);
    return h.Action.Execute();
  }
  Names Entries() const {
    Names names;
    for (const auto& entry : fs::directory_iterator(dir.Path())) names.insert(entry.path().filename().string());
    return names;
  }

  TempDir dir;
  Hosted<TRenameFilesAction> h;
};

TEST_F(RenameFilesTest, StarBaseKeepsEachNameAndAlwaysReportsFailure) {
  dir.WriteFile("a.txt", "A");
  dir.WriteFile("b.txt");
  dir.WriteFile("c.log");
  EXPECT_FALSE(Run(dir / "*.txt", "*.bak"));
  EXPECT_EQ((Names{"a.bak", "b.bak", "c.log"}), Entries());
  EXPECT_EQ("A", test::ReadFile(dir / "a.bak"));
  EXPECT_TRUE(h.Host.Lines.empty());
  EXPECT_EQ("Rename File(s)", h.Action.GetActionName());
}

TEST_F(RenameFilesTest, StarExtensionAppendsFromTheFirstDot) {
  dir.WriteFile("a.b.txt");
  EXPECT_FALSE(Run(dir / "a.b.txt", "*.*"));
  EXPECT_EQ((Names{"a.b.b.txt"}), Entries());
}

TEST_F(RenameFilesTest, NameWithoutDotIsDoubled) {
  dir.WriteFile("README");
  EXPECT_FALSE(Run(dir / "README", "*.*"));
  EXPECT_EQ((Names{"READMEREADME"}), Entries());
}

TEST_F(RenameFilesTest, LiteralNameGrowsFromOneEntryToTheNext) {
  dir.WriteFile("one.src");
  dir.WriteFile("two.src");
  EXPECT_FALSE(Run(dir / "*.src", "new.txt"));
  EXPECT_EQ((Names{"new.txt", "new.txtnew.txt"}), Entries());
}

TEST_F(RenameFilesTest, MatchingDirectoriesAreRenamedToo) {
  dir.WriteFile("d.txt/inner.txt");
  EXPECT_FALSE(Run(dir / "*.txt", "*.bak"));
  EXPECT_EQ((Names{"d.bak"}), Entries());
  EXPECT_TRUE(fs::exists(dir / "d.bak/inner.txt"));
}

TEST_F(RenameFilesTest, NewNameRules) {
  std::string result;
  EXPECT_EQ("new.", h.Action.GetNewFileName("a.txt", "new", result));
  result.clear();
  EXPECT_EQ("a.", h.Action.GetNewFileName("a.txt", "*", result));
  result = "kept";
  EXPECT_EQ("keptx.bak", h.Action.GetNewFileName("a.txt", "x.bak", result));
}

TEST_F(RenameFilesTest, ExpansionErrorIsOneStatusMessage) {
  dir.WriteFile("a.txt");
  EXPECT_FALSE(Run(dir / "*.txt", "%MISSING%.bak"));
  EXPECT_EQ((std::vector<std::vector<std::string>>{{"Variable \"MISSING\" is not defined"}}), h.Host.Blocks);
  EXPECT_EQ((Names{"a.txt"}), Entries());
}

}  // namespace
}  // namespace jx
