#include "actions/files/jxmovedirectoryaction.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/recordinghost.h"
#include "support/tempdir.h"

namespace jx {
namespace {

namespace fs = std::filesystem;
using test::Hosted;
using test::RecordingValidation;
using test::TempDir;
using Lines = std::vector<std::string>;

class MoveDirectoryTest : public ::testing::Test {
 protected:
  bool Run(const std::string& from, const std::string& to) {
    h.Action.SetDirectory(from);
    h.Action.SetDestinationDirectory(to);
    return h.Action.Execute();
  }

  TempDir dir;
  Hosted<TJXMoveDirectoryAction> h;
};

TEST_F(MoveDirectoryTest, StaticDescriptionsAndBothRulesChecked) {
  EXPECT_EQ("Move Directory", h.Action.GetActionName());
  EXPECT_EQ("Plugins\\MoveDirectory.html", h.Action.GetQuickHelpFilename());
  EXPECT_EQ(3110, h.Action.GetHelpTopicID());
  RecordingValidation errors;
  EXPECT_FALSE(h.Action.Validate(errors));
  EXPECT_EQ((Lines{"Source directory: A source directory has not been specified",
                   "Destination directory: A destination directory has not been specified"}),
            errors.Errors);
}

TEST_F(MoveDirectoryTest, MovesTheDirectoryWithItsContents) {
  dir.WriteFile("src/sub/a.txt", "A");
  h.Host.Variables["D"] = dir.Path();
  EXPECT_TRUE(Run("%D%/src", "%D%/dst"));
  EXPECT_EQ((Lines{"Directory : " + (dir / "src") + " - moved to : " + (dir / "dst")}), h.Host.Lines);
  EXPECT_FALSE(fs::exists(dir / "src"));
  EXPECT_EQ("A", test::ReadFile(dir / "dst/sub/a.txt"));
}

TEST_F(MoveDirectoryTest, ExistingDestinationFailsWithTwoLines) {
  dir.WriteFile("src/a.txt");
  dir.MakeDir("dst");
  EXPECT_FALSE(Run(dir / "src", dir / "dst"));
  EXPECT_EQ((Lines{"Error moving Directory : " + (dir / "src") + " - to : " + (dir / "dst"), "Error : File exists"}),
            h.Host.Lines);
  EXPECT_TRUE(fs::exists(dir / "src/a.txt"));
}

TEST_F(MoveDirectoryTest, ExpansionFailureIsReportedByTheHost) {
  dir.MakeDir("src");
  EXPECT_FALSE(Run(dir / "src", "%MISSING%"));
  EXPECT_EQ((Lines{"Unable to expand DestinationDirectory : Variable \"MISSING\" is not defined"}), h.Host.Lines);
  EXPECT_TRUE(fs::exists(dir / "src"));
}

}  // namespace
}  // namespace jx
