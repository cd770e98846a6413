// The dialogs and the controls that other dialogs reach by name. A name that no record bears would
// be a command that silently does nothing; a test holds this list against the records.
#pragma once

namespace zorvant::name {

// --- dialogs
inline constexpr const char* kMainWindow = "MDIZOR";
inline constexpr const char* kModel = "frmZorModel";
inline constexpr const char* kMatrix = "frmmatrix";
inline constexpr const char* kTimeDiagram = "frmPrepareTimeDiagram";
inline constexpr const char* kTable = "frmSimTabelle";
inline constexpr const char* kBatch = "frmBatch";
inline constexpr const char* kTube = "frmRohrreaktor";
inline constexpr const char* kTank = "frmRKconti";
inline constexpr const char* kSeries = "frmKaskade";
inline constexpr const char* kDataEditor = "frmDatedit";
inline constexpr const char* kXYEditor = "frmZXYEditor";
inline constexpr const char* kImportText = "frmImportText";
inline constexpr const char* kArrhenius = "frmArrheniusRechner";
inline constexpr const char* kBloodAlcohol = "frmBlutalkohol";
inline constexpr const char* kFitting = "frmZFitting";
inline constexpr const char* kTangent = "frmCalcTangente";
inline constexpr const char* kTracer = "frmVerweilzeit";
inline constexpr const char* kResidence = "frmVerweilCalc";
inline constexpr const char* kFileDialog = "frmZCmnDlg";
inline constexpr const char* kComment = "frmCommentInput";
inline constexpr const char* kDiagram = "frmZGraph2D";
inline constexpr const char* kGraphCalculator = "frmZGraphCalc";

// --- controls of the model dialog
inline constexpr const char* kOrder = "txtOrdnung";

// --- commands of the main window
inline constexpr const char* kEditData = "mnuEditDat";
inline constexpr const char* kToolSaveProject = "Toolbar1_8";
inline constexpr const char* kToolEditData = "Toolbar1_16";
inline constexpr const char* kMenuOfData = "mnuEdit1";
inline constexpr const char* kMenuOfList = "mnuEdit2";
inline constexpr const char* kEraseInList = "mnuErase2";
inline constexpr const char* kCopyFromList = "mnuCopy2";

} // namespace zorvant::name

namespace zorvant {
/// The title of every box that refuses a command.
inline constexpr const char* kExecutionNotPossible = "Execution not possible";
} // namespace zorvant
