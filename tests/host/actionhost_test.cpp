#include "host/actionhost.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

#include "host/testactions.h"
#include "support/tempdir.h"

namespace jx {
namespace {

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

class ActionHostTest : public ::testing::Test {
 protected:
  ActionHostTest() : console_(std::fopen((dir_ / "console.txt").c_str(), "wb")), log_(console_.get(), false) {
    log_.OpenFile(dir_ / "build.log");
    variables_.Set("Out", Variant("build"));
    variables_.Set("Count", Variant(int32_t{3}));
    variables_.Set("Ratio", Variant(0.5));
    variables_.Set("Flag", Variant(true));
    step_.SetHost(&host_);
  }
  std::string LogText() {
    log_.CloseFile();
    return test::ReadFile(dir_ / "build.log");
  }

  test::TempDir dir_;
  std::unique_ptr<std::FILE, FileCloser> console_;
  BuildLog log_;
  VariableStore variables_;
  MainThreadQueue main_thread_;
  std::atomic<bool> stop_{false};
  ActionHost host_{variables_, log_, main_thread_, stop_, true};
  test::StepAction step_;
};

TEST_F(ActionHostTest, ExpandsTypedVariablesByTheirText) {
  EXPECT_EQ("build 3 0.5 True", host_.ExpandExpression("%OUT% %count% $(Ratio) %FLAG%", true));
  int count = 0;
  EXPECT_EQ("build/x", host_.ExpandExpression("%out%/x", count, false));
  EXPECT_EQ(1, count);
}

TEST_F(ActionHostTest, FallsBackToTheEnvironment) {
  ::setenv("JX_HOST_TEST_ENV", "from-env", 1);
  variables_.Set("HOME_OVERRIDE", Variant("project"));
  EXPECT_EQ("from-env", host_.ExpandExpression("%JX_HOST_TEST_ENV%", true));
  ::setenv("HOME_OVERRIDE", "env", 1);
  EXPECT_EQ("project", host_.ExpandExpression("%HOME_OVERRIDE%", true));
}

TEST_F(ActionHostTest, TryExpandLogsTheProblemForTheAction) {
  std::string result = "untouched";
  EXPECT_FALSE(host_.TryExpandExpression(step_, "File Spec", "%NOPE%/x", result, true));
  EXPECT_EQ("Unable to expand File Spec : Variable \"NOPE\" is not defined\n", LogText());
}

TEST_F(ActionHostTest, StatusBlockWritesItsHeadlineThenItsLines) {
  IJXActionLogMessagePtr block = host_.CreateStatusMessage();
  block->GetLines().Add("one");
  block->GetLines().Add("two");
  host_.SendStatusMessage(step_, block);
  IJXActionLogMessagePtr titled = host_.CreateStatusMessage();
  titled->SetMessageText("Title");
  titled->GetLines().Add("three");
  host_.SendStatusMessage(step_, titled);
  EXPECT_EQ("one\ntwo\nTitle\nthree\n", LogText());
}

TEST_F(ActionHostTest, VariablesAreCaseInsensitiveAndKeepTheirFirstSpelling) {
  host_.SetVariable("OUT", Variant(int32_t{7}));
  EXPECT_TRUE(host_.IsVariableDefined("out"));
  EXPECT_EQ(Variant(int32_t{7}), host_.GetVariableValue("Out"));
  EXPECT_EQ("Out", variables_.Entries()[0].Name);
  host_.AddNewVariable("count", "");
  EXPECT_EQ(Variant(int32_t{3}), host_.GetVariableValue("Count"));
  host_.AddNewVariable("Fresh", "");
  EXPECT_EQ(Variant(std::string()), host_.GetVariableValue("fresh"));
  EXPECT_TRUE(host_.GetVariableValue("missing").IsEmpty());
}

TEST_F(ActionHostTest, BlankScriptsSucceedOthersFailWithAReason) {
  Variant result;
  EXPECT_TRUE(host_.ExecuteScript(step_, "OnNothing", result));
  IJXActionScript& script = step_.AddScript("OnExecute");
  script.SetScriptText("  \n ");
  EXPECT_TRUE(host_.ExecuteScript(step_, "OnExecute", result));
  script.SetScriptText("print('hi')");
  EXPECT_FALSE(host_.ExecuteScript(step_, "OnExecute", result));
  EXPECT_EQ("Scripts are not supported by this host yet\n", LogText());
}

TEST_F(ActionHostTest, EncryptsForActions) {
  std::string encrypted, plain;
  ASSERT_TRUE(step_.EncryptString("secret", "key", encrypted));
  EXPECT_NE(std::string::npos, encrypted.rfind("jx1:", 0));
  EXPECT_FALSE(step_.DecryptString(encrypted, "other key", plain));
  EXPECT_TRUE(step_.DecryptString(encrypted, "key", plain));
  EXPECT_EQ("secret", plain);
}

TEST_F(ActionHostTest, StopSignalAndUnattended) {
  EXPECT_FALSE(step_.StopSignalled());
  stop_ = true;
  EXPECT_TRUE(step_.StopSignalled());
  EXPECT_TRUE(step_.GetIsUnattended());
}

}  // namespace
}  // namespace jx
