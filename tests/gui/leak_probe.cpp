// A program that leaks on purpose, to check the window tests' leak suppressions: `dbus` leaks a message
// made inside libdbus (as the window's platform plugin does on a real display), `own` leaks memory of its
// own. Under LeakSanitizer with the suppressions the first must pass and the second must still be reported.
#include <dlfcn.h>

#include <cstdio>
#include <cstring>

namespace {

void* volatile kept = nullptr;

int LeakInsideDbus() {
  void* library = dlopen("libdbus-1.so.3", RTLD_NOW);
  if (library == nullptr) {
    std::fprintf(stderr, "libdbus-1.so.3 cannot be loaded: %s\n", dlerror());
    return 2;
  }
  using NewSignal = void* (*)(const char*, const char*, const char*);
  const auto newSignal = reinterpret_cast<NewSignal>(dlsym(library, "dbus_message_new_signal"));
  if (newSignal == nullptr) return 2;
  // The message is never unreferenced, and the library stays loaded: its memory is lost inside libdbus.
  if (newSignal("/org/quillet/Probe", "org.quillet.Probe", "Leaked") == nullptr) return 2;
  return 0;
}

int LeakOwnMemory() {
  kept = new char[1032];
  kept = nullptr;
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2 && std::strcmp(argv[1], "dbus") == 0) return LeakInsideDbus();
  if (argc == 2 && std::strcmp(argv[1], "own") == 0) return LeakOwnMemory();
  std::fprintf(stderr, "say dbus or own\n");
  return 2;
}
