#include "actions/files/jxrenamefile.h"

#include "platform/attributes.h"
#include "platform/copymove.h"
#include "platform/findfile.h"
#include "platform/lasterror.h"
#include "rtl/paths.h"
#include "rtl/sysutils.h"

namespace jx {

std::string TCustomRenameFilesAction::GetActionName() const { return "Rename File(s)"; }

bool TCustomRenameFilesAction::Execute() {
  std::string source;
  std::string target;
  // An expansion error is logged as a status message of its own text.
  if (!ExpandOrLog(FSourceSpec, source, {}) || !ExpandOrLog(FTargetSpec, target, {})) return false;
  const std::string dir = ExtractFilePath(source);
  std::string new_name;
  TFindMatches matches(source, faAnyFile, TFindDetail::Kind);
  for (const TSearchRec& rec : matches) {
    GetNewFileName(rec.Name, target, new_name);
    MoveFileTo(JoinPath(dir, rec.Name), JoinPath(dir, new_name));  // a failed rename is passed over silently
  }
  // A search that fails is logged like an expansion error: its text alone.
  if (matches.Error() != 0) SendStatusLines({SysErrorMessage(matches.Error())});
  return false;
}

std::string TCustomRenameFilesAction::GetNewFileName(const std::string& found, const std::string& target,
                                                     std::string& result) const {
  const std::string name = ExtractFileName(found);
  // A missing dot gives position 0, never -1, so the check never fires.
  const int dot_position = static_cast<int>(target.find('.') + 1);
  if (dot_position == -1) throw Exception("invalid rename spec!");

  const std::string base = ChangeFileExt(target, "");
  std::string extension = ExtractFileExt(target);
  if (!extension.empty()) extension.erase(0, 1);  // the dot
  if (base == "*") {
    result = ChangeFileExt(name, "");
  } else {
    result += base;
  }
  if (extension == "*") {
    // Without a dot in the name the whole name is appended again.
    const size_t first_dot = name.find('.');
    result += name.substr(first_dot == std::string::npos ? 0 : first_dot);
  } else {
    result += "." + extension;
  }
  return result;
}

const TJXClassInfo& TRenameFilesAction::ClassInfo() {
  using C = TRenameFilesAction;
  static const TJXClassInfo info = MakeClassInfo<C>(
      "TRenameFilesAction", TPublished<C>()
                                .WideString("SourceSpec", &C::SourceSpec, &C::SetSourceSpec)
                                .WideString("TargetSpec", &C::TargetSpec, &C::SetTargetSpec)
                                .Build());
  return info;
}

}  // namespace jx
