// Get DateTime: formats the moment of the run, or a date stored in the
// action, with a date-time pattern and puts the text into a variable.
#pragma once

#include <string>

#include "framework/jxaction.h"
#include "platform/clock.h"
#include "rtl/datetime.h"

namespace jx {

class TCustomDateTimeAction : public TJXAction {
 public:
  bool Execute() override;
  void GetPropertyHelp(TStrings& list) const override;
  void GetPropertyAlias(TStrings& list) const override;
  std::string GetQuickHelpFilename() const override;
  int GetHelpTopicID() const override;
  std::string GetActionName() const override;

  std::string DateFormat = "ddmmyyyy";  // an expression
  TDateTime TheDate = Now();            // a new action holds its moment of creation
  bool UseNow = false;                  // format the moment of the run instead of TheDate
  std::string JXVariable;               // the variable set, named as written
  bool ForceSeparators = false;         // quote the whole pattern first
};

class TDateTimeAction : public TCustomDateTimeAction {
 public:
  static const TJXClassInfo& ClassInfo();
  const TJXClassInfo& GetClassInfo() const override { return ClassInfo(); }
};

}  // namespace jx
