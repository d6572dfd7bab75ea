// The host side of the action contract: one interface the host implements
// and injects into every action it creates. TCustomJXAction forwards its host
// operations here; tests inject a recording host.
#pragma once

#include <functional>
#include <string>

#include "framework/jxinterfaces.h"
#include "rtl/variant.h"

namespace jx {

class TCustomJXAction;

class IJXActionHost {
 public:
  virtual ~IJXActionHost() = default;

  // Replaces variable references; throws Exception naming the problem when
  // the text cannot be expanded. `count` receives the number of references replaced.
  virtual std::string ExpandExpression(const std::string& text, bool flag) = 0;
  virtual std::string ExpandExpression(const std::string& text, int& count, bool flag) = 0;
  // As ExpandExpression, but reports the failure itself (naming `caption`) and returns false.
  virtual bool TryExpandExpression(TCustomJXAction& action, const std::string& caption,
                                   const std::string& text, std::string& result, bool flag) = 0;

  virtual void SetVariable(const std::string& name, const Variant& value) = 0;
  virtual void AddNewVariable(const std::string& name, const std::string& value) = 0;
  virtual bool IsVariableDefined(const std::string& name) = 0;
  virtual Variant GetVariableValue(const std::string& name) = 0;

  virtual void SendMessage(TCustomJXAction& action, const std::string& text) = 0;
  virtual IJXActionLogMessagePtr CreateStatusMessage() = 0;
  virtual void SendStatusMessage(TCustomJXAction& action, const IJXActionLogMessagePtr& message) = 0;

  virtual bool StopSignalled() = 0;
  // Runs `method` on the host's user-interface thread and waits for it.
  virtual void Synchronize(const std::function<void()>& method) = 0;
  virtual bool GetIsUnattended() = 0;

  // A description-key property changed; the host stores `new_value` back
  // through action.SetDescriptionKeyValue(index, new_value).
  virtual void UpdateKeyValue(TCustomJXAction& action, int index, const std::string& old_value,
                              const std::string& new_value) = 0;

  // Runs the action's script `name` with its parameters; false when it failed.
  virtual bool ExecuteScript(TCustomJXAction& action, const std::string& name, Variant& result) = 0;

  // Encrypts under `key`; DecryptString returns false for a text that is no
  // value EncryptString made.
  virtual bool EncryptString(const std::string& plain, const std::string& key, std::string& encrypted) = 0;
  virtual bool DecryptString(const std::string& encrypted, const std::string& key, std::string& plain) = 0;
};

}  // namespace jx
