#pragma once
// The help system: shows one topic of a compiled help file.
#include <string_view>

namespace platform {

class HelpViewer {
 public:
  virtual ~HelpViewer() = default;
  // Shows the topic named as "<file>.chm::/<topic path>" (the path of the help file in
  // the form the program holds paths, then "::", then the topic inside the file, which
  // may end in "#<anchor>" to open at that place). A file that is missing or cannot be
  // read shows nothing and says nothing, as the platform's own help call does.
  virtual void ShowTopic(std::string_view fileAndTopic) = 0;
};

}  // namespace platform
