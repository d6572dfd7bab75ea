#include "actions/interactive/jxdatetimeaction.h"

#include <exception>

#include "framework/jxhostutils.h"
#include "platform/localeinfo.h"
#include "rtl/formatdatetime.h"
#include "rtl/strutils.h"

namespace jx {

void TCustomDateTimeAction::GetPropertyHelp(TStrings& list) const {
  TJXAction::GetPropertyHelp(list);
  list.Add("JXVariable=Jaxtor Variable to set");
  list.Add("DateFormat=Date Format - eg. dd/mm/yyyy, d mmm yy, etc.");
  list.Add("TheDate=The Date to use");
  list.Add("UseNow=Uses the current datetime instead of \"TheDate\"");
}

void TCustomDateTimeAction::GetPropertyAlias(TStrings& list) const {
  TJXAction::GetPropertyAlias(list);
  list.Add("[DateTime]");
  list.Add("JXVariable=JX Variable");
  list.Add("DateFormat=Date Format");
  list.Add("TheDate=The Date");
  list.Add("UseNow=UseNow");
}

std::string TCustomDateTimeAction::GetQuickHelpFilename() const { return "Plugins\\GetDateTime.html"; }

int TCustomDateTimeAction::GetHelpTopicID() const { return 1560; }

std::string TCustomDateTimeAction::GetActionName() const { return "Get DateTime"; }

bool TCustomDateTimeAction::Execute() {
  std::string variable;
  if (!ExpandOrLog(JXVariable, variable, {}, "Error Expanding String property (JX Variable) : ")) return false;
  if (Trim(variable).empty()) {
    SendMessage("Variable name must be specified!");
    return false;
  }
  std::string pattern;
  if (!ExpandOrLog(DateFormat, pattern, {}, "Error Expanding String property (DateFormat) : ")) return false;
  if (Trim(pattern).empty()) {
    SendMessage("A Date Format must be specified!");
    return false;
  }
  if (ForceSeparators) pattern = DoubleQuoteString(pattern, false);

  std::string text;
  try {
    text = FormatDateTime(pattern, UseNow ? Now() : TheDate, LocaleFormatSettings());
  } catch (const std::exception& e) {
    SendStatusLines({std::string("Error formating datetime : ") + e.what()});
    return false;
  }
  // The variable set is the one named as written: the expansion above only
  // decided whether a name was given.
  SetVariable(JXVariable, text);
  SendStatusLines({"Set Variable \"" + JXVariable + "\" to \"" + text + "\""});
  return true;
}

const TJXClassInfo& TDateTimeAction::ClassInfo() {
  using C = TDateTimeAction;
  static const TJXClassInfo info = MakeClassInfo<C>(
      "TDateTimeAction", TPublished<C>()
                             .String("DateFormat", &C::DateFormat)
                             .DateTime("TheDate", &C::TheDate)
                             .Boolean("UseNow", &C::UseNow)
                             .String("JXVariable", &C::JXVariable)
                             .Boolean("ForceSeparators", &C::ForceSeparators)
                             .Build());
  return info;
}

}  // namespace jx
