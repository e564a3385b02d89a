#pragma once

/// The numbers of the program's texts, for GetProgramText(). Texts carry no spaces at their ends: who puts
/// one together sets the spaces, line ends and full stops that the notes name. "path" and "drive" are put in
/// as they are.
namespace text {

// --- Setups
inline constexpr int kTitleSetupError = 31;
inline constexpr int kOpenSetupTitle = 114;    ///< title of the file dialog
inline constexpr int kSetupNotRead = 115;      ///< + CR LF + path
inline constexpr int kSetupNotSaved = 116;     ///< for the next run
inline constexpr int kSaveSetupTitle = 117;    ///< title of the file dialog
inline constexpr int kSetupFiles = 118;        ///< + " (*.qvr)"
inline constexpr int kReplaceSetupFile = 119;  ///< + " " + path + "?"
inline constexpr int kTitleSetupFileThere = 120;
inline constexpr int kSetupFileNotSaved = 121;  ///< + " " + path + "."
inline constexpr int kSetupEndsEarly = 348;     ///< + CR LF + path + CR LF CR LF + kSetupPartlyLoaded
inline constexpr int kSetupPartlyLoaded = 349;
inline constexpr int kDataFolderName = 310;
inline constexpr int kStaysInSetup = 640;  ///< behind a sentence that a folder does not exist
inline constexpr int kTargetStaysInSetup = 778;
inline constexpr int kAwayForNow = 641;        ///< + " " + folders + "."
inline constexpr int kExtensionMissing = 642;  ///< a warning
inline constexpr int kNotASetupFile = 643;     ///< behind kSetupNotRead + " " + path + ". "
inline constexpr int kNoSetupYet = 644;        ///< + " " + path + " (" + user + ")"
/// kLastRunReadInPart or kLastRunChanged, + CR LF + path + CR LF CR LF + kReplaceLastRun: a question
inline constexpr int kLastRunReadInPart = 645;
inline constexpr int kLastRunChanged = 646;
inline constexpr int kReplaceLastRun = 647;
inline constexpr int kTitleReplaceLastRun = 648;
inline constexpr int kPathNotSaved = 649;  ///< + CR LF + path + CR LF CR LF + kPathNotSavedAdvice
inline constexpr int kPathNotSavedAdvice = 650;
inline constexpr int kTitlePathNotSaved = 651;

// --- What stops an operation before it begins
inline constexpr int kSourceIsEmpty = 37;
inline constexpr int kTitleNothingToDo = 38;
inline constexpr int kNoFilesInSetup = 40;
inline constexpr int kTargetNotSpecified = 42;
inline constexpr int kTargetWriteProtected = 406;
/// + " " + who holds it + ". " + kTargetInUseAdvice
inline constexpr int kTargetInUse = 654;
inline constexpr int kFolderAboveInUse = 590;  ///< + " " + the folder + ", " + the same
inline constexpr int kTargetInUseAdvice = 655;
inline constexpr int kTitleTargetInUse = 656;
inline constexpr int kUnknownHolder = 657;
inline constexpr int kTargetNotReadable = 652;  ///< + " " + path + " (" + the system's reason + ")"

// --- The target folder is not there
inline constexpr int kCreateTarget = 43;        ///< a question of its own
inline constexpr int kMissingTarget = 79;       ///< + CR LF + path + CR LF CR LF + kClearMissingTarget
inline constexpr int kClearMissingTarget = 59;  ///< a question: Yes clears the target
inline constexpr int kTitleMissingTarget = 82;  ///< of both questions

// --- Choosing and creating folders
inline constexpr int kBrowseSource = 600;      ///< title of the folder dialog
inline constexpr int kBrowseTarget = 601;      ///< title of the folder dialog
inline constexpr int kNewSubfolderName = 374;  ///< prompt; holds "C:\", which gives way to the target
inline constexpr int kFolderThere = 375;       ///< + " " + path
inline constexpr int kFolderCreated = 376;     ///< + " " + path
/// + CR LF + path; where the drive can be named + " " + kOnDrive + " " + drive + " " + kUnderPath + CR LF +
/// path
inline constexpr int kFolderNotCreated = 377;
inline constexpr int kNameIsPath = 658;        ///< + " " + name
inline constexpr int kNameIsReserved = 659;    ///< + " " + name
inline constexpr int kNameHasCharacter = 660;  ///< + " " + name
inline constexpr int kMakeItTheTarget = 378;   ///< a question; holds "E:\", which gives way to the path
inline constexpr int kOnDrive = 386;
inline constexpr int kUnderPath = 387;

// --- Questions of a run; Yes goes on. The two are
// kTheTargetFolder " " kCouldNotBeCreated [" " kOnDrive " " drive " " kUnderPath] CR LF path CR LF CR LF
//   kGoOn " " kWithNextFileOfFolder
// kTheTargetFile CR LF path CR LF kStaysReadOnly CR LF CR LF kGoOn " " kWithNextFile
inline constexpr int kGoOn = 64;
inline constexpr int kTheTargetFolder = 165;
inline constexpr int kCouldNotBeCreated = 166;
inline constexpr int kWithNextFileOfFolder = 167;
inline constexpr int kTheTargetFile = 169;
inline constexpr int kStaysReadOnly = 170;
inline constexpr int kWithNextFile = 171;

// --- Report window and its lines
inline constexpr int kSourceFolder = 45;             ///< goes between "{" and "}"
inline constexpr int kClose = 58;                    ///< a caption
inline constexpr int kCopyAll = 112;                 ///< a caption, with nothing selected
inline constexpr int kCopySelected = 113;            ///< a caption
inline constexpr int kLargeSwapFileSkipped = 164;    ///< + " " + name + "."
inline constexpr int kLargeSystemFileSkipped = 390;  ///< + " " + name + "."

// --- Main window
inline constexpr int kHelpTitle = 72;
inline constexpr int kIntroduction = 352;
inline constexpr int kPreviousRunKey = 388;  ///< the key path in the settings store
inline constexpr int kPreviousRun = 389;     ///< the value's name there, and + ": " + date a caption

// --- The periods of "modified since": a list entry, and + ":" behind "For files new or modified "
inline constexpr int kAtAnyTime = 353;
inline constexpr int kInTheLastWeek = 356;
inline constexpr int kInTheLastMonth = 357;
inline constexpr int kInTheLastMonths = 358;  ///< holds "2", which gives way to larger counts

// --- Lines of the engine. A lead word is followed by " " and the name or path; the reasons are sentences.
inline constexpr int kNotCopied = 500;  ///< lead word
inline constexpr int kReasonNotFound = 501;
inline constexpr int kReasonAccessDenied = 502;
inline constexpr int kReasonReadOnlyMedium = 503;
inline constexpr int kReasonDiskFull = 504;
inline constexpr int kReasonFolderInTheWay = 505;
inline constexpr int kReasonFileInTheWay = 506;
inline constexpr int kReasonInUse = 507;
inline constexpr int kReasonBadName = 508;
inline constexpr int kReasonTooLarge = 509;
inline constexpr int kReasonShort = 510;
inline constexpr int kReasonOther = 511;
inline constexpr int kReasonDamaged = 514;
inline constexpr int kReasonNameTaken = 512;
inline constexpr int kReasonTargetGone = 513;
inline constexpr int kReasonFolderGone = 515;
inline constexpr int kReasonTooManyOpen = 516;
inline constexpr int kReasonBecameFolder = 661;
inline constexpr int kNotRead = 520;               ///< lead word: a folder
inline constexpr int kLinkNotFollowed = 521;       ///< lead word
inline constexpr int kDeadLink = 522;              ///< lead word
inline constexpr int kNotAFile = 523;              ///< lead word
inline constexpr int kTargetInSource = 524;        ///< lead word
inline constexpr int kIncludedFolderGone = 525;    ///< lead word
inline constexpr int kNotAPlainName = 653;         ///< lead word: a name from a setup
inline constexpr int kWouldOverwriteSource = 529;  ///< lead word
inline constexpr int kSameFolder = 526;
inline constexpr int kTitleSameFolder = 527;
inline constexpr int kSourceNotRead = 528;  ///< lead word
inline constexpr int kNotStarted = 530;     ///< lead word: why
inline constexpr int kCancelledByUser = 531;
inline constexpr int kLeftoverNotRemoved = 532;  ///< lead word
inline constexpr int kNotFlushed = 533;          ///< lead word: why
inline constexpr int kMountNotFollowed = 534;    ///< lead word
inline constexpr int kFolderNameTaken = 535;     ///< lead word
inline constexpr int kCopiesLieElsewhere = 560;  ///< lead word: a folder of the target
inline constexpr int kLinkInTarget = 561;        ///< lead word: a folder of the target
inline constexpr int kFolderBelowInUse = 591;    ///< lead word: a folder of the target; + ", " + who copies
inline constexpr int kReasonFolderInUse = 592;
inline constexpr int kReasonForeignLink = 562;
inline constexpr int kReasonFolderNameTaken = 563;
inline constexpr int kFlushing = 536;
inline constexpr int kChangedMeanwhile = 537;  ///< lead word
inline constexpr int kEndedEarly = 538;
inline constexpr int kUnfinishedRunFound = 540;
inline constexpr int kUnfinishedRunGoesOn = 543;
inline constexpr int kNotMarked = 541;    ///< lead word
inline constexpr int kMarkNotRead = 542;  ///< lead word

// --- Contents compared; lines of the engine
inline constexpr int kOtherContent = 770;            ///< lead word
inline constexpr int kNotCompared = 771;             ///< lead word: a file of the source
inline constexpr int kCopyNotRead = 772;             ///< lead word: a copy
inline constexpr int kCopyNotReadAdvice = 773;       ///< a sentence after that line
inline constexpr int kChangedBeforeComparing = 774;  ///< lead word
inline constexpr int kComparesContents = 775;        ///< a line of the heading

// --- Copies read back; lines of the engine
inline constexpr int kReasonNotAsWritten = 776;
inline constexpr int kReadsBack = 777;  ///< a line of the heading

// --- Report window
inline constexpr int kAskCancelBackup = 700;
inline constexpr int kAskCancelOperation = 701;
inline constexpr int kLostProblems = 702;
inline constexpr int kMoreLostProblems = 703;  ///< lead words

// --- Hints: one sentence for each button of the main window
inline constexpr int kHintSource = 610;
inline constexpr int kHintTarget = 611;
inline constexpr int kHintClearSource = 612;
inline constexpr int kHintClearTarget = 613;
inline constexpr int kHintClearPatterns = 614;
inline constexpr int kHintSelectSubfolders = 615;
inline constexpr int kHintRemoveSubfolder = 616;
inline constexpr int kHintCreateSubfolder = 617;
inline constexpr int kHintList = 618;
inline constexpr int kHintCheck = 619;
inline constexpr int kHintBackupAll = 620;
inline constexpr int kHintBackupModified = 621;
inline constexpr int kHintReport = 622;
inline constexpr int kHintSetup = 623;
inline constexpr int kHintLoadSetup = 624;
inline constexpr int kHintSaveSetup = 625;
inline constexpr int kHintClearSetup = 626;
inline constexpr int kHintRestoreSetup = 627;
inline constexpr int kHintKeepSetup = 628;
inline constexpr int kHintNextRun = 629;
inline constexpr int kHintSetupFile = 630;
inline constexpr int kHintBothWays = 631;
inline constexpr int kHintDontSave = 632;
inline constexpr int kHintHelp = 633;
inline constexpr int kHintQuit = 634;
inline constexpr int kHintLoadLastRun = 635;
inline constexpr int kHintLoadSetupFile = 636;

}  // namespace text
