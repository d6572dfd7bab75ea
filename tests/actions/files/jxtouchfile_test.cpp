#include "actions/files/jxtouchfile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/attributes.h"
#include "platform/clock.h"
#include "platform/filetime.h"
#include "platform/localeinfo.h"
#include "rtl/formatdatetime.h"
#include "support/actiontest.h"

namespace jx {
namespace {

using Lines = std::vector<std::string>;

const TDateTime kFileTime = EncodeDateTime(2001, 5, 6, 10, 11, 12, 0);
const TDateTime kTouchTime = EncodeDateTime(2020, 1, 2, 3, 4, 5, 0);
const std::string kOld = "2001-05-06T10:11:12";
const std::string kTouched = "2020-01-02T03:04:04";  // the packed FAT time keeps even seconds

class TouchFilesTest : public test::ActionTest<TTouchFilesAction> {
 protected:
  TouchFilesTest() { action.SetDateTime(kTouchTime); }
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
  bool Run(const std::string& spec) {
    action.SetFileSpec(spec);
    return action.Execute();
  }
};

// The text is "c" in the user's settings, whatever the machine's locale is;
// other text changes nothing. The grid's editor of the "Edit..." placeholder
// works on that text.
TEST_F(TouchFilesTest, DateTimeAsTextAndItsEditor) {
  const TFormatSettings& user = LocaleFormatSettings();
  EXPECT_EQ(FormatDateTime("c", kTouchTime, user), action.DateTimeAsString());
  const TPropertyInfo& placeholder = *TTouchFilesAction::ClassInfo().FindProperty("DateTimeString");
  const TDateTime evening = EncodeDateTime(1999, 12, 31, 23, 59, 58, 0);
  TTouchFilesDateEditor.SetEditText(action, placeholder, FormatDateTime("c", evening, user));
  EXPECT_EQ(evening, action.DateTime());
  EXPECT_EQ(FormatDateTime("c", evening, user), TTouchFilesDateEditor.GetEditText(action, placeholder));
  EXPECT_EQ("Edit...", placeholder.GetText(action));

  const TDateTime midnight = EncodeDate(2001, 2, 3);  // "c" leaves a zero time out
  action.SetDateTimeAsString(FormatDateTime("c", midnight, user));
  EXPECT_EQ(midnight, action.DateTime());
  for (const char* text : {"", "tomorrow", "13/13/2001", "2001-02-03T04:05:06"}) {
    TTouchFilesDateEditor.SetEditText(action, placeholder, text);
    EXPECT_EQ(midnight, action.DateTime()) << text;
  }
}

TEST_F(TouchFilesTest, DateTimeOrBothWithTwoSecondResolution) {
  struct Row {
    bool Date, Time;
    const char* Expected;
  };
  for (const Row& row : {Row{true, false, "2020-01-02T10:11:12"}, Row{false, true, "2001-05-06T03:04:04"},
                         Row{true, true, "2020-01-02T03:04:04"}}) {
    const std::string file = OldFile("a.txt");
    action.SetTouchDate(row.Date);
    action.SetTouchTime(row.Time);
    host.Blocks.clear();
    EXPECT_TRUE(Run(dir / "*.txt"));
    EXPECT_EQ(row.Expected, TimeOf(file));
    EXPECT_EQ((std::vector<Lines>{{"Processed : 1 File(s)"}}), host.Blocks);
  }
}

TEST_F(TouchFilesTest, YearBefore1980LeavesTheTimeButCountsTheFile) {
  const std::string file = OldFile("a.txt");
  action.SetDateTime(EncodeDateTime(1975, 1, 1, 0, 0, 0, 0));
  EXPECT_TRUE(Run(dir / "*.txt"));
  EXPECT_EQ(kOld, TimeOf(file));
  EXPECT_EQ(1, action.FileCount());
}

TEST_F(TouchFilesTest, ReadOnlyFileIsSkippedUnlessAllowedAndStaysReadOnly) {
  const std::string file = OldFile("ro.txt");
  ::chmod(file.c_str(), 0444);
  EXPECT_TRUE(Run(dir / "*.txt"));
  EXPECT_EQ(kOld, TimeOf(file));
  action.SetTouchReadOnly(true);
  EXPECT_TRUE(Run(dir / "*.txt"));
  EXPECT_EQ(kTouched, TimeOf(file));
  EXPECT_EQ((Lines{"Processed : 0 File(s)", "Processed : 1 File(s)"}), host.Lines);
  EXPECT_NE(0u, FileGetAttr(file) & faReadOnly);
}

TEST_F(TouchFilesTest, NothingToDoOrABlankSpecFails) {
  const std::string file = OldFile("a.txt");
  host.Variables["NONE"] = std::string();
  EXPECT_FALSE(Run("%NONE%"));
  action.SetTouchDate(false);
  action.SetTouchTime(false);
  EXPECT_FALSE(Run(dir / "*.txt"));
  EXPECT_EQ((Lines{"File Spec is blank!", " Touch Date and TouchTime are not set, nothing to do"}), host.Lines);
  EXPECT_EQ(kOld, TimeOf(file));
  test::RecordingValidation errors;
  EXPECT_FALSE(TTouchFilesAction().Validate(errors));
  EXPECT_EQ(Lines{"File Spec: File spec has not been set"}, errors.Errors);
}

TEST_F(TouchFilesTest, UseNowRewritesTheStoredDateTimeAtEveryRun) {
  const std::string file = OldFile("a.txt");
  action.SetUseNow(true);
  const TDateTime before = Now();
  EXPECT_TRUE(Run(dir / "*.txt"));
  const TDateTime first = action.DateTime();
  EXPECT_GE(first, before);
  EXPECT_EQ(DateTimeToISO(first).substr(0, 10), TimeOf(file).substr(0, 10));
  action.SetDateTime(kTouchTime);
  EXPECT_TRUE(Run(dir / "*.txt"));
  EXPECT_GE(action.DateTime(), first);
}

TEST_F(TouchFilesTest, RecurseSkipsHiddenEntriesAndOtherMasks) {
  const std::string top = OldFile("x.txt"), deep = OldFile("sub/deeper/y.txt");
  const std::string other = OldFile("sub/y.log"), hidden = OldFile(".h.txt"), in_hidden = OldFile(".git/z.txt");
  action.SetRecurse(true);
  EXPECT_TRUE(Run(dir / "*.txt"));
  EXPECT_EQ((Lines{"Processed : 2 File(s)"}), host.Lines);
  for (const std::string& touched : {top, deep}) EXPECT_EQ(kTouched, TimeOf(touched)) << touched;
  for (const std::string& untouched : {other, hidden, in_hidden}) EXPECT_EQ(kOld, TimeOf(untouched)) << untouched;
}

// A pipe cannot be opened for writing without a reader: the file that fails.
TEST_F(TouchFilesTest, FailureAboveASucceedingSubdirectoryEndsInSuccess) {
  ASSERT_EQ(0, ::mkfifo((dir / "a.pipe").c_str(), 0644));
  const std::string below = OldFile("sub/b.pipe");
  EXPECT_FALSE(Run(dir / "*.pipe"));
  action.SetRecurse(true);
  EXPECT_TRUE(Run(dir / "*.pipe"));
  const std::string failure = "Error touching File : " + (dir / "a.pipe");
  EXPECT_EQ((Lines{failure, "Processed : 0 File(s)", failure, "Processed : 1 File(s)"}), host.Lines);
  EXPECT_EQ(kTouched, TimeOf(below));
}

// A spec without directory part is read in the working directory, and so is
// its recursion; neither looks at the root.
TEST_F(TouchFilesTest, BareSpecMeansTheWorkingDirectory) {
  OldFile("a.txt");
  const std::string deep = OldFile("sub/b.txt");
  test::CurrentDirScope cwd(dir.Path());
  EXPECT_TRUE(Run("a.txt"));
  ASSERT_EQ((Lines{"Processed : 1 File(s)"}), host.Lines);  // else the recursion might walk the root
  action.SetRecurse(true);
  EXPECT_TRUE(Run("*.txt"));
  EXPECT_EQ("Processed : 2 File(s)", host.Lines.back());
  EXPECT_EQ(kTouched, TimeOf(deep));
}

}  // namespace
}  // namespace jx
