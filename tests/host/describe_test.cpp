#include "host/describe.h"

#include <gtest/gtest.h>

#include "framework/jxaction.h"

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
                                                 .Enumeration("Mode", kTouchModeInfo, &C::Mode)
                                                 .String("Secret", &C::Secret)
                                                 .StringList("Names", &C::Names)
                                                 .IntegerResult("Count", &C::Count)
                                                 .String("Plain", &C::Secret)
                                                 .Build());
    return info;
  }
  const TJXClassInfo& GetClassInfo() const override { return ClassInfo(); }
  std::string GetQuickHelpFilename() const override { return "Plugins\\Described.html"; }
  int GetHelpTopicID() const override { return 7; }
  void GetHiddenProperties(TStrings& list) const override { list.Add("Secret"); }
  void GetPropertyAlias(TStrings& list) const override {
    list.SetText("[Behaviour]\nMode=Touch Mode\n[Results]\nCount=Files Counted\nNames=Name List");
  }
  void GetPropertyHelp(TStrings& list) const override { list.Add("Mode=What to do with the time"); }

  int32_t Count() const { return 0; }
  TTouchMode Mode = tmKeep;
  std::string Secret;
  TStringList Names;
};

// The palette in columns (the plug-in's is run end to end); a class found by
// its name in any case, and its property grid under its groups.
TEST(Describe, ListsThePaletteAndShowsThePropertyGrid) {
  Palette palette;
  palette.RegisterAction("Described", "Test", &DescribedAction::ClassInfo(), "");
  EXPECT_EQ("Test  Described  TDescribedAction\n", ListPalette(palette));
  ASSERT_NE(nullptr, palette.FindClass("tdescribedaction"));
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
      DescribeAction(*palette.FindClass("tdescribedaction")));
}

}  // namespace
}  // namespace jx
