#include "actions/interactive/jxdatetimeaction.h"

#include <gtest/gtest.h>

#include "platform/clock.h"
#include "rtl/formatdatetime.h"
#include "support/recordinghost.h"

namespace jx {
namespace {

using test::Hosted;
using test::RecordingValidation;
using Lines = std::vector<std::string>;

// The patterns below use no names and no separators, so the results do not
// depend on the machine's locale.
class DateTimeActionTest : public ::testing::Test {
 protected:
  DateTimeActionTest() {
    h.Action.TheDate = EncodeDateTime(2026, 11, 15, 14, 5, 9, 7);
    h.Action.JXVariable = "STAMP";
  }
  Hosted<TDateTimeAction> h;
};

// A new action holds its moment of creation, and needs nothing to be valid.
TEST_F(DateTimeActionTest, ANewActionHoldsItsMomentOfCreation) {
  const TDateTime before = Now();
  TDateTimeAction a;
  EXPECT_LE(before, a.TheDate);
  EXPECT_GE(Now(), a.TheDate);
  RecordingValidation errors;
  EXPECT_TRUE(a.Validate(errors));
  EXPECT_TRUE(errors.Errors.empty());
}

TEST_F(DateTimeActionTest, DefaultPatternGivesEightDigitsDayFirst) {
  EXPECT_TRUE(h.Action.Execute());
  EXPECT_EQ(Variant("15112026"), h.Host.Variables["STAMP"]);
  EXPECT_EQ((std::vector<Lines>{{"Set Variable \"STAMP\" to \"15112026\""}}), h.Host.Blocks);
}

TEST_F(DateTimeActionTest, TheVariableIsNamedAsWrittenNotAsExpanded) {
  h.Host.Variables["NAME"] = std::string("TARGET");
  h.Action.JXVariable = "%NAME%";
  EXPECT_TRUE(h.Action.Execute());
  EXPECT_EQ(Variant("15112026"), h.Host.Variables["%NAME%"]);
  EXPECT_EQ(0u, h.Host.Variables.count("TARGET"));
  EXPECT_EQ((Lines{"Set Variable \"%NAME%\" to \"15112026\""}), h.Host.Lines);
}

TEST_F(DateTimeActionTest, BlankNameOrPatternFailsAtRunTime) {
  h.Host.Variables["BLANK"] = std::string("  ");
  for (const char* name : {"", "   ", "%BLANK%"}) {
    h.Action.JXVariable = name;
    EXPECT_FALSE(h.Action.Execute()) << name;
  }
  h.Action.JXVariable = "STAMP";
  h.Action.DateFormat = " \t";
  EXPECT_FALSE(h.Action.Execute());
  EXPECT_EQ((Lines{"Variable name must be specified!", "Variable name must be specified!",
                   "Variable name must be specified!", "A Date Format must be specified!"}),
            h.Host.Lines);
  EXPECT_EQ(1u, h.Host.Variables.size());
}

TEST_F(DateTimeActionTest, ExpansionErrorsNameTheProperty) {
  h.Action.JXVariable = "%MISSING%";
  EXPECT_FALSE(h.Action.Execute());
  h.Action.JXVariable = "STAMP";
  h.Action.DateFormat = "dd%NOFMT%";
  EXPECT_FALSE(h.Action.Execute());
  EXPECT_EQ((std::vector<Lines>{
                {"Error Expanding String property (JX Variable) : Variable \"MISSING\" is not defined"},
                {"Error Expanding String property (DateFormat) : Variable \"NOFMT\" is not defined"}}),
            h.Host.Blocks);
  EXPECT_TRUE(h.Host.Variables.empty());
}

// The host helper wraps the whole pattern in double quotes, which the pattern
// language reads as literal text.
TEST_F(DateTimeActionTest, ForceSeparatorsQuotesThePattern) {
  h.Action.DateFormat = "yyyy mm";
  h.Action.ForceSeparators = true;
  EXPECT_TRUE(h.Action.Execute());
  EXPECT_EQ(Variant("yyyy mm"), h.Host.Variables["STAMP"]);
}

TEST_F(DateTimeActionTest, UseNowFormatsTheMomentOfTheRun) {
  h.Action.DateFormat = "yyyymmdd";
  h.Action.TheDate = EncodeDateTime(2001, 2, 3, 0, 0, 0, 0);
  h.Action.UseNow = true;
  const std::string before = FormatDateTime("yyyymmdd", Now(), ClassicFormatSettings());
  EXPECT_TRUE(h.Action.Execute());
  const std::string after = FormatDateTime("yyyymmdd", Now(), ClassicFormatSettings());
  const std::string stamp = h.Host.Variables["STAMP"].ToString();
  EXPECT_TRUE(stamp == before || stamp == after) << stamp;
  EXPECT_NE("20010203", stamp);
}

}  // namespace
}  // namespace jx
