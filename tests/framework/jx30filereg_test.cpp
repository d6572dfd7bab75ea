#include "framework/jx30filereg.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <memory>

#include "actions/iterators/jxfileiterator.h"
#include "actions/iterators/jxfolderiteratoraction.h"
#include "framework/jxaction.h"
#include "framework/jxregistration.h"

namespace jx {
namespace {

// What JXRegister handed to the registration services, in call order.
struct RecordingServices : IJXActionServices, IJXScriptingServices, IJXOptionsServices {
  struct Action {
    std::string DisplayName, Category, ClassName, Icon;
  };
  std::vector<Action> Actions;
  std::vector<std::string> Calls;  // every call, as "Kind Name"
  std::vector<std::pair<std::string, Variant>> Constants;
  std::map<std::string, std::vector<const TJXPageClass*>> Pages;
  struct Editor {
    std::string ClassName, Property, EditorName;
    TPropertyKind Kind;
  };
  std::vector<Editor> Editors;

  void RegisterAction(const std::string& name, const std::string& category, TJXActionClass cls,
                      const std::string& icon) override {
    Actions.push_back({name, category, cls->ClassName, icon});
    Calls.push_back("Action " + cls->ClassName);
  }
  void RegisterPropertyPages(TJXActionClass cls, const std::vector<const TJXPageClass*>& pages) override {
    Pages[cls->ClassName] = pages;
    Calls.push_back("Pages " + cls->ClassName);
  }
  void RegisterPropertyEditor(TPropertyTypeRef type, TJXActionClass cls, const std::string& property,
                              const TJXPropertyEditorClass& editor) override {
    Editors.push_back({cls->ClassName, property, editor.ClassName, type.Kind});
    Calls.push_back("Editor " + cls->ClassName + "." + property);
  }
  void RegisterScriptMethod(TJXActionClass cls, const std::string& name, const std::vector<std::string>&,
                            TScriptMethod method) override {
    Calls.push_back("Method " + cls->ClassName + "." + name);
    Methods[cls->ClassName + "." + name] = method;
  }
  std::map<std::string, TScriptMethod> Methods;
  void RegisterScriptConstant(const std::string& name, const Variant& value) override {
    Constants.emplace_back(name, value);
    Calls.push_back("Constant " + name);
  }
  void RegisterScriptType(const TEnumTypeInfo& type) override { Calls.push_back("Type " + type.TypeName); }
  void RegisterOptionsClass(const TJXClassInfo& cls, const std::string&) override {
    Calls.push_back("Options " + cls.ClassName);
  }
  void RegisterOptionsPage(const TJXClassInfo& cls, const std::vector<const TJXPageClass*>&) override {
    Calls.push_back("OptionsPage " + cls.ClassName);
  }
};

class RegistrationTest : public ::testing::Test {
 protected:
  void Register(bool design) {
    JXActionServices = &services;
    JXScriptingServices = &services;
    JXOptionsServices = &services;
    JXRegister(design);
  }
  RecordingServices services;
};

struct CatalogueEntry {
  std::string ClassName, DisplayName, Category, Icon, HelpPage;
  int Topic;
  std::vector<std::string> Pages;
};

// The palette as users know it, in registration order.
const std::vector<CatalogueEntry> kCatalogue = {
    {"TFileExistsAction", "Check if File Exists", "Files & Directories", "HCHECKFILE", "Plugins\\CheckFileExists.html", 551, {"TCheckFileFrame"}},
    {"TCreateDirectoryAction", "Create Directory", "Files & Directories", "HCREATE_DIR", "Plugins\\CreateDirectory.html", 552, {"TCreateDirectoryFrame"}},
    {"TDeleteDirectoryAction", "Delete Directory", "Files & Directories", "HDELETE_DIR", "Plugins\\DeleteDirectory.html", 553, {"TDeleteDirFrame"}},
    {"TJXMoveDirectoryAction", "Move Directory", "Files & Directories", "HMOVEDIR", "Plugins\\MoveDirectory.html", 3110, {"TMoveDirectoryFrame"}},
    {"TSetVariableAction", "Set Variable", "Misc", "HSETVARIABLE", "Plugins\\SetVariable.html", 510, {"TSetVariableFrame"}},
    {"TJXQuestionAction", "Ask Question", "Interactive", "HASKQUESTION", "Plugins\\QuestionAction.html", 2450, {"TQuestionFrame"}},
    {"TDeleteFilesAction", "Delete File(s)", "Files & Directories", "HDELETE_FILE", "Plugins\\DeleteFiles.html", 550, {"TDeleteFilesFrame"}},
    {"TCopyFilesAction", "Copy File(s)", "Files & Directories", "HCOPYFILES", "Plugins\\CopyFiles.html", 554, {"TCopyFrame"}},
    {"TMoveFilesAction", "Move File(s)", "Files & Directories", "HMOVEFILES", "Plugins\\MoveFiles.html", 555, {"TMoveFrame"}},
    {"TSetFileAttributesAction", "Set File Attributes", "Files & Directories", "HSETFILEATTRIB", "Plugins\\SetFileAttributes.html", 556, {"TFileAttributeFrame"}},
    {"TFileIterator", "File Iterator", "Iterators", "HFILEITERATOR", "Plugins\\FileIterator.html", 950, {"TFileIteratorFrame"}},
    {"TFolderIterator", "Folder Iterator", "Iterators", "FOLDERITERATOR", "Plugins\\FolderIterator.html", 3210, {"TFolderIteratorFrame"}},
    {"TReadIniFileAction", "Read Ini File", "Registry & Ini", "HREADINI", "Plugins\\ReadIniFile.html", 930, {"TReadIniFrame"}},
    {"TWriteIniFileAction", "Write Ini File", "Registry & Ini", "HWRITEINI", "Plugins\\WriteIniFile.html", 940, {"TWriteIniFrame"}},
    {"TJXScriptAction", "Run Script", "Misc", "SCRIPTACTION", "Plugins\\RunScript.html", 1590, {}},
    {"TTouchFilesAction", "Touch File(s)", "Files & Directories", "HTOUCHFILES", "Plugins\\TouchFiles.html", 980, {"TTouchFrame"}},
    {"TJXVariablePromptAction", "Prompt for Variables", "Interactive", "HPROMPTFORVAR", "Plugins\\PromptForVariables.html", 1600, {"TJXVariablePromptFrame"}},
    {"TRunProgramAction", "Execute Program", "Windows OS", "HEXECUTEPROG", "Plugins\\RunProgram.html", 511, {"TRunProgramFrame"}},
    {"TRunDosCMDAction", "Run DOS Command", "Windows OS", "HRUNDOS", "Plugins\\RunDosCommand.html", 512, {"TRunDosCmdFrame"}},
    {"TConcatAction", "Concatenate Files", "Files & Directories", "HCONCAT", "Plugins\\ConcatenateFiles.html", 1610, {"TConcatFilesFrame"}},
    {"TDiskInfoAction", "Get Disk Free Space", "Windows OS", "HDISKSPACE", "Plugins\\DiskFreeSpace.html", 1570, {"TDiskFreeSpaceFrame"}},
    {"TDateTimeAction", "Get Date/Time", "Misc", "HDATETIME", "Plugins\\GetDateTime.html", 1560, {"TGetDateTimeFrame"}},
    {"TReadRegValueAction", "Read Registry Value", "Registry & Ini", "JXREADREG", "Plugins\\ReadRegValue.html", 1260, {"TReadRegistryFrame"}},
    {"TSetRegValueAction", "Set Registry Value", "Registry & Ini", "JXSETREG", "Plugins\\SetRegValue.html", 1260, {"TReadRegistryFrame"}},
    {"TDeleteRegValueAction", "Delete Registry Value", "Registry & Ini", "JXDELREG", "Plugins\\DeleteRegValue.html", 1260, {"TReadRegistryFrame"}},
    {"TRenameDirAction", "Rename File or Directory", "Files & Directories", "HRENAMEFILE", "Plugins\\RenameDirectory.html", 2460, {"TRenameDirFrame"}},
    {"TJXCreateTextFileAction", "Create Text File", "Files & Directories", "HCREATEFILE", "Plugins\\CreateTextFile.html", 3220, {"TCreateFileFrame"}},
    {"TJXWriteToTextFileAction", "Write to Text File", "Files & Directories", "WRITETOTEXTFILE", "Plugins\\WriteToTextFile.html", 3230, {"TWriteToTextFileFrame"}},
    {"TJXMultiQuestionAction", "Multi Question", "Interactive", "HMULTIQUESTION", "Plugins\\MultiQuestion.html", 3310, {"TFrameMultiQuestion"}},
    {"TJXXCopyAction", "XCopy", "Files & Directories", "HXCOPY", "Plugins\\XCopy.html", 3240, {"TXCopyMainFrame", "TXCopyOptionsFrame", "TXCopyAttribFrame", "TJXXcopyExcludeFilesFrame"}},
    {"TJXRobocopyCopyAction", "Robocopy", "Files & Directories", "ROBOCOPYICON", "Plugins\\RobocopyCopy.html", 3250, {"TRobocopyMainFrame", "TRobocopyCopyOptionsFrame", "TRobocopyIncludeFrame", "TRobocopyExcludeFrame", "TJXRobocopyExcludeFilesFrame", "TJXRobocopyExcludeDirFrame", "TRobocopyLogOptionsFrame"}},
    {"TJXRobocopyJobAction", "Run Robocopy Job", "Files & Directories", "ROBOCOPYJOB", "Plugins\\RobocopyJob.html", 3250, {"TRobocopyMainFrame", "TRobocopyJobsFrame", "TRobocopyLogOptionsFrame"}},
    {"TJXRobocopyMoveAction", "Robocopy Move", "Files & Directories", "ROBOCOPYMOVE", "Plugins\\RobocopyMove.html", 3250, {"TRobocopyMainFrame", "TRobocopyMoveOptionsFrame", "TRobocopyIncludeFrame", "TRobocopyExcludeFrame", "TJXRobocopyExcludeFilesFrame", "TJXRobocopyExcludeDirFrame", "TRobocopyLogOptionsFrame"}},
    {"TJXRobocopyMirrorAction", "Robocopy Mirror", "Files & Directories", "ROBOCOPYMIRROR", "Plugins\\RobocopyMirror.html", 3250, {"TRobocopyMainFrame", "TRobocopyIncludeFrame", "TRobocopyExcludeFrame", "TJXRobocopyExcludeFilesFrame", "TJXRobocopyExcludeDirFrame", "TRobocopyLogOptionsFrame"}},
    {"TJXpromptForFileOrDirAction", "Prompt for File or Directory", "Interactive", "PROMPTFORDIRORFILE", "Plugins\\PromptForFileOrDir.html", 3320, {"TPromptForFileOrDirFrame"}},
    {"TJXReadTextFileAction", "Read Text File", "Files & Directories", "READTEXTFILE", "Plugins\\ReadTextFile.html", 3260, {"TReadFileFrame"}},
    {"TReadTextFileIterator", "File Contents Iterator", "Iterators", "READTEXTFILEITERATOR", "Plugins\\ReadFileIterator.html", 3270, {"TReadTextFileIteratorFrame"}},
    {"TIniFileIterator", "IniFile Iterator", "Iterators", "INIFILEITERATOR", "Plugins\\IniFileIterator.html", 3330, {"TIniFileIteratorFrame"}},
    {"TJXExtractFileVerInfoAction", "Extract Version Info", "Files & Directories", "EXTRACTFILEINFO", "Plugins\\ExtractFileVersion.html", 3280, {"TExtractFileVersionInfoFrame"}},
    {"TJXListIterator", "List Iterator", "Iterators", "LISTITERATOR", "Plugins\\ListIterator.html", 3140, {"TListIteratorFrame"}},
    {"TJXFileCRCAction", "Calculate File CRC32", "Files & Directories", "CRC32", "Plugins\\FileCRC.html", 3290, {"TFileCRCFrame"}},
    {"TJXFileMD5Action", "Calculate File MD5", "Files & Directories", "MD5", "Plugins\\FileMD5.html", 3300, {"TFileMD5Frame"}},
    {"TJXShellExecute", "Shell Execute", "Windows OS", "HSHELLEXECUTE", "Plugins\\ShellExecute.html", 3200, {"TJXShellExecuteFrame"}},
    {"TTextReplaceAction", "Text Replace", "Files & Directories", "TEXTREPLACE", "Plugins\\TextReplace.html", 1290, {"TfrmTextReplace"}},
    {"TJXVariablesSaveAction", "Save Variables to INI", "Misc", "SAVEVARTOINI", "Plugins\\VariablesSaveLoad.html", 3170, {"TVariablesSaveLoadForm", "TVariablesSaveOptionsFrame"}},
    {"TJXVariablesLoadAction", "Load Variables from INI", "Misc", "LOADVARFROMINI", "Plugins\\VariablesSaveLoad.html", 3180, {"TVariablesSaveLoadForm", "TVariablesLoadOptionsFrame"}},
    {"TBeepAction", "Beep", "Misc", "BEEP", "Plugins\\Beep.html", 1310, {"TfrmBeep"}},
};

const CatalogueEntry* FindEntry(const std::string& class_name) {
  for (const CatalogueEntry& e : kCatalogue) {
    if (e.ClassName == class_name) return &e;
  }
  return nullptr;
}

// Every registered action is a catalogue row with all its data, and the
// registered rows keep the catalogue's order.
TEST_F(RegistrationTest, RegisteredActionsFollowTheCatalogue) {
  Register(true);
  ASSERT_FALSE(services.Actions.empty());
  size_t next = 0;
  for (const auto& registered : services.Actions) {
    const CatalogueEntry* entry = FindEntry(registered.ClassName);
    ASSERT_NE(nullptr, entry) << registered.ClassName << " is not in the catalogue";
    size_t index = static_cast<size_t>(entry - kCatalogue.data());
    EXPECT_GE(index, next) << registered.ClassName << " registered out of order";
    next = index + 1;
    EXPECT_EQ(entry->DisplayName, registered.DisplayName);
    EXPECT_EQ(entry->Category, registered.Category);
    EXPECT_EQ(entry->Icon, registered.Icon);

    const TCatalogueRow* row = nullptr;
    for (const TCatalogueRow* r : CatalogueRows()) {
      if (r->Class().ClassName == registered.ClassName) row = r;
    }
    ASSERT_NE(nullptr, row);
    std::unique_ptr<TCustomJXAction> action = row->Class().CreateAction();
    EXPECT_EQ(entry->HelpPage, action->GetQuickHelpFilename());
    EXPECT_EQ(entry->Topic, action->GetHelpTopicID());

    std::vector<std::string> pages;
    for (const TJXPageClass* page : services.Pages[registered.ClassName]) {
      ASSERT_NE(nullptr, page) << registered.ClassName << " names an unknown page";
      pages.push_back(page->ClassName);
    }
    EXPECT_EQ(entry->Pages, pages) << registered.ClassName;
  }
  EXPECT_EQ(CatalogueRows().size(), services.Actions.size());
}

TEST_F(RegistrationTest, DeleteFilesRowAndItsEditors) {
  Register(true);
  auto it = std::find_if(services.Actions.begin(), services.Actions.end(),
                         [](const auto& a) { return a.ClassName == "TDeleteFilesAction"; });
  ASSERT_NE(services.Actions.end(), it);
  EXPECT_EQ("Delete File(s)", it->DisplayName);

  std::vector<std::string> delete_editors;
  for (const auto& e : services.Editors) {
    if (e.ClassName == "TDeleteFilesAction") delete_editors.push_back(e.Property + ":" + e.EditorName);
  }
  EXPECT_EQ((std::vector<std::string>{"FileSpec:TFileNameEditEx", "Target:TFileNameEditEx"}), delete_editors);
  EXPECT_EQ("Details", services.Pages["TDeleteFilesAction"].at(0)->PageName);
}

// The design environment's registrations: the property editors, then each
// action's pages (with the move-files editors right after the move-directory
// pages), in this order. Rows of action types not built yet are left out.
const std::vector<std::pair<std::string, std::string>> kDesignSteps = {
    {"Editor", "TFileExistsAction.FileOrDirectory"}, {"Editor", "TCreateDirectoryAction.FileOrDirectory"},
    {"Editor", "TDeleteDirectoryAction.FileOrDirectory"}, {"Editor", "TDeleteFilesAction.FileSpec"},
    {"Editor", "TDeleteFilesAction.Target"}, {"Editor", "TCopyFilesAction.FileSpec"},
    {"Editor", "TCopyFilesAction.Target"}, {"Editor", "TSetFileAttributesAction.FileSpec"},
    {"Editor", "TSetFileAttributesAction."}, {"Editor", "TReadIniFileAction.IniFile"},
    {"Editor", "TWriteIniFileAction.IniFile"}, {"Editor", "TReadIniFileAction.VariableName"},
    {"Editor", "TTouchFilesAction.DateTimeString"}, {"Editor", "TTouchFilesAction.FileSpec"},
    {"Editor", "TRunProgramAction.ProgramName"}, {"Editor", "TRunProgramAction.StartInDir"},
    {"Pages", "TFileExistsAction"}, {"Pages", "TJXMoveDirectoryAction"},
    {"Editor", "TMoveFilesAction.FileSpec"}, {"Editor", "TMoveFilesAction.Target"},
    {"Pages", "TDeleteDirectoryAction"}, {"Pages", "TDeleteFilesAction"}, {"Pages", "TSetFileAttributesAction"},
    {"Pages", "TFileIterator"}, {"Pages", "TFolderIterator"}, {"Pages", "TMoveFilesAction"},
    {"Pages", "TReadIniFileAction"}, {"Pages", "TTouchFilesAction"}, {"Pages", "TJXVariablePromptAction"},
    {"Pages", "TWriteIniFileAction"}, {"Pages", "TCopyFilesAction"}, {"Pages", "TCreateDirectoryAction"},
    {"Pages", "TRunDosCMDAction"}, {"Pages", "TRunProgramAction"}, {"Pages", "TSetVariableAction"},
    {"Pages", "TJXQuestionAction"}, {"Pages", "TRenameDirAction"}, {"Pages", "TConcatAction"},
    {"Pages", "TDiskInfoAction"}, {"Pages", "TDateTimeAction"}, {"Pages", "TJXCreateTextFileAction"},
    {"Pages", "TJXWriteToTextFileAction"}, {"Pages", "TJXMultiQuestionAction"}, {"Pages", "TJXXCopyAction"},
    {"OptionsPage", "TJXRobocopyOptions"}, {"Pages", "TJXRobocopyCopyAction"}, {"Pages", "TJXRobocopyJobAction"},
    {"Pages", "TJXRobocopyMoveAction"}, {"Pages", "TJXRobocopyMirrorAction"},
    {"Pages", "TJXpromptForFileOrDirAction"}, {"Pages", "TJXReadTextFileAction"}, {"Pages", "TReadTextFileIterator"},
    {"Pages", "TIniFileIterator"}, {"Pages", "TJXExtractFileVerInfoAction"}, {"Pages", "TJXListIterator"},
    {"Pages", "TJXFileCRCAction"}, {"Pages", "TJXFileMD5Action"}, {"Pages", "TJXShellExecute"},
    {"Pages", "TTextReplaceAction"}, {"Pages", "TJXVariablesSaveAction"}, {"Pages", "TJXVariablesLoadAction"},
    {"Pages", "TBeepAction"},
};

TEST_F(RegistrationTest, EditorsAndPagesInTheDesignOrder) {
  Register(true);
  std::set<std::string> registered;
  for (const auto& a : services.Actions) registered.insert(a.ClassName);
  std::vector<std::string> expected;
  for (const auto& [kind, what] : kDesignSteps) {
    if (registered.count(what.substr(0, what.find('.')))) expected.push_back(kind + " " + what);
  }
  std::vector<std::string> design_calls;
  for (const std::string& call : services.Calls) {
    if (call.rfind("Editor ", 0) == 0 || call.rfind("Pages ", 0) == 0 || call.rfind("OptionsPage ", 0) == 0) {
      design_calls.push_back(call);
    }
  }
  EXPECT_EQ(expected, design_calls);

  std::map<std::string, std::string> editor_of;
  for (const auto& e : services.Editors) {
    editor_of[e.ClassName + "." + e.Property] = e.EditorName + ":" + PropertyKindName(e.Kind);
  }
  EXPECT_EQ("TFileNameEdit:WideString", editor_of["TFileExistsAction.FileOrDirectory"]);
  EXPECT_EQ("TSelectDirectoryEditor:WideString", editor_of["TDeleteDirectoryAction.FileOrDirectory"]);
  EXPECT_EQ("TFileAttributeEditor:Enumeration", editor_of["TSetFileAttributesAction."]);
  EXPECT_EQ("TTouchFilesDateEditor:String", editor_of["TTouchFilesAction.DateTimeString"]);
  EXPECT_EQ("TFileNameEditEx:WideString", editor_of["TMoveFilesAction.Target"]);
}

// The iterators offer "Reset" to scripts right after their own row; it
// forgets the loop's position.
TEST_F(RegistrationTest, IteratorsRegisterTheirResetMethod) {
  Register(false);
  for (const std::string cls : {"TFileIterator", "TFolderIterator"}) {
    auto at = std::find(services.Calls.begin(), services.Calls.end(), "Action " + cls);
    ASSERT_NE(services.Calls.end(), at);
    EXPECT_EQ("Method " + cls + ".Reset", *(at + 1));
  }
  TFileIterator files;
  TFolderIterator folders;
  int next = 0;
  files.GetNextActionSource(nssAfterExecute, next);
  folders.GetNextActionSource(nssAfterExecute, next);
  ASSERT_EQ(2, files.ItemIndex());
  ASSERT_EQ(2, folders.ItemIndex());
  services.Methods["TFileIterator.Reset"](files);
  services.Methods["TFolderIterator.Reset"](folders);
  EXPECT_EQ(1, files.ItemIndex());
  EXPECT_EQ(1, folders.ItemIndex());
}

TEST_F(RegistrationTest, WithoutDesignNoEditorsAndNoPages) {
  Register(false);
  EXPECT_FALSE(services.Actions.empty());
  EXPECT_TRUE(services.Editors.empty());
  EXPECT_TRUE(services.Pages.empty());
  for (const std::string& call : services.Calls) {
    EXPECT_TRUE(call.rfind("Action ", 0) == 0 || call.rfind("Constant ", 0) == 0 ||
                call.rfind("Method ", 0) == 0 || call.rfind("Type ", 0) == 0 || call.rfind("Options ", 0) == 0)
        << call;
  }
}

TEST_F(RegistrationTest, RegistryConstantsWithTheRootRegisteredTwice) {
  Register(false);
  std::vector<std::string> names;
  for (const auto& [name, value] : services.Constants) names.push_back(name);
  EXPECT_EQ((std::vector<std::string>{"rtInteger", "rtString", "HKEY_CLASSES_ROOT", "HKEY_CLASSES_ROOT",
                                      "HKEY_CURRENT_USER", "HKEY_LOCAL_MACHINE", "HKEY_USERS",
                                      "HKEY_CURRENT_CONFIG"}),
            names);
  EXPECT_EQ(Variant(uint32_t{0x80000000u}), services.Constants[2].second);
  EXPECT_EQ(services.Constants[2].second, services.Constants[3].second);
  EXPECT_EQ(Variant(uint32_t{0x80000005u}), services.Constants[7].second);
  EXPECT_EQ(Variant(int32_t{1}), services.Constants[1].second);
}

}  // namespace
}  // namespace jx
