// eowizard-gmsh.so: the analysis application, loaded the first time a basic model must
// be read, so that no other run pays for Gmsh's libraries.
#include "app/module_entries.h"
#include "platform/gmsh/gmsh_application.h"

extern "C" platform::AnalysisApplication* eowizard_create_analysis_application() {
  static_assert(std::is_same_v<decltype(&eowizard_create_analysis_application), app::AnalysisEntry>);
  return platform::gmsh_io::CreateGmshApplication().release();
}
