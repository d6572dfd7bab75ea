// The action classes as text: projects read and written, the palette listed
// and a class described.
#include <gtest/gtest.h>

#include <utility>

#include "actions/files/bactions2.h"
#include "host/describe.h"
#include "host/projectxml.h"
#include "host/testactions.h"
#include "rtl/messageof.h"

namespace jx {
namespace {

// The two test classes and the plug-in's Delete File(s).
const Palette& Classes() {
  static Palette palette;
  if (!palette.Actions().empty()) return palette;
  for (const TJXClassInfo* cls : {&test::StepAction::ClassInfo(), &test::CountLoop::ClassInfo(),
                                  &TDeleteFilesAction::ClassInfo()}) {
    palette.RegisterAction(cls->ActionName(), "Test", cls, "");
  }
  return palette;
}

Project Parse(const std::string& xml) { return ParseProject(xml, "p.xml", Classes()); }

const char* const kFullProject = R"(<?xml version="1.0" encoding="UTF-8"?>
<Project>
  <Variables>
    <Variable Name="OUT" Type="String">build dir</Variable><Variable Name="N" Type="Integer">42</Variable>
    <Variable Name="Ratio" Type="float">0.25</Variable><Variable Name="Flag" Type="Boolean">true</Variable>
    <Variable Name="Blank"> </Variable>
  </Variables>
  <Actions>
    <Action Class="TDeleteFilesAction" Enabled="False" IgnoreFailure="True">
      <Property Name="FileSpec">%OUT%/*.o &amp; more</Property><Property Name="deletehidden">TRUE</Property>
    </Action>
    <Action Class="TCountLoop"><Property Name="Passes">3</Property><Actions>
      <Action Class="TStepAction"><Property Name="Label">inner</Property>
        <Property Name="Notes"><Line>a.txt</Line><Line>%X%</Line><Line></Line></Property>
        <Script Name="OnExecute" Language="Lua"><![CDATA[if a < b then x = "]]]]><![CDATA[>" end]]></Script>
      </Action>
    </Actions></Action>
  </Actions>
</Project>
)";

// Saving, loading and saving again gives the same text, every stored property
// written (defaults included) and run results left out.
TEST(ProjectXml, LoadsAndSavesVariablesActionsListsScriptsAndChildren) {
  Project project = Parse(kFullProject);
  std::vector<std::string> variables;
  for (const ProjectVariable& v : project.Variables) {
    variables.push_back(VariableTypeName(v.Type) + (":" + v.Value.ToString()));
  }
  EXPECT_EQ((std::vector<std::string>{"String:build dir", "Integer:42", "Float:0.25", "Boolean:True", "String: "}),
            variables);
  ASSERT_EQ(2u, project.Actions.size());
  EXPECT_TRUE(!project.Actions[0]->Enabled && project.Actions[0]->IgnoreFailure);
  EXPECT_EQ("Delete File(s) (%OUT%/*.o & more)", project.Actions[0]->GetDescription());
  ASSERT_EQ(1u, project.Actions[1]->Children().size());
  auto& step = static_cast<test::StepAction&>(*project.Actions[1]->Children()[0]);
  EXPECT_EQ((std::vector<std::string>{"a.txt", "%X%", ""}), step.Notes.Lines());
  EXPECT_EQ("if a < b then x = \"]]>\" end", step.GetScriptByName("OnExecute")->GetScriptText());
  const std::string xml = ProjectToXml(project);
  EXPECT_EQ(xml, ProjectToXml(Parse(xml)));
  EXPECT_NE(std::string::npos, xml.find("<Property Name=\"FailIfNoFile\">True</Property>"));
  EXPECT_EQ(std::string::npos, xml.find("Terminations"));
}

std::string LoadErrorOf(const std::string& xml) { return test::MessageOf<ProjectLoadError>([&] { Parse(xml); }); }

std::string InActions(const std::string& xml) { return "<Project><Actions>" + xml + "</Actions></Project>"; }
std::string InStep(const std::string& xml) { return InActions("<Action Class=\"TStepAction\">" + xml + "</Action>"); }
std::string InVariables(const std::string& xml) { return "<Project><Variables>" + xml + "</Variables></Project>"; }

// Each load error names the file, the line and the problem (a missing file and
// an unknown class are run end to end).
TEST(ProjectXml, LoadErrorsNameTheLineAndTheProblem) {
  const std::pair<std::string, std::string> rows[] = {
      {"", "1: not valid XML: No document element found"},
      {"<Projekt/>", "1: the root element is <Projekt>, expected <Project>"},
      {"<Project>\n  <Actions>\n    text\n  </Actions>\n</Project>", "2: unexpected text in <Actions>"},
      {InActions("\n<Action/>"), "2: <Action> without a Class attribute"},
      {InActions("\n<Action Class=\"TStepAction\" Enable=\"True\"/>"), "2: unknown attribute \"Enable\" of <Action>"},
      {InActions("\n<Action Class=\"TStepAction\" Enabled=\"maybe\"/>"),
       "2: bad value \"maybe\" for attribute Enabled of <Action>: 'maybe' is not a valid boolean value"},
      {InActions("<Action Class=\"TDeleteFilesAction\">\n<Property Name=\"Bar\"/></Action>"),
       "2: unknown property \"Bar\" of class TDeleteFilesAction"},
      {InActions("<Action Class=\"TDeleteFilesAction\">\n\n<Property Name=\"FailIfNoFile\">maybe</Property></Action>"),
       "3: bad value \"maybe\" for boolean property FailIfNoFile: 'maybe' is not a valid boolean value"},
      {InStep("<Property Name=\"Label\">a</Property>\n<Property Name=\"label\">b</Property>"),
       "2: property \"Label\" is set twice"},
      {InStep("\n<Property Name=\"Terminations\">1</Property>"),
       "2: property \"Terminations\" of class TStepAction is read-only"},
      {InStep("\n<Property Name=\"Label\"><Line>a</Line></Property>"), "2: unexpected element <Line> in <Property>"},
      {InStep("\n<Script Name=\"OnFoo\"/>"), "2: unknown script \"OnFoo\" of class TStepAction"},
      {InStep("\n<Script Name=\"OnExecute\" Language=\"Python\"/>"),
       "2: unsupported script language \"Python\" (scripts are Lua)"},
      {InStep("\n<Actions/>"), "2: class TStepAction cannot hold child actions"},
      {InVariables("\n<Variable Name=\"X\" Type=\"Text\">a</Variable>"),
       "2: unknown variable type \"Text\" of variable X (String, Integer, Float or Boolean)"},
      {InVariables("\n<Variable Name=\"N\" Type=\"Integer\">ten</Variable>"),
       "2: bad value \"ten\" for Integer variable N: 'ten' is not a valid integer value"},
      {InVariables("\n<Variable Name=\"1N\"/>"), "2: invalid variable name \"1N\""},
      {InVariables("<Variable Name=\"N\"/>\n<Variable Name=\"n\"/>"), "2: variable \"n\" is declared twice"}};
  for (const auto& [xml, message] : rows) EXPECT_EQ("p.xml:" + message, LoadErrorOf(xml)) << xml;
}

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
