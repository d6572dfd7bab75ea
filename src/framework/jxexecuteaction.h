// TJXExecuteAbstractAction: base of actions that build a command line and run
// an external program through the host. The operations are declared here in
// slot order; the base's Execute, which starts the process through the host,
// arrives with the first action that runs a program.
#pragma once

#include <string>

#include "framework/jxaction.h"

namespace jx {

class TJXExecuteAbstractAction : public TCustomJXAction {
 public:
  virtual void GetCommandLine(ICommandLineBuilder& builder) { (void)builder; }
  virtual std::string GetExecutable() { return ""; }
  virtual std::string GetStartingDir(const std::string& current) { return current; }
  virtual void BeforeGetCommandLine() {}
  virtual void AfterGetCommandLine() {}
  virtual void BeforeExecute(ICommandLineBuilder& builder) { (void)builder; }
  virtual bool InterpretResult(int exit_code) { return exit_code == 0; }
  virtual void OnSuccess(int exit_code) { (void)exit_code; }
  virtual void OnFailure(int exit_code) { (void)exit_code; }
  virtual void OnExeNotFound(const std::string& executable) { (void)executable; }
  virtual void OnProcessOutput(TStrings& lines) { (void)lines; }
  virtual void OnStdErrData(IJXProcess& process, const std::string& data) { (void)process; (void)data; }
  virtual void OnStdOutData(IJXProcess& process, const std::string& data) { (void)process; (void)data; }
};

}  // namespace jx
