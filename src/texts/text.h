// The name of every text that users see.
#pragma once

#include <cstdint>

namespace chartproject {

/// One name a text; each has a row in three languages, in one of the *_rows.cpp files. The first 101 are the numbered
/// messages: their values are the numbers. A new text: a name here, a row at the same place of the group's file.
enum class Text : std::uint16_t {
  // The numbered messages (message_rows.cpp).
  kEnterFileName = 0,
  kChartFile,
  kAcquiringData,
  kDriveAddress,
  kParameters,
  kFileName,
  kNumberOfPoints,
  kTimeAmongPoints,
  kReset,
  kResetTip,
  kOk,
  kOkTip,
  kCancel,
  kCancelTip,
  kAcquireParameter,
  kViewChart,
  kEscCancelsTip,
  kTrigger,
  kEventRun,
  kEvent,
  kManual,
  kTriggerMode,
  kEventDI1Off,
  kEventDI1On,
  kEventDI2Off,
  kEventDI2On,
  kEventDI3Off,
  kEventDI3On,
  kEventDI4Off,
  kEventDI4On,
  kEventDI5Off,
  kEventDI5On,
  kEventDI6Off,
  kEventDI6On,
  kEventDI7Off,
  kEventDI7On,
  kEventDI8Off,
  kEventDI8On,
  kEventGreater,
  kEventLess,
  kEventEqual,
  kEventGreaterOrEqual,
  kEventLessOrEqual,
  kStartAcquisition,
  kParameter,
  kContent,
  kGrid,
  kNumberOfParameters,
  kCommunicationError,
  kContinueEvenSo,
  kStartDate,
  kEndDate,
  kLineError,
  kSaving,
  kHoursMinutesSeconds,
  kParameterContent,
  kStartTime,
  kEndTime,
  kMillisecondsRange,
  kSecondsRange,
  kPointsRange,
  kEventReady,
  kEventUndervoltage,
  kWarning,
  kEventNotAvailable,
  kOutOfRange,
  kPrint,
  kPrintTip,
  kPrinting,
  kUpdateChart,
  kChart3DBar,
  kChart2DBar,
  kChart3DLine,
  kChart2DLine,
  kChart3DArea,
  kChart2DArea,
  kChart3DStep,
  kChart2DStep,
  kChartType,
  kScale,
  kMarker,
  kLine,
  kBadClockTime,
  kYes,
  kNo,
  kBrowse,
  kTooLittleSpace,
  kPointsSavedOn,
  kRequiredSpace,
  kFileExistsBefore,
  kFileExistsAfter,
  kNoSpreadsheet,
  kExportQuestion,
  kExportTakesTime,
  kFileSavedAs,
  kExport,
  kExportTip,
  kPrintQuestion,
  kAddress,
  kDoesNotExist,
  kCannotLoad,

  // The acquisition dialog (acquire_rows.cpp).
  kHintDriveAddress,   ///< "Choose a drive address." : first thing that keeps Start away
  kHintParameters,     ///< "Choose a parameter in every list that is in use."
  kHintFileName,       ///< "Enter a file name."
  kHintTime,           ///< "Enter the time among points."
  kHintPoints,         ///< "Enter the number of points."
  kHintEvent,          ///< "Choose an event."
  kHintContent,        ///< "Enter the content to compare with."
  kHintNotANumber,     ///< "Not a number: %1"
  kHintNoDriverFile,   ///< "The driver file %1 is missing."
  kHintBadDriverFile,  ///< "The driver file %1 cannot be used."
  kTargetWritten,      ///< "%1 will be written."
  kTargetReplaced,     ///< "%1 will be replaced. It was recorded on %2."
  kTargetThere,        ///< "%1 will be replaced."
  kTargetNoRecording,  ///< "%1 will be replaced. It is not a recording."
  kNoSuchFolder,       ///< "The folder of %1 does not exist."
  kNoRightToWrite,     ///< "You have no right to write %1."
  kNoRightToRead,      ///< "You have no right to read %1."
  kWaitingFor,         ///< "Waiting for %1 since %2."
  kWaitingForNow,      ///< "Waiting for %1, now %2, since %3."
  kRunEstimate,        ///< "Duration %1, about %2."  %1 time, %2 size of the file
  kElapsedAndEnd,      ///< "Elapsed %1, expected end %2"
  kFileBeingRecorded,  ///< "%1 is being recorded by another window or program (lock file %2)."
  kPointsLost,         ///< "%1 point(s) could not be saved anywhere ..."
  kNewFile,            ///< caption of the button that asks for a new file's name
  kNewFileTip,
  kBrowseTip,
  kCrashWouldLose,       ///< "A crash of the program would lose the points: %1"  %1 the reason
  kSpoolGoesOn,          ///< "%1 The points go on in %2."  %1 what became of the file before
  kPointsMissing,        ///< "%1 point(s) were taken, %2 of them are in %3."
  kRecordingWasCut,      ///< "A recording of %1 was interrupted after %2 point(s)."
  kRecordingWasCutMore,  ///< the same of a recording with more than %2 points
  kPointsRecovered,      ///< "%1 point(s) of the interrupted recording are in %2."
  kRecordingWasWhole,    ///< "%1 holds all points; what was left beside it was removed."
  kLinesLeftOut,         ///< "%1 line(s) are not points."
  kRecover,              ///< buttons beside kRecordingWasCut
  kRecoverTip,
  kRecoverLater,
  kRecoverLaterTip,
  kDiscard,
  kDiscardTip,
  kDiscardQuestion,      ///< "Delete the %1 point(s) of %2?"
  kSimulatedTitle,       ///< "%1 - simulated drives"  %1 the dialog's title
  kReadingsFailed,       ///< "%1: %2 of %3 readings failed, last: %4"  %1 parameter, %4 the reason
  kFailedBetween,        ///< "(points %1 to %2)", after kReadingsFailed
  kPointsComeLate,       ///< while it happens: every %1 instead of %2
  kPaceSlipped,          ///< afterwards: %1 mean, %2 asked, %3 shortest, %4 longest
  kCompanionNotWritten,  ///< "... could not be noted: %1"
  kPointTakes,           ///< "A point takes %1 of your %2 ms."
  kPointTakesTooLong,    ///< the same of a point that takes longer than the time between points
  kTimePoint,            ///< caption of the button that reads a point to time it
  kTimePointTip,
  kTimingPoint,        ///< while it is read
  kRecoveredTimes,     ///< of a recovered recording: the real times are not known
  kRecoveredReadings,  ///< the same without a journal: neither are the failed readings
  kRecoveryProgress,   ///< "Saving the points of the interrupted recording: %1 % (Esc: not now)"
  kNotStarted,         ///< "Not started: the points of the interrupted recording beside %1 are as they were."
  kCurve,              ///< caption of the button that shows the last points while they are recorded
  kCurveTip,
  kLiveChartWords,  ///< what the chart of the last points is

  // The chart window, its page and its export (chart_rows.cpp).
  kScrollTip,            ///< "Position in the recording"
  kExportStopped,        ///< "The export was stopped. No file was written."
  kExportSkippedLines,   ///< "%1 line(s) ... were skipped; the first is line %2."
  kExportTooLarge,       ///< "... %1 points would fit."
  kExportNeedsSpace,     ///< the workbook needs %1, the disk has %2
  kExportWithoutPoints,  ///< the file holds 0 points
  kExporting,            ///< "Exporting: %1 % (Esc stops)"
  kCellPlace,            ///< "line %1, column %2: ", before what is wrong there
  kPointsPerDivision,    ///< "Points per division: %1"
  kReadingFile,          ///< "Reading the file: %1 % (Esc stops)"
  kReadingStopped,       ///< "Stopped. The chart stays where it was."
  kFewerPoints,          ///< the file holds %1 points, its header names %2
  kMorePoints,           ///< the file continues after point %1, the last one of its header
  kUnknownPoints,        ///< the header does not name a number of points; the file holds %1
  kUnknownSeries,        ///< the header does not name 1 to 4 parameters; %1 columns are shown
  kNoPointLines,         ///< the file holds a header only
  kNoParameterNames,     ///< no driver file: %1 is the reason
  kReadoutPoint,         ///< "Point %1, %2"  %2 its time
  kCursorPoint,          ///< "Cursor %1: point %2, %3"
  kCursorDifference,     ///< "Difference: %1 points, %2"
  kChartTip,             ///< how to place and remove the cursors
  kSimulatedValues,      ///< the recording's values come from simulated drives
  kValueNotRead,         ///< "%1 (not read: %2)"  %2 the reason
  kCompanionNotRead,     ///< %1 the reason, with the file
  // The chart window's menu: its groups, its entries, the names of keys.
  kActionFit,
  kActionOneToOne,
  kActionZoomIn,
  kActionZoomOut,
  kActionBack,
  kActionOverview,
  kReadoutPoints,  ///< "Points %1 to %2"
  kValueSpan,      ///< "%1 to %2"  of values
  kMenuGo,
  kMenuLook,
  kActionDivisionBack,
  kActionDivisionOn,
  kActionPageBack,
  kActionPageOn,
  kActionFirstPoint,
  kActionLastPoint,
  kActionRemoveCursors,
  kKeyShift,
  kKeyLeft,
  kKeyRight,
  kKeyPageUp,
  kKeyPageDown,
  kKeyHome,
  kKeyEnd,
  kKeyBackspace,
  kKeySpace,
  kMenuMeasure,
  kActionGoTo,
  kActionFind,
  kActionFindNext,
  kActionFindPrevious,
  kActionAxisPoints,
  kActionAxisElapsed,
  kActionAxisTime,
  kActionLanes,
  kActionValuesIn,
  kActionValuesOut,
  kActionFixRange,
  kActionAutomaticRange,
  kActionSeries1,
  kActionSeries2,
  kActionSeries3,
  kActionSeries4,
  kActionFirstCursorBack,
  kActionFirstCursorOn,
  kActionSecondCursorBack,
  kActionSecondCursorOn,
  kActionStatistics,
  kActionCopyNumbers,
  kActionCopyPicture,
  kActionSavePicture,
  kSwatchTip,
  kStatMinimum,
  kStatMaximum,
  kStatMean,
  kStatRms,
  kStatSlope,
  kStatIntegral,
  kStatCrossings,
  kStatNotMeasured,
  kStatPress,
  kMeasuring,
  kSearching,
  kStoppedHere,
  kNothingFound,
  kFindTitle,
  kFindWhat,
  kFindCrossing,
  kFindChange,
  kFindGap,
  kFindFailed,
  kFindSeries,
  kFindValue,
  kFindNextButton,
  kFindPreviousButton,
  kFoundCrossing,
  kFoundChange,
  kFoundGap,
  kFoundFailed,
  kGoToTitle,
  kGoToPoint,
  kGoToElapsed,
  kGoToTime,
  kForExample,
  kNotUnderstood,
  kGoToOutside,
  kPictureFiles,
  kPictureReplace,
  kNotAPicture,
  kPictureSaved,
  kFollowedTitle,      ///< "%1 (recording)"
  kFollowing,          ///< %1 points so far, of a recording that runs
  kFollowInterrupted,  ///< %1 points that an interrupted recording kept
  kFollowEnded,        ///< the recording that was followed is in its chart file
  kActionPrintReport,
  kRangeLabel,
  kRangeAll,      ///< %1 number of points
  kRangeVisible,  ///< %1 first and %2 last point
  kRangeCursors,  ///< %1 first and %2 last point
  kRangePart,     ///< asked after a refusal
  kReportForm,
  kReportTitle,
  kReportRemark,
  kReportRecording,
  kReportDrive,
  kReportStart,
  kReportEnd,
  kReportDuration,
  kReportAsked,
  kReportReal,
  kReportNoDelay,
  kReportPace,  ///< %1 mean, %2 shortest and %3 longest interval, %4 how late the latest point came
  kReportFailed,
  kReportNoneNoted,
  kReportNotKnown,
  kReportSerialNumber,
  kReportReference,
  kReportRange,  ///< %1 first, %2 last point, %3 points of the recording
  kReportStatistics,
  kReportRms,
  kReportNoValue,
  kReportCursors,
  kReportCursor,      ///< %1 its number
  kReportDifference,  ///< second cursor minus first
  kReportPointNumber,
  kReportTime,
  kReportNotRead,
  kReportPage,  ///< %1 its number, %2 pages
  kNoPointOfRange,
  kRangeTwoBeginnings,  ///< options of a range, as the next ones
  kRangeTwoEnds,
  kRangeEmpty,
  kRangeOutside,     ///< %1 points of the file, %2 first point of the range
  kRangeNotATime,    ///< %1 option, %2 its value
  kRangeNoInterval,  ///< %1 option
  kRangeNoStart,     ///< %1 option

  // The start window, message boxes and file dialogs (window_rows.cpp).
  kStartDrives,   ///< caption of the start window's list of drives
  kStartAcquire,  ///< buttons of the start window
  kStartOpenChart,
  kStartClose,
  kStartLanguage,
  kStartSound,
  kStartChartFiles,        ///< "Chart files", before the pattern in the file dialog
  kStartProjectMade,       ///< "A project with simulated drives was made in %1."
  kStartSettingsReplaced,  ///< heading of a list of settings and their former values
  kBoxOk,
  kBoxCancel,
  kBoxYes,
  kBoxNo,
  kBoxHelp,
  kBoxOpen,
  kBoxSave,
  kBoxLookIn,
  kBoxFileName,
  kBoxFileType,
  kHelpTitle,
  kHelpFileMissing,
  kHelpFileUnreadable,
  kStartRecent,  ///< caption of the start window's list of charts
  kLinkDrives,   ///< the line of the start window that chooses the drives
  kLinkSimulated,
  kLinkSerial,
  kLinkNetwork,
  kLinkPort,
  kLinkAnotherPort,
  kLinkLookAgain,
  kLinkOtherPort,
  kLinkHost,
  kLinkSpeed,
  kLinkParity,
  kParityEven,
  kParityNone,
  kParityOdd,
  kLinkTest,
  kLinkTestTip,
  kLinkStop,
  kLinkPortMissing,
  kLinkHostMissing,
  kLinkNoPorts,
  kLinkAsking,
  kLinkStopped,
  kLinkAnswer,  ///< %1 addresses, each with the name that the drive gives itself
  kLinkNobody,
  kLinkNotInProject,  ///< %1 addresses, as in the next one
  kLinkNoAnswer,
  kPortInUse,  ///< %1 port, %2 program
  kStartAddDrive,
  kStartRemoveDrive,
  kStartOpenProject,
  kStartProjectFiles,  ///< before the pattern in the file dialog
  kAddDrive,           ///< title of the window that adds a drive
  kDriveModel,         ///< fields of that window
  kFirmwareVersion,
  kDriveTag,
  kAdd,
  kRemoveDrive,  ///< title of the window that removes drives
  kDrive,
  kAllDrives,
  kRemove,
  kDriveAdded,    ///< %1 address, %2 drive file
  kDriveRemoved,  ///< %1 drive files

  // Drives and driver files (drive_rows.cpp).
  kDriverLineError,      ///< %1 line, %2 file
  kUnknownUnit,          ///< %1 keyword and parameter
  kFileLinePlace,        ///< "%1, line %2: ", before what is wrong there
  kModelShowsNoNumbers,  ///< %1 model
  kMoreDriverFaults,     ///< %1 number of further faults, %2 file
  kReadNoAnswer,         ///< why a reading failed, as the end of a sentence: "no answer"
  kReadTimeout,
  kReadChecksum,
  kReadException,
  kReadPortGone,
  kReadStatus,  ///< "status %1"
  kReadBroken,
  kReadForeign,        ///< after "no answer": what came was an answer to something else
  kExceptionFunction,  ///< why a drive refused, in brackets after that; from here to kExceptionCode
  kExceptionAddress,
  kExceptionValue,
  kExceptionDevice,
  kExceptionLater,
  kExceptionBusy,
  kExceptionMemory,
  kExceptionPath,
  kExceptionTarget,
  kExceptionCode,  ///< %1 number of an exception without a name

  // Descriptions of run-time errors (error_rows.cpp).
  kDialogAlreadyOpen,
  kNoChartFileName,
  kDriveLinkNotOpen,
  kUnknownDriveLink,
  kNotAChartFile,
  kChartFileWithoutPoints,
  kLineIsNotAPoint,
  kIsAFolder,
  kNotARegularFile,
  kFileNotFound,
  kClipboardInUse,
  kClipboardWithoutPicture,
  kPicturesNotDrawn,
  kInvalidPicture,
  kPictureNotWritten,
  kNothingToPrint,
  kPrinterError,
  kBuiltWithoutPrinting,
  kBuiltWithoutWindows,
  kNoDisplay,
  kDisplayNotReached,  ///< %1 display
  kWindowNotMade,
  kControlNotMade,
  kCellTextTooLong,
  kWorkbookTooLarge,
  kSheetRefused,
  kExportOntoItself,
  kDiskTooLarge,
  kOverflow,
  kTypeMismatch,
  kSettingsFileTooLarge,  ///< %1 file
  kSettingsLineSkipped,   ///< "the line is not understood and is left out: %1"
  kSettingOverflow,
  kSettingTypeMismatch,
  kApplicationMember,
  kApplicationFailed,
  kWithoutObject,
  kNoWorkbook,
  kFileTooLarge,        ///< %1 file, %2 its size and %3 the largest size in MB
  kSideFileLost,        ///< %1 a file of the program that another program removed, replaced or cut
  kReadBackDiffers,     ///< %1 file whose rows are not those that were written
  kFileIsThere,         ///< %1 a file that is not written over
  kReplacedByAnother,   ///< "%1 was replaced by another file."
  kLinkNotFollowed,     ///< %1 is a symbolic link
  kLinkOfAnotherUser,   ///< %1 is one of another user in a shared folder
  kOfAnotherUser,       ///< "%1 belongs to another user."
  kFileOfSeveralNames,  ///< %1 file that hard links name too
  kKeptByStickyFolder,  ///< "%1 cannot be replaced: ...", as the next ones
  kMarkedImmutable,
  kFolderMarkedImmutable,
  kMarkedReadOnly,
  kClipboardNotEmptied,
  kClipboardRefused,
  kNoDefaultPrinter,
  kPrinterNotReached,  ///< %1 printer, %2 reason
  kDocumentNotBegun,   ///< %1 printer, %2 reason
  kPageNotTaken,       ///< %1 printer
  kNoDocument,
  kTextNotPrinted,
  kPictureNotPrinted,
  kNoMemoryForPicture,
  kFileDialogFailed,  ///< %1 the system's number
  kSheetCountUnknown,
  kCellUnreadable,
  kApplicationBusy,
  kDriveLinkNotMade,  ///< %1 class, %2 reason
  kDriveLinkNoId,     ///< %1 text of the registry
  kNotACompanion,     ///< %1 file
  kCompanionLine,     ///< %1 file, %2 line
  kLinkKeyUnknown,    ///< %1 link, %2 key, %3 list of the keys
  kLinkValueRefused,  ///< %1 link, %2 key, %3 value, %4 what it takes
  kLinkWithoutPort,   ///< %1 link
  kPortNotOpened,     ///< %1 port or host, %2 the system's reason
  kNotASerialPort,    ///< %1 file
  kPortTaken,         ///< %1 port
  kPortNotAllowed,    ///< %1 port, %2 group that may open it
  kHostNotFound,      ///< %1 host
  kBuiltWithoutSerial,
  kTraceOfOthers,    ///< %1 file that is there
  kTraceNotWritten,  ///< %1 file
  kTraceWithoutLine,
  kVirtualClockWithDrives,
  kDriveAddressTaken,     ///< %1 address, %2 drive file
  kDriveModelUnknown,     ///< %1 model, %2 list of models
  kModelWithoutDriver,    ///< %1 model, %2 folder
  kNoDriveAtAddress,      ///< %1 address
  kNotAProject,           ///< %1 file
  kPublishWithoutTimes,   ///< %1 file
  kPublishedByAnother,    ///< %1 file, %2 marker file of the other program
  kPublishInterrupted,    ///< %1 file
  kPublishReplaced,       ///< %1 file
  kPublishAddress,        ///< %1 text that is not an address, %2 the reason
  kPublishSecretInUrl,    ///< an address with a name or password; it is not shown
  kPublishTokenFile,      ///< %1 file
  kPublishMeasurement,    ///< %1 text that cannot be a measurement
  kPublishPrecision,      ///< %1 address that asks for another unit of time
  kPublishNotReached,     ///< %1 server, %2 the system's reason
  kPublishServerBusy,     ///< %1 server, %2 status, %3 its text
  kPublishTokenRefused,   ///< as before
  kPublishRefused,        ///< as before
  kPublishTooLarge,       ///< as before
  kPublishNotADatabase,   ///< as before
  kPublishCertificate,    ///< %1 server, %2 the reason
  kPublishRedirects,      ///< %1 server, %2 the reason
  kPublishRecovered,      ///< %1 server
  kPublishPositionFault,  ///< the position is not kept; %1 reason
  kPublishSendingRest,    ///< %1 points, %2 server, %3 seconds
  kPublishRest,           ///< %1 points that were not sent, %2 of all, %3 command
  kPublishAllSent,        ///< %1 points, %2 server
  kPublishPlace,          ///< %1 points that were acknowledged

  kCount
};

}  // namespace chartproject
