#include "framework/jxproperties.h"

#include <gtest/gtest.h>

#include <tuple>
#include <utility>

#include "actions/files/bactions2.h"
#include "framework/jxwhileaction.h"
#include "rtl/sysutils.h"
#include "support/recordinghost.h"

namespace jx {
namespace {

enum TColour { clRed, clGreen, clBlue };
const TEnumTypeInfo kColourInfo{"TColour", {"clRed", "clGreen", "clBlue"}, {"Red", "Green", "Blue"}};

// Names and captions read in any case; sets as bracketed lists of names.
TEST(EnumTypeInfo, NamesCaptionsAndSets) {
  EXPECT_EQ(std::tuple(1, 1, 2, -1), std::tuple(kColourInfo.OrdinalOf("clGreen"), kColourInfo.OrdinalOf("CLGREEN"),
                                                kColourInfo.OrdinalOf("blue"), kColourInfo.OrdinalOf("clPink")));
  EXPECT_EQ("clBlue", kColourInfo.NameOf(2));
  const uint32_t set = SetOf({clRed, clBlue});
  EXPECT_EQ(std::tuple("[clRed,clBlue]", "[]"), std::tuple(SetToText(set, kColourInfo), SetToText(0, kColourInfo)));
  EXPECT_EQ(set, ParseSet(" [ clBlue , clRed ] ", kColourInfo));
  EXPECT_EQ(0u, ParseSet("[]", kColourInfo));
  EXPECT_TRUE(InSet(set, clBlue) && !InSet(set, clGreen));
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
  EXPECT_EQ(std::tuple("x y", false, clBlue, SetOf({clGreen, clBlue}), 2),
            std::tuple(a.Name, a.Flag, a.Colour, a.Colours, a.Lines.Count()));
}

// Without a format: the display name, and the first key in parentheses.
TEST(Description, DisplayNameAndFirstKey) {
  TDeleteFilesAction a;
  EXPECT_EQ("Delete File(s)", a.GetDescription());
  a.SetFileSpec("out/*.o");
  a.SetDisplayName("Remove objects");
  EXPECT_EQ("Remove objects (out/*.o)", a.GetDescription());
}

// Resetting the count between builds is the build run's (see the host tests).
TEST(WhileAction, CountsPassesAndStopsOnSignal) {
  struct Loop : TWhileAction {
    const TJXClassInfo& GetClassInfo() const override { return TDeleteFilesAction::ClassInfo(); }
  };
  test::Hosted<Loop> h;
  EXPECT_TRUE(h.Action.Execute() && h.Action.Execute());
  EXPECT_EQ("Pass 2", h.Action.GetStatusText());
  h.Host.Stop = true;
  EXPECT_FALSE(h.Action.Execute());
}

TEST(Scripts, DeclaredOnceByName) {
  test::Hosted<TDeleteFilesAction> h;
  IJXActionScript& script = h.Action.AddScript("OnFindText");
  EXPECT_EQ(&script, &h.Action.AddScript("OnFindText"));
  EXPECT_EQ(nullptr, h.Action.GetScriptByName("OnReadLine"));
  EXPECT_EQ((std::vector<std::string>{"OnFindText"}), h.Action.GetScriptNames());
}

}  // namespace
}  // namespace jx
