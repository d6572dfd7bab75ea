#include "actions/files/jxfileattrib.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>

#include "platform/attributes.h"
#include "support/recordinghost.h"
#include "support/tempdir.h"

namespace jx {
namespace {

using test::Hosted;
using test::RecordingValidation;
using test::TempDir;
using Lines = std::vector<std::string>;

class SetFileAttributesTest : public ::testing::Test {
 protected:
  bool Run(const std::string& spec) {
    h.Action.SetFileSpec(spec);
    return h.Action.Execute();
  }
  static uint32_t Bits(const std::string& path) {
    return FileGetAttr(path) & (faReadOnly | faHidden | faSysFile | faArchive);
  }

  TempDir dir;
  Hosted<TSetFileAttributesAction> h;
};

TEST_F(SetFileAttributesTest, DefaultsAndStaticDescriptions) {
  TSetFileAttributesAction a;
  EXPECT_FALSE(a.Recurse());
  EXPECT_FALSE(a.LogAllFiles());
  EXPECT_EQ(asNone, a.ReadOnly());
  EXPECT_EQ(asNone, a.Hidden());
  EXPECT_EQ(asNone, a.SystemFile());
  EXPECT_EQ(asNone, a.Archive());
  EXPECT_EQ("Set File Attributes", a.GetActionName());
  EXPECT_EQ("Plugins\\SetFileAttributes.html", a.GetQuickHelpFilename());
  EXPECT_EQ(556, a.GetHelpTopicID());

  TStringList alias;
  a.GetPropertyAlias(alias);
  EXPECT_EQ("[Attributes]", alias[0]);
  EXPECT_EQ("[Behaviour]", alias[5]);

  RecordingValidation errors;
  EXPECT_FALSE(a.Validate(errors));
  EXPECT_EQ((Lines{"File Spec: The file spec has not been set"}), errors.Errors);
}

TEST_F(SetFileAttributesTest, SettingsReadNamesOrWordsAndSaveNames) {
  const TPropertyInfo* hidden = TSetFileAttributesAction::ClassInfo().FindProperty("Hidden");
  ASSERT_NE(nullptr, hidden);
  hidden->SetText(h.Action, "clear");
  EXPECT_EQ(asClear, h.Action.Hidden());
  hidden->SetText(h.Action, "Don't Touch");
  EXPECT_EQ(asNone, h.Action.Hidden());
  hidden->SetText(h.Action, "asSet");
  EXPECT_EQ("asSet", hidden->GetText(h.Action));
}

TEST_F(SetFileAttributesTest, NothingToDoEvenWithAValidSpec) {
  dir.WriteFile("a.txt");
  EXPECT_FALSE(Run(dir / "*.txt"));
  EXPECT_EQ((std::vector<Lines>{{"Nothing to do!"}}), h.Host.Blocks);
}

TEST_F(SetFileAttributesTest, EmptyOrBrokenSpecFails) {
  h.Action.SetArchive(asSet);
  h.Host.Variables["NONE"] = std::string();
  EXPECT_FALSE(Run("%NONE%"));
  EXPECT_FALSE(Run("%MISSING%/*"));
  EXPECT_EQ((std::vector<Lines>{{"Nothing to do!"},
                                {"Error processing File Spec : Variable \"MISSING\" is not defined"}}),
            h.Host.Blocks);
}

TEST_F(SetFileAttributesTest, ChangesOnlyTheNamedAttributes) {
  const std::string file = dir.WriteFile("a.txt");
  ASSERT_TRUE(FileSetAttr(file, faReadOnly | faSysFile));
  h.Action.SetReadOnly(asClear);
  h.Action.SetArchive(asSet);
  h.Action.SetLogAllFiles(true);

  EXPECT_TRUE(Run(dir / "*.txt"));
  EXPECT_EQ(faSysFile | faArchive, Bits(file));
  EXPECT_EQ((std::vector<Lines>{{"Processed File : " + file}}), h.Host.Blocks);
}

TEST_F(SetFileAttributesTest, SpecWithoutWildcardsTakesTheNamedFileAndSkipsADirectory) {
  const std::string named = dir.WriteFile("a.txt");
  const std::string other = dir.WriteFile("a.txt2");
  dir.MakeDir("sub");
  h.Action.SetArchive(asSet);

  EXPECT_TRUE(Run(named));
  EXPECT_EQ(faArchive, Bits(named));
  EXPECT_EQ(0u, Bits(other));

  h.Action.SetReadOnly(asSet);
  EXPECT_TRUE(Run(dir / "sub"));
  EXPECT_EQ(0u, FileGetAttr(dir / "sub") & faReadOnly);
  EXPECT_EQ((std::vector<Lines>{{}, {}}), h.Host.Blocks);
}

TEST_F(SetFileAttributesTest, RecursionProcessesHiddenFilesButNotHiddenDirectories) {
  const std::string top = dir.WriteFile("x.txt");
  const std::string hidden_file = dir.WriteFile(".h.txt");
  const std::string deep = dir.WriteFile("sub/deeper/y.txt");
  const std::string in_hidden_dir = dir.WriteFile(".git/z.txt");
  h.Action.SetReadOnly(asSet);
  h.Action.SetRecurse(true);

  EXPECT_TRUE(Run(dir / "*.txt"));
  for (const std::string& changed : {top, hidden_file, deep}) {
    EXPECT_NE(0u, FileGetAttr(changed) & faReadOnly) << changed;
  }
  EXPECT_EQ(0u, FileGetAttr(in_hidden_dir) & faReadOnly);
}

// Extended attributes are refused on a pipe: its archive bit cannot be written.
TEST_F(SetFileAttributesTest, FailureLineNamesNoFileAndTheRunGoesOn) {
  ASSERT_EQ(0, ::mkfifo((dir / "a.pipe").c_str(), 0644));
  const std::string file = dir.WriteFile("b.pipe");
  h.Action.SetArchive(asSet);
  h.Action.SetLogAllFiles(true);

  EXPECT_TRUE(Run(dir / "*.pipe"));
  Lines lines = h.Host.Lines;
  std::sort(lines.begin(), lines.end());
  EXPECT_EQ((Lines{"Error Processed File : Operation not permitted", "Processed File : " + file}), lines);
  EXPECT_EQ(faArchive, Bits(file));
}

}  // namespace
}  // namespace jx
