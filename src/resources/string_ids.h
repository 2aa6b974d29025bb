#pragma once
// Numbers of the string table entries that the program reaches by name. Lists that are
// filled by trying consecutive numbers are given by their base.

namespace resources {

// Start-up and message titles.
inline constexpr int kAppTitle = 10092;          // title of every message box
inline constexpr int kLongTitle = 10093;         // title of the version message
inline constexpr int kRequiredVersion = 10096;   // highest accepted product string
inline constexpr int kLowestVersion = 10099;     // lowest product string (empty: unchecked)
inline constexpr int kLaunchCaption = 10098;
inline constexpr int kLaunchText = 10097;
inline constexpr int kLaunchFailed = 10614;
inline constexpr int kWrongVersion = 10659;

// Wizard form: form caption and navigation buttons.
inline constexpr int kFormCaption = 10016;
inline constexpr int kHelpButton = 10009;
inline constexpr int kCancelButton = 10011;
inline constexpr int kBackButton = 10017;
inline constexpr int kNextButton = 10018;
inline constexpr int kFinishButton = 10019;
inline constexpr int kExitQuestion = 10090;

// Page 0: introduction.
inline constexpr int kIntroHeading = 10020;
inline constexpr int kIntroText1 = 10021;
inline constexpr int kIntroText2 = 10022;
inline constexpr int kIntroText3 = 10023;
inline constexpr int kIntroText4 = 10024;
inline constexpr int kIntroText5 = 10025;

// Page 1: session file.
inline constexpr int kSavingHeading = 10026;
inline constexpr int kSavingExplanation = 10027;
inline constexpr int kSavingFileLabel = 10028;
inline constexpr int kLoadSessionQuestion = 10088;

// Page 2: project.
inline constexpr int kProjectHeading = 10029;
inline constexpr int kProjectExplanation = 10030;
inline constexpr int kProjectLocationLabel = 10031;
inline constexpr int kAuthorLabel = 10032;
inline constexpr int kAsyncCheck = 10033;

// Page 3: problem properties.
inline constexpr int kProblemHeading = 10034;
inline constexpr int kProblemExplanation = 10035;
inline constexpr int kProblemTypeLabel = 10036;
inline constexpr int kProblemClassLabel = 10037;
inline constexpr int kCoordinatesLabel = 10038;
inline constexpr int kLengthUnitsLabel = 10039;

// Page 4: model, data and sketch.
inline constexpr int kDataHeading = 10040;
inline constexpr int kDataExplanation = 10041;
inline constexpr int kModelFileLabel = 10042;
inline constexpr int kModelCodeOption = 10043;
inline constexpr int kModelLinkOption = 10044;
inline constexpr int kDataFileLabel = 10045;
inline constexpr int kDataCodeOption = 10046;
inline constexpr int kDataLinkOption = 10047;
inline constexpr int kSketchFileLabel = 10048;
inline constexpr int kCreateSketchButton = 10049;

// Page 5: input parameters.
inline constexpr int kInputHeading = 10050;
inline constexpr int kInputExplanation = 10051;
inline constexpr int kInputListLabel = 10052;
inline constexpr int kInputRemoveButton = 10053;
inline constexpr int kNewInputRow = 10071;  // text of the placeholder row "<new>"

// Page 6: output parameters.
inline constexpr int kOutputHeading = 10054;
inline constexpr int kOutputExplanation = 10055;
inline constexpr int kOutputListLabel = 10056;
inline constexpr int kStandardListLabel = 10057;
inline constexpr int kOutputStandardButton = 10058;
inline constexpr int kOutputCustomButton = 10059;
inline constexpr int kOutputEditButton = 10060;
inline constexpr int kOutputRemoveButton = 10061;

// Page 7: finish; "Ready" when a project location is set, "Missing" otherwise.
inline constexpr int kFinishHeading = 10062;
inline constexpr int kFinishReady1 = 10063;
inline constexpr int kFinishReady2 = 10064;
inline constexpr int kFinishMissing1 = 10065;
inline constexpr int kFinishMissing2 = 10066;

// File dialog filters ("description|pattern|...").
inline constexpr int kProjectFilter = 10085;
inline constexpr int kModelFilter = 10086;
inline constexpr int kSketchFilter = 10087;
inline constexpr int kSessionFilter = 10089;
inline constexpr int kDataFilterBase = 12030;  // + problem type index

// Messages split around an inserted value: Before + value + After.
inline constexpr int kFolderMissingBefore = 10601;
inline constexpr int kFolderMissingAfter = 10602;
inline constexpr int kFolderNotCreatedBefore = 10603;
inline constexpr int kFolderNotCreatedAfter = 10604;
// Before + class name + Middle + class name + After.
inline constexpr int kObjectRegisteredBefore = 10605;
inline constexpr int kObjectRegisteredMiddle = 10606;
inline constexpr int kObjectRegisteredAfter = 10607;
inline constexpr int kModelMissingBefore = 10608;
inline constexpr int kModelMissingAfter = 10609;
inline constexpr int kDataMissingBefore = 10610;
inline constexpr int kDataMissingAfter = 10611;
inline constexpr int kSketchMissingBefore = 10612;
inline constexpr int kSketchMissingAfter = 10613;
// Before + program's sessions folder + Middle + per-user sessions folder + After.
inline constexpr int kSessionsFolderMovedBefore = 14000;
inline constexpr int kSessionsFolderMovedMiddle = 14001;
inline constexpr int kSessionsFolderMovedAfter = 14002;
// A session that cannot be saved as the wizard closes or finishes: the writer's message,
// Before + path + After, the choices; the confirmations of going on without saving.
inline constexpr int kSessionNotSavedBefore = 14010;
inline constexpr int kSessionNotSavedAfter = 14011;
inline constexpr int kNotSavedChoicesOnCancel = 14012;
inline constexpr int kNotSavedChoicesOnFinish = 14013;
inline constexpr int kCloseUnsavedQuestion = 14014;
inline constexpr int kGenerateUnsavedQuestion = 14015;
// Saving over a session file that could not be read: Before + path + After, then a line
// Choices + the numbered file beside it + ChoicesEnd.
inline constexpr int kUnreadSessionBefore = 14016;
inline constexpr int kUnreadSessionAfter = 14017;
inline constexpr int kUnreadSessionChoices = 14018;
inline constexpr int kUnreadSessionChoicesEnd = 14019;

// Generation: progress window, questions and results.
inline constexpr int kProgressCaption = 10015;
inline constexpr int kStateCreatingProject = 10072;
inline constexpr int kStateGeneratingCode = 10074;
inline constexpr int kStateSavingProject = 10075;
inline constexpr int kStateCopyingFiles = 10084;
inline constexpr int kFilesFolderExistsBefore = 10076;
inline constexpr int kFilesFolderExistsAfter = 10077;
inline constexpr int kProjectFileExistsBefore = 10078;
inline constexpr int kProjectFileExistsAfter = 10079;
inline constexpr int kClassFileExistsBefore = 10080;
inline constexpr int kClassFileExistsAfter = 10081;
inline constexpr int kModuleFileExistsBefore = 10082;
inline constexpr int kModuleFileExistsAfter = 10083;
inline constexpr int kGenerationSucceeded = 10091;
inline constexpr int kProjectDescriptionSuffix = 10401;
inline constexpr int kHostLibraryMissing = 10660;
inline constexpr int kHostLibraryHint = 14500;  // the line under kHostLibraryMissing
// Regeneration over files the user changed since they were generated.
inline constexpr int kEditedSinceGenerated = 14200;  // second line of an overwrite question
inline constexpr int kMergeButton = 14201;
inline constexpr int kMergedInto = 14202;        // after the success text, before the files
inline constexpr int kMergeConflictsIn = 14203;  // before the files and their lines
inline constexpr int kConflictLinesWord = 14204;
// The preview of a generation on the finish page.
inline constexpr int kPreviewButton = 14300;
inline constexpr int kPreviewTitle = 14301;
inline constexpr int kPreviewIntro = 14302;
inline constexpr int kPreviewAssumed = 14303;
inline constexpr int kPreviewFileColumn = 14304;
inline constexpr int kPreviewOutcomeColumn = 14305;
inline constexpr int kPreviewAnswerColumn = 14306;
inline constexpr int kPreviewFailed = 14307;
inline constexpr int kPreviewFind = 14308;
inline constexpr int kPreviewNotFound = 14309;
inline constexpr int kPreviewClose = 14310;
inline constexpr int kPreviewFolder = 14311;
inline constexpr int kPreviewCopy = 14312;
inline constexpr int kPreviewUnchanged = 14313;
inline constexpr int kPreviewAnswerBase = 14320;  // + MsgAnswer: OK, Yes, No, Cancel, Merge

// Choice lists of the problem page: base + list index; filled by trying kListTries numbers.
inline constexpr int kListTries = 10;
inline constexpr int kTypeListBase = 11030;
inline constexpr int kClassListBase = 11100;
inline constexpr int kUnitListBase = 11110;
inline constexpr int kCoordListBase = 11120;

// The analysis application's identifiers of those choices, same list index.
inline constexpr int kTypeIdBase = 12000;
inline constexpr int kClassIdBase = 11000;
inline constexpr int kUnitIdBase = 11010;
inline constexpr int kCoordIdBase = 11020;

// Per problem type index.
inline constexpr int kDataExtensionBase = 12020;
inline constexpr int kFieldPointSuffixBase = 12040;
inline constexpr int kLabelSuffixBase = 12050;

// Input parameter type captions, in the order of the type editor.
inline constexpr int kInputTypeBase = 12090;
inline constexpr int kInputTypeCount = 4;
inline constexpr int kTypeGeometrical = 12090;
inline constexpr int kTypePhysical = 12091;
inline constexpr int kTypePostprocess = 12092;
inline constexpr int kTypeProblem = 12093;

// Standard outputs. Problem type t holds its integrals "i"+n at t*100+100+n and its local
// quantities "p"+n at t*100+150+n (n < kStandardTries); the geometric integrals
// kGeometricIntegralFirst.. are the same for every type. Every result expression stands
// kExpressionOffset above its description.
inline constexpr int kStandardTries = 50;
inline constexpr int kGeometricIntegralFirst = 1900;
inline constexpr int kGeometricIntegralTries = 10;
inline constexpr int kExpressionOffset = 2000;

constexpr int IntegralDescription(int type, int n) { return type * 100 + 100 + n; }
constexpr int LocalDescription(int type, int n) { return type * 100 + 150 + n; }
constexpr int ExpressionOf(int description) { return description + kExpressionOffset; }

// Input parameters page and input dialog.
inline constexpr int kColumnDescription = 13000;
inline constexpr int kColumnType = 13001;
inline constexpr int kColumnVariable = 13002;
inline constexpr int kColumnUnit = 13003;
inline constexpr int kColumnMin = 13004;
inline constexpr int kColumnMax = 13005;
inline constexpr int kColumnDefault = 13006;
inline constexpr int kInputEditButton = 13010;
inline constexpr int kInputAddButton = 13011;
inline constexpr int kInputDialogCaption = 13020;
inline constexpr int kVariableLabel = 13021;
inline constexpr int kUnitLabel = 13022;
inline constexpr int kMinLabel = 13023;
inline constexpr int kMaxLabel = 13024;
inline constexpr int kDefaultValueLabel = 13025;
inline constexpr int kTypeGroupCaption = 13026;
inline constexpr int kValidationErrorPrefix = 13040;  // ends with a blank
inline constexpr int kDescriptionEmpty = 13041;
inline constexpr int kDescriptionNumeric = 13042;
inline constexpr int kDescriptionNotUnique = 13043;
inline constexpr int kVariableEmpty = 13044;
inline constexpr int kVariableInvalid = 13045;
inline constexpr int kVariableNotUnique = 13046;
// These three already carry the validation-error prefix.
inline constexpr int kMinNotNumeric = 13047;
inline constexpr int kMaxNotNumeric = 13048;
inline constexpr int kDefaultNotNumeric = 13049;
inline constexpr int kAddParameterQuestion = 13050;

// Output parameters page and custom output dialog.
inline constexpr int kOutputDialogCaption = 13100;
inline constexpr int kValueLabel = 13101;
inline constexpr int kOutputValueColumn = 13104;  // header of lvOutput's expression column
inline constexpr int kNewOutputName = 13102;
inline constexpr int kNothingSelected = 13103;

// The basic-files page's picture of the model converted into code.
inline constexpr int kModelPictureRefused = 14100;  // heading of the reason
inline constexpr int kModelPictureHint = 14101;

// "Create sketch file now" on the basic-files page.
inline constexpr int kSketchNoModel = 14400;
inline constexpr int kSketchUnreadableBefore = 14401;  // + model path + kSketchReason + why
inline constexpr int kSketchReason = 14402;
inline constexpr int kSketchExistsAfter = 14403;  // after kSketchMissingBefore + path
inline constexpr int kSketchNotSavedBefore = 14404;  // + path + kSketchReason + why
inline constexpr int kSketchSaveFilter = 14405;

// The busy notice of a basic model that takes long to read: Before + path + After.
inline constexpr int kModelReadCaption = 14700;
inline constexpr int kModelReadBefore = 14701;
inline constexpr int kModelReadAfter = 14702;

// Shared by both parameter pages and their dialogs.
inline constexpr int kOkButton = 13200;
inline constexpr int kNameLabel = 13201;
inline constexpr int kNoParameterSelected = 13202;
inline constexpr int kRemoveQuestionBefore = 13203;  // + description + After
inline constexpr int kRemoveQuestionAfter = 13204;

// Characters the session's code page cannot hold: Before + code page + Middle +
// characters + TextEnd (a text field or cell) or PathEnd (a path, which is not taken).
inline constexpr int kUnheldBefore = 15000;
inline constexpr int kUnheldMiddle = 15001;
inline constexpr int kUnheldTextEnd = 15002;
inline constexpr int kUnheldPathEnd = 15003;
// A path holding a control character: Before + name and code + After.
inline constexpr int kControlCharacterBefore = 15004;
inline constexpr int kControlCharacterAfter = 15005;

}  // namespace resources
