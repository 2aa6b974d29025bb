// The analysis application used on this platform.
#include "app/commands.h"
#include "platform/gmsh/gmsh_application.h"
#include "vbrt/error.h"

namespace app {

std::unique_ptr<platform::AnalysisApplication> CreateAnalysisApplication() {
  try {
    return platform::gmsh_io::CreateGmshApplication();
  } catch (const vbrt::VbError&) {
    return nullptr;  // the caller reports the failed launch
  }
}

}  // namespace app
