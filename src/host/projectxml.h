// Project files: the XML form of a Project, read and written with pugixml.
// A load is all-or-nothing: the first problem throws ProjectLoadError.
#pragma once

#include <string>
#include <string_view>

#include "host/palette.h"
#include "host/project.h"
#include "rtl/sysutils.h"

namespace jx {

// "FILE:LINE: problem" (or "FILE: problem" when no line applies).
class ProjectLoadError : public Exception {
 public:
  using Exception::Exception;
};

// Reads a project; action classes are looked up in `palette`.
Project LoadProject(const std::string& file_name, const Palette& palette);
// The same from XML text; `file_name` only names the source in errors.
Project ParseProject(std::string_view xml, const std::string& file_name, const Palette& palette);

// The project as XML: every stored property, string lists as <Line>
// elements, scripts that have text as CDATA.
std::string ProjectToXml(const Project& project);
// Writes ProjectToXml to `file_name`; throws Exception on failure.
void SaveProject(const Project& project, const std::string& file_name);

}  // namespace jx
