#pragma once
// Page 5's controls: lvInput with its seven columns and "<new>" row, the in-place editors
// lvEdit (a text box) and lvCombo (the type list) laid over the cell the page's editor is
// on, and the Add / Edit / Remove buttons. Clicks, keys and typing go to the form's
// InputPage; what is shown is read back from it.
#include <QWidget>
#include <optional>

#include "wizard/form_forwarder.h"
#include "wizard/input_dialog.h"
#include "wizard/modal_dialog.h"
#include "wizard/model/input_page.h"

class QComboBox;
class QLabel;
class QKeyEvent;
class QLineEdit;
class QTreeWidget;

namespace wizard {

class InputPageView : public QWidget {
  Q_OBJECT

 public:
  explicit InputPageView(QWidget* parent = nullptr);

  // From now on the user's actions go through `forward`.
  void Connect(FormForwarder forward);
  // Shows the form's lvInput, its open editor and its dialog. A dialog the page has
  // opened is run (modally) once the action that opened it has been shown.
  void Show(WizardForm& form);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Do(const std::function<void(InputPage&)>& action);
  void ShowEditor(const CellEditor& editor);
  void PlaceEditor();
  bool EditorKey(const QKeyEvent& key, EditorKind kind);
  void Clicked(QPoint position);
  QWidget* OpenEditorWidget() const;

  FormForwarder forward_;
  QTreeWidget* list_;
  QLineEdit* edit_;   // lvEdit
  QComboBox* combo_;  // lvCombo
  QLabel* notice_;    // what the code page would lose of the cell being typed
  CellEditor editor_;  // as last shown
  bool showing_ = false;  // Show moves the focus: that is no leaving of the editor
  ModalDialog<InputParameterDialog, InputDialog> dialog_;
};

}  // namespace wizard
