#include "host/actionhost.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "host/testactions.h"

namespace jx {
namespace {

class ActionHostTest : public ::testing::Test {
 protected:
  ActionHostTest() {
    variables_.Set("Out", Variant("build"));
    variables_.Set("Count", Variant(int32_t{3}));
    variables_.Set("Ratio", Variant(0.5));
    variables_.Set("Flag", Variant(true));
    step_.SetHost(&host_);
  }

  test::LogFile log_;
  VariableStore variables_;
  MainThreadQueue main_thread_;
  std::atomic<bool> stop_{false};
  ActionHost host_{variables_, log_.Log(), main_thread_, stop_, true};
  test::StepAction step_;
};

// Variables by their text, in any case, before the environment; a name keeps
// its first spelling; a new variable is empty text, an existing one stays.
TEST_F(ActionHostTest, VariablesAndExpansion) {
  EXPECT_EQ("build 3 0.5 True", host_.ExpandExpression("%OUT% %count% $(Ratio) %FLAG%", true));
  int count = 0;
  ::setenv("JX_HOST_TEST_ENV", "from-env", 1);
  ::setenv("OUT", "env", 1);
  EXPECT_EQ("from-env build", host_.ExpandExpression("%JX_HOST_TEST_ENV% %out%", count, false));
  EXPECT_EQ(2, count);
  host_.SetVariable("OUT", Variant(int32_t{7}));
  host_.AddNewVariable("count", "");
  host_.AddNewVariable("Fresh", "");
  EXPECT_EQ("Out", variables_.Entries()[0].Name);
  EXPECT_EQ("7 3 []", host_.ExpandExpression("%Out% %Count% [%fresh%]", true));
  EXPECT_TRUE(host_.IsVariableDefined("fresh") && host_.GetVariableValue("missing").IsEmpty());
}

// A failed expansion is logged for the action (with the flag, so is an empty
// result); a block shows its headline first; the stop signal reaches it.
TEST_F(ActionHostTest, LogsAndSignalsForTheAction) {
  variables_.Set("EMPTY", Variant(""));
  std::string result = "untouched";
  EXPECT_FALSE(host_.TryExpandExpression(step_, "File Spec", "%NOPE%/x", result, true));
  EXPECT_FALSE(host_.TryExpandExpression(step_, "Folder", "%EMPTY%", result, true));
  EXPECT_TRUE(host_.TryExpandExpression(step_, "Folder", "%EMPTY%", result, false));
  EXPECT_EQ("", result);
  step_.SendStatusLines({"one", "two"});
  IJXActionLogMessagePtr titled = host_.CreateStatusMessage();
  titled->SetMessageText("Title");
  titled->GetLines().Add("three");
  host_.SendStatusMessage(step_, titled);
  EXPECT_EQ("Unable to expand File Spec : Variable \"NOPE\" is not defined\n"
            "Unable to expand Folder : the expanded text is empty\none\ntwo\nTitle\nthree\n",
            log_.Text());
  stop_ = true;
  EXPECT_TRUE(step_.StopSignalled() && step_.GetIsUnattended());
}

}  // namespace
}  // namespace jx
