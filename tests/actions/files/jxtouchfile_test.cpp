#include "actions/files/jxtouchfile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/attributes.h"
#include "platform/clock.h"
#include "platform/filetime.h"
#include "platform/localeinfo.h"
#include "rtl/formatdatetime.h"
#include "support/actiontest.h"
#include "support/recordinghost.h"
#include "support/tempdir.h"

namespace jx {
namespace {

using test::Hosted;
using test::RecordingValidation;
using test::TempDir;
using Lines = std::vector<std::string>;

const TDateTime kFileTime = EncodeDateTime(2001, 5, 6, 10, 11, 12, 0);
const TDateTime kTouchTime = EncodeDateTime(2020, 1, 2, 3, 4, 5, 0);

class TouchFilesTest : public ::testing::Test {
 protected:
  TouchFilesTest() { h.Action.SetDateTime(kTouchTime); }

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
    h.Action.SetFileSpec(spec);
    return h.Action.Execute();
  }

  TempDir dir;
  Hosted<TTouchFilesAction> h;
};

TEST_F(TouchFilesTest, DefaultsAndStaticDescriptions) {
  const TDateTime before = Now();
  TTouchFilesAction a;
  EXPECT_GE(a.DateTime(), before);
  EXPECT_LE(a.DateTime(), Now());
  EXPECT_TRUE(a.TouchDate());
  EXPECT_TRUE(a.TouchTime());
  EXPECT_FALSE(a.TouchReadOnly());
  EXPECT_FALSE(a.Recurse());
  EXPECT_FALSE(a.UseNow());
  EXPECT_EQ("Touch File(s)", a.GetActionName());
  EXPECT_EQ("Plugins\\TouchFiles.html", a.GetQuickHelpFilename());
  EXPECT_EQ(980, a.GetHelpTopicID());

  TStringList hidden;
  a.GetHiddenProperties(hidden);
  EXPECT_EQ((Lines{"DateTime", "FileCount", "DateTimeAsString"}), hidden.Lines());
}

TEST_F(TouchFilesTest, PublishedTableStoresOnlyTheSettings) {
  const TJXClassInfo& info = TTouchFilesAction::ClassInfo();
  std::vector<std::string> stored, not_stored;
  for (const TPropertyInfo& p : info.Properties) (p.Stored ? stored : not_stored).push_back(p.Name);
  EXPECT_EQ((Lines{"DateTime", "FileSpec", "TouchDate", "TouchTime", "TouchReadOnly", "Recurse", "UseNow"}), stored);
  EXPECT_EQ((Lines{"DateTimeString", "FileCount", "DateTimeAsString"}), not_stored);
  EXPECT_TRUE(info.FindProperty("FileCount")->ReadOnly);
}

// The text is "c" in the user's settings, whatever the machine's locale is;
// text in that form sets DateTime, any other text changes nothing.
TEST_F(TouchFilesTest, DateTimeAsStringIsTheUsersShortDateAndLongTime) {
  const TFormatSettings& user = LocaleFormatSettings();
  EXPECT_EQ(FormatDateTime("c", kTouchTime, user), h.Action.DateTimeAsString());

  const TDateTime evening = EncodeDateTime(1999, 12, 31, 23, 59, 58, 0);
  h.Action.SetDateTimeAsString(FormatDateTime("c", evening, user));
  EXPECT_EQ(evening, h.Action.DateTime());
  const TDateTime midnight = EncodeDate(2001, 2, 3);  // "c" leaves a zero time out
  h.Action.SetDateTimeAsString(FormatDateTime("c", midnight, user));
  EXPECT_EQ(midnight, h.Action.DateTime());

  for (const char* text : {"", "tomorrow", "13/13/2001", "2001-02-03T04:05:06"}) {
    h.Action.SetDateTimeAsString(text);
    EXPECT_EQ(midnight, h.Action.DateTime()) << text;
  }
}

TEST_F(TouchFilesTest, ValidateChecksTheStoredSpec) {
  RecordingValidation errors;
  EXPECT_FALSE(h.Action.Validate(errors));
  EXPECT_EQ((Lines{"File Spec: File spec has not been set"}), errors.Errors);
}

// A file of 2001-05-06 10:11:12 touched with 2020-01-02 03:04:05: the packed
// FAT time keeps even seconds.
TEST_F(TouchFilesTest, DateTimeOrBothWithTwoSecondResolution) {
  struct Row {
    bool Date, Time;
    const char* Expected;
  };
  for (const Row& row : {Row{true, false, "2020-01-02T10:11:12"}, Row{false, true, "2001-05-06T03:04:04"},
                         Row{true, true, "2020-01-02T03:04:04"}}) {
    const std::string file = OldFile("a.txt");
    h.Action.SetTouchDate(row.Date);
    h.Action.SetTouchTime(row.Time);
    h.Host.Blocks.clear();
    EXPECT_TRUE(Run(dir / "*.txt"));
    EXPECT_EQ(row.Expected, TimeOf(file));
    EXPECT_EQ((std::vector<Lines>{{"Processed : 1 File(s)"}}), h.Host.Blocks);
  }
  EXPECT_EQ(1, h.Action.FileCount());
}

TEST_F(TouchFilesTest, YearBefore1980LeavesTheTimeButCountsTheFile) {
  const std::string file = OldFile("a.txt");
  h.Action.SetDateTime(EncodeDateTime(1975, 1, 1, 0, 0, 0, 0));
  EXPECT_TRUE(Run(dir / "*.txt"));
  EXPECT_EQ("2001-05-06T10:11:12", TimeOf(file));
  EXPECT_EQ(1, h.Action.FileCount());
}

TEST_F(TouchFilesTest, ReadOnlyFileIsSkippedUnlessAllowedAndStaysReadOnly) {
  const std::string file = OldFile("ro.txt");
  ::chmod(file.c_str(), 0444);

  EXPECT_TRUE(Run(dir / "*.txt"));
  EXPECT_EQ("2001-05-06T10:11:12", TimeOf(file));
  EXPECT_EQ((Lines{"Processed : 0 File(s)"}), h.Host.Lines);

  h.Host.Lines.clear();
  h.Action.SetTouchReadOnly(true);
  EXPECT_TRUE(Run(dir / "*.txt"));
  EXPECT_EQ("2020-01-02T03:04:04", TimeOf(file));
  EXPECT_EQ((Lines{"Processed : 1 File(s)"}), h.Host.Lines);
  EXPECT_NE(0u, FileGetAttr(file) & faReadOnly);
}

TEST_F(TouchFilesTest, NothingToDoWithBothFlagsFalse) {
  const std::string file = OldFile("a.txt");
  h.Action.SetTouchDate(false);
  h.Action.SetTouchTime(false);
  EXPECT_FALSE(Run(dir / "*.txt"));
  EXPECT_EQ((std::vector<Lines>{{" Touch Date and TouchTime are not set, nothing to do"}}), h.Host.Blocks);
  EXPECT_EQ("2001-05-06T10:11:12", TimeOf(file));
}

TEST_F(TouchFilesTest, BlankExpansionIsReported) {
  h.Host.Variables["NONE"] = std::string();
  EXPECT_FALSE(Run("%NONE%"));
  EXPECT_EQ((Lines{"File Spec is blank!"}), h.Host.Lines);
}

TEST_F(TouchFilesTest, UseNowRewritesTheStoredDateTimeAtEveryRun) {
  const std::string file = OldFile("a.txt");
  h.Action.SetUseNow(true);
  const TDateTime before = Now();
  EXPECT_TRUE(Run(dir / "*.txt"));
  const TDateTime first = h.Action.DateTime();
  EXPECT_GE(first, before);
  EXPECT_EQ(DateTimeToISO(first).substr(0, 10), TimeOf(file).substr(0, 10));

  h.Action.SetDateTime(kTouchTime);
  EXPECT_TRUE(Run(dir / "*.txt"));
  EXPECT_GE(h.Action.DateTime(), first);
}

TEST_F(TouchFilesTest, RecurseSkipsHiddenEntriesAndOtherMasks) {
  const std::string top = OldFile("x.txt");
  const std::string deep = OldFile("sub/deeper/y.txt");
  const std::string other = OldFile("sub/y.log");
  const std::string hidden_file = OldFile(".h.txt");
  const std::string in_hidden_dir = OldFile(".git/z.txt");
  h.Action.SetRecurse(true);

  EXPECT_TRUE(Run(dir / "*.txt"));
  EXPECT_EQ((Lines{"Processed : 2 File(s)"}), h.Host.Lines);
  EXPECT_EQ("2020-01-02T03:04:04", TimeOf(top));
  EXPECT_EQ("2020-01-02T03:04:04", TimeOf(deep));
  for (const std::string& untouched : {other, hidden_file, in_hidden_dir}) {
    EXPECT_EQ("2001-05-06T10:11:12", TimeOf(untouched)) << untouched;
  }
}

// A pipe cannot be opened for writing without a reader: the file that fails.
TEST_F(TouchFilesTest, FailureAboveASucceedingSubdirectoryEndsInSuccess) {
  ASSERT_EQ(0, ::mkfifo((dir / "a.pipe").c_str(), 0644));
  const std::string below = OldFile("sub/b.pipe");

  EXPECT_FALSE(Run(dir / "*.pipe"));
  EXPECT_EQ((Lines{"Error touching File : " + (dir / "a.pipe"), "Processed : 0 File(s)"}), h.Host.Lines);

  h.Host.Lines.clear();
  h.Action.SetRecurse(true);
  EXPECT_TRUE(Run(dir / "*.pipe"));
  EXPECT_EQ((Lines{"Error touching File : " + (dir / "a.pipe"), "Processed : 1 File(s)"}), h.Host.Lines);
  EXPECT_EQ("2020-01-02T03:04:04", TimeOf(below));
}

// A spec without directory part is read in the working directory, and so is
// its recursion; neither looks at the root.
TEST_F(TouchFilesTest, BareSpecMeansTheWorkingDirectory) {
  OldFile("a.txt");
  const std::string deep = OldFile("sub/b.txt");
  test::CurrentDirScope cwd(dir.Path());
  EXPECT_TRUE(Run("a.txt"));
  ASSERT_EQ((Lines{"Processed : 1 File(s)"}), h.Host.Lines);  // else the recursion might walk the root
  h.Action.SetRecurse(true);
  EXPECT_TRUE(Run("*.txt"));
  EXPECT_EQ("Processed : 2 File(s)", h.Host.Lines.back());
  EXPECT_EQ("2020-01-02T03:04:04", TimeOf(deep));
}

}  // namespace
}  // namespace jx
