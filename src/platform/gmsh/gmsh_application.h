#pragma once
// The analysis application on Linux: Gmsh reads the basic models.
#include <memory>

#include "platform/analysis_application.h"

namespace platform::gmsh_io {

// Starts Gmsh on the first call (once per process, quiet on the terminal, the process
// locale left as it was) and returns an application object over it. Throws
// vbrt::VbError when Gmsh cannot be started.
//
// The product string is "Gmsh" and Gmsh's version. OpenModel reads `.geo` files and,
// with OpenCASCADE, `.brep` and `.step`/`.stp` (faces sewn); the model is read whole at
// once and Gmsh is cleared again, so the returned model never changes the file.
// Errors name the file and give Gmsh's reason.
std::unique_ptr<AnalysisApplication> CreateGmshApplication();

}  // namespace platform::gmsh_io
