#pragma once
// Runs of generated lines that the synchronous and the asynchronous solving procedures
// share, written once so that the two chains cannot drift apart.
#include <string_view>

#include "generator/printer.h"

namespace generator {

// "''' Delete old model" up to "Set Mdl = Nothing" and an empty line.
void PrintDeleteOldModel(Printer& vb);

// The copy of "<theName>_Basic.mod" over the working model, retried through the label
// "FileCopying:"; `trapAfterCopy` is the "On Error GoTo" target once the copy is done.
void PrintModelFileCopy(Printer& vb, std::string_view trapAfterCopy);
// The "ErrorCopyModel:" handler of that copy, ending with "Exit Sub".
void PrintCopyModelHandler(Printer& vb);

// BuildModel's end, both forms: customisation, the flags, the server-error report.
void PrintBuildModelEnd(Printer& vb);
void PrintBuildModelServerError(Printer& vb);

}  // namespace generator
