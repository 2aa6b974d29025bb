#pragma once
// Texts between the program (UTF-8 std::string) and Qt.
#include <QString>
#include <string>
#include <string_view>

namespace wizard {

inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string FromQt(const QString& text) { return text.toStdString(); }

// A label caption as a label without access key shows it: a single "&" marks an access
// key and is not shown, "&&" shows one "&".
QString LabelText(std::string_view caption);

}  // namespace wizard
