#include "host/actionhost.h"

#include <cstdlib>

#include "framework/jxlogmessage.h"
#include "host/stringcipher.h"
#include "rtl/strutils.h"
#include "rtl/sysutils.h"

namespace jx {

ActionHost::ActionHost(VariableStore& variables, BuildLog& log, MainThreadQueue& main_thread,
                       const std::atomic<bool>& stop, bool unattended)
    : variables_(variables),
      log_(log),
      main_thread_(main_thread),
      stop_(stop),
      unattended_(unattended),
      resolver_([this](std::string_view name, std::string& value) { return Resolve(name, value); }) {}

bool ActionHost::Resolve(std::string_view name, std::string& value) const {
  if (const Variant* variable = variables_.Find(name)) {
    value = variable->ToString();
    return true;
  }
  if (const char* environment = std::getenv(std::string(name).c_str())) {
    value = environment;
    return true;
  }
  return false;
}

std::string ActionHost::ExpandExpression(const std::string& text, bool) {
  int count = 0;
  return ExpandReferences(text, resolver_, count);
}

std::string ActionHost::ExpandExpression(const std::string& text, int& count, bool) {
  return ExpandReferences(text, resolver_, count);
}

bool ActionHost::TryExpandExpression(TCustomJXAction& action, const std::string& caption, const std::string& text,
                                     std::string& result, bool flag) {
  try {
    result = ExpandExpression(text, flag);
  } catch (const Exception& e) {
    SendMessage(action, "Unable to expand " + caption + " : " + e.Message());
    return false;
  }
  // The flag asks for a value: a path that expands to nothing must not become the root.
  if (flag && result.empty()) {
    SendMessage(action, "Unable to expand " + caption + " : the expanded text is empty");
    return false;
  }
  return true;
}

void ActionHost::SetVariable(const std::string& name, const Variant& value) { variables_.Set(name, value); }

void ActionHost::AddNewVariable(const std::string& name, const std::string& value) {
  if (!variables_.Contains(name)) variables_.Set(name, Variant(value));
}

bool ActionHost::IsVariableDefined(const std::string& name) { return variables_.Contains(name); }

Variant ActionHost::GetVariableValue(const std::string& name) {
  const Variant* value = variables_.Find(name);
  return value ? *value : Variant();
}

void ActionHost::SendMessage(TCustomJXAction&, const std::string& text) {
  log_.Line(text);
  log_.Flush();
}

IJXActionLogMessagePtr ActionHost::CreateStatusMessage() { return std::make_shared<TJXLogMessage>(); }

void ActionHost::SendStatusMessage(TCustomJXAction&, const IJXActionLogMessagePtr& message) {
  const std::string headline = message->GetMessageText();
  if (!headline.empty()) log_.Line(headline);
  for (const std::string& line : message->GetLines().Lines()) log_.Line(line);
  log_.Flush();
}

bool ActionHost::StopSignalled() { return stop_.load(std::memory_order_relaxed); }

void ActionHost::Synchronize(const std::function<void()>& method) { main_thread_.RunAndWait(method); }

bool ActionHost::GetIsUnattended() { return unattended_; }

void ActionHost::UpdateKeyValue(TCustomJXAction& action, int index, const std::string&,
                                const std::string& new_value) {
  action.SetDescriptionKeyValue(index, new_value);
}

bool ActionHost::ExecuteScript(TCustomJXAction& action, const std::string& name, Variant&) {
  const IJXActionScript* script = action.GetScriptByName(name);
  if (!script || Trim(script->GetScriptText()).empty()) return true;
  SendMessage(action, "Scripts are not supported by this host yet");
  return false;
}

bool ActionHost::EncryptString(const std::string& plain, const std::string& key, std::string& encrypted) {
  return EncryptText(plain, key, encrypted);
}

bool ActionHost::DecryptString(const std::string& encrypted, const std::string& key, std::string& plain) {
  return DecryptText(encrypted, key, plain);
}

}  // namespace jx
