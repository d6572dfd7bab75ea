// The recording test host: a host for one action under test. It expands
// %NAME% from its own variables, and records log lines, log blocks, variables
// set, key updates and validation errors, so tests can check them exactly.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "framework/jxaction.h"

namespace jx::test {

class RecordingHost : public IJXActionHost {
 public:
  std::string ExpandExpression(const std::string& text, bool flag) override;
  std::string ExpandExpression(const std::string& text, int& count, bool flag) override;
  bool TryExpandExpression(TCustomJXAction& action, const std::string& caption, const std::string& text,
                           std::string& result, bool flag) override;

  void SetVariable(const std::string& name, const Variant& value) override { Variables[name] = value; }
  void AddNewVariable(const std::string& name, const std::string& value) override { Variables[name] = value; }
  bool IsVariableDefined(const std::string& name) override { return Variables.count(name) > 0; }
  Variant GetVariableValue(const std::string& name) override;

  void SendMessage(TCustomJXAction& action, const std::string& text) override;
  IJXActionLogMessagePtr CreateStatusMessage() override;
  void SendStatusMessage(TCustomJXAction& action, const IJXActionLogMessagePtr& message) override;

  bool StopSignalled() override { return Stop; }
  void Synchronize(const std::function<void()>& method) override;
  bool GetIsUnattended() override { return Unattended; }
  void UpdateKeyValue(TCustomJXAction& action, int index, const std::string& old_value,
                      const std::string& new_value) override;
  bool ExecuteScript(TCustomJXAction& action, const std::string& name, Variant& result) override;
  bool EncryptString(const std::string& plain, const std::string& key, std::string& encrypted) override;
  bool DecryptString(const std::string& encrypted, const std::string& key, std::string& plain) override;

  // What the action did.
  std::vector<std::string> Lines;                 // every log line in order
  std::vector<std::vector<std::string>> Blocks;   // status blocks: headline (when set) and lines
  struct KeyUpdate {
    int Index;
    std::string OldValue, NewValue;
  };
  std::vector<KeyUpdate> KeyUpdates;
  int SynchronizeCalls = 0;
  std::vector<std::string> ScriptsRun;

  // What the action sees.
  std::map<std::string, Variant> Variables;
  bool Stop = false;
  bool Unattended = false;
  bool ScriptResult = true;
};

// Attaches a recording host to an action for the lifetime of a test.
template <class A>
struct Hosted {
  Hosted() { Action.SetHost(&Host); }
  RecordingHost Host;
  A Action;
};

class RecordingValidation : public IJXActionValidationError {
 public:
  void AddError(const std::string& caption, const std::string& message) override {
    Errors.push_back(caption + ": " + message);
  }
  std::vector<std::string> Errors;  // "caption: message"
};

}  // namespace jx::test
