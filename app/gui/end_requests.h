// The requests to end the program that do not come through its window: SIGTERM, SIGHUP and SIGINT (a
// logout, `kill`, Ctrl+C in the terminal) and the session manager's end of the session. Each runs the
// window's own close path, so that the profiles and then the preferences are written as a close writes
// them. When the display goes away, Qt ends the program with exit(); what the window held is then written
// on the way out.
#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <vector>

#include "app/gui/form1.h"
#include "app/gui/qt_services.h"
#include "app/model/form1_model.h"

namespace quillet::gui {

class EndRequests : public QObject {
  Q_OBJECT

 public:
  // Catches the three signals, but for one ignored at start (one EndRequests at a time): each closes the
  // window and ends the event loop.
  // The session's end writes what a close writes and leaves the ending to the session manager.
  EndRequests(Form1& form, Form1Model& model, QtWindowServices& services);
  // The signals get their default handling back.
  ~EndRequests() override;
  EndRequests(const EndRequests&) = delete;
  EndRequests& operator=(const EndRequests&) = delete;

 private:
  void SignalArrived();

  Form1& form_;
  QSocketNotifier* notifier_ = nullptr;
  std::vector<int> caught_;  // the signals this object handles
};

}  // namespace quillet::gui
