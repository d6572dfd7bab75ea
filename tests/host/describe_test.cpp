#include "host/describe.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "actions/files/bactions2.h"

namespace jx {
namespace {

enum TTouchMode { tmNone, tmKeep, tmSet };
const TEnumTypeInfo kTouchModeInfo{"TTouchMode", {"tmNone", "tmKeep", "tmSet"}, {"", "Don't Touch", "Set Now"}};

// A class with what Delete File(s) lacks: an enumeration with captions, a
// hidden and a read-only property, two groups and a property without a caption,
// which the grid shows before the groups rather than inside the last one.
class DescribedAction : public TJXAction {
 public:
  static const TJXClassInfo& ClassInfo() {
    using C = DescribedAction;
    static const TJXClassInfo info =
        MakeClassInfo<C>("TDescribedAction", TPublished<C>()
                                                 .Enumeration("Mode", kTouchModeInfo, &C::Mode, &C::SetMode)
                                                 .String("Secret", &C::Secret, &C::SetSecret)
                                                 .StringList("Names", &C::Names)
                                                 .IntegerResult("Count", &C::Count)
                                                 .String("Plain", &C::Secret, &C::SetSecret)
                                                 .Build());
    return info;
  }
  const TJXClassInfo& GetClassInfo() const override { return ClassInfo(); }
  std::string GetQuickHelpFilename() const override { return "Plugins\\Described.html"; }
  int GetHelpTopicID() const override { return 7; }
  void GetHiddenProperties(TStrings& list) const override { list.Add("Secret"); }
  void GetPropertyAlias(TStrings& list) const override {
    list.Add("[Behaviour]");
    list.Add("Mode=Touch Mode");
    list.Add("[Results]");
    list.Add("Count=Files Counted");
    list.Add("Names=Name List");
  }
  void GetPropertyHelp(TStrings& list) const override { list.Add("Mode=What to do with the time"); }

  TTouchMode Mode() const { return mode_; }
  void SetMode(TTouchMode value) { mode_ = value; }
  const std::string& Secret() const { return secret_; }
  void SetSecret(const std::string& value) { secret_ = value; }
  TStrings& Names() { return names_; }
  int32_t Count() const { return 0; }

 private:
  TTouchMode mode_ = tmKeep;
  std::string secret_;
  TStringList names_;
};

TEST(Describe, ShowsThePropertyGridUnderItsGroups) {
  const PaletteEntry entry{"Described", "Test", &DescribedAction::ClassInfo(), "", {}};
  EXPECT_EQ(
      "Described (TDescribedAction)\n"
      "Category: Test\n"
      "Help:     Plugins\\Described.html, topic 7\n"
      "\n"
      "  Name   Caption        Kind                Default  Help\n"
      "  Plain  Plain          String              \"\"\n"
      "[Behaviour]\n"
      "  Mode   Touch Mode     TTouchMode          tmKeep   What to do with the time\n"
      "         values: tmNone, tmKeep (Don't Touch), tmSet (Set Now)\n"
      "[Results]\n"
      "  Names  Name List      TStrings            []\n"
      "  Count  Files Counted  Integer, read-only  0\n",
      DescribeAction(entry));
}

TEST(Describe, ListsThePaletteInAlignedColumns) {
  Palette palette;
  palette.RegisterAction("Delete File(s)", "Files & Directories", &TDeleteFilesAction::ClassInfo(), "");
  palette.RegisterAction("Described", "Test", &DescribedAction::ClassInfo(), "");
  EXPECT_EQ(
      "Files & Directories  Delete File(s)  TDeleteFilesAction\n"
      "Test                 Described       TDescribedAction\n",
      ListPalette(palette));
}

TEST(Palette, KeepsWhatThePluginRegistered) {
  const Palette& palette = PluginPalette();
  const PaletteEntry* entry = palette.FindClass("tdeletefilesaction");
  ASSERT_NE(nullptr, entry);
  EXPECT_EQ("Delete File(s)", entry->DisplayName);
  EXPECT_EQ("HDELETE_FILE", entry->Icon);
  ASSERT_EQ(1u, entry->Pages.size());
  EXPECT_EQ("TDeleteFilesFrame", entry->Pages[0]->ClassName);
  EXPECT_EQ(nullptr, palette.FindClass("TFoo"));
  const auto editor = std::find_if(palette.Editors().begin(), palette.Editors().end(),
                                   [&](const auto& e) { return e.Class == entry->Class; });
  ASSERT_NE(palette.Editors().end(), editor);
  EXPECT_EQ("FileSpec", editor->PropertyName);
  ASSERT_FALSE(palette.ScriptConstants().empty());
  EXPECT_EQ("rtInteger", palette.ScriptConstants()[0].first);
}

}  // namespace
}  // namespace jx
