#include "actions/interactive/jxdatetimeaction.h"

#include <gtest/gtest.h>

#include <tuple>

#include "rtl/formatdatetime.h"
#include "support/actiontest.h"

namespace jx {
namespace {

using DateTimeActionTest = test::ActionTest<TDateTimeAction>;

// Variable, DateFormat, ForceSeparators, result, the last log line, and what
// the variable named as written holds, or "(unset)".
using Row = std::tuple<const char*, const char*, bool, bool, const char*, const char*>;

// The patterns use no names and no separators, so the results do not depend
// on the machine's locale. The variable set is the one named as written.
TEST_F(DateTimeActionTest, FormatsTheStoredDateIntoTheVariable) {
  host.Variables = {{"NAME", Variant("TARGET")}, {"BLANK", Variant("  ")}};
  const Row rows[] = {
      {"STAMP", "ddmmyyyy", false, true, "Set Variable \"STAMP\" to \"15112026\"", "15112026"},
      {"%NAME%", "ddmmyyyy", false, true, "Set Variable \"%NAME%\" to \"15112026\"", "15112026"},
      {"STAMP", "yyyy mm", true, true, "Set Variable \"STAMP\" to \"yyyy mm\"", "yyyy mm"},  // quoted: literal
      {"", "ddmmyyyy", false, false, "Variable name must be specified!", "(unset)"},
      {"%BLANK%", "ddmmyyyy", false, false, "Variable name must be specified!", "(unset)"},
      {"STAMP", " \t", false, false, "A Date Format must be specified!", "(unset)"},
      {"%MISSING%", "ddmmyyyy", false, false,
       "Error Expanding String property (JX Variable) : Variable \"MISSING\" is not defined", "(unset)"},
      {"STAMP", "dd%NOFMT%", false, false,
       "Error Expanding String property (DateFormat) : Variable \"NOFMT\" is not defined", "(unset)"},
  };
  action.TheDate = EncodeDateTime(2026, 11, 15, 14, 5, 9, 7);
  for (const auto& [variable, pattern, force_separators, result, log, value] : rows) {
    host.Variables.erase(variable);
    action.JXVariable = variable;
    action.DateFormat = pattern;
    action.ForceSeparators = force_separators;
    EXPECT_EQ(result, action.Execute()) << variable << " " << pattern;
    EXPECT_EQ(log, host.Lines.back());
    EXPECT_EQ(value, host.Variables.count(variable) ? host.Variables[variable].ToString() : "(unset)");
  }
  EXPECT_EQ(0u, host.Variables.count("TARGET"));
}

// A new action holds its moment of creation, which UseNow replaces by the
// moment of the run; no property needs a value for it to be valid.
TEST_F(DateTimeActionTest, TheMomentOfCreationOrOfTheRun) {
  const TDateTime before = Now();
  TDateTimeAction fresh;
  EXPECT_TRUE(before <= fresh.TheDate && fresh.TheDate <= Now());
  test::RecordingValidation errors;
  EXPECT_TRUE(fresh.Validate(errors) && errors.Errors.empty());

  action.DateFormat = "yyyymmdd";
  action.TheDate = EncodeDateTime(2001, 2, 3, 0, 0, 0, 0);
  action.UseNow = true;
  action.JXVariable = "STAMP";
  const std::string today = FormatDateTime("yyyymmdd", Now(), ClassicFormatSettings());
  EXPECT_TRUE(action.Execute());
  const std::string stamp = host.Variables["STAMP"].ToString();
  EXPECT_TRUE(stamp == today || stamp == FormatDateTime("yyyymmdd", Now(), ClassicFormatSettings())) << stamp;
}

}  // namespace
}  // namespace jx
