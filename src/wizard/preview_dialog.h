#pragma once
// dlgPreview, what Finish would do: the files a dry generation would leave with what would
// become of each and the answer it assumed where Finish will ask, and beside them the
// selected file's text (a new file) or its changes against the file on disk (unified
// diff); or, when the generation would fail, why.
#include <QDialog>
#include <functional>
#include <map>
#include <string>

#include "generator/dry_run_report.h"
#include "platform/text_merger.h"
#include "wizard/model/wizard_form.h"

class QLabel;
class QLineEdit;
class QTreeWidget;

namespace wizard {

class CodeView;

class PreviewDialog : public QDialog {
  Q_OBJECT

 public:
  // `merger` is asked for the first time a diff is shown; `help` opens the dialog's help.
  PreviewDialog(generator::DryRunReport report, platform::TextMergerSource merger,
                std::function<void()> help, QWidget* parent);

 private:
  // Shows entry `index` of the report beside the list (selecting its row).
  void ShowEntry(int index);
  QWidget* BuildFailure();
  QWidget* BuildFiles();
  void Find(bool backward);

  generator::DryRunReport report_;
  platform::TextMergerSource merger_;
  std::map<int, std::string> diffs_;  // by entry, made when first shown
  QTreeWidget* list_ = nullptr;
  CodeView* text_ = nullptr;
  QLineEdit* find_ = nullptr;
  QLabel* notFound_ = nullptr;
};

// What the window's Preview button runs: makes the report of the form's settings with
// `dryRun` (the busy pointer on meanwhile; it reports a failure, never throws) and shows
// it in the dialog, modal over the active window, until the user closes it.
using DryRunSource = std::function<generator::DryRunReport(WizardForm&)>;
PreviewRunner PreviewInDialog(DryRunSource dryRun, platform::TextMergerSource merger);

}  // namespace wizard
