// Touch File(s) and Set File Attributes: the time or the attributes of the
// files of a spec, changed.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>

#include "actions/files/fileactiontest.h"
#include "actions/files/jxfileattrib.h"
#include "actions/files/jxtouchfile.h"
#include "platform/attributes.h"
#include "platform/clock.h"
#include "platform/filetime.h"
#include "platform/localeinfo.h"
#include "rtl/formatdatetime.h"

namespace jx {
namespace {

using test::Outcome;

const TDateTime kFileTime = EncodeDateTime(2001, 5, 6, 10, 11, 12, 0);
const std::string kOld = "2001-05-06T10:11:12";
const std::string kTouched = "2020-01-02T03:04:04";  // 03:04:05: the packed FAT time keeps even seconds

class TouchFilesTest : public test::FileActionTest<TTouchFilesAction> {
 protected:
  TouchFilesTest() { action.SetDateTime(EncodeDateTime(2020, 1, 2, 3, 4, 5, 0)); }
  std::string OldFile(const std::string& name) {
    const std::string path = dir.WriteFile(name);
    EXPECT_TRUE(FileSetDate(path, kFileTime));
    return path;
  }
  static std::string TimeOf(const std::string& path) {
    TDateTime value = 0;
    EXPECT_TRUE(FileGetDate(path, value));
    return DateTimeToISO(value);
  }
};

// DateTime as "c" in the user's settings, whatever the machine's locale is;
// other text changes nothing. The editor of the "Edit..." placeholder works
// on that text.
TEST_F(TouchFilesTest, DateTimeAsTextAndItsEditor) {
  const TPropertyInfo& placeholder = *TTouchFilesAction::ClassInfo().FindProperty("DateTimeString");
  const std::string text = FormatDateTime("c", kFileTime, LocaleFormatSettings());
  for (const std::string& typed : {text, std::string("tomorrow"), std::string("2001-02-03T04:05:06")}) {
    TTouchFilesDateEditor.SetEditText(action, placeholder, typed);
    EXPECT_EQ(kFileTime, action.DateTime()) << typed;
  }
  EXPECT_EQ(text, TTouchFilesDateEditor.GetEditText(action, placeholder));
  EXPECT_EQ("Edit...", placeholder.GetText(action));
}

// A year the packed FAT time cannot hold leaves the file's time, but counts.
TEST_F(TouchFilesTest, DateTimeOrBothWithTwoSecondResolution) {
  const std::tuple<const char*, const char*, const char*, std::string> rows[] = {
      {"True", "False", "2020-01-02T03:04:05", "2020-01-02T10:11:12"},
      {"False", "True", "2020-01-02T03:04:05", "2001-05-06T03:04:04"},
      {"True", "True", "2020-01-02T03:04:05", kTouched},
      {"True", "True", "1975-01-01T00:00:00", kOld},
  };
  for (const auto& [date, time, value, expected] : rows) {
    const std::string file = OldFile("a.txt");
    EXPECT_EQ(Outcome(true, {"Processed : 1 File(s)"}),
              Run({{"FileSpec", dir / "*.txt"}, {"TouchDate", date}, {"TouchTime", time}, {"DateTime", value}}));
    EXPECT_EQ(expected, TimeOf(file));
  }
}

TEST_F(TouchFilesTest, ReadOnlyFileIsSkippedUnlessAllowedAndStaysReadOnly) {
  const std::string file = OldFile("ro.txt");
  ::chmod(file.c_str(), 0444);
  EXPECT_EQ(Outcome(true, {"Processed : 0 File(s)"}), Run({{"FileSpec", dir / "*.txt"}}));
  EXPECT_EQ(kOld, TimeOf(file));
  EXPECT_EQ(Outcome(true, {"Processed : 1 File(s)"}), Run({{"TouchReadOnly", "True"}}));
  EXPECT_EQ(kTouched, TimeOf(file));
  EXPECT_NE(0u, FileGetAttr(file) & faReadOnly);
}

TEST_F(TouchFilesTest, NothingToDoOrABlankSpecFails) {
  const std::string file = OldFile("a.txt");
  host.Variables["NONE"] = std::string();
  EXPECT_EQ(Outcome(false, {"File Spec is blank!"}), Run({{"FileSpec", "%NONE%"}}));
  EXPECT_EQ(Outcome(false, {" Touch Date and TouchTime are not set, nothing to do"}),
            Run({{"FileSpec", dir / "*.txt"}, {"TouchDate", "False"}, {"TouchTime", "False"}}));
  EXPECT_EQ(kOld, TimeOf(file));
}

// A new action holds the moment it was made; UseNow takes the moment of the run.
TEST_F(TouchFilesTest, UseNowRewritesTheStoredDateTimeAtEveryRun) {
  const std::string file = OldFile("a.txt");
  const TDateTime before = Now();
  EXPECT_LE(before, TTouchFilesAction().DateTime());
  EXPECT_TRUE(Run({{"FileSpec", dir / "*.txt"}, {"UseNow", "True"}}).first);
  EXPECT_LE(before, action.DateTime());
  EXPECT_EQ(DateTimeToISO(action.DateTime()).substr(0, 10), TimeOf(file).substr(0, 10));
}

// A spec without directory part is read in the working directory, and so is
// its recursion, which passes by hidden entries and other names.
TEST_F(TouchFilesTest, RecurseFromTheWorkingDirectory) {
  const std::string top = OldFile("x.txt"), deep = OldFile("sub/deeper/y.txt");
  const std::string other = OldFile("sub/y.log"), hidden = OldFile(".h.txt"), in_hidden = OldFile(".git/z.txt");
  test::CurrentDirScope cwd(dir.Path());
  // Else the recursion below might walk the root.
  ASSERT_EQ(Outcome(true, {"Processed : 1 File(s)"}), Run({{"FileSpec", "x.txt"}}));
  EXPECT_EQ(Outcome(true, {"Processed : 2 File(s)"}), Run({{"FileSpec", "*.txt"}, {"Recurse", "True"}}));
  for (const std::string& touched : {top, deep}) EXPECT_EQ(kTouched, TimeOf(touched)) << touched;
  for (const std::string& untouched : {other, hidden, in_hidden}) EXPECT_EQ(kOld, TimeOf(untouched)) << untouched;
}

// A pipe cannot be opened for writing without a reader: the file that fails.
TEST_F(TouchFilesTest, FailureAboveASucceedingSubdirectoryEndsInSuccess) {
  ASSERT_EQ(0, ::mkfifo((dir / "a.pipe").c_str(), 0644));
  const std::string below = OldFile("sub/b.pipe"), failure = "Error touching File : " + (dir / "a.pipe");
  EXPECT_EQ(Outcome(false, {failure, "Processed : 0 File(s)"}), Run({{"FileSpec", dir / "*.pipe"}}));
  EXPECT_EQ(Outcome(true, {failure, "Processed : 1 File(s)"}), Run({{"Recurse", "True"}}));
  EXPECT_EQ(kTouched, TimeOf(below));
}

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
