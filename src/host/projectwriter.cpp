// Writing project files: the same layout the reader accepts, every stored
// property written so a saved project does not depend on today's defaults.
#include <pugixml.hpp>

#include <fstream>
#include <sstream>

#include "host/projectxml.h"
#include "rtl/strutils.h"

namespace jx {

namespace {

void WriteProperty(pugi::xml_node parent, TCustomJXAction& action, const TPropertyInfo& property) {
  pugi::xml_node node = parent.append_child("Property");
  node.append_attribute("Name") = property.Name.c_str();
  if (property.Kind == TPropertyKind::pkStringList) {
    for (const std::string& line : property.List(action).Lines()) {
      node.append_child("Line").text() = line.c_str();
    }
  } else {
    node.text() = property.GetText(action).c_str();
  }
}

void WriteScripts(pugi::xml_node parent, const TCustomJXAction& action) {
  for (const std::string& name : action.GetScriptNames()) {
    const IJXActionScript* script = action.GetScriptByName(name);
    if (script->GetScriptText().empty()) continue;
    pugi::xml_node node = parent.append_child("Script");
    node.append_attribute("Name") = name.c_str();
    node.append_attribute("Language") = "Lua";
    node.append_child(pugi::node_cdata).set_value(script->GetScriptText().c_str());
  }
}

void WriteActions(pugi::xml_node parent, const ActionList& actions) {
  pugi::xml_node list = parent.append_child("Actions");
  for (const auto& action : actions) {
    pugi::xml_node node = list.append_child("Action");
    node.append_attribute("Class") = action->ClassName().c_str();
    node.append_attribute("Enabled") = BoolToStr(action->Enabled).c_str();
    node.append_attribute("IgnoreFailure") = BoolToStr(action->IgnoreFailure).c_str();
    for (const TPropertyInfo& property : action->GetClassInfo().Properties) {
      if (property.Stored && !property.ReadOnly) WriteProperty(node, *action, property);
    }
    WriteScripts(node, *action);
    if (!action->Children().empty()) WriteActions(node, action->Children());
  }
}

void WriteVariables(pugi::xml_node parent, const std::vector<ProjectVariable>& variables) {
  if (variables.empty()) return;
  pugi::xml_node list = parent.append_child("Variables");
  for (const ProjectVariable& variable : variables) {
    pugi::xml_node node = list.append_child("Variable");
    node.append_attribute("Name") = variable.Name.c_str();
    node.append_attribute("Type") = VariableTypeName(variable.Type);
    node.text() = variable.Value.ToString().c_str();
  }
}

}  // namespace

std::string ProjectToXml(const Project& project) {
  pugi::xml_document document;
  pugi::xml_node declaration = document.append_child(pugi::node_declaration);
  declaration.append_attribute("version") = "1.0";
  declaration.append_attribute("encoding") = "UTF-8";
  pugi::xml_node root = document.append_child("Project");
  WriteVariables(root, project.Variables);
  WriteActions(root, project.Actions);
  std::ostringstream out;
  document.save(out, "  ", pugi::format_default, pugi::encoding_utf8);
  return out.str();
}

void SaveProject(const Project& project, const std::string& file_name) {
  const std::string xml = ProjectToXml(project);
  std::ofstream out(file_name, std::ios::binary);
  out << xml;
  out.close();
  if (!out) throw Exception("Cannot write the project file \"" + file_name + "\"");
}

}  // namespace jx
