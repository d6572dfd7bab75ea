#include "actions/files/jxmovedirectoryaction.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/actiontest.h"

namespace jx {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

class MoveDirectoryTest : public test::ActionTest<TJXMoveDirectoryAction> {
 protected:
  bool Run(const std::string& from, const std::string& to) {
    host.Lines.clear();
    action.SetDirectory(from);
    action.SetDestinationDirectory(to);
    return action.Execute();
  }
};

TEST_F(MoveDirectoryTest, BothRulesAreChecked) {
  test::RecordingValidation errors;
  EXPECT_FALSE(action.Validate(errors));
  EXPECT_EQ((Lines{"Source directory: A source directory has not been specified",
                   "Destination directory: A destination directory has not been specified"}),
            errors.Errors);
}

TEST_F(MoveDirectoryTest, MovesTheDirectoryWithItsContents) {
  dir.WriteFile("src/sub/a.txt", "A");
  host.Variables["D"] = dir.Path();
  EXPECT_TRUE(Run("%D%/src", "%D%/dst"));
  EXPECT_EQ((Lines{"Directory : " + (dir / "src") + " - moved to : " + (dir / "dst")}), host.Lines);
  EXPECT_FALSE(fs::exists(dir / "src"));
  EXPECT_EQ("A", test::ReadFile(dir / "dst/sub/a.txt"));
}

TEST_F(MoveDirectoryTest, ExistingDestinationFailsWithTwoLines) {
  dir.WriteFile("src/a.txt");
  dir.MakeDir("dst");
  EXPECT_FALSE(Run(dir / "src", dir / "dst"));
  EXPECT_EQ((Lines{"Error moving Directory : " + (dir / "src") + " - to : " + (dir / "dst"), "Error : File exists"}),
            host.Lines);
  EXPECT_TRUE(fs::exists(dir / "src/a.txt"));
}

// Either path failing to expand, or expanding to nothing, ends the action
// with the host's one line; nothing moves.
TEST_F(MoveDirectoryTest, ExpansionFailuresAreReportedByTheHost) {
  const std::string src = dir.MakeDir("src");
  host.Variables["EMPTY"] = std::string();
  struct Row {
    std::string From, To, Line;
  };
  const Row rows[] = {
      {"%MISSING%", dir / "dst", "Unable to expand Directory : Variable \"MISSING\" is not defined"},
      {"%EMPTY%", dir / "dst", "Unable to expand Directory : the expanded text is empty"},
      {src, "%EMPTY%", "Unable to expand DestinationDirectory : the expanded text is empty"},
  };
  for (const Row& row : rows) {
    EXPECT_FALSE(Run(row.From, row.To));
    EXPECT_EQ(Lines{row.Line}, host.Lines);
  }
  EXPECT_TRUE(fs::is_directory(src));
  EXPECT_FALSE(fs::exists(dir / "dst"));
}

}  // namespace
}  // namespace jx
