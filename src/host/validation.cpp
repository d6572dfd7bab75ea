#include "host/validation.h"

#include <exception>

#include "framework/jxinterfaces.h"

namespace jx {

namespace {

class ProblemList : public IJXActionValidationError {
 public:
  ProblemList(const std::string& action_name, std::vector<std::string>& lines) : name_(action_name), lines_(lines) {}

  void AddError(const std::string& caption, const std::string& message) override {
    lines_.push_back(name_ + ": " + caption + ": " + message);
    ++count_;
  }
  int Count() const { return count_; }

 private:
  const std::string& name_;
  std::vector<std::string>& lines_;
  int count_ = 0;
};

void ValidateAction(TCustomJXAction& action, std::vector<std::string>& lines) {
  const std::string name = action.InternalGetActionName();
  ProblemList problems(name, lines);
  try {
    // A false result without a named problem must still stop the run.
    if (!action.Validate(problems) && problems.Count() == 0) lines.push_back(name + ": validation failed");
  } catch (const std::exception& e) {
    lines.push_back(name + ": " + e.what());
  }
}

void ValidateList(const ActionList& actions, std::vector<std::string>& lines) {
  for (const auto& action : actions) {
    if (!action->Enabled) continue;
    ValidateAction(*action, lines);
    ValidateList(action->Children(), lines);
  }
}

}  // namespace

std::vector<std::string> ValidateActions(const ActionList& actions) {
  std::vector<std::string> lines;
  ValidateList(actions, lines);
  return lines;
}

}  // namespace jx
