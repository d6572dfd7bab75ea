#include "host/projectxml.h"

#include <gtest/gtest.h>

#include "host/testactions.h"
#include "support/tempdir.h"

namespace jx {
namespace {

const Palette& Classes() {
  static const Palette palette = test::TestPalette();
  return palette;
}

Project Parse(const std::string& xml) { return ParseProject(xml, "p.xml", Classes()); }

// Every property text, script and attribute of the tree, one line each.
std::vector<std::string> Snapshot(const ActionList& actions, const std::string& indent = "") {
  std::vector<std::string> lines;
  for (const auto& action : actions) {
    lines.push_back(indent + action->ClassName() + " Enabled=" + (action->Enabled ? "1" : "0") +
                    " IgnoreFailure=" + (action->IgnoreFailure ? "1" : "0"));
    for (const TPropertyInfo& property : action->GetClassInfo().Properties) {
      lines.push_back(indent + "  " + property.Name + "=" + property.GetText(*action));
    }
    for (const std::string& name : action->GetScriptNames()) {
      lines.push_back(indent + "  script " + name + "=" + action->GetScriptByName(name)->GetScriptText());
    }
    for (const std::string& line : Snapshot(action->Children(), indent + "    ")) lines.push_back(line);
  }
  return lines;
}

const char* const kFullProject = R"(<?xml version="1.0" encoding="UTF-8"?>
<Project>
  <Variables>
    <Variable Name="OUT" Type="String">build dir</Variable>
    <Variable Name="N" Type="Integer">42</Variable>
    <Variable Name="Ratio" Type="float">0.25</Variable>
    <Variable Name="Flag" Type="Boolean">true</Variable>
    <Variable Name="Blank"> </Variable>
  </Variables>
  <Actions>
    <Action Class="TDeleteFilesAction" Enabled="False" IgnoreFailure="True">
      <Property Name="FileSpec">%OUT%/*.o &amp; more</Property>
      <Property Name="deletehidden">TRUE</Property>
    </Action>
    <Action Class="TCountLoop">
      <Property Name="Passes">3</Property>
      <Actions>
        <Action Class="TStepAction">
          <Property Name="Label">inner</Property>
          <Property Name="Notes"><Line>a.txt</Line><Line>%X%</Line><Line></Line></Property>
          <Script Name="OnExecute" Language="Lua"><![CDATA[if a < b then x = "]]]]><![CDATA[>" end]]></Script>
        </Action>
      </Actions>
    </Action>
  </Actions>
</Project>
)";

TEST(ProjectXml, LoadsVariablesWithTheirTypes) {
  Project project = Parse(kFullProject);
  ASSERT_EQ(5u, project.Variables.size());
  EXPECT_EQ(Variant("build dir"), project.Variables[0].Value);
  EXPECT_EQ(Variant(int32_t{42}), project.Variables[1].Value);
  EXPECT_EQ(VariableType::Float, project.Variables[2].Type);
  EXPECT_EQ(Variant(0.25), project.Variables[2].Value);
  EXPECT_EQ(Variant(true), project.Variables[3].Value);
  EXPECT_EQ(Variant(" "), project.Variables[4].Value);
}

TEST(ProjectXml, LoadsActionsPropertiesListsScriptsAndChildren) {
  Project project = Parse(kFullProject);
  ASSERT_EQ(2u, project.Actions.size());
  const TCustomJXAction& remove = *project.Actions[0];
  EXPECT_FALSE(remove.Enabled);
  EXPECT_TRUE(remove.IgnoreFailure);
  EXPECT_EQ("Delete File(s) (%OUT%/*.o & more)", remove.GetDescription());
  const TCustomJXAction& loop = *project.Actions[1];
  ASSERT_EQ(1u, loop.Children().size());
  auto& step = static_cast<test::StepAction&>(*loop.Children()[0]);
  EXPECT_EQ((std::vector<std::string>{"a.txt", "%X%", ""}), step.Notes().Lines());
  EXPECT_EQ("if a < b then x = \"]]>\" end", step.GetScriptByName("OnExecute")->GetScriptText());
}

TEST(ProjectXml, SaveThenLoadGivesTheSameProject) {
  Project project = Parse(kFullProject);
  Project again = Parse(ProjectToXml(project));
  EXPECT_EQ(Snapshot(project.Actions), Snapshot(again.Actions));
  ASSERT_EQ(project.Variables.size(), again.Variables.size());
  for (size_t i = 0; i < project.Variables.size(); ++i) {
    EXPECT_EQ(project.Variables[i].Name, again.Variables[i].Name);
    EXPECT_EQ(project.Variables[i].Type, again.Variables[i].Type);
    EXPECT_EQ(project.Variables[i].Value, again.Variables[i].Value);
  }
}

TEST(ProjectXml, SaveWritesDefaultsAndSkipsReadOnlyResults) {
  const std::string xml = ProjectToXml(Parse(kFullProject));
  EXPECT_NE(std::string::npos, xml.find("<Property Name=\"FailIfNoFile\">True</Property>"));
  EXPECT_NE(std::string::npos, xml.find("<Property Name=\"DeleteHidden\">True</Property>"));
  EXPECT_EQ(std::string::npos, xml.find("Terminations"));
}

TEST(ProjectXml, SaveProjectWritesAFileThatLoads) {
  test::TempDir dir;
  SaveProject(Parse(kFullProject), dir / "saved.xml");
  EXPECT_EQ(Snapshot(Parse(kFullProject).Actions), Snapshot(LoadProject(dir / "saved.xml", Classes()).Actions));
}

struct LoadError {
  const char* xml;
  const char* message;
};

class ProjectXmlErrors : public ::testing::TestWithParam<LoadError> {};

TEST_P(ProjectXmlErrors, NameTheLineAndTheProblem) {
  try {
    Parse(GetParam().xml);
    FAIL() << "loaded";
  } catch (const ProjectLoadError& e) {
    EXPECT_EQ(GetParam().message, e.Message());
  }
}

INSTANTIATE_TEST_SUITE_P(
    Table, ProjectXmlErrors,
    ::testing::Values(
        LoadError{"", "p.xml:1: not valid XML: No document element found"},
        LoadError{"<Project>\n<Actions>\n</Project>", "p.xml:3: not valid XML: Start-end tags mismatch"},
        LoadError{"<Projekt/>", "p.xml:1: the root element is <Projekt>, expected <Project>"},
        LoadError{"<Project>\n  <Action/>\n</Project>", "p.xml:2: unexpected element <Action> in <Project>"},
        LoadError{"<Project>\n  <Actions>\n    text\n  </Actions>\n</Project>",
                  "p.xml:2: unexpected text in <Actions>"},
        LoadError{"<Project><Actions>\n<Action Class=\"TFoo\"/></Actions></Project>", "p.xml:2: unknown class \"TFoo\""},
        LoadError{"<Project><Actions>\n<Action/></Actions></Project>", "p.xml:2: <Action> without a Class attribute"},
        LoadError{"<Project><Actions>\n<Action Class=\"TStepAction\" Enable=\"True\"/></Actions></Project>",
                  "p.xml:2: unknown attribute \"Enable\" of <Action>"},
        LoadError{"<Project><Actions>\n<Action Class=\"TStepAction\" Enabled=\"maybe\"/></Actions></Project>",
                  "p.xml:2: bad value \"maybe\" for attribute Enabled of <Action>: 'maybe' is not a valid boolean "
                  "value"},
        LoadError{"<Project><Actions>\n<Action Class=\"TDeleteFilesAction\">\n<Property Name=\"Bar\"/>"
                  "</Action></Actions></Project>",
                  "p.xml:3: unknown property \"Bar\" of class TDeleteFilesAction"},
        LoadError{"<Project><Actions><Action Class=\"TDeleteFilesAction\">\n\n"
                  "<Property Name=\"FailIfNoFile\">maybe</Property></Action></Actions></Project>",
                  "p.xml:3: bad value \"maybe\" for boolean property FailIfNoFile: 'maybe' is not a valid boolean "
                  "value"},
        LoadError{"<Project><Actions><Action Class=\"TStepAction\">\n<Property Name=\"Outcome\">x</Property>"
                  "</Action></Actions></Project>",
                  "p.xml:2: bad value \"x\" for integer property Outcome: 'x' is not a valid integer value"},
        LoadError{"<Project><Actions><Action Class=\"TStepAction\">\n<Property Name=\"Label\">a</Property>\n"
                  "<Property Name=\"label\">b</Property></Action></Actions></Project>",
                  "p.xml:3: property \"Label\" is set twice"},
        LoadError{"<Project><Actions><Action Class=\"TStepAction\">\n<Property Name=\"Terminations\">1</Property>"
                  "</Action></Actions></Project>",
                  "p.xml:2: property \"Terminations\" of class TStepAction is read-only"},
        LoadError{"<Project><Actions><Action Class=\"TStepAction\">\n<Property Name=\"Notes\"><Item/></Property>"
                  "</Action></Actions></Project>",
                  "p.xml:2: unexpected element <Item> in <Property>"},
        LoadError{"<Project><Actions><Action Class=\"TStepAction\">\n<Property Name=\"Label\"><Line>a</Line>"
                  "</Property></Action></Actions></Project>",
                  "p.xml:2: unexpected element <Line> in <Property>"},
        LoadError{"<Project><Actions><Action Class=\"TStepAction\">\n<Script Name=\"OnFoo\"/>"
                  "</Action></Actions></Project>",
                  "p.xml:2: unknown script \"OnFoo\" of class TStepAction"},
        LoadError{"<Project><Actions><Action Class=\"TStepAction\">\n<Script Name=\"OnExecute\" Language=\"Python\"/>"
                  "</Action></Actions></Project>",
                  "p.xml:2: unsupported script language \"Python\" (scripts are Lua)"},
        LoadError{"<Project><Actions><Action Class=\"TStepAction\">\n<Actions/></Action></Actions></Project>",
                  "p.xml:2: class TStepAction cannot hold child actions"},
        LoadError{"<Project><Actions><Action Class=\"TCountLoop\"><Actions>\n<Action Class=\"TBar\"/>"
                  "</Actions></Action></Actions></Project>",
                  "p.xml:2: unknown class \"TBar\""},
        LoadError{"<Project><Variables>\n<Variable Name=\"X\" Type=\"Text\">a</Variable></Variables></Project>",
                  "p.xml:2: unknown variable type \"Text\" of variable X (String, Integer, Float or Boolean)"},
        LoadError{"<Project><Variables>\n<Variable Name=\"N\" Type=\"Integer\">ten</Variable></Variables></Project>",
                  "p.xml:2: bad value \"ten\" for Integer variable N: 'ten' is not a valid integer value"},
        LoadError{"<Project><Variables>\n<Variable Name=\"1N\"/></Variables></Project>",
                  "p.xml:2: invalid variable name \"1N\""},
        LoadError{"<Project><Variables><Variable Name=\"N\"/>\n<Variable Name=\"n\"/></Variables></Project>",
                  "p.xml:2: variable \"n\" is declared twice"}));

TEST(ProjectXml, MissingFileIsALoadError) {
  test::TempDir dir;
  const std::string missing = dir / "missing.xml";
  try {
    LoadProject(missing, Classes());
    FAIL() << "loaded";
  } catch (const ProjectLoadError& e) {
    EXPECT_EQ(missing + ": cannot open the file: No such file or directory", e.Message());
  }
}

}  // namespace
}  // namespace jx
