#include <gtest/gtest.h>

#include "actions/files/bactions1.h"
#include "actions/files/bactions2.h"
#include "actions/files/jxrenamedirectoryaction.h"
#include "actions/files/jxtouchfile.h"
#include "platform/clock.h"

namespace jx {
namespace {

// The defaults that are not their type's zero value, as a new action
// publishes them to the host.
TEST(FileActionDefaults, AsANewActionPublishesThem) {
  struct Row {
    const TJXClassInfo& Class;
    const char* Property;
    const char* Text;
  };
  const Row rows[] = {
      {TDeleteFilesAction::ClassInfo(), "FailIfNoFile", "True"},
      {TFileExistsAction::ClassInfo(), "ExistsMode", "feFailIfMissing"},
      {TRenameDirAction::ClassInfo(), "RenameDir", "True"},
      {TTouchFilesAction::ClassInfo(), "TouchDate", "True"},
      {TTouchFilesAction::ClassInfo(), "TouchTime", "True"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(row.Text, row.Class.FindProperty(row.Property)->GetText(*row.Class.Create())) << row.Property;
  }
  const TDateTime before = Now();
  TTouchFilesAction touch;
  EXPECT_LE(before, touch.DateTime());
  EXPECT_GE(Now(), touch.DateTime());
}

}  // namespace
}  // namespace jx
