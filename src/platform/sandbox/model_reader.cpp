#include "platform/sandbox/model_reader.h"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <exception>
#include <string>
#include <system_error>

#include "platform/sandbox/reader_pipe.h"
#include "platform/sandbox/sandbox.h"
#include "vbrt/error.h"

namespace platform::sandbox {
namespace {

bool Send(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(kReaderChannel, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

// The request's payload; nullopt when the program closed its end without one.
std::optional<std::string> Receive() {
  std::string bytes;
  char buffer[4096];
  for (;;) {
    if (const auto payload = FirstPayload(bytes)) return std::string(*payload);
    const ssize_t got = ::read(kReaderChannel, buffer, sizeof buffer);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return std::nullopt;
    bytes.append(buffer, static_cast<std::size_t>(got));
  }
}

}  // namespace

int ServeOneRead(AnalysisApplication& application) {
  if (!Send(GreetingFrame(true, application.ProductName()))) return 1;
  ReadRequest request;
  try {
    const auto payload = Receive();
    if (!payload) return 0;
    request = ParseReadRequest(*payload);
  } catch (const PipeFormError&) {
    return 1;
  }
  try {
    EnterSandbox(kReaderChannel, request.memoryLimit);
  } catch (const std::system_error& e) {
    Send(ErrorFrame(kModelError,
                    "Cannot read the basic model '" + request.path + "' safely: " + e.what()));
    return 1;
  }
  // A model that ends its own reading (Gmsh's Exit calls exit()) ends the reader at once,
  // before any of the program's shut-down runs inside the sandbox.
  std::atexit([] { ::_exit(0); });
  std::string answer;
  try {
    const auto model = application.OpenModel(request.path);
    answer = ModelFrame(*model);
  } catch (const vbrt::VbError& e) {
    answer = ErrorFrame(e.Number(), e.Description());
  } catch (const std::exception& e) {
    answer =
        ErrorFrame(kModelError, "Cannot read the basic model '" + request.path + "': " + e.what());
  }
  // Ended at once: nothing of the program's shut-down may run inside the sandbox.
  ::_exit(Send(answer) ? 0 : 1);
}

int RefuseToServe(std::string_view reason) { return Send(GreetingFrame(false, reason)) ? 0 : 1; }

}  // namespace platform::sandbox
