#pragma once
// The form in which the program and a basic model's reader (a process of its own, see
// sandboxed_application.h) talk to each other.
//
// They share one stream socket: the reader's descriptor 3. Every message is a frame: the
// length of its payload in decimal digits and a line feed, then the payload. A payload is
// lines of fields separated by single blanks, each line ended by a line feed; the first
// field of the first line names the message. Field forms:
//   WORD    letters
//   INT     a decimal integer, "-" for none where a block may be missing
//   NUMBER  a double as std::to_chars writes it: the shortest text that reads back as the
//           same value ("0.1", "-2.5e-07", "-0")
//   TEXT    its byte length in decimal, a colon and the bytes themselves (any bytes)
//
// The reader, once the application has started (its greeting, one of):
//   ready TEXT                      the application's product string
//   unavailable TEXT                why the application cannot be started
// The program, its one request:
//   read INT TEXT                   the memory limit in bytes, the model file's path
// The reader, its answer (one of):
//   model INT INT INT               the numbers of edges, vertices and blocks, then as
//                                   many lines of each, in the application's order:
//   edge NUMBER*7 INT INT TEXT      start x y, end x y, third point x y, angle, the blocks
//                                   left and right (or "-"), the label
//   vertex NUMBER NUMBER INT TEXT   x, y, 1 when isolated (else 0), the label
//   block INT TEXT                  the first boundary edge, the label
// or
//   error INT TEXT                  the application refused the model: number, description
//   forbidden WORD                  the model tried what basic models may not do: file
//                                   (write, create, rename, link or truncate a file, make
//                                   a folder) or connection (open a socket)
//   memory                          the model needed more memory than the limit allows
// The reader ends after its answer. No answer at all means that it ended on its own or
// was stopped by a signal: SIGSYS when the model tried to start a program or process.
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/analysis_application.h"
#include "platform/model_snapshot.h"

namespace platform::sandbox {

// Bytes that are not in the form above.
class PipeFormError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// What a model tried that basic models may not do.
enum class Forbidden { Command, File, Connection };

// The frames the reader writes from a signal handler, which cannot compose one (a command
// has none: see above).
constexpr std::string_view ForbiddenFrame(Forbidden what) {
  switch (what) {
    case Forbidden::Command:
      break;
    case Forbidden::File:
      return "15\nforbidden file\n";
    case Forbidden::Connection:
      return "21\nforbidden connection\n";
  }
  return {};
}
inline constexpr std::string_view kMemoryFrame = "7\nmemory\n";

// Writing: each returns the whole frame.
std::string GreetingFrame(bool ready, std::string_view text);
std::string ReadRequestFrame(std::uint64_t memoryLimit, std::string_view path);
std::string ModelFrame(const BasicModel& model);
std::string ErrorFrame(int number, std::string_view description);

// The payload of the first frame in `bytes` once it is complete; nullopt before.
// Throws PipeFormError when `bytes` do not start a frame.
std::optional<std::string_view> FirstPayload(std::string_view bytes);

struct Greeting {
  bool ready = false;
  std::string text;  // the product string, or why the application cannot start
};
struct ReadRequest {
  std::uint64_t memoryLimit = 0;
  std::string path;
};
// The reader's answer.
struct Answer {
  enum class Kind { Model, Error, Forbidden, Memory } kind = Kind::Model;
  ModelContent model;        // Model
  int number = 0;            // Error
  std::string description;   // Error
  Forbidden forbidden = {};  // Forbidden
};

// Reading a payload; each throws PipeFormError when it is not the message expected.
Greeting ParseGreeting(std::string_view payload);
ReadRequest ParseReadRequest(std::string_view payload);
Answer ParseAnswer(std::string_view payload);

}  // namespace platform::sandbox
