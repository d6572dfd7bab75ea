#include "host/variablesjson.h"

#include <fmt/format.h>

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "rtl/sysutils.h"

namespace jx {

namespace {

const char* JsonTypeName(TVarType type) {
  switch (type) {
    case TVarType::Empty: return "empty";
    case TVarType::String: return "string";
    case TVarType::Integer: return "integer";
    case TVarType::Unsigned: return "unsigned";
    case TVarType::Int64: return "int64";
    case TVarType::Float: return "float";
    case TVarType::Boolean: return "boolean";
  }
  return "empty";
}

// JSON has no infinities or NaN; those become null.
std::string JsonFloat(double value) { return std::isfinite(value) ? fmt::format("{}", value) : "null"; }

std::string JsonValue(const Variant& value) {
  switch (value.Type()) {
    case TVarType::Empty: return "null";
    case TVarType::String: return JsonString(value.ToString());
    case TVarType::Integer:
    case TVarType::Unsigned:
    case TVarType::Int64: return value.ToString();
    case TVarType::Float: return JsonFloat(value.ToFloat());
    case TVarType::Boolean: return value.ToBool() ? "true" : "false";
  }
  return "null";
}

}  // namespace

std::string JsonString(std::string_view text) {
  std::string out = "\"";
  for (char c : text) {
    switch (c) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '\t': out += "\\t"; break;
      case '\b': out += "\\b"; break;
      case '\f': out += "\\f"; break;
      default:
        if (static_cast<unsigned char>(c) < 0x20) {
          out += fmt::format("\\u{:04x}", static_cast<unsigned>(c));
        } else {
          out += c;
        }
    }
  }
  return out + "\"";
}

std::string VariablesToJson(const VariableStore& variables) {
  if (variables.Entries().empty()) return "{}\n";
  std::string out = "{\n";
  const char* separator = "";
  for (const VariableStore::Entry& entry : variables.Entries()) {
    out += fmt::format("{}  {}: {{\"type\": \"{}\", \"value\": {}}}", separator, JsonString(entry.Name),
                       JsonTypeName(entry.Value.Type()), JsonValue(entry.Value));
    separator = ",\n";
  }
  return out + "\n}\n";
}

void WriteVariablesJson(const VariableStore& variables, const std::string& file_name) {
  std::FILE* file = std::fopen(file_name.c_str(), "wb");
  if (!file) throw Exception(fmt::format("Cannot create \"{}\": {}", file_name, std::strerror(errno)));
  const std::string json = VariablesToJson(variables);
  const bool written = std::fwrite(json.data(), 1, json.size(), file) == json.size();
  if (std::fclose(file) != 0 || !written) {
    throw Exception(fmt::format("Cannot write \"{}\": {}", file_name, std::strerror(errno)));
  }
}

}  // namespace jx
