#pragma once
// The writers of the generated class and module text, one per section; those whose text
// depends on the record read it from the form's controls. The generation driver calls
// them in its fixed order; each writer advances the progress bar where its section says
// so. Errors (a failing emitter, a failing conversion of a record value) propagate to the
// driver.
#include "generator/emitter.h"
#include "platform/analysis_application.h"
#include "session/form_state.h"

namespace generator {

using session::FormState;

// Declarations and initialisation.
void WriteDeclarations(const FormState& form, Emitter& out);
void WriteInitialisation(const FormState& form, Emitter& out);

// Parameters, model modification and labels.
void WriteParameters(const FormState& form, Emitter& out);
void WriteModifyModel(const FormState& form, Emitter& out);
void WriteInitLabels(const FormState& form, Emitter& out);
void WriteSetLabel(const FormState& form, Emitter& out);

// Pre-solve, contour and results.
void WritePreSolve(const FormState& form, Emitter& out);
void WriteBuildContour(const FormState& form, Emitter& out);
void WriteResultNames(const FormState& form, Emitter& out);
void WriteCalculations(const FormState& form, Emitter& out);
void WriteGetResult(Emitter& out);

// Validation and descriptive properties.
void WritePrmMin(const FormState& form, Emitter& out);
void WritePrmMax(const FormState& form, Emitter& out);
void WriteValidate(Emitter& out);
void WriteGetMinMax(Emitter& out);
void WriteDescriptiveProperties(const FormState& form, Emitter& out);

// Synchronous solving chain and termination.
void WriteSetInputValues(Emitter& out);
void WriteBuildModelLoad(const FormState& form, Emitter& out);
// Reads `model` (stamping user data in it) and writes code that rebuilds its geometry
// and labels; closes the model at the end. Returns false when the application failed
// while the model was read (nothing more is written then).
bool WriteBuildModelGenerate(platform::BasicModel& model, Emitter& out);
void WriteMeshModel(Emitter& out);
void WriteSaveModel(Emitter& out);
void WriteSolveProblem(Emitter& out);
void WriteClassTerminate(Emitter& out);

// Asynchronous chain.
void WriteAsyncSolveAndLoaded(const FormState& form, Emitter& out);  // Load or Generate form
void WriteAsyncChain(Emitter& out);  // Meshed, Saved, Solved, Calculated

}  // namespace generator
