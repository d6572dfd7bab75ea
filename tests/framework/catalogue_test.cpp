// The whole catalogue, walked from what the plug-in registers: every action
// type saves, loads and saves again to the same project text, and names in
// its property lists and editors only properties it publishes.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <utility>

#include "actions/iterators/jxiteratoraction.h"
#include "framework/jx30filereg.h"
#include "host/palette.h"
#include "host/projectxml.h"
#include "rtl/strutils.h"

namespace jx {
namespace {

// Names a class's lists or editors may hold although it publishes no such
// property, because the plug-in has always registered them so.
const std::set<std::pair<std::string, std::string>> kKeptQuirks = {
    // Delete File(s) gets the file-name editor for a "Target" it does not have.
    {"TDeleteFilesAction", "Target"},
    // Move File(s) shares Copy File(s)'s help lines, "Recurse" among them,
    // but publishes no Recurse.
    {"TMoveFilesAction", "Recurse"},
};

// A text of the property's kind that differs from `current`.
std::string OtherValue(const TPropertyInfo& p, const std::string& current) {
  switch (p.Kind) {
    case TPropertyKind::pkBoolean:
    case TPropertyKind::pkWordBool:
    case TPropertyKind::pkByteBool: return current == "True" ? "False" : "True";
    case TPropertyKind::pkInteger:
    case TPropertyKind::pkCardinal:
    case TPropertyKind::pkInt64: return IntToStr(StrToInt64(current) + 7);
    case TPropertyKind::pkFloat: return current == "2.5" ? "3.5" : "2.5";
    case TPropertyKind::pkDateTime: return "2001-02-03T04:05:06";
    case TPropertyKind::pkEnumeration:
      return p.EnumType->Names[(p.EnumType->OrdinalOf(current) + 1) % p.EnumType->Names.size()];
    case TPropertyKind::pkSet: return current == "[]" ? "[" + p.EnumType->Names.back() + "]" : "[]";
    case TPropertyKind::pkStringList: return "one\n\n%THREE%\n";
    default: return current + " %V%&<x>";
  }
}

bool IsSaved(const TPropertyInfo& p) { return p.Stored && !p.ReadOnly && !p.WriteOnly; }

std::string Saved(std::unique_ptr<TCustomJXAction> action) {
  Project project;
  project.Actions.push_back(std::move(action));
  return ProjectToXml(project);
}

TEST(Catalogue, EveryActionSavesLoadsAndSavesAgainTheSame) {
  const Palette& palette = PluginPalette();
  ASSERT_EQ(CatalogueRows().size(), palette.Actions().size());
  for (const PaletteEntry& entry : palette.Actions()) {
    const std::string& name = entry.Class->ClassName;
    for (const bool defaults : {true, false}) {
      std::unique_ptr<TCustomJXAction> action = entry.Class->CreateAction();
      ASSERT_NE(nullptr, action) << name;
      for (const TPropertyInfo& p : entry.Class->Properties) {
        if (defaults || !IsSaved(p)) continue;
        const std::string value = OtherValue(p, p.GetText(*action));
        p.SetText(*action, value);
        EXPECT_EQ(value, p.GetText(*action)) << name << "." << p.Name;
      }
      const std::string xml = Saved(std::move(action));
      EXPECT_EQ(xml, ProjectToXml(ParseProject(xml, "catalogue.xml", palette))) << name;
    }
  }
}

// The property names of a list: bare names, or the names before "=";
// group lines ("[Files]") are no names.
std::vector<std::string> NamesOf(const TStrings& list) {
  std::vector<std::string> names;
  for (const std::string& line : list.Lines()) {
    if (line.empty() || line.front() != '[') names.push_back(line.substr(0, line.find('=')));
  }
  return names;
}

bool Publishes(const TJXClassInfo& cls, const std::string& name) {
  return cls.FindProperty(name) != nullptr || kKeptQuirks.count({cls.ClassName, name}) > 0;
}

TEST(Catalogue, PropertyListsAndEditorsNameOnlyPublishedProperties) {
  const Palette& palette = PluginPalette();
  for (const PaletteEntry& entry : palette.Actions()) {
    const std::unique_ptr<TCustomJXAction> action = entry.Class->CreateAction();
    TStringList hidden, read_only, alias, help;
    action->GetHiddenProperties(hidden);
    action->GetReadOnlyProperties(read_only);
    action->GetPropertyAlias(alias);
    action->GetPropertyHelp(help);
    for (const TStringList* list : {&hidden, &read_only, &alias, &help}) {
      for (const std::string& name : NamesOf(*list)) {
        EXPECT_TRUE(Publishes(*entry.Class, name)) << entry.Class->ClassName << " lists " << name;
      }
    }
  }
  for (const PaletteEditor& editor : palette.Editors()) {
    const TJXClassInfo& cls = *editor.Class;
    if (!editor.PropertyName.empty()) {
      EXPECT_TRUE(Publishes(cls, editor.PropertyName)) << cls.ClassName << " edits " << editor.PropertyName;
      continue;
    }
    bool applies = false;  // an editor for every property of a type needs one such property
    for (const TPropertyInfo& p : cls.Properties) applies |= p.EnumType && p.EnumType == editor.Type.EnumType;
    EXPECT_TRUE(applies) << cls.ClassName << " edits no property of its editor's type";
  }
}

// What the palette shows is what each action says of itself, but for the one
// palette name that differs from the action's own ("Get DateTime").
TEST(Catalogue, NamesHelpPagesAndPagesComeFromTheActions) {
  for (const PaletteEntry& entry : PluginPalette().Actions()) {
    const std::unique_ptr<TCustomJXAction> action = entry.Class->CreateAction();
    const std::string& name = entry.Class->ClassName;
    if (name != "TDateTimeAction") {
      EXPECT_EQ(action->GetActionName(), entry.DisplayName) << name;
    }
    const std::string page = action->GetQuickHelpFilename();
    EXPECT_TRUE(page.rfind("Plugins\\", 0) == 0 && page.size() > 13 && page.substr(page.size() - 5) == ".html")
        << name << ": " << page;
    EXPECT_GT(action->GetHelpTopicID(), 0) << name;
    EXPECT_FALSE(entry.Pages.empty()) << name;
    for (const TJXPageClass* p : entry.Pages) EXPECT_NE(nullptr, p) << name << " names an unknown page";
  }
  EXPECT_EQ("Get Date/Time", PluginPalette().FindClass("TDateTimeAction")->DisplayName);
}

// Without the design environment only the actions, their script methods and
// the script constants and types are registered.
TEST(Registration, WithoutDesignNoEditorsAndNoPages) {
  Palette palette;
  JXActionServices = &palette;
  JXScriptingServices = &palette;
  JXOptionsServices = &palette;
  JXRegister(false);
  JXActionServices = nullptr;
  JXScriptingServices = nullptr;
  JXOptionsServices = nullptr;
  EXPECT_EQ(CatalogueRows().size(), palette.Actions().size());
  EXPECT_TRUE(palette.Editors().empty());
  for (const PaletteEntry& entry : palette.Actions()) EXPECT_TRUE(entry.Pages.empty()) << entry.DisplayName;
  EXPECT_FALSE(palette.ScriptConstants().empty());
}

TEST(Registration, RegistryConstantsWithTheRootRegisteredTwice) {
  std::vector<std::string> names;
  for (const auto& [name, value] : PluginPalette().ScriptConstants()) names.push_back(name + "=" + value.ToString());
  EXPECT_EQ((std::vector<std::string>{"rtInteger=0", "rtString=1", "HKEY_CLASSES_ROOT=2147483648",
                                      "HKEY_CLASSES_ROOT=2147483648", "HKEY_CURRENT_USER=2147483649",
                                      "HKEY_LOCAL_MACHINE=2147483650", "HKEY_USERS=2147483651",
                                      "HKEY_CURRENT_CONFIG=2147483653"}),
            names);
}

// Every iterator, and nothing else, offers "Reset" to scripts, which forgets
// the loop's position.
TEST(Registration, IteratorsOfferReset) {
  const Palette& palette = PluginPalette();
  for (const PaletteEntry& entry : palette.Actions()) {
    const auto reset = std::find_if(palette.ScriptMethods().begin(), palette.ScriptMethods().end(),
                                    [&](const auto& m) { return m.Class == entry.Class && m.Name == "Reset"; });
    const bool has_reset = reset != palette.ScriptMethods().end();
    ASSERT_EQ(entry.Category == "Iterators", has_reset) << entry.Class->ClassName;
    if (!has_reset) continue;
    std::unique_ptr<TCustomJXAction> loop = entry.Class->CreateAction();
    auto& iterator = dynamic_cast<TIteratorAction&>(*loop);
    int next = 0;
    iterator.GetNextActionSource(nssAfterExecute, next);
    ASSERT_EQ(2, iterator.ItemIndex());
    reset->Method(*loop);
    EXPECT_EQ(1, iterator.ItemIndex()) << entry.Class->ClassName;
  }
}

}  // namespace
}  // namespace jx
