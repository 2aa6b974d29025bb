// Runs every test class of the window front end.
#include <QApplication>
#include <QStandardPaths>

int RunWizardWindowTests(int argc, char** argv);
int RunWidgetPartsTests(int argc, char** argv);
int RunParameterPagesTests(int argc, char** argv);
int RunEndToEndTests(int argc, char** argv);
int RunWindowFeedbackTests(int argc, char** argv);
int RunHelpTests(int argc, char** argv);

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QStandardPaths::setTestModeEnabled(true);  // settings the windows keep stay out of ~/.config
  int failed = 0;
  for (auto run : {RunWidgetPartsTests, RunWizardWindowTests, RunParameterPagesTests,
                    RunEndToEndTests, RunWindowFeedbackTests, RunHelpTests}) failed += run(argc, argv);
  return failed == 0 ? 0 : 1;
}
