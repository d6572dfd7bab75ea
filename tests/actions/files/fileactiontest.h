// Runs of file actions in tests, their properties set by text as a project
// file sets them, with the recording host.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "support/actiontest.h"

namespace jx::test {

using Lines = std::vector<std::string>;
using Outcome = std::pair<bool, Lines>;  // the result of Execute and the log lines of the run
using Properties = std::initializer_list<std::pair<const char*, std::string>>;

template <class A>
void SetProperties(A& action, Properties properties) {
  for (const auto& [name, text] : properties) A::ClassInfo().FindProperty(name)->SetText(action, text);
}

// One run of a new action of type A.
template <class A>
Outcome RunWith(Properties properties, const std::map<std::string, Variant>& variables = {}) {
  Hosted<A> h;
  h.Host.Variables = variables;
  SetProperties(h.Action, properties);
  const bool result = h.Action.Execute();
  return {result, h.Host.Lines};
}

// The shared fixture, with runs that change some properties of the one action.
template <class A>
class FileActionTest : public ActionTest<A> {
 protected:
  Outcome Run(Properties properties) {
    SetProperties(this->action, properties);
    const size_t before = this->host.Lines.size();
    const bool result = this->action.Execute();
    return {result, Lines(this->host.Lines.begin() + static_cast<std::ptrdiff_t>(before), this->host.Lines.end())};
  }
};

}  // namespace jx::test
