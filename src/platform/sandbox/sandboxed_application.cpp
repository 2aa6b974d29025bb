#include "platform/sandbox/sandboxed_application.h"

#include <signal.h>
#include <string.h>

#include <cstdio>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/model_snapshot.h"
#include "platform/sandbox/reader_pipe.h"
#include "vbrt/error.h"

namespace platform::sandbox {
namespace {

using Outcome = ModelReadWait::Outcome;

// The payloads a watched reader sent, as many as were wanted, or fewer because it ended
// first or the wait ended before.
struct Received {
  Outcome outcome = Outcome::Done;
  std::vector<std::string> payloads;
  bool malformed = false;
};

Received ReceiveFrames(ReaderProcess& reader, ModelReadWait& wait, ModelReadWait::Deadline deadline,
                       std::string_view model, std::size_t wanted) {
  Received received;
  std::string bytes;
  std::size_t taken = 0;  // the bytes of the payloads received
  received.outcome = wait.Watch(reader.Channel(), deadline, model, [&] {
    const bool ended = !reader.Receive(bytes);
    try {
      while (received.payloads.size() < wanted) {
        const auto payload = FirstPayload(std::string_view(bytes).substr(taken));
        if (!payload) break;
        received.payloads.emplace_back(*payload);
        taken = static_cast<std::size_t>(payload->data() + payload->size() - bytes.data());
      }
    } catch (const PipeFormError&) {
      received.malformed = true;
    }
    return ended || received.malformed || received.payloads.size() == wanted;
  });
  return received;
}

ModelReadWait::Deadline DeadlineAfter(std::chrono::duration<double> time) {
  return std::chrono::steady_clock::now() +
         std::chrono::duration_cast<std::chrono::steady_clock::duration>(time);
}

std::string Seconds(std::chrono::duration<double> time) {
  char text[32];
  std::snprintf(text, sizeof text, "%g s", time.count());
  return text;
}

std::string Bytes(std::uint64_t bytes) {
  constexpr std::uint64_t kMiB = std::uint64_t{1} << 20;
  return bytes % (1024 * kMiB) == 0 ? std::to_string(bytes / (1024 * kMiB)) + " GiB"
                                    : std::to_string(bytes / kMiB) + " MiB";
}

// How a reader that gave no answer ended, as "it ..." goes on.
std::string HowItEnded(const ReaderEnd& end) {
  if (!end.signalled) return "ended with exit code " + std::to_string(end.code);
  const char* name = sigabbrev_np(end.code);
  const char* description = sigdescr_np(end.code);
  return "stopped on signal " + (name ? "SIG" + std::string(name) : std::to_string(end.code)) +
         (description ? " (" + std::string(description) + ")" : "");
}

// Why a read came to nothing, naming the model.
class ReadFailure {
 public:
  explicit ReadFailure(std::string_view path) : path_(path) {}

  [[noreturn]] void Tried(Forbidden what) const {
    static constexpr const char* kTried[] = {"run a command", "write a file",
                                             "open a network connection"};
    Fail("The basic model '" + path_ + "' tried to " + kTried[static_cast<int>(what)] +
         ", which basic models may not do");
  }
  [[noreturn]] void Ended(const ReaderEnd& end, const ReaderLimits& limits) const {
    if (end.signalled && end.code == SIGSYS) Tried(Forbidden::Command);
    // Gmsh's C parts do not check every allocation: a reader that stopped holding half
    // its limit stopped on an allocation that the limit refused.
    if (end.signalled && end.peakMemory >= limits.memory / 2) Memory(limits);
    if (!end.signalled && end.code == 0) {
      Fail("The basic model '" + path_ + "' ended its own reading (Exit)");
    }
    Fail("The reader of the basic model '" + path_ + "' " + HowItEnded(end));
  }
  [[noreturn]] void WaitEnded(Outcome outcome, const ReaderLimits& limits) const {
    if (outcome == Outcome::Cancelled) {
      Fail("Reading the basic model '" + path_ + "' was cancelled");
    }
    Fail("Reading the basic model '" + path_ + "' took longer than the time limit of " +
         Seconds(limits.time) + " (see --model-time-limit)");
  }
  [[noreturn]] void Memory(const ReaderLimits& limits) const {
    Fail("Reading the basic model '" + path_ + "' needed more memory than the limit of " +
         Bytes(limits.memory));
  }
  [[noreturn]] void Malformed() const {
    Fail("The reader of the basic model '" + path_ + "' gave an answer out of its form");
  }

 private:
  [[noreturn]] static void Fail(const std::string& what) {
    throw vbrt::VbError(kModelError, what + "; it was not read");
  }
  std::string path_;
};

// Why a reader could not start the application.
[[noreturn]] void NotStarted(std::string_view model, const std::string& why) {
  const std::string text = "The model reader could not start the analysis application: " + why;
  throw vbrt::VbError(
      kModelError,
      model.empty() ? text : "Cannot read the basic model '" + std::string(model) + "': " + text);
}

// The product string of a reader's greeting, the first of `received`.
std::string GreetingOf(ReaderProcess& reader, const Received& received, std::string_view model) {
  if (received.payloads.empty()) {
    if (received.malformed) NotStarted(model, "its greeting is out of its form");
    NotStarted(model, "it " + HowItEnded(reader.Collect()));
  }
  Greeting greeting;
  try {
    greeting = ParseGreeting(received.payloads.front());
  } catch (const PipeFormError&) {
    NotStarted(model, "its greeting is out of its form");
  }
  // The reason the module or the application gives is told as it stands.
  if (!greeting.ready) throw vbrt::VbError(kModelError, greeting.text);
  return greeting.text;
}

std::unique_ptr<ReaderProcess> StartReader(const ReaderCommand& command, std::string_view model) {
  try {
    return std::make_unique<ReaderProcess>(command);
  } catch (const std::system_error& e) {
    NotStarted(model, e.what());
  }
}

}  // namespace

SandboxedApplication::SandboxedApplication(ReaderCommand command, ReaderLimits limits,
                                           ModelReadWait& wait)
    : command_(std::move(command)), limits_(limits), wait_(wait) {
  std::unique_ptr<ReaderProcess> reader = StartReader(command_, "");
  const Received received = ReceiveFrames(*reader, wait_, DeadlineAfter(limits_.time), "", 1);
  if (received.outcome != Outcome::Done) {
    NotStarted("", "it took longer than the time limit of " + Seconds(limits_.time));
  }
  product_ = GreetingOf(*reader, received, "");
  waiting_ = std::move(reader);
}

SandboxedApplication::~SandboxedApplication() = default;

std::unique_ptr<BasicModel> SandboxedApplication::OpenModel(std::string_view path) {
  // The reader started before serves this read; each later read starts its own, which
  // finds the request once it has greeted.
  const bool greeted = waiting_ != nullptr;
  const std::unique_ptr<ReaderProcess> reader =
      greeted ? std::move(waiting_) : StartReader(command_, path);
  const ReadFailure failure(path);
  // A reader that is gone already tells how when its end is read.
  reader->Send(ReadRequestFrame(limits_.memory, path));
  const Received received =
      ReceiveFrames(*reader, wait_, DeadlineAfter(limits_.time), path, greeted ? 1 : 2);
  if (received.outcome != Outcome::Done) {
    reader->Kill();
    failure.WaitEnded(received.outcome, limits_);
  }
  if (!greeted) GreetingOf(*reader, received, path);
  const std::size_t answerAt = greeted ? 0 : 1;
  if (received.malformed) failure.Malformed();
  if (received.payloads.size() <= answerAt) failure.Ended(reader->Collect(), limits_);
  reader->Kill();  // it ends after its answer anyway
  Answer answer;
  try {
    answer = ParseAnswer(received.payloads[answerAt]);
  } catch (const PipeFormError&) {
    failure.Malformed();
  }
  switch (answer.kind) {
    case Answer::Kind::Model:
      return std::make_unique<SnapshotModel>(std::move(answer.model));
    case Answer::Kind::Error:
      throw vbrt::VbError(answer.number, answer.description);
    case Answer::Kind::Forbidden:
      failure.Tried(answer.forbidden);
    case Answer::Kind::Memory:
      failure.Memory(limits_);
  }
  failure.Malformed();
}

}  // namespace platform::sandbox
