#pragma once
// The busy notice of the window while a basic model is read in its own process: it comes
// up once the read has taken half a second, names the file, and its Cancel ends the read.
// Before it is up, and while the analysis application starts, the window takes no input
// (the read may not be interrupted by the very page that waits for it); it keeps painting.
#include <chrono>
#include <string>
#include <string_view>

namespace wizard {

class ModelReadNotice {
 public:
  static constexpr std::chrono::milliseconds kDelay{500};

  // A read of the model at `path`; "" while the analysis application starts, which has
  // its own start-up notice and cannot be cancelled.
  explicit ModelReadNotice(std::string_view path) : path_(path) {}

  // Whether the notice comes up at kDelay.
  bool Offered() const { return !path_.empty(); }
  std::string Caption() const;
  std::string Text() const;

 private:
  std::string path_;
};

}  // namespace wizard
