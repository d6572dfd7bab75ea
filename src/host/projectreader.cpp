// Reading project files. Every problem names the file and the line of the
// element at fault, so users can fix a hand-written project quickly.
#include <fmt/format.h>
#include <pugixml.hpp>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <set>
#include <sstream>

#include "framework/jxwhileaction.h"
#include "host/expansion.h"
#include "host/projectxml.h"
#include "rtl/strutils.h"

namespace jx {

namespace {

// How a property kind reads in an error message.
const char* KindWord(TPropertyKind kind) {
  switch (kind) {
    case TPropertyKind::pkString:
    case TPropertyKind::pkWideString: return "string";
    case TPropertyKind::pkBoolean:
    case TPropertyKind::pkWordBool:
    case TPropertyKind::pkByteBool: return "boolean";
    case TPropertyKind::pkInteger: return "integer";
    case TPropertyKind::pkCardinal: return "unsigned integer";
    case TPropertyKind::pkInt64: return "64-bit integer";
    case TPropertyKind::pkFloat: return "float";
    case TPropertyKind::pkDateTime: return "date-time";
    case TPropertyKind::pkEnumeration: return "enumeration";
    case TPropertyKind::pkSet: return "set";
    case TPropertyKind::pkStringList: return "string list";
  }
  return "";
}

bool IsText(const pugi::xml_node& node) {
  return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

bool IsBlank(std::string_view text) { return Trim(text).empty(); }

// All character data directly inside `node`.
std::string TextOf(const pugi::xml_node& node) {
  std::string text;
  for (const pugi::xml_node& child : node.children()) {
    if (IsText(child)) text += child.value();
  }
  return text;
}

class ProjectReader {
 public:
  ProjectReader(std::string_view xml, const std::string& file_name, const Palette& palette)
      : xml_(xml), file_name_(file_name), palette_(palette) {}

  Project Read() {
    // Keep a property or variable whose whole text is blanks.
    const unsigned options = pugi::parse_default | pugi::parse_ws_pcdata_single;
    pugi::xml_parse_result parsed = document_.load_buffer(xml_.data(), xml_.size(), options);
    if (!parsed) {
      throw ProjectLoadError(
          fmt::format("{}:{}: not valid XML: {}", file_name_, LineAt(parsed.offset), parsed.description()));
    }
    pugi::xml_node root = document_.document_element();
    if (std::string_view(root.name()) != "Project") {
      Fail(root, fmt::format("the root element is <{}>, expected <Project>", root.name()));
    }
    Project project;
    ReadProject(root, project);
    return project;
  }

 private:
  [[noreturn]] void Fail(const pugi::xml_node& node, const std::string& problem) const {
    throw ProjectLoadError(fmt::format("{}:{}: {}", file_name_, LineAt(node.offset_debug()), problem));
  }

  int LineAt(ptrdiff_t offset) const {
    const size_t end = std::min(static_cast<size_t>(std::max<ptrdiff_t>(offset, 0)), xml_.size());
    return 1 + static_cast<int>(std::count(xml_.begin(), xml_.begin() + end, '\n'));
  }

  // Element children of `node` with their handler; text other than blanks is an error.
  template <class Handler>
  void ForEachElement(const pugi::xml_node& node, Handler&& handle) {
    for (const pugi::xml_node& child : node.children()) {
      if (child.type() == pugi::node_element) {
        handle(child);
      } else if (IsText(child) && !IsBlank(child.value())) {
        Fail(child, fmt::format("unexpected text in <{}>", node.name()));
      }
    }
  }

  [[noreturn]] void FailUnexpected(const pugi::xml_node& child, const pugi::xml_node& parent) const {
    Fail(child, fmt::format("unexpected element <{}> in <{}>", child.name(), parent.name()));
  }

  void CheckAttributes(const pugi::xml_node& node, std::initializer_list<std::string_view> allowed) const {
    for (const pugi::xml_attribute& attribute : node.attributes()) {
      if (std::find(allowed.begin(), allowed.end(), attribute.name()) == allowed.end()) {
        Fail(node, fmt::format("unknown attribute \"{}\" of <{}>", attribute.name(), node.name()));
      }
    }
  }

  std::string RequiredAttribute(const pugi::xml_node& node, const char* name) const {
    pugi::xml_attribute attribute = node.attribute(name);
    if (!attribute) Fail(node, fmt::format("<{}> without a {} attribute", node.name(), name));
    return attribute.value();
  }

  void ReadProject(const pugi::xml_node& root, Project& project) {
    CheckAttributes(root, {});
    ForEachElement(root, [&](const pugi::xml_node& child) {
      const std::string_view name = child.name();
      if (name == "Variables") {
        ReadVariables(child, project);
      } else if (name == "Actions") {
        ReadActions(child, project.Actions);
      } else {
        FailUnexpected(child, root);
      }
    });
  }

  // ---- variables ----

  void ReadVariables(const pugi::xml_node& node, Project& project) {
    CheckAttributes(node, {});
    ForEachElement(node, [&](const pugi::xml_node& child) {
      if (std::string_view(child.name()) != "Variable") FailUnexpected(child, node);
      project.Variables.push_back(ReadVariable(child, project));
    });
  }

  ProjectVariable ReadVariable(const pugi::xml_node& node, Project& project) {
    CheckAttributes(node, {"Name", "Type"});
    ProjectVariable variable;
    variable.Name = RequiredAttribute(node, "Name");
    if (!IsVariableName(variable.Name)) Fail(node, fmt::format("invalid variable name \"{}\"", variable.Name));
    if (project.FindVariable(variable.Name)) {
      Fail(node, fmt::format("variable \"{}\" is declared twice", variable.Name));
    }
    variable.Type = ReadVariableType(node, variable.Name);
    CheckNoElements(node);
    const std::string text = TextOf(node);
    try {
      variable.Value = VariableValueFromText(variable.Type, text);
    } catch (const Exception& e) {
      Fail(node, fmt::format("bad value \"{}\" for {} variable {}: {}", text, VariableTypeName(variable.Type),
                             variable.Name, e.Message()));
    }
    return variable;
  }

  VariableType ReadVariableType(const pugi::xml_node& node, const std::string& variable) const {
    pugi::xml_attribute attribute = node.attribute("Type");
    if (!attribute) return VariableType::String;
    std::optional<VariableType> type = VariableTypeFromName(attribute.value());
    if (!type) {
      Fail(node, fmt::format("unknown variable type \"{}\" of variable {} (String, Integer, Float or Boolean)",
                             attribute.value(), variable));
    }
    return *type;
  }

  void CheckNoElements(const pugi::xml_node& node) const {
    for (const pugi::xml_node& child : node.children()) {
      if (child.type() == pugi::node_element) FailUnexpected(child, node);
    }
  }

  // ---- actions ----

  void ReadActions(const pugi::xml_node& node, ActionList& actions) {
    CheckAttributes(node, {});
    ForEachElement(node, [&](const pugi::xml_node& child) {
      if (std::string_view(child.name()) != "Action") FailUnexpected(child, node);
      actions.push_back(ReadAction(child));
    });
  }

  std::unique_ptr<TCustomJXAction> ReadAction(const pugi::xml_node& node) {
    CheckAttributes(node, {"Class", "Enabled", "IgnoreFailure"});
    const std::string class_name = RequiredAttribute(node, "Class");
    const PaletteEntry* entry = palette_.FindClass(class_name);
    std::unique_ptr<TCustomJXAction> action = entry ? entry->Class->CreateAction() : nullptr;
    if (!action) Fail(node, fmt::format("unknown class \"{}\"", class_name));
    action->SetDisplayName(entry->DisplayName);
    action->Initialise();
    action->Enabled = ReadBooleanAttribute(node, "Enabled", true);
    action->IgnoreFailure = ReadBooleanAttribute(node, "IgnoreFailure", false);
    std::set<std::string> properties_read;
    ForEachElement(node, [&](const pugi::xml_node& child) {
      const std::string_view name = child.name();
      if (name == "Property") {
        ReadProperty(child, *action, properties_read);
      } else if (name == "Script") {
        ReadScript(child, *action);
      } else if (name == "Actions") {
        ReadChildren(child, *action);
      } else {
        FailUnexpected(child, node);
      }
    });
    action->Loaded();
    return action;
  }

  bool ReadBooleanAttribute(const pugi::xml_node& node, const char* name, bool fallback) const {
    pugi::xml_attribute attribute = node.attribute(name);
    if (!attribute) return fallback;
    try {
      return StrToBool(Trim(attribute.value()));
    } catch (const Exception& e) {
      Fail(node, fmt::format("bad value \"{}\" for attribute {} of <{}>: {}", attribute.value(), name, node.name(),
                             e.Message()));
    }
  }

  void ReadChildren(const pugi::xml_node& node, TCustomJXAction& action) {
    if (!dynamic_cast<TWhileAction*>(&action)) {
      Fail(node, fmt::format("class {} cannot hold child actions", action.ClassName()));
    }
    ActionList children;
    ReadActions(node, children);
    for (auto& child : children) action.AddChild(std::move(child));
  }

  // ---- properties and scripts ----

  void ReadProperty(const pugi::xml_node& node, TCustomJXAction& action, std::set<std::string>& properties_read) {
    CheckAttributes(node, {"Name"});
    const std::string name = RequiredAttribute(node, "Name");
    const TPropertyInfo* property = action.GetClassInfo().FindProperty(name);
    if (!property) Fail(node, fmt::format("unknown property \"{}\" of class {}", name, action.ClassName()));
    if (!properties_read.insert(property->Name).second) {
      Fail(node, fmt::format("property \"{}\" is set twice", property->Name));
    }
    if (property->ReadOnly || !property->SetText) {
      Fail(node, fmt::format("property \"{}\" of class {} is read-only", property->Name, action.ClassName()));
    }
    if (property->Kind == TPropertyKind::pkStringList) {
      ReadLines(node, action, *property);
    } else {
      CheckNoElements(node);
      SetProperty(node, action, *property, TextOf(node));
    }
  }

  void ReadLines(const pugi::xml_node& node, TCustomJXAction& action, const TPropertyInfo& property) {
    TStrings& list = property.List(action);
    list.Clear();
    ForEachElement(node, [&](const pugi::xml_node& child) {
      if (std::string_view(child.name()) != "Line") FailUnexpected(child, node);
      CheckAttributes(child, {});
      CheckNoElements(child);
      list.Add(TextOf(child));
    });
  }

  void SetProperty(const pugi::xml_node& node, TCustomJXAction& action, const TPropertyInfo& property,
                   const std::string& text) {
    try {
      property.SetText(action, text);
    } catch (const std::exception& e) {
      Fail(node,
           fmt::format("bad value \"{}\" for {} property {}: {}", text, KindWord(property.Kind), property.Name, e.what()));
    }
  }

  void ReadScript(const pugi::xml_node& node, TCustomJXAction& action) {
    CheckAttributes(node, {"Name", "Language"});
    const std::string name = RequiredAttribute(node, "Name");
    pugi::xml_attribute language = node.attribute("Language");
    if (language && !SameText(language.value(), "Lua")) {
      Fail(node, fmt::format("unsupported script language \"{}\" (scripts are Lua)", language.value()));
    }
    IJXActionScript* script = action.GetScriptByName(name);
    if (!script) Fail(node, fmt::format("unknown script \"{}\" of class {}", name, action.ClassName()));
    CheckNoElements(node);
    script->SetScriptText(TextOf(node));
  }

  std::string_view xml_;
  const std::string& file_name_;
  const Palette& palette_;
  pugi::xml_document document_;
};

}  // namespace

Project ParseProject(std::string_view xml, const std::string& file_name, const Palette& palette) {
  return ProjectReader(xml, file_name, palette).Read();
}

Project LoadProject(const std::string& file_name, const Palette& palette) {
  std::error_code error;
  if (std::filesystem::is_directory(file_name, error)) {
    throw ProjectLoadError(fmt::format("{}: is a directory, not a project file", file_name));
  }
  std::ifstream in(file_name, std::ios::binary);
  if (!in) throw ProjectLoadError(fmt::format("{}: cannot open the file: {}", file_name, std::strerror(errno)));
  std::ostringstream text;
  text << in.rdbuf();
  return ParseProject(text.str(), file_name, palette);
}

}  // namespace jx
