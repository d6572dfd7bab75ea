// The host services of one build, injected into every action: expansion
// over the build's variables (then the process environment), the build log,
// the stop signal, and Synchronize through the main thread.
#pragma once

#include <atomic>
#include <string>

#include "framework/jxaction.h"
#include "host/buildlog.h"
#include "host/expansion.h"
#include "host/mainthreadqueue.h"
#include "host/variables.h"

namespace jx {

class ActionHost : public IJXActionHost {
 public:
  ActionHost(VariableStore& variables, BuildLog& log, MainThreadQueue& main_thread, const std::atomic<bool>& stop,
             bool unattended);

  // The expansion flag selects nothing in this host: both values expand alike.
  std::string ExpandExpression(const std::string& text, bool flag) override;
  std::string ExpandExpression(const std::string& text, int& count, bool flag) override;
  // On failure logs "Unable to expand <caption> : <message>" for the action.
  bool TryExpandExpression(TCustomJXAction& action, const std::string& caption, const std::string& text,
                           std::string& result, bool flag) override;

  void SetVariable(const std::string& name, const Variant& value) override;
  // Creates a string variable; an existing variable keeps its value.
  void AddNewVariable(const std::string& name, const std::string& value) override;
  bool IsVariableDefined(const std::string& name) override;
  Variant GetVariableValue(const std::string& name) override;  // empty when undefined

  void SendMessage(TCustomJXAction& action, const std::string& text) override;
  IJXActionLogMessagePtr CreateStatusMessage() override;
  void SendStatusMessage(TCustomJXAction& action, const IJXActionLogMessagePtr& message) override;

  bool StopSignalled() override;
  void Synchronize(const std::function<void()>& method) override;
  bool GetIsUnattended() override;
  void UpdateKeyValue(TCustomJXAction& action, int index, const std::string& old_value,
                      const std::string& new_value) override;

  // A blank script succeeds; any other script fails: no script engine yet.
  bool ExecuteScript(TCustomJXAction& action, const std::string& name, Variant& result) override;
  // See host/stringcipher.h: printable, authenticated, a random nonce each time.
  bool EncryptString(const std::string& plain, const std::string& key, std::string& encrypted) override;
  bool DecryptString(const std::string& encrypted, const std::string& key, std::string& plain) override;

 private:
  bool Resolve(std::string_view name, std::string& value) const;

  VariableStore& variables_;
  BuildLog& log_;
  MainThreadQueue& main_thread_;
  const std::atomic<bool>& stop_;
  const bool unattended_;
  const VariableResolver resolver_;
};

}  // namespace jx
