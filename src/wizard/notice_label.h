#pragma once
// A line beside what the user types that tells them something about it: why OK is off,
// characters the code page cannot hold, a path that was not taken. It is hidden while
// there is nothing to tell.
#include <QLabel>
#include <string>
#include <vector>

namespace wizard {

// A new notice line named `name`, hidden.
QLabel* NewNoticeLabel(const QString& name);
// Shows the texts that are not empty, one a line; hides the label when all are.
void ShowNotice(QLabel& label, const std::vector<std::string>& texts);

}  // namespace wizard
