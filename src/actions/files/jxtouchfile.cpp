#include "actions/files/jxtouchfile.h"

#include <cmath>
#include <vector>

#include "actions/files/filewalk.h"
#include "platform/attributes.h"
#include "platform/clock.h"
#include "platform/fileidentity.h"
#include "platform/filetime.h"
#include "platform/findfile.h"
#include "platform/lasterror.h"
#include "platform/localeinfo.h"
#include "rtl/formatdatetime.h"
#include "rtl/paths.h"
#include "rtl/strutils.h"
#include "rtl/sysutils.h"

namespace jx {

namespace {

// The placeholder's editor works on the object's "DateTimeAsString".
const TPropertyInfo& DateTimeText(const TQSXMLObject& object) {
  return *object.GetClassInfo().FindProperty("DateTimeAsString");
}

std::string TouchDateText(const TQSXMLObject& object, const TPropertyInfo&) {
  return DateTimeText(object).GetText(object);
}

void StoreTouchDate(TQSXMLObject& object, const TPropertyInfo&, std::string_view text) {
  DateTimeText(object).SetText(object, text);
}

}  // namespace

const TJXPropertyEditorClass TTouchFilesDateEditor{
    "TTouchFilesDateEditor", "", "", "", &TouchDateText, &StoreTouchDate};

// The user's short date and long time, as the property grid shows dates.
std::string TCustomTouchFilesAction::DateTimeAsString() const {
  return FormatDateTime("c", FDateTime, LocaleFormatSettings());
}

void TCustomTouchFilesAction::SetDateTimeAsString(const std::string& value) {
  TDateTime parsed = 0;
  if (TryStrToDateTime(value, parsed, LocaleFormatSettings())) SetDateTime(parsed);
}

std::string TCustomTouchFilesAction::GetActionName() const { return "Touch File(s)"; }

std::string TCustomTouchFilesAction::GetQuickHelpFilename() const { return "Plugins\\TouchFiles.html"; }

int TCustomTouchFilesAction::GetHelpTopicID() const { return 980; }

bool TCustomTouchFilesAction::Validate(IJXActionValidationError& errors) {
  if (FFileSpec.empty()) {
    errors.AddError("File Spec", "File spec has not been set");
    return false;
  }
  return true;
}

void TCustomTouchFilesAction::GetHiddenProperties(TStrings& list) const {
  TJXAction::GetHiddenProperties(list);
  list.Add("DateTime");
  list.Add("FileCount");
  list.Add("DateTimeAsString");
}

void TCustomTouchFilesAction::GetPropertyAlias(TStrings& list) const {
  TJXAction::GetPropertyAlias(list);
  list.Add("[Touch]");
  list.Add("TouchDate=Touch Date");
  list.Add("TouchTime=Touch Time");
  list.Add("Recurse=Recurse Directories");
  list.Add("TouchReadOnly=Touch Read Only");
  list.Add("DateTimeString=Date Time");
  list.Add("FileSpec=File Specification");
  list.Add("UseNow=Use Now");
}

void TCustomTouchFilesAction::GetPropertyHelp(TStrings& list) const {
  TJXAction::GetPropertyHelp(list);
  list.Add("TouchDate=Touch File Date");
  list.Add("TouchTime=Touch File Time");
  list.Add("Recurse=Recurse Directories");
  list.Add("TouchReadOnly=Touch Read Only Files");
  list.Add("FileSpec=File Specification (wildcards may be used)");
  list.Add("DateTimeString=Date Time");
  list.Add("UseNow=Use Now for Date Time");
}

bool TCustomTouchFilesAction::Execute() {
  if (FUseNow) SetDateTime(Now());
  const std::string spec = ExpandExpression(FFileSpec, true);
  if (spec.empty()) {
    SendStatusLines({"File Spec is blank!"});
    return false;
  }
  if (!FTouchDate && !FTouchTime) {
    SendStatusLines({" Touch Date and TouchTime are not set, nothing to do"});
    return false;
  }
  FFileCount = 0;
  const bool result = ProcessFiles(spec);
  SendStatusLines({"Processed : " + IntToStr(FFileCount) + " File(s)"});
  return result;
}

// The result of the last subdirectory replaces the result so far, so an
// error above it can end in success: the action's established outcome. A
// search that fails ends this level with its error's text.
bool TCustomTouchFilesAction::ProcessFiles(const std::string& spec) {
  // A link back to a directory the walk stands in is not followed again.
  TWalkStep step(walk_path_, ExtractFilePath(spec));
  if (!step.Entered()) return true;
  try {
    std::vector<std::string> subdirectories;
    bool result = TouchMatches(spec, subdirectories);
    const std::string dir = ExtractFilePath(spec);
    for (const std::string& name : subdirectories) {
      result = ProcessFiles(JoinPath(JoinPath(dir, name), ExtractFileName(spec)));
    }
    return result;
  } catch (const std::exception& e) {
    SendStatusLines({e.what()});
    return false;
  }
}

// Normal files only: hidden and system files are not searched for. After a
// file that cannot be touched the rest of the directory is passed by. With
// Recurse the same search lists the subdirectories (neither hidden nor
// system, whatever their names) into `subdirectories`.
bool TCustomTouchFilesAction::TouchMatches(const std::string& spec, std::vector<std::string>& subdirectories) {
  const std::string dir = ExtractFilePath(spec);
  const uint32_t attr = faReadOnly | faArchive | (FRecurse ? faDirectory : 0);
  TFindMatches matches(spec, attr, TFindDetail::Kind, TFindDirs::AnyName);
  bool result = true;
  for (const TSearchRec& rec : matches) {
    if (rec.Attr & faDirectory) {
      if (IsWalkedInto(rec)) subdirectories.push_back(rec.Name);
    } else if (result) {
      const std::string path = JoinPath(dir, rec.Name);
      result = TouchFile(path);
      if (!result) SendStatusLines({"Error touching File : " + path});
    }
  }
  if (matches.Error() != 0) throw EOSError(matches.Error(), SysErrorMessage(matches.Error()));
  return result;
}

// A read-only file is skipped (and counts as success) unless TouchReadOnly;
// then it is made writable for the touch and read-only again afterwards.
bool TCustomTouchFilesAction::TouchFile(const std::string& path) {
  const uint32_t attributes = FileGetAttr(path);
  const bool read_only = (attributes & faReadOnly) != 0;
  if (read_only) {
    if (!FTouchReadOnly) return true;
    FileSetAttr(path, attributes & ~faReadOnly);
  }
  bool touched = false;
  if (TFileHandle file = TFileHandle::OpenForWrite(path); file.IsOpen()) {
    TDateTime current = 0;
    file.GetLastWriteTime(current);
    // The time passes through the packed FAT date-time: seconds fall to an
    // even number, and a year it cannot hold leaves the file's time alone.
    TDateTime stamp = 0;
    if (TryFileDateToDateTime(DateTimeToFileDate(NewTimeOf(current)), stamp)) file.SetLastWriteTime(stamp);
    ++FFileCount;
    touched = true;
  }
  if (read_only) FileSetAttr(path, attributes);
  return touched;
}

TDateTime TCustomTouchFilesAction::NewTimeOf(TDateTime current) const {
  TDateTime date = std::trunc(current);
  TDateTime time_of_day = current - date;
  if (FTouchDate) date = std::trunc(FDateTime);
  if (FTouchTime) time_of_day = FDateTime - std::trunc(FDateTime);
  return date + time_of_day;
}

const TJXClassInfo& TTouchFilesAction::ClassInfo() {
  using C = TTouchFilesAction;
  static const TJXClassInfo info = MakeClassInfo<C>(
      "TTouchFilesAction", TPublished<C>()
                               .DateTime("DateTime", &C::DateTime, &C::SetDateTime)
                               .WideString("FileSpec", &C::FileSpec, &C::SetFileSpec)
                               .WordBool("TouchDate", &C::TouchDate, &C::SetTouchDate)
                               .WordBool("TouchTime", &C::TouchTime, &C::SetTouchTime)
                               .WordBool("TouchReadOnly", &C::TouchReadOnly, &C::SetTouchReadOnly)
                               .WordBool("Recurse", &C::Recurse, &C::SetRecurse)
                               .WordBool("UseNow", &C::UseNow, &C::SetUseNow)
                               .String("DateTimeString", &C::DateTimeString, &C::SetDateTimeString)
                               .NotStored()
                               .IntegerResult("FileCount", &C::FileCount)
                               .NotStored()
                               .String("DateTimeAsString", &C::DateTimeAsString, &C::SetDateTimeAsString)
                               .NotStored()
                               .Build());
  return info;
}

}  // namespace jx
