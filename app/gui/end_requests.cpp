#include "app/gui/end_requests.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QSessionManager>
#include <cerrno>
#include <cstdlib>

namespace quillet::gui {
namespace {

constexpr int kEndSignals[] = {SIGTERM, SIGHUP, SIGINT};

// The handler only writes a byte to this socket (async-signal-safe); the event loop reads it.
int signalSockets[2] = {-1, -1};

// The window's model and services while the window is open and its close has not written the files; an
// exit() from inside Qt (the display gone) writes them.
Form1Model* openModel = nullptr;
QtWindowServices* openServices = nullptr;

void OnEndSignal(int signal) {
  const int saved = errno;
  const char byte = static_cast<char>(signal);
  [[maybe_unused]] const ssize_t written = ::write(signalSockets[1], &byte, 1);
  errno = saved;
}

void WriteOnExit() {
  Form1Model* model = openModel;
  if (model == nullptr) return;
  openModel = nullptr;
  // No window can be shown any more: a failure to write is told on the standard error stream.
  if (openServices != nullptr) openServices->LoseScreen();
  model->Form_QueryUnload();
}

}  // namespace

EndRequests::EndRequests(Form1& form, Form1Model& model, QtWindowServices& services) : form_(form) {
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, signalSockets) == 0) {
    ::fcntl(signalSockets[1], F_SETFL, ::fcntl(signalSockets[1], F_GETFL) | O_NONBLOCK);
    notifier_ = new QSocketNotifier(signalSockets[0], QSocketNotifier::Read, this);
    connect(notifier_, &QSocketNotifier::activated, this, &EndRequests::SignalArrived);
    struct sigaction action {};
    action.sa_handler = OnEndSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (const int signal : kEndSignals) {
      // A signal ignored when the program started stays ignored: nohup's SIGHUP, the SIGINT of a shell's
      // background job.
      struct sigaction before {};
      if (::sigaction(signal, nullptr, &before) == 0 && before.sa_handler == SIG_IGN) continue;
      ::sigaction(signal, &action, nullptr);
      caught_.push_back(signal);
    }
  }

  // The session manager asks for the data at the end of a session; it ends the program itself afterwards
  // (or, when the user cancels the logout, the program goes on).
  if (auto* app = qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
    connect(app, &QGuiApplication::commitDataRequest, this,
            [&form](QSessionManager&) { form.EndOfSession(); });
  }

  openModel = &model;
  openServices = &services;
  static const bool registered = std::atexit(WriteOnExit) == 0;
  (void)registered;
  connect(&form_, &Form1::closed, this, [] { openModel = nullptr; });
}

EndRequests::~EndRequests() {
  openModel = nullptr;
  openServices = nullptr;
  if (notifier_ == nullptr) return;
  struct sigaction action {};
  action.sa_handler = SIG_DFL;
  sigemptyset(&action.sa_mask);
  for (const int signal : caught_) ::sigaction(signal, &action, nullptr);
  delete notifier_;
  notifier_ = nullptr;
  ::close(signalSockets[0]);
  ::close(signalSockets[1]);
  signalSockets[0] = signalSockets[1] = -1;
}

void EndRequests::SignalArrived() {
  char byte = 0;
  [[maybe_unused]] const ssize_t got = ::read(signalSockets[0], &byte, 1);
  // The window closes as a click on its close box closes it: the files are written, the picker goes.
  form_.close();
  QCoreApplication::quit();
}

}  // namespace quillet::gui
