#include "wizard/qt_text.h"

namespace wizard {

QString LabelText(std::string_view caption) {
  std::string shown;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] != '&') {
      shown += caption[i];
    } else if (i + 1 < caption.size() && caption[i + 1] == '&') {
      shown += '&';
      ++i;
    }
  }
  return ToQt(shown);
}

}  // namespace wizard
