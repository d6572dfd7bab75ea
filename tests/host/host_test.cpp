// The host: references expanded in text, the services the actions get, the
// cipher of the values it encrypts for them, and the build run.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <thread>
#include <tuple>

#include "host/actionhost.h"
#include "host/buildrun.h"
#include "host/expansion.h"
#include "host/stringcipher.h"
#include "host/testactions.h"
#include "rtl/sysutils.h"

namespace jx {
namespace {

using namespace std::string_literals;

bool Resolve(std::string_view name, std::string& value) {
  static const std::map<std::string, std::string, std::less<>> variables = {
      {"OUT", "build"}, {"A.B-c_1", "dotted"}, {"PCT", "%OUT%"}, {"EMPTY", ""}};
  auto it = variables.find(name);
  if (it == variables.end()) return false;
  value = it->second;
  return true;
}

// Text, what it expands to (or the error's message), how many references.
TEST(Expansion, ReferencesEscapesAndLiteralText) {
  const std::tuple<const char*, const char*, int> rows[] = {
      {"", "", 0}, {"plain text", "plain text", 0}, {"%OUT%/*.o", "build/*.o", 1}, {"$(OUT)/x", "build/x", 1},
      {"%OUT%$(OUT)", "buildbuild", 2}, {"%A.B-c_1%", "dotted", 1}, {"[%EMPTY%]", "[]", 1}, {"100%%", "100%", 0},
      {"%%OUT%%", "%OUT%", 0}, {"$$(OUT)", "$(OUT)", 0}, {"50% off", "50% off", 0},
      {"a % b %OUT%", "a % b build", 1}, {"%", "%", 0}, {"%OUT", "%OUT", 0}, {"%1X%", "%1X%", 0},
      {"%O T%", "%O T%", 0}, {"$(OUT", "$(OUT", 0}, {"$OUT $( OUT)", "$OUT $( OUT)", 0}, {"$$", "$$", 0},
      {"%PCT%", "%OUT%", 1},  // not expanded again
      {"x %NOPE% y", "Variable \"NOPE\" is not defined", -1},
      {"$(Missing)", "Variable \"Missing\" is not defined", -1}};
  for (const auto& [text, expected, references] : rows) {
    int count = -1;
    try {
      EXPECT_EQ(expected, ExpandReferences(text, Resolve, count)) << text;
      EXPECT_EQ(references, count) << text;
    } catch (const Exception& e) {
      EXPECT_EQ(expected, e.Message()) << text;
      EXPECT_EQ(-1, references) << text;
    }
  }
  for (const char* name : {"_a1.b-c", "X"}) EXPECT_TRUE(IsVariableName(name)) << name;
  for (const char* name : {"", "1A", "-A", "A B", "A%"}) EXPECT_FALSE(IsVariableName(name)) << name;
}

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

constexpr const char* kKey = "k7x2mwq9zrtp@hnbc5s";

// What DecryptText gives, or "(refused)" when it refuses and leaves the result alone.
std::string Decrypted(const std::string& encrypted, const std::string& key = kKey) {
  std::string plain = "before";
  if (DecryptText(encrypted, key, plain)) return plain;
  return plain == "before" ? "(refused)" : "(refused, but changed the result)";
}

// Any text comes back; the value is printable, with a version prefix: a
// 24-byte nonce and a 16-byte tag around the 7 bytes of "Grüße" make 47
// bytes, 63 digits. Another key, an altered or cut text, and what is no
// encrypted value are refused.
TEST(StringCipher, RoundTripsPrintablyAndRefusesWhatItDidNotEncrypt) {
  std::string encrypted, again, other;
  for (const std::string& text : {"s3cret pass"s, ""s, "Grüße, 東京 ✓"s, "nul\0inside"s}) {
    ASSERT_TRUE(EncryptText(text, kKey, encrypted));
    EXPECT_EQ(text, Decrypted(encrypted)) << text;
  }
  ASSERT_TRUE(EncryptText("Grüße", kKey, encrypted) && EncryptText("Grüße", kKey, again));
  EXPECT_NE(encrypted, again);
  EXPECT_EQ("jx1:", encrypted.substr(0, 4));
  EXPECT_EQ(4u + 63u, encrypted.size());
  EXPECT_TRUE(std::all_of(encrypted.begin() + 4, encrypted.end(),
                          [](char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '-' || c == '_'; }));
  ASSERT_TRUE(EncryptText("secret", "", other));  // an empty key is a key too
  std::string altered = encrypted;
  altered[20] = altered[20] == 'A' ? 'B' : 'A';
  const std::string body = encrypted.substr(4);
  const std::pair<std::string, std::string> refused[] = {
      {encrypted, "another key"}, {other, kKey}, {altered, kKey}, {encrypted.substr(0, 63), kKey},
      {encrypted + "AAAA", kKey}, {"plain text", kKey}, {"jx1:not base64!", kKey}, {"jx1:" + body + "=", kKey},
      {"jx2:" + body, kKey}, {body, kKey}, {"jx1:AAAA", kKey}};  // the last decodes, but is too short
  for (const auto& [text, key] : refused) EXPECT_EQ("(refused)", Decrypted(text, key)) << text;
}

using test::CountLoop;
using test::StepAction;

template <class... Children>
std::unique_ptr<CountLoop> Loop(int passes, Children... children) {
  auto loop = std::make_unique<CountLoop>();
  loop->Passes = passes;
  (loop->AddChild(std::move(children)), ...);
  return loop;
}

// A step with an outcome, changed by `change` when there is one.
std::unique_ptr<StepAction> Step(const std::string& label, int outcome = StepAction::soSucceed,
                                 const std::function<void(StepAction&)>& change = nullptr) {
  auto step = std::make_unique<StepAction>();
  step->Label = label;
  step->Outcome = outcome;
  if (change) change(*step);
  return step;
}
constexpr int kSucceed = StepAction::soSucceed;

class EngineTest : public ::testing::Test {
 protected:
  // Runs these actions, or with none the project again.
  template <class... Added>
  bool Run(Added... actions) {
    if constexpr (sizeof...(actions) > 0) project.Actions.clear();
    (project.Actions.push_back(std::move(actions)), ...);
    test::LogFile log;
    run_ = std::make_unique<BuildRun>(project, variables, log.Log(), true);
    const bool succeeded = run_->Run();
    log_text = log.Text();
    return succeeded;
  }

  Project project;
  VariableStore variables;
  std::unique_ptr<BuildRun> run_;
  std::string log_text;
};

// Children once per pass; a failing child ends the loop and the build, an
// ignored one does not; a disabled action, with its children, is skipped.
TEST_F(EngineTest, LoopsRunTheirChildrenOncePerPass) {
  EXPECT_TRUE(Run(Step("a"), Loop(2, Step("x"), Step("y")), Step("z")));
  EXPECT_EQ("== Step (a)\nstep a\n== Count Loop\npass 1\n== Step (x)\nstep x\n== Step (y)\nstep y\n"
            "== Count Loop\npass 2\n== Step (x)\nstep x\n== Step (y)\nstep y\n== Step (z)\nstep z\n",
            log_text);
  EXPECT_TRUE(Run());  // the passes are counted afresh in each run
  EXPECT_EQ(2, static_cast<CountLoop&>(*project.Actions[1]).PassCount());

  EXPECT_FALSE(Run(Loop(3, Step("x", StepAction::soFail), Step("y")), Step("after")));
  EXPECT_EQ("== Count Loop\npass 1\n== Step (x)\nstep x\n", log_text);

  auto off = Loop(1, Step("inner"));
  off->Enabled = false;
  EXPECT_TRUE(Run(Loop(2, Step("ignored", StepAction::soFail, [](StepAction& s) { s.IgnoreFailure = true; }),
                       Step("off", kSucceed, [](StepAction& s) { s.Enabled = false; })),
                  std::move(off)));
  EXPECT_EQ("== Count Loop\npass 1\n== Step (ignored)\nstep ignored\n== Count Loop\npass 2\n== Step (ignored)\n"
            "step ignored\n",
            log_text);
}

// An error raised in an action fails it with its text; Synchronize runs its
// method on the main thread, and raises its error on the build thread.
TEST_F(EngineTest, ErrorsAndSynchronize) {
  EXPECT_FALSE(Run(Step("a", StepAction::soThrow), Step("b")));
  EXPECT_EQ("== Step (a)\nstep a\nError: step a broke\n", log_text);
  std::thread::id execute_thread, synchronized_thread;
  EXPECT_FALSE(Run(Step("s", kSucceed, [&](StepAction& s) {
    s.OnExecute = [&](StepAction& step) {
      execute_thread = std::this_thread::get_id();
      step.Synchronize([&] { synchronized_thread = std::this_thread::get_id(); });
      step.Synchronize([] { throw Exception("dialog failed"); });
    };
  })));
  EXPECT_EQ("== Step (s)\nstep s\nError: dialog failed\n", log_text);
  EXPECT_NE(std::this_thread::get_id(), execute_thread);
  EXPECT_EQ(std::this_thread::get_id(), synchronized_thread);
}

// A stop terminates the running action and ends the build, between the passes
// of a loop too.
TEST_F(EngineTest, StopTerminatesTheRunningActionAndEndsTheBuild) {
  const auto stop = [this](StepAction& s) {
    s.OnExecute = [this](StepAction& step) { step.Synchronize([this] { run_->Stop(); }); };
  };
  EXPECT_FALSE(Run(Step("a", kSucceed, stop), Step("b")));
  EXPECT_EQ("== Step (a)\nstep a\nBuild stopped by user\n", log_text);
  EXPECT_EQ(1, static_cast<StepAction&>(*project.Actions[0]).Terminations);
  EXPECT_FALSE(Run(Loop(5, Step("x", kSucceed, stop))));
  EXPECT_EQ("== Count Loop\npass 1\n== Step (x)\nstep x\nBuild stopped by user\n", log_text);
}

}  // namespace
}  // namespace jx
