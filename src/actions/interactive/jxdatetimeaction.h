// Get DateTime: formats the moment of the run, or a date stored in the
// action, with a date-time pattern and puts the text into a variable.
#pragma once

#include <string>

#include "framework/jxaction.h"
#include "rtl/datetime.h"

namespace jx {

class TCustomDateTimeAction : public TJXAction {
 public:
  TCustomDateTimeAction();

  bool Execute() override;
  void GetPropertyHelp(TStrings& list) const override;
  void GetPropertyAlias(TStrings& list) const override;
  std::string GetQuickHelpFilename() const override;
  int GetHelpTopicID() const override;
  std::string GetActionName() const override;

  const std::string& DateFormat() const { return FDateFormat; }
  void SetDateFormat(const std::string& value) { FDateFormat = value; }
  TDateTime TheDate() const { return FTheDate; }
  void SetTheDate(TDateTime value) { FTheDate = value; }
  bool UseNow() const { return FUseNow; }
  void SetUseNow(bool value) { FUseNow = value; }
  const std::string& JXVariable() const { return FJXVariable; }
  void SetJXVariable(const std::string& value) { FJXVariable = value; }
  bool ForceSeparators() const { return FForceSeparators; }
  void SetForceSeparators(bool value) { FForceSeparators = value; }

 protected:
  std::string FDateFormat;
  TDateTime FTheDate = 0;
  bool FUseNow = false;
  std::string FJXVariable;
  bool FForceSeparators = false;

 private:
  bool ExpandProperty(const std::string& caption, const std::string& text, std::string& expanded);
  void SendBlock(const std::string& line);
};

class TDateTimeAction : public TCustomDateTimeAction {
 public:
  static const TJXClassInfo& ClassInfo();
  const TJXClassInfo& GetClassInfo() const override { return ClassInfo(); }
};

}  // namespace jx
