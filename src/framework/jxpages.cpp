#include "framework/jxpages.h"

#include <array>

namespace jx {

namespace {

// Pages without a caption of their own show the common "Details" tab.
const std::array kPages = {
    TJXPageClass{"TCopyFrame", "Details"},
    TJXPageClass{"TMoveFrame", "Details"},
    TJXPageClass{"TRunProgramFrame", "Program"},
    TJXPageClass{"TRunDosCmdFrame", "Details"},
    TJXPageClass{"TFileAttributeFrame", "Details"},
    TJXPageClass{"TSetVariableFrame", "Details"},
    TJXPageClass{"TCheckFileFrame", "Details"},
    TJXPageClass{"TCreateDirectoryFrame", "Details"},
    TJXPageClass{"TDeleteDirFrame", "Details"},
    TJXPageClass{"TDeleteFilesFrame", "Details"},
    TJXPageClass{"TReadIniFrame", "Details"},
    TJXPageClass{"TWriteIniFrame", "Details"},
    TJXPageClass{"TFileIteratorFrame", "Details"},
    TJXPageClass{"TTouchFrame", "Details"},
    TJXPageClass{"TJXVariablePromptFrame", "Variables"},
    TJXPageClass{"TMoveDirectoryFrame", "Move Directory"},
    TJXPageClass{"TConcatFilesFrame", "Concat Files"},
    TJXPageClass{"TGetDateTimeFrame", "GetDateTime"},
    TJXPageClass{"TDiskFreeSpaceFrame", "Get Drive Free Space"},
    TJXPageClass{"TQuestionFrame", "Ask Question"},
    TJXPageClass{"TRenameDirFrame", "Rename File or Directory"},
    TJXPageClass{"TReadRegistryFrame", "Registry"},
    TJXPageClass{"TCreateFileFrame", "Create Text File"},
    TJXPageClass{"TFrameMultiQuestion", "Multi-Question"},
    TJXPageClass{"TXCopyMainFrame", "Main"},
    TJXPageClass{"TJXXcopyExcludeFilesFrame", "Exclude Files"},
    TJXPageClass{"TXCopyAttribFrame", "Attributes && Security"},
    TJXPageClass{"TXCopyOptionsFrame", "Options"},
    TJXPageClass{"TRobocopyOptionsFrame", "Details"},
    TJXPageClass{"TRobocopyJobsFrame", "Job Files"},
    TJXPageClass{"TRobocopyMainFrame", "Settings"},
    TJXPageClass{"TRobocopyCopyOptionsFrame", "Options"},
    TJXPageClass{"TRobocopyIncludeFrame", "Include"},
    TJXPageClass{"TRobocopyExcludeFrame", "Exclude"},
    TJXPageClass{"TJXRobocopyExcludeFilesFrame", "Exclude Files"},
    TJXPageClass{"TJXRobocopyExcludeDirFrame", "Exclude Dirs"},
    TJXPageClass{"TRobocopyLogOptionsFrame", "Logging"},
    TJXPageClass{"TRobocopyMoveOptionsFrame", "Move Options"},
    TJXPageClass{"TPromptForFileOrDirFrame", "Prompt for File or Directory"},
    TJXPageClass{"TFolderIteratorFrame", "Details"},
    TJXPageClass{"TReadFileFrame", "Read File"},
    TJXPageClass{"TReadTextFileIteratorFrame", "Details"},
    TJXPageClass{"TExtractFileVersionInfoFrame", "Details"},
    TJXPageClass{"TIniFileIteratorFrame", "Details"},
    TJXPageClass{"TListIteratorFrame", "Details"},
    TJXPageClass{"TWriteToTextFileFrame", "Details"},
    TJXPageClass{"TFileCRCFrame", "Details"},
    TJXPageClass{"TFileMD5Frame", "Details"},
    TJXPageClass{"TJXShellExecuteFrame", "Details"},
    TJXPageClass{"TfrmTextReplace", "Details"},
    TJXPageClass{"TVariablesSaveLoadForm", "Details"},
    TJXPageClass{"TVariablesLoadOptionsFrame", "Load Options"},
    TJXPageClass{"TVariablesSaveOptionsFrame", "Save Options"},
    TJXPageClass{"TfrmBeep", "Details"},
};

}  // namespace

const TJXPageClass* FindPageClass(std::string_view class_name) {
  for (const TJXPageClass& page : kPages) {
    if (page.ClassName == class_name) return &page;
  }
  return nullptr;
}

}  // namespace jx
