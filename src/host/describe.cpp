#include "host/describe.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <memory>
#include <vector>

#include "framework/jxaction.h"
#include "rtl/strutils.h"

namespace jx {

namespace {

struct PropertyRow {
  std::string Name, Caption, Kind, Default, Help, Group;
  std::string Values;  // enumeration values, shown below the row
};

// Captions and groups from the alias list ("[Group]" lines open a group).
struct Aliases {
  std::map<std::string, std::string> Captions;
  std::map<std::string, std::string> Groups;
};

Aliases ReadAliases(const TCustomJXAction& action) {
  TStringList lines;
  action.GetPropertyAlias(lines);
  Aliases aliases;
  std::string group;
  for (const std::string& line : lines.Lines()) {
    if (line.size() >= 2 && line.front() == '[' && line.back() == ']') {
      group = line.substr(1, line.size() - 2);
    } else if (size_t eq = line.find('='); eq != std::string::npos) {
      const std::string name = UpperCase(line.substr(0, eq));
      aliases.Captions[name] = line.substr(eq + 1);
      aliases.Groups[name] = group;
    }
  }
  return aliases;
}

std::string Lookup(const std::map<std::string, std::string>& map, const std::string& name) {
  auto it = map.find(UpperCase(name));
  return it == map.end() ? std::string() : it->second;
}

std::string EnumValues(const TEnumTypeInfo& type) {
  std::string text;
  for (size_t i = 0; i < type.Names.size(); ++i) {
    if (i > 0) text += ", ";
    text += type.Names[i];
    if (i < type.Captions.size() && !type.Captions[i].empty()) text += " (" + type.Captions[i] + ")";
  }
  return text;
}

std::string KindText(const TPropertyInfo& property, bool read_only) {
  std::string kind = PropertyKindName(property.Kind);
  if (property.EnumType) {
    kind = property.Kind == TPropertyKind::pkSet ? "set of " + property.EnumType->TypeName
                                                 : property.EnumType->TypeName;
  }
  return read_only ? kind + ", read-only" : kind;
}

std::string Quoted(const std::string& text) { return "\"" + text + "\""; }

std::string DefaultText(const TPropertyInfo& property, TCustomJXAction& fresh) {
  switch (property.Kind) {
    case TPropertyKind::pkString:
    case TPropertyKind::pkWideString: return Quoted(property.GetText(fresh));
    case TPropertyKind::pkStringList: {
      std::string text;
      for (const std::string& line : property.List(fresh).Lines()) text += (text.empty() ? "" : ", ") + Quoted(line);
      return "[" + text + "]";
    }
    default: return property.GetText(fresh);
  }
}

// As a property grid shows them: properties without a group first, then each
// group's properties together, groups in the order they first appear.
void GroupRows(std::vector<PropertyRow>& rows) {
  std::vector<std::string> order;
  for (const PropertyRow& row : rows) {
    if (!row.Group.empty() && std::find(order.begin(), order.end(), row.Group) == order.end()) {
      order.push_back(row.Group);
    }
  }
  auto rank = [&](const PropertyRow& row) {
    return row.Group.empty() ? 0 : 1 + (std::find(order.begin(), order.end(), row.Group) - order.begin());
  };
  std::stable_sort(rows.begin(), rows.end(),
                   [&](const PropertyRow& a, const PropertyRow& b) { return rank(a) < rank(b); });
}

std::vector<PropertyRow> PropertyRows(TCustomJXAction& fresh) {
  TStringList hidden, read_only, help;
  fresh.GetHiddenProperties(hidden);
  fresh.GetReadOnlyProperties(read_only);
  fresh.GetPropertyHelp(help);
  const Aliases aliases = ReadAliases(fresh);
  std::vector<PropertyRow> rows;
  for (const TPropertyInfo& property : fresh.GetClassInfo().Properties) {
    if (hidden.IndexOf(property.Name) >= 0) continue;
    PropertyRow row;
    row.Name = property.Name;
    row.Caption = Lookup(aliases.Captions, property.Name);
    if (row.Caption.empty()) row.Caption = property.Name;
    row.Group = Lookup(aliases.Groups, property.Name);
    row.Kind = KindText(property, property.ReadOnly || read_only.IndexOf(property.Name) >= 0);
    row.Default = DefaultText(property, fresh);
    row.Help = help.Values(property.Name);
    if (property.EnumType) row.Values = EnumValues(*property.EnumType);
    rows.push_back(std::move(row));
  }
  GroupRows(rows);
  return rows;
}

size_t Widest(const std::vector<PropertyRow>& rows, std::string PropertyRow::*field, size_t at_least) {
  size_t width = at_least;
  for (const PropertyRow& row : rows) width = std::max(width, (row.*field).size());
  return width;
}

std::string PropertyGrid(const std::vector<PropertyRow>& rows) {
  const size_t name = Widest(rows, &PropertyRow::Name, 4);
  const size_t caption = Widest(rows, &PropertyRow::Caption, 7);
  const size_t kind = Widest(rows, &PropertyRow::Kind, 4);
  const size_t fallback = Widest(rows, &PropertyRow::Default, 7);
  auto line = [&](const std::string& a, const std::string& b, const std::string& c, const std::string& d,
                  const std::string& e) {
    return TrimRight(fmt::format("  {:<{}}  {:<{}}  {:<{}}  {:<{}}  {}", a, name, b, caption, c, kind, d, fallback, e)) +
           "\n";
  };
  std::string text = line("Name", "Caption", "Kind", "Default", "Help");
  const std::string* group = nullptr;
  for (const PropertyRow& row : rows) {
    if (!group || *group != row.Group) {
      group = &row.Group;
      if (!row.Group.empty()) text += "[" + row.Group + "]\n";
    }
    text += line(row.Name, row.Caption, row.Kind, row.Default, row.Help);
    if (!row.Values.empty()) text += fmt::format("  {:<{}}  values: {}\n", "", name, row.Values);
  }
  return text;
}

}  // namespace

std::string ListPalette(const Palette& palette) {
  size_t category = 0, name = 0;
  for (const PaletteEntry& entry : palette.Actions()) {
    category = std::max(category, entry.Category.size());
    name = std::max(name, entry.DisplayName.size());
  }
  std::string text;
  for (const PaletteEntry& entry : palette.Actions()) {
    text += fmt::format("{:<{}}  {:<{}}  {}\n", entry.Category, category, entry.DisplayName, name,
                        entry.Class->ClassName);
  }
  return text;
}

std::string DescribeAction(const PaletteEntry& entry) {
  std::unique_ptr<TCustomJXAction> fresh = entry.Class->CreateAction();
  std::string text = fmt::format("{} ({})\n", entry.DisplayName, entry.Class->ClassName);
  text += fmt::format("Category: {}\n", entry.Category);
  text += fmt::format("Help:     {}, topic {}\n\n", fresh->GetQuickHelpFilename(), fresh->GetHelpTopicID());
  return text + PropertyGrid(PropertyRows(*fresh));
}

}  // namespace jx
