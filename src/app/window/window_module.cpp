// eowizard-window.so: the wizard window, loaded only when the window opens, so that the
// commands never pay for the toolkit.
#include <QApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QWidget>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <set>

#include "app/module_entries.h"
#include "app/window/wizard_host.h"
#include "wizard/message_box_prompter.h"
#include "wizard/sketch_bitmap.h"

namespace {
// The server's project name: the title of a message box that names none.
constexpr const char* kDefaultMessageTitle = "SondelW";

// With EOWIZARD_STARTUP_TRACE set, the first paint of the launch notice and of the wizard
// window are written to standard error as "eowizard-startup NAME NANOSECONDS", on the
// monotonic clock, for the start-up benchmark.
class StartupTrace : public QObject {
 public:
  static std::unique_ptr<StartupTrace> FromEnvironment() {
    if (std::getenv("EOWIZARD_STARTUP_TRACE") == nullptr) return nullptr;
    auto trace = std::make_unique<StartupTrace>();
    QApplication::instance()->installEventFilter(trace.get());
    return trace;
  }

  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() != QEvent::Paint || !object->isWidgetType()) return false;
    const QString name = object->objectName();
    if ((name == "frmLaunch" || name == "frmWizard") && painted_.insert(name).second) {
      timespec now{};
      clock_gettime(CLOCK_MONOTONIC, &now);
      std::fprintf(stderr, "eowizard-startup %s %lld\n", qPrintable(name),
                   static_cast<long long>(now.tv_sec) * 1000000000LL + now.tv_nsec);
    }
    return false;
  }

 private:
  std::set<QString> painted_;
};

}  // namespace

extern "C" int eowizard_run_window(const app::WindowStart& start) {
  static_assert(std::is_same_v<decltype(&eowizard_run_window), app::WindowEntry>);
  QApplication application(start.argc, start.argv);
  // Qt takes the user's locale for everything; numbers are converted with the format
  // captured at start-up, and the libraries expect the C locale's.
  std::setlocale(LC_NUMERIC, "C");
  QApplication::setApplicationName("eowizard");
  // Finish hides the window while the generator works: only the wizard's closing ends.
  QApplication::setQuitOnLastWindowClosed(false);
  const auto trace = StartupTrace::FromEnvironment();

  wizard::MessageBoxPrompter boxes(kDefaultMessageTitle);
  app::WizardHost host(start, boxes);
  if (!host.Connect()) return 1;  // the wizard told the user why
  QApplication::exec();
  host.Disconnect();
  return 0;
}

extern "C" void eowizard_write_bitmap(const wizard::Drawing& drawing,
                                      const std::filesystem::path& file) {
  static_assert(std::is_same_v<decltype(&eowizard_write_bitmap), app::BitmapEntry>);
  // The texts need the toolkit's fonts, which need no display.
  std::unique_ptr<QGuiApplication> toolkit;
  if (QCoreApplication::instance() == nullptr) {
    static char name[] = "eowizard", option[] = "-platform", platform[] = "offscreen";
    static char* argv[] = {name, option, platform, nullptr};
    static int argc = 3;
    toolkit = std::make_unique<QGuiApplication>(argc, argv);
    std::setlocale(LC_NUMERIC, "C");  // as the window keeps it, see above
  }
  wizard::WriteBitmap(drawing, file);
}
