// The host action classes: TQSXMLObject (published-property persistence),
// TCustomJXAction (base of every action, with its virtual operations in slot
// order and the host services it forwards), TJXAction (plain actions).
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "framework/jxactionhost.h"
#include "framework/jxclasses.h"
#include "framework/jxinterfaces.h"
#include "rtl/stringlist.h"
#include "rtl/variant.h"

namespace jx {

class TQSXMLObject {
 public:
  virtual ~TQSXMLObject() = default;
  // The class record (name, factory, published properties) of the object's class.
  virtual const TJXClassInfo& GetClassInfo() const = 0;
  std::string ClassName() const { return GetClassInfo().ClassName; }

  // 1-3: persistence identifier.
  virtual void ResetXMLID() { object_id_.clear(); }
  virtual std::string GetObjectID() const { return object_id_; }
  virtual void SetObjectID(const std::string& id) { object_id_ = id; }

 private:
  std::string object_id_;
};

// Run states of an action as the host shows them; 6 is "failed".
enum class TJXActionStatus { asNone = 0, asWaiting, asRunning, asSuccess, asSkipped, asDisabled, asFailed };

// What a loop action is asked after its own Execute (0) or after its children ran (1),
// and what it answers.
enum TJXNextActionSourceState : int { nssAfterExecute = 0, nssAfterChildren = 1 };
enum TJXNextAction : int { naNone = 0, naRunChildren = 1, naRepeat = 2, naLeave = 3 };

class TCustomJXAction : public TQSXMLObject {
 public:
  TCustomJXAction();
  ~TCustomJXAction() override;

  // ---- virtual operations, in slot order ----
  virtual void Initialise() {}                                    // 6
  virtual void Loaded() {}                                        // 8
  virtual void SetActionTypeID(const std::string& id) { type_id_ = id; }  // 11
  virtual void BeforeDeletion() {}                                // 12
  virtual bool Execute() { return true; }                         // 13
  virtual std::string GetActionLogTitle() const { return log_title_; }     // 14
  virtual void SetActionLogTitle(const std::string& title) { log_title_ = title; }  // 15
  virtual std::string GetDescription() const;                     // 16: built from the description keys
  virtual void SetDescription(const std::string& text) { (void)text; }  // 17: the line is derived
  virtual bool GetCanHaveScripts() const { return true; }        // 19
  virtual bool GetIsSwitchActionList() const { return false; }   // 20-31: host flow-control flags
  virtual bool GetIsStopAction() const { return false; }
  virtual bool GetIsExitActionListAction() const { return false; }
  virtual bool GetCanIgnoreFailure() const { return true; }
  virtual bool GetIsTryAction() const { return false; }
  virtual bool GetIsCatchAction() const { return false; }
  virtual bool GetIsFinallyAction() const { return false; }
  virtual bool GetIsEndBlockAction() const { return false; }
  virtual bool GetIsSwitchAction() const { return false; }
  virtual bool GetIsCaseAction() const { return false; }
  virtual bool GetIsElseAction() const { return false; }
  virtual bool GetIsErrorFatal() const { return false; }
  virtual std::string GetStatusText() const { return ""; }        // 32
  virtual void ResetBuildStatus() { status_ = TJXActionStatus::asNone; }  // 33
  virtual void Clear() {}                                         // 34
  virtual int GetImageIndex() const { return -1; }                // 35
  // 36: loop actions answer what comes next; plain actions leave `next` as it is.
  virtual void GetNextActionSource(int state, int& next) { (void)state; (void)next; }
  virtual std::string InternalGetActionName() const;              // 38: the registered display name
  virtual std::string GetDescriptionFormatString() const { return ""; }  // 40
  virtual std::string GetDescriptionKeyValue(int index) const { (void)index; return ""; }  // 41
  virtual void SetDescriptionKeyValue(int index, const std::string& value) { (void)index; (void)value; }  // 42
  virtual void GetNonSearchProperties(TStrings& list) const { (void)list; }  // 43
  virtual bool Validate(IJXActionValidationError& errors) { (void)errors; return true; }  // 44
  virtual void GetHiddenProperties(TStrings& list) const { (void)list; }     // 45
  virtual void GetPropertyHelp(TStrings& list) const { (void)list; }         // 46
  virtual void GetPropertyAlias(TStrings& list) const { (void)list; }        // 47
  virtual void GetReadOnlyProperties(TStrings& list) const { (void)list; }   // 48
  virtual std::string GetDefaultPropertyName() const { return ""; }           // 49
  virtual void InitialiseScriptParams(IJXActionScript& script) { (void)script; }  // 50
  virtual bool GetIsPaused() const { return false; }              // 51
  virtual void SkipPause() {}                                     // 52
  // 53, 54: the host's encryption of stored secrets, under a key the action supplies.
  virtual bool EncryptString(const std::string& plain, const std::string& key, std::string& encrypted);
  virtual bool DecryptString(const std::string& encrypted, const std::string& key, std::string& plain);
  virtual bool StopSignalled();                                   // 55
  virtual void TerminateAction() {}                               // 56
  virtual bool CanTerminate() const { return false; }             // 57
  virtual std::string GetQuickHelpFilename() const { return ""; }  // 58
  virtual int GetHelpTopicID() const { return 0; }                // 59
  virtual void Updated() {}                                       // 60
  virtual std::string GetCopyRight() const { return ""; }         // 61
  virtual bool IsComment() const { return false; }                // 62
  virtual std::string GetActionName() const { return ""; }        // 63
  virtual TCustomJXAction* GetChildAction(int index) const;      // 64
  virtual int GetChildActionCount() const { return static_cast<int>(children_.size()); }  // 65

  // ---- host services, forwarded to the injected host ----
  void SetHost(IJXActionHost* host) { host_ = host; }
  IJXActionHost* Host() const { return host_; }
  std::string ExpandExpression(const std::string& text, bool flag);
  std::string ExpandExpression(const std::string& text, int& count, bool flag);
  bool TryExpandExpression(const std::string& caption, const std::string& text, std::string& result, bool flag);
  void SetVariable(const std::string& name, const Variant& value);
  void AddNewVariable(const std::string& name, const std::string& value);
  bool IsVariableDefined(const std::string& name);
  Variant GetVariableValue(const std::string& name);
  void SendMessage(const std::string& text);
  IJXActionLogMessagePtr CreateStatusMessage();
  void SendStatusMessage(const IJXActionLogMessagePtr& message);
  // Sends one status block holding `lines`.
  void SendStatusLines(const std::vector<std::string>& lines);
  // ExpandExpression(text, true) into `result`. When the expansion raises an
  // error, sends one status block of `lines` followed by `error_prefix` and
  // the error's text, and returns false.
  bool ExpandOrLog(const std::string& text, std::string& result, const std::vector<std::string>& lines,
                   const std::string& error_prefix = "");
  void Synchronize(const std::function<void()>& method);
  bool GetIsUnattended();
  // Setters of description-key properties call this; without a host the value
  // is stored at once through SetDescriptionKeyValue.
  void UpdateKeyValue(int index, const std::string& old_value, const std::string& new_value);

  // ---- event scripts, held by the action ----
  IJXActionScript& AddScript(const std::string& name);
  IJXActionScript* GetScriptByName(const std::string& name) const;  // null when not declared
  std::vector<std::string> GetScriptNames() const;
  bool ExecuteScript(const std::string& name, Variant& result);

  // ---- run state ----
  TJXActionStatus GetActionStatus() const { return status_; }
  void SetActionStatus(TJXActionStatus status) { status_ = status; }
  void SetDisplayName(const std::string& name) { display_name_ = name; }

  // Host-side options every action carries in the project file.
  bool Enabled = true;
  bool IgnoreFailure = false;

  // ---- children of loop and container actions ----
  void AddChild(std::unique_ptr<TCustomJXAction> child);
  const std::vector<std::unique_ptr<TCustomJXAction>>& Children() const { return children_; }

 private:
  IJXActionHost* host_ = nullptr;
  std::string type_id_;
  std::string log_title_;
  std::string display_name_;
  TJXActionStatus status_ = TJXActionStatus::asNone;
  std::map<std::string, std::unique_ptr<IJXActionScript>> scripts_;
  std::vector<std::string> script_order_;
  std::vector<std::unique_ptr<TCustomJXAction>> children_;
};

// Direct base of the plain actions.
class TJXAction : public TCustomJXAction {};

// Base of a global options object with its own options page.
class TJXOptionsObject : public TQSXMLObject {};

}  // namespace jx
