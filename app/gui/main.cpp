// Quillet's window: the model starts up from the program's folder, then the main window opens.
#include <QApplication>
#include <filesystem>

#include "app/gui/end_requests.h"
#include "app/gui/form1.h"
#include "app/gui/qt_services.h"
#include "app/model/form1_model.h"

int main(int argc, char* argv[]) {
  QApplication app(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Poker Quillet"));

  quillet::gui::QtWindowServices services;
  quillet::Form1Model model(services);
  const std::filesystem::path programFolder(QCoreApplication::applicationDirPath().toStdString());
  // False: the user chose to end (the profile file's version question) or a table could not be loaded;
  // nothing is written.
  if (!model.Form_Load(programFolder)) return 0;

  quillet::gui::Form1 form(model, services);
  // SIGTERM, SIGHUP, SIGINT and the end of the session close the window as its close box does.
  quillet::gui::EndRequests endRequests(form, model, services);
  form.show();
  return QApplication::exec();
}
