#include "actions/files/jxmovedirectoryaction.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "actions/files/fileactiontest.h"
#include "support/tempdir.h"

namespace jx {
namespace {

namespace fs = std::filesystem;
using test::Outcome;

Outcome Move(const std::string& from, const std::string& to, const std::map<std::string, Variant>& variables = {}) {
  return test::RunWith<TJXMoveDirectoryAction>({{"Directory", from}, {"DestinationDirectory", to}}, variables);
}

TEST(MoveDirectory, MovesTheDirectoryWithItsContentsButNotOntoAnother) {
  test::TempDir dir;
  dir.WriteFile("src/sub/a.txt", "A");
  dir.MakeDir("taken");
  const std::string src = dir / "src", dst = dir / "dst";
  EXPECT_EQ(Outcome(false, {"Error moving Directory : " + src + " - to : " + (dir / "taken"), "Error : File exists"}),
            Move(src, dir / "taken"));
  EXPECT_EQ(Outcome(true, {"Directory : " + src + " - moved to : " + dst}),
            Move("%D%/src", "%D%/dst", {{"D", dir.Path()}}));
  EXPECT_FALSE(fs::exists(src));
  EXPECT_EQ("A", test::ReadFile(dir / "dst/sub/a.txt"));
}

// Either path failing to expand, or expanding to nothing, ends the action
// with the host's one line; nothing moves.
TEST(MoveDirectory, ExpansionFailuresAreReportedByTheHost) {
  test::TempDir dir;
  const std::string src = dir.MakeDir("src"), dst = dir / "dst";
  const std::map<std::string, Variant> empty{{"EMPTY", std::string()}};
  EXPECT_EQ(Outcome(false, {"Unable to expand Directory : Variable \"MISSING\" is not defined"}),
            Move("%MISSING%", dst));
  EXPECT_EQ(Outcome(false, {"Unable to expand Directory : the expanded text is empty"}), Move("%EMPTY%", dst, empty));
  EXPECT_EQ(Outcome(false, {"Unable to expand DestinationDirectory : the expanded text is empty"}),
            Move(src, "%EMPTY%", empty));
  EXPECT_TRUE(fs::is_directory(src));
  EXPECT_FALSE(fs::exists(dst));
}

}  // namespace
}  // namespace jx
