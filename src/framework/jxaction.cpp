#include "framework/jxaction.h"

#include "framework/jxscript.h"
#include "rtl/sysutils.h"

namespace jx {

namespace {

// Fills each "%s" of `format` with the next description key of `action`.
std::string FormatDescription(const std::string& format, const TCustomJXAction& action) {
  std::string text;
  int key = 0;
  for (size_t i = 0; i < format.size(); ++i) {
    if (format[i] == '%' && i + 1 < format.size() && format[i + 1] == 's') {
      text += action.GetDescriptionKeyValue(key++);
      ++i;
    } else {
      text += format[i];
    }
  }
  return text;
}

}  // namespace

TCustomJXAction::TCustomJXAction() = default;
TCustomJXAction::~TCustomJXAction() = default;

// Without a format of its own an action is described by its display name and,
// when it has one, the value of its first description key in parentheses.
std::string TCustomJXAction::GetDescription() const {
  std::string format = GetDescriptionFormatString();
  if (!format.empty()) return FormatDescription(format, *this);
  std::string key = GetDescriptionKeyValue(0);
  std::string name = InternalGetActionName();
  return key.empty() ? name : name + " (" + key + ")";
}

std::string TCustomJXAction::InternalGetActionName() const {
  return display_name_.empty() ? GetActionName() : display_name_;
}

TCustomJXAction* TCustomJXAction::GetChildAction(int index) const {
  if (index < 0 || index >= static_cast<int>(children_.size())) return nullptr;
  return children_[index].get();
}

void TCustomJXAction::AddChild(std::unique_ptr<TCustomJXAction> child) {
  children_.push_back(std::move(child));
}

// ---- host services ----

namespace {
IJXActionHost& Require(IJXActionHost* host) {
  if (!host) throw Exception("The action is not attached to a host");
  return *host;
}
}  // namespace

bool TCustomJXAction::EncryptString(const std::string& plain, const std::string& key, std::string& encrypted) {
  return Require(host_).EncryptString(plain, key, encrypted);
}

bool TCustomJXAction::DecryptString(const std::string& encrypted, const std::string& key, std::string& plain) {
  return Require(host_).DecryptString(encrypted, key, plain);
}

bool TCustomJXAction::StopSignalled() { return host_ && host_->StopSignalled(); }

std::string TCustomJXAction::ExpandExpression(const std::string& text, bool flag) {
  return Require(host_).ExpandExpression(text, flag);
}

std::string TCustomJXAction::ExpandExpression(const std::string& text, int& count, bool flag) {
  return Require(host_).ExpandExpression(text, count, flag);
}

bool TCustomJXAction::TryExpandExpression(const std::string& caption, const std::string& text, std::string& result,
                                          bool flag) {
  return Require(host_).TryExpandExpression(*this, caption, text, result, flag);
}

void TCustomJXAction::SetVariable(const std::string& name, const Variant& value) {
  Require(host_).SetVariable(name, value);
}

void TCustomJXAction::AddNewVariable(const std::string& name, const std::string& value) {
  Require(host_).AddNewVariable(name, value);
}

bool TCustomJXAction::IsVariableDefined(const std::string& name) { return Require(host_).IsVariableDefined(name); }

Variant TCustomJXAction::GetVariableValue(const std::string& name) { return Require(host_).GetVariableValue(name); }

void TCustomJXAction::SendMessage(const std::string& text) { Require(host_).SendMessage(*this, text); }

IJXActionLogMessagePtr TCustomJXAction::CreateStatusMessage() { return Require(host_).CreateStatusMessage(); }

void TCustomJXAction::SendStatusMessage(const IJXActionLogMessagePtr& message) {
  Require(host_).SendStatusMessage(*this, message);
}

void TCustomJXAction::SendStatusLines(const std::vector<std::string>& lines) {
  IJXActionLogMessagePtr block = CreateStatusMessage();
  for (const std::string& line : lines) block->GetLines().Add(line);
  SendStatusMessage(block);
}

bool TCustomJXAction::ExpandOrLog(const std::string& text, std::string& result, const std::vector<std::string>& lines,
                                  const std::string& error_prefix) {
  try {
    result = ExpandExpression(text, true);
    return true;
  } catch (const std::exception& e) {
    std::vector<std::string> block = lines;
    block.push_back(error_prefix + e.what());
    SendStatusLines(block);
    return false;
  }
}

void TCustomJXAction::Synchronize(const std::function<void()>& method) {
  if (host_) {
    host_->Synchronize(method);
  } else {
    method();
  }
}

bool TCustomJXAction::GetIsUnattended() { return !host_ || host_->GetIsUnattended(); }

void TCustomJXAction::UpdateKeyValue(int index, const std::string& old_value, const std::string& new_value) {
  if (host_) {
    host_->UpdateKeyValue(*this, index, old_value, new_value);
  } else {
    SetDescriptionKeyValue(index, new_value);
  }
}

// ---- scripts ----

IJXActionScript& TCustomJXAction::AddScript(const std::string& name) {
  auto& slot = scripts_[name];
  if (!slot) {
    slot = std::make_unique<TJXActionScript>(name);
    script_order_.push_back(name);
    InitialiseScriptParams(*slot);
  }
  return *slot;
}

IJXActionScript* TCustomJXAction::GetScriptByName(const std::string& name) const {
  auto it = scripts_.find(name);
  return it == scripts_.end() ? nullptr : it->second.get();
}

std::vector<std::string> TCustomJXAction::GetScriptNames() const { return script_order_; }

bool TCustomJXAction::ExecuteScript(const std::string& name, Variant& result) {
  return Require(host_).ExecuteScript(*this, name, result);
}

}  // namespace jx
