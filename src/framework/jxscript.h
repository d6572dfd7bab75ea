// The event script object an action holds for each declared script event.
#pragma once

#include <map>
#include <string>

#include "framework/jxinterfaces.h"

namespace jx {

class TJXActionScript : public IJXActionScript {
 public:
  explicit TJXActionScript(std::string name) : name_(std::move(name)) {}

  const std::string& GetName() const override { return name_; }
  const std::string& GetScriptText() const override { return text_; }
  void SetScriptText(const std::string& text) override { text_ = text; }
  void AddParam(const std::string& name, TScriptParamMode mode, const Variant& initial) override;
  bool HasParam(const std::string& name) const override { return params_.count(name) > 0; }
  void SetParamValue(const std::string& name, const Variant& value) override;
  Variant GetParamValue(const std::string& name) const override;
  void SetActionParam(const std::string& name, TCustomJXAction* action) override;
  TCustomJXAction* GetActionParam(const std::string& name) const override;

  struct Param {
    TScriptParamMode Mode = TScriptParamMode::spmIn;
    Variant Value;
    TCustomJXAction* Action = nullptr;
  };
  const std::map<std::string, Param>& Params() const { return params_; }

 private:
  std::string name_;
  std::string text_;
  std::map<std::string, Param> params_;
};

}  // namespace jx
