#include "actions/files/jxfileattrib.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>

#include "platform/attributes.h"
#include "support/actiontest.h"

namespace jx {
namespace {

using Lines = std::vector<std::string>;

class SetFileAttributesTest : public test::ActionTest<TSetFileAttributesAction> {
 protected:
  bool Run(const std::string& spec) {
    action.SetFileSpec(spec);
    return action.Execute();
  }
  static uint32_t Bits(const std::string& path) {
    return FileGetAttr(path) & (faReadOnly | faHidden | faSysFile | faArchive);
  }
};

// No setting to apply, or no spec to apply it to: one line, and failure.
TEST_F(SetFileAttributesTest, NothingToDoOrNoSpecFails) {
  dir.WriteFile("a.txt");
  EXPECT_FALSE(Run(dir / "*.txt"));
  action.SetArchive(asSet);
  host.Variables["NONE"] = std::string();
  EXPECT_FALSE(Run("%NONE%"));
  EXPECT_FALSE(Run("%MISSING%/*"));
  EXPECT_EQ((std::vector<Lines>{{"Nothing to do!"}, {"Nothing to do!"},
                                {"Error processing File Spec : Variable \"MISSING\" is not defined"}}),
            host.Blocks);
  test::RecordingValidation errors;
  EXPECT_FALSE(TSetFileAttributesAction().Validate(errors));
  EXPECT_EQ(Lines{"File Spec: The file spec has not been set"}, errors.Errors);
}

// The grid shows the settings as words and reads typed words in any case.
TEST_F(SetFileAttributesTest, EditorShowsAndReadsWords) {
  const TPropertyInfo& archive = *TSetFileAttributesAction::ClassInfo().FindProperty("Archive");
  EXPECT_EQ("Don't Touch", TFileAttributeEditor.GetEditText(action, archive));
  const std::pair<const char*, TAttributeSetting> rows[] = {
      {"SET", asSet}, {"clear", asClear}, {"set", asSet}, {" Set", asNone}, {"Clear", asClear}, {"asSet", asNone}};
  for (const auto& [typed, setting] : rows) {
    TFileAttributeEditor.SetEditText(action, archive, typed);
    EXPECT_EQ(setting, action.Archive()) << typed;
  }
  EXPECT_EQ("Don't Touch", TFileAttributeEditor.GetEditText(action, archive));
  archive.SetText(action, "Clear");  // a project file may use the word too
  EXPECT_EQ("asClear", archive.GetText(action));
}

TEST_F(SetFileAttributesTest, ChangesOnlyTheNamedAttributes) {
  const std::string file = dir.WriteFile("a.txt");
  ASSERT_TRUE(FileSetAttr(file, faReadOnly | faSysFile));
  action.SetReadOnly(asClear);
  action.SetArchive(asSet);
  action.SetLogAllFiles(true);
  EXPECT_TRUE(Run(dir / "*.txt"));
  EXPECT_EQ(faSysFile | faArchive, Bits(file));
  EXPECT_EQ((std::vector<Lines>{{"Processed File : " + file}}), host.Blocks);
}

TEST_F(SetFileAttributesTest, SpecWithoutWildcardsTakesTheNamedFileAndSkipsADirectory) {
  const std::string named = dir.WriteFile("a.txt");
  const std::string other = dir.WriteFile("a.txt2");
  dir.MakeDir("sub");
  action.SetArchive(asSet);
  EXPECT_TRUE(Run(named));
  EXPECT_EQ(faArchive, Bits(named));
  EXPECT_EQ(0u, Bits(other));

  action.SetReadOnly(asSet);
  EXPECT_TRUE(Run(dir / "sub"));
  EXPECT_EQ(0u, FileGetAttr(dir / "sub") & faReadOnly);
  EXPECT_EQ((std::vector<Lines>{{}, {}}), host.Blocks);
}

TEST_F(SetFileAttributesTest, RecursionProcessesHiddenFilesButNotHiddenDirectories) {
  const std::string top = dir.WriteFile("x.txt"), hidden_file = dir.WriteFile(".h.txt");
  const std::string deep = dir.WriteFile("sub/deeper/y.txt"), in_hidden_dir = dir.WriteFile(".git/z.txt");
  action.SetReadOnly(asSet);
  action.SetRecurse(true);
  EXPECT_TRUE(Run(dir / "*.txt"));
  for (const std::string& changed : {top, hidden_file, deep}) EXPECT_NE(0u, Bits(changed) & faReadOnly) << changed;
  EXPECT_EQ(0u, Bits(in_hidden_dir) & faReadOnly);
}

// Extended attributes are refused on a pipe: its archive bit cannot be written.
TEST_F(SetFileAttributesTest, FailureLineNamesNoFileAndTheRunGoesOn) {
  ASSERT_EQ(0, ::mkfifo((dir / "a.pipe").c_str(), 0644));
  const std::string file = dir.WriteFile("b.pipe");
  action.SetArchive(asSet);
  action.SetLogAllFiles(true);
  EXPECT_TRUE(Run(dir / "*.pipe"));
  Lines lines = host.Lines;
  std::sort(lines.begin(), lines.end());
  EXPECT_EQ((Lines{"Error Processed File : Operation not permitted", "Processed File : " + file}), lines);
  EXPECT_EQ(faArchive, Bits(file));
}

}  // namespace
}  // namespace jx
