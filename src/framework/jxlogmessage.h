// The plain log block: lines and a headline. Hosts hand these out from
// CreateStatusMessage; a host that needs more can implement the interface itself.
#pragma once

#include <string>

#include "framework/jxinterfaces.h"

namespace jx {

class TJXLogMessage : public IJXActionLogMessage {
 public:
  TStrings& GetLines() override { return lines_; }
  void SetMessageText(const std::string& text) override { headline_ = text; }
  std::string GetMessageText() const override { return headline_; }

 private:
  TStringList lines_;
  std::string headline_;
};

}  // namespace jx
