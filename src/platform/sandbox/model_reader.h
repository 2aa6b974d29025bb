#pragma once
// The reader's side of a sandboxed read: the process that the program starts for each
// basic model (sandboxed_application.h) runs this after starting the application.
#include <string_view>

#include "platform/analysis_application.h"

namespace platform::sandbox {

// The reader's end of the socket it shares with the program.
inline constexpr int kReaderChannel = 3;

// Greets the program with the application's product string, waits for the one request,
// enters the sandbox (sandbox.h) and answers with the model that `application` reads, or
// with the application's refusal (reader_pipe.h). Returns the process's exit code: 0
// after an answer or when the program left without a request.
int ServeOneRead(AnalysisApplication& application);

// Greets the program with why the application cannot be started; returns the exit code.
int RefuseToServe(std::string_view reason);

}  // namespace platform::sandbox
