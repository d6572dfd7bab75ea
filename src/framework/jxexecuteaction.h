// TJXExecuteAbstractAction: base of actions that build a command line and run
// an external program through the host. The run logic arrives with the
// copy-tool actions; the operations are declared here in slot order.
#pragma once

#include <string>

#include "framework/jxaction.h"

namespace jx {

class TJXExecuteAbstractAction : public TCustomJXAction {
 public:
  bool Execute() override;
  void TerminateAction() override;
  bool CanTerminate() const override { return true; }

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
