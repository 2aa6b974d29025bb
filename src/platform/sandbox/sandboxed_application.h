#pragma once
// The analysis application with every basic model read in a sandboxed process of its own,
// so that no model can run a command, write a file, end or freeze the program.
#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/analysis_application.h"
#include "platform/model_read_wait.h"
#include "platform/sandbox/reader_process.h"

namespace platform::sandbox {

// What a model's read may take.
struct ReaderLimits {
  // From the request to the answer, the start of a reader for the read included; the
  // first reader's start has as long.
  std::chrono::duration<double> time{30.0};
  std::uint64_t memory = std::uint64_t{4} << 30;  // the reader's address space, in bytes
};

// Each OpenModel runs a reader, the program of `command`, which starts the application,
// enters the sandbox (sandbox.h) and reads the file; the model comes back as the snapshot
// the application would have given (reader_pipe.h). A read that meets the time limit or
// is cancelled through `wait` is ended. Every failure throws vbrt::VbError naming the
// file: the application's own refusal as it gave it; a model that tried a forbidden call,
// ended its own reading or met a limit; a reader that stopped on a signal.
class SandboxedApplication : public AnalysisApplication {
 public:
  // Starts the first reader at once and waits for its greeting, which carries the product
  // string, so that an application that cannot start fails here; that reader then serves
  // the first read. Throws vbrt::VbError with the reason. `wait` must outlive the object.
  SandboxedApplication(ReaderCommand command, ReaderLimits limits, ModelReadWait& wait);
  ~SandboxedApplication() override;

  std::string ProductName() const override { return product_; }
  std::unique_ptr<BasicModel> OpenModel(std::string_view path) override;

 private:
  ReaderCommand command_;
  ReaderLimits limits_;
  ModelReadWait& wait_;
  std::unique_ptr<ReaderProcess> waiting_;  // greeted, waiting for its request
  std::string product_;
};

}  // namespace platform::sandbox
