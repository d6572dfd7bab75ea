#include "framework/jxproperties.h"

#include <gtest/gtest.h>

#include <utility>

#include "actions/files/bactions2.h"
#include "framework/jxwhileaction.h"
#include "rtl/sysutils.h"
#include "support/recordinghost.h"

namespace jx {
namespace {

enum TColour { clRed, clGreen, clBlue };
const TEnumTypeInfo kColourInfo{"TColour", {"clRed", "clGreen", "clBlue"}, {"Red", "Green", "Blue"}};

TEST(EnumTypeInfo, ReadsNamesAndCaptionsInAnyCase) {
  EXPECT_EQ(1, kColourInfo.OrdinalOf("clGreen"));
  EXPECT_EQ(1, kColourInfo.OrdinalOf("CLGREEN"));
  EXPECT_EQ(2, kColourInfo.OrdinalOf("blue"));
  EXPECT_EQ(-1, kColourInfo.OrdinalOf("clPink"));
  EXPECT_EQ("clBlue", kColourInfo.NameOf(2));
}

TEST(EnumSets, TextRoundTripAndErrors) {
  const uint32_t set = SetOf({clRed, clBlue});
  EXPECT_EQ("[clRed,clBlue]", SetToText(set, kColourInfo));
  EXPECT_EQ("[]", SetToText(0, kColourInfo));
  EXPECT_EQ(set, ParseSet(" [ clBlue , clRed ] ", kColourInfo));
  EXPECT_EQ(0u, ParseSet("[]", kColourInfo));
  EXPECT_TRUE(InSet(set, clBlue));
  EXPECT_FALSE(InSet(set, clGreen));
  EXPECT_THROW(ParseSet("clRed", kColourInfo), EConvertError);
  EXPECT_THROW(ParseSet("[clPink]", kColourInfo), EConvertError);
}

// A property without a rule of its own is bound straight to its member.
struct FieldAction : TJXAction {
  static const TJXClassInfo& ClassInfo() {
    using C = FieldAction;
    static const TJXClassInfo info = MakeClassInfo<C>(
        "TFieldAction", TPublished<C>()
                            .WideString("Name", &C::Name)
                            .WordBool("Flag", &C::Flag)
                            .Enumeration("Colour", kColourInfo, &C::Colour)
                            .Set("Colours", kColourInfo, &C::Colours)
                            .DateTime("When", &C::When)
                            .StringList("Lines", &C::Lines)
                            .Build());
    return info;
  }
  const TJXClassInfo& GetClassInfo() const override { return ClassInfo(); }
  std::string Name = "n";
  bool Flag = true;
  TColour Colour = clGreen;
  uint32_t Colours = SetOf({clRed});
  TDateTime When = 0;
  TStringList Lines;
};

TEST(PropertyTable, BindsMembersDirectly) {
  FieldAction a;
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"Name", "x y"}, {"Flag", "False"}, {"Colour", "clBlue"}, {"Colours", "[clGreen,clBlue]"},
      {"When", "2026-11-15T14:05:09"}, {"Lines", "a\nb\n"}};
  for (const auto& [name, text] : rows) {
    const TPropertyInfo& p = *a.GetClassInfo().FindProperty(name);
    EXPECT_FALSE(p.ReadOnly) << name;
    p.SetText(a, text);
    EXPECT_EQ(text, p.GetText(a)) << name;
  }
  EXPECT_EQ("x y", a.Name);
  EXPECT_FALSE(a.Flag);
  EXPECT_EQ(clBlue, a.Colour);
  EXPECT_EQ(SetOf({clGreen, clBlue}), a.Colours);
  EXPECT_EQ(2u, a.Lines.Count());
}

TEST(PropertyTable, SettersConvertTextAndRejectBadValues) {
  test::Hosted<TDeleteFilesAction> h;
  const TJXClassInfo& info = TDeleteFilesAction::ClassInfo();
  info.FindProperty("DeleteHidden")->SetText(h.Action, "true");
  EXPECT_TRUE(h.Action.DeleteHidden());
  info.FindProperty("DeleteHidden")->SetText(h.Action, "0");
  EXPECT_FALSE(h.Action.DeleteHidden());
  try {
    info.FindProperty("FailIfNoFile")->SetText(h.Action, "maybe");
    FAIL() << "no error";
  } catch (const EConvertError& e) {
    EXPECT_EQ("'maybe' is not a valid boolean value", e.Message());
  }
  // A description-key property set by name still goes through the host.
  info.FindProperty("FileSpec")->SetText(h.Action, "out/*.o");
  ASSERT_EQ(1u, h.Host.KeyUpdates.size());
  EXPECT_EQ("out/*.o", h.Action.FileSpec());
}

class FormattedAction : public TJXAction {
 public:
  const TJXClassInfo& GetClassInfo() const override { return TDeleteFilesAction::ClassInfo(); }
  std::string GetActionName() const override { return "Set Variable"; }
  std::string GetDescriptionFormatString() const override { return InternalGetActionName() + " %s to %s[ %s ]"; }
  std::string GetDescriptionKeyValue(int index) const override { return std::string(1, char('A' + index)); }
};

// Without a format: the display name, and the first key in parentheses; a
// format string takes the keys in index order.
TEST(Description, NameAndFirstKeyOrTheFormat) {
  TDeleteFilesAction a;
  EXPECT_EQ("Delete File(s)", a.GetDescription());
  a.SetFileSpec("out/*.o");
  a.SetDisplayName("Remove objects");
  EXPECT_EQ("Remove objects (out/*.o)", a.GetDescription());
  EXPECT_EQ("Set Variable A to B[ C ]", FormattedAction().GetDescription());
}

TEST(WhileAction, CountsPassesAndStopsOnSignal) {
  struct Loop : TWhileAction {
    const TJXClassInfo& GetClassInfo() const override { return TDeleteFilesAction::ClassInfo(); }
  };
  test::Hosted<Loop> h;
  EXPECT_TRUE(h.Action.Execute());
  EXPECT_TRUE(h.Action.Execute());
  EXPECT_EQ("Pass 2", h.Action.GetStatusText());
  h.Host.Stop = true;
  EXPECT_FALSE(h.Action.Execute());
  h.Action.ResetBuildStatus();
  EXPECT_EQ(0, h.Action.PassCount());
}

TEST(Scripts, DeclaredOnceAndRunThroughTheHost) {
  test::Hosted<TDeleteFilesAction> h;
  IJXActionScript& script = h.Action.AddScript("OnFindText");
  script.SetScriptText("x = 1");
  EXPECT_EQ(&script, &h.Action.AddScript("OnFindText"));
  EXPECT_EQ(nullptr, h.Action.GetScriptByName("OnReadLine"));
  EXPECT_EQ((std::vector<std::string>{"OnFindText"}), h.Action.GetScriptNames());
  Variant result;
  EXPECT_TRUE(h.Action.ExecuteScript("OnFindText", result));
  EXPECT_EQ((std::vector<std::string>{"OnFindText"}), h.Host.ScriptsRun);
}

}  // namespace
}  // namespace jx
