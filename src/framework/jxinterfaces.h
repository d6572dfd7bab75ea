// The service interfaces the host hands to actions: the validation sink, log
// blocks, event scripts, processes and command-line builders.
#pragma once

#include <memory>
#include <string>

#include "rtl/stringlist.h"
#include "rtl/variant.h"

namespace jx {

class TCustomJXAction;

// Validate reports each problem here: caption as the user sees the property, then the message.
class IJXActionValidationError {
 public:
  virtual ~IJXActionValidationError() = default;
  virtual void AddError(const std::string& caption, const std::string& message) = 0;
};

// A log entry of several lines, written to the build log as one block.
class IJXActionLogMessage {
 public:
  virtual ~IJXActionLogMessage() = default;
  virtual TStrings& GetLines() = 0;
  virtual void SetMessageText(const std::string& text) = 0;  // headline shown above the lines
  virtual std::string GetMessageText() const = 0;
};
using IJXActionLogMessagePtr = std::shared_ptr<IJXActionLogMessage>;

// How a script parameter is passed: read by the script only, or read back after it.
enum class TScriptParamMode { spmIn = 0, spmInOut = 1 };

// One event script of an action: its text, and the parameters the action
// declares (InitialiseScriptParams) and fills before ExecuteScript. A
// parameter holding the action itself is set with SetActionParam.
class IJXActionScript {
 public:
  virtual ~IJXActionScript() = default;
  virtual const std::string& GetName() const = 0;
  virtual const std::string& GetScriptText() const = 0;
  virtual void SetScriptText(const std::string& text) = 0;
  virtual void AddParam(const std::string& name, TScriptParamMode mode, const Variant& initial) = 0;
  virtual bool HasParam(const std::string& name) const = 0;
  virtual void SetParamValue(const std::string& name, const Variant& value) = 0;
  virtual Variant GetParamValue(const std::string& name) const = 0;
  virtual void SetActionParam(const std::string& name, TCustomJXAction* action) = 0;
  virtual TCustomJXAction* GetActionParam(const std::string& name) const = 0;
};

// Arguments of an external program's command line, joined by the host.
class ICommandLineBuilder {
 public:
  virtual ~ICommandLineBuilder() = default;
  virtual void AddArgument(const std::string& argument) = 0;  // quoted when it needs it
  virtual void AddRaw(const std::string& text) = 0;           // appended as written
  virtual std::string GetCommandLine() const = 0;
};

// A running (or finished) external process started by the host.
class IJXProcess {
 public:
  virtual ~IJXProcess() = default;
  virtual bool Start(const std::string& command_line, const std::string& start_dir) = 0;
  virtual bool WaitFor(int timeout_ms) = 0;  // true once the process has ended
  virtual void Terminate() = 0;
  virtual int GetExitCode() const = 0;
  virtual bool IsRunning() const = 0;
};
using IJXProcessPtr = std::shared_ptr<IJXProcess>;

}  // namespace jx
