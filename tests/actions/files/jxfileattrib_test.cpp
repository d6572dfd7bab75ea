#include "actions/files/jxfileattrib.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>

#include "actions/files/fileactiontest.h"
#include "platform/attributes.h"

namespace jx {
namespace {

using test::Outcome;
using SetFileAttributesTest = test::FileActionTest<TSetFileAttributesAction>;

uint32_t Bits(const std::string& path) { return FileGetAttr(path) & (faReadOnly | faHidden | faSysFile | faArchive); }

// No setting to apply, or no spec to apply it to: one line, and failure.
TEST_F(SetFileAttributesTest, NothingToDoOrNoSpecFails) {
  host.Variables["NONE"] = std::string();
  EXPECT_EQ(Outcome(false, {"Nothing to do!"}), Run({{"FileSpec", dir / "*"}}));
  EXPECT_EQ(Outcome(false, {"Nothing to do!"}), Run({{"FileSpec", "%NONE%"}, {"Archive", "asSet"}}));
  EXPECT_EQ(Outcome(false, {"Error processing File Spec : Variable \"MISSING\" is not defined"}),
            Run({{"FileSpec", "%MISSING%/*"}}));
}

// The grid shows the settings as words and reads typed words in any case.
TEST_F(SetFileAttributesTest, EditorShowsAndReadsWords) {
  const TPropertyInfo& archive = *TSetFileAttributesAction::ClassInfo().FindProperty("Archive");
  for (const auto& [typed, setting] :
       {std::pair{"SET", asSet}, {"clear", asClear}, {" Set", asNone}, {"asSet", asNone}}) {
    TFileAttributeEditor.SetEditText(action, archive, typed);
    EXPECT_EQ(setting, action.Archive()) << typed;
  }
  EXPECT_EQ("Don't Touch", TFileAttributeEditor.GetEditText(action, archive));
  archive.SetText(action, "Clear");  // a project file may use the word too
  EXPECT_EQ("asClear", archive.GetText(action));
}

// Without wildcards only the named file is changed, and a named directory not.
TEST_F(SetFileAttributesTest, ChangesOnlyTheNamedAttributesOfTheNamedFiles) {
  const std::string file = dir.WriteFile("a.txt"), other = dir.WriteFile("a.txt2");
  dir.MakeDir("sub");
  ASSERT_TRUE(FileSetAttr(file, faReadOnly | faSysFile));
  EXPECT_EQ(Outcome(true, {"Processed File : " + file}),
            Run({{"FileSpec", file}, {"ReadOnly", "asClear"}, {"Archive", "asSet"}, {"LogAllFiles", "True"}}));
  EXPECT_EQ(faSysFile | faArchive, Bits(file));
  EXPECT_EQ(0u, Bits(other));
  EXPECT_EQ(Outcome(true, {}), Run({{"FileSpec", dir / "sub"}, {"ReadOnly", "asSet"}}));
  EXPECT_EQ(0u, Bits(dir / "sub"));
}

TEST_F(SetFileAttributesTest, RecursionProcessesHiddenFilesButNotHiddenDirectories) {
  const std::string top = dir.WriteFile("x.txt"), hidden_file = dir.WriteFile(".h.txt");
  const std::string deep = dir.WriteFile("sub/deeper/y.txt"), in_hidden_dir = dir.WriteFile(".git/z.txt");
  EXPECT_TRUE(Run({{"FileSpec", dir / "*.txt"}, {"ReadOnly", "asSet"}, {"Recurse", "True"}}).first);
  for (const std::string& changed : {top, hidden_file, deep}) EXPECT_NE(0u, Bits(changed) & faReadOnly) << changed;
  EXPECT_EQ(0u, Bits(in_hidden_dir) & faReadOnly);
}

// Extended attributes are refused on a pipe: its archive bit cannot be written.
TEST_F(SetFileAttributesTest, FailureLineNamesNoFileAndTheRunGoesOn) {
  ASSERT_EQ(0, ::mkfifo((dir / "a.pipe").c_str(), 0644));
  const std::string file = dir.WriteFile("b.pipe");
  Outcome outcome = Run({{"FileSpec", dir / "*.pipe"}, {"Archive", "asSet"}, {"LogAllFiles", "True"}});
  std::sort(outcome.second.begin(), outcome.second.end());
  EXPECT_EQ(Outcome(true, {"Error Processed File : Operation not permitted", "Processed File : " + file}), outcome);
  EXPECT_EQ(faArchive, Bits(file));
}

}  // namespace
}  // namespace jx
