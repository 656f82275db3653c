#include "console/profiles/ask_password.h"

#include "console/command_line/usage_error.h"
#include "values/utf8.h"

#ifdef _WIN32
#include <conio.h>
#include <windows.h>
#else
#include <fcntl.h>
#include <poll.h>
#include <sys/signalfd.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <optional>
#endif

namespace kodra::console {
namespace {

constexpr const char* kNoTerminal =
    "a senha deve ser perguntada, e não há terminal: use --senha-de, ou um perfil com senha-de ou senha-comando";
constexpr const char* kNoPassword = "nenhuma senha foi digitada: execute o comando de novo e digite-a";

}  // namespace

#ifdef _WIN32

std::wstring AskPassword(const std::string& question) {
  constexpr wint_t kInterrupt = 3;
  // The runtime takes every device for a terminal, also that of a scheduled task, which is none.
  DWORD mode = 0;
  if (GetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), &mode) == 0) throw UsageError(kNoTerminal);
  _cputws(values::FromUtf8(question).c_str());
  std::wstring typed;
  wint_t letter = _getwch();
  for (; letter != L'\r' && letter != L'\n' && letter != kInterrupt && letter != WEOF; letter = _getwch()) {
    if (letter != L'\b')
      typed += static_cast<wchar_t>(letter);
    else if (!typed.empty())
      typed.pop_back();
  }
  _cputws(L"\r\n");
  if (letter == kInterrupt || letter == WEOF) throw UsageError(kNoPassword);
  return typed;
}

#else

namespace {

// A terminal that does not show what is typed, and a process whose signals wait, for the lifetime of the object.
class SilentTerminal {
 public:
  explicit SilentTerminal(int terminal) : terminal_(terminal) {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) sigaddset(&signals, signal);
    waiting_ = signalfd(-1, &signals, SFD_CLOEXEC);
    // Ctrl-Z does not end the question, but must not leave a terminal that is silent.
    sigaddset(&signals, SIGTSTP);
    pthread_sigmask(SIG_BLOCK, &signals, &formerSignals_);
    tcgetattr(terminal_, &formerMode_);
    termios silent = formerMode_;
    silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    tcsetattr(terminal_, TCSAFLUSH, &silent);
  }
  // The signals that wait have their effect at the end of it.
  ~SilentTerminal() {
    tcsetattr(terminal_, TCSAFLUSH, &formerMode_);
    close(waiting_);
    close(terminal_);
    pthread_sigmask(SIG_SETMASK, &formerSignals_, nullptr);
  }
  SilentTerminal(const SilentTerminal&) = delete;
  SilentTerminal& operator=(const SilentTerminal&) = delete;

  void Write(const std::string& text) const {
    // A terminal that is gone fails the read that follows.
    [[maybe_unused]] const ssize_t written = write(terminal_, text.data(), text.size());
  }

  // The line that is typed, without its end; nothing at the end of the input and when a signal waits.
  std::optional<std::string> Line() const {
    std::array<pollfd, 2> inputs = {{{terminal_, POLLIN, 0}, {waiting_, POLLIN, 0}}};
    if (poll(inputs.data(), inputs.size(), -1) < 0 || inputs[1].revents != 0) return std::nullopt;
    std::array<char, 4096> typed{};  // the longest line that a terminal accepts
    const ssize_t length = read(terminal_, typed.data(), typed.size());
    if (length <= 0) return std::nullopt;
    std::string line(typed.data(), static_cast<std::size_t>(length));
    if (line.back() == '\n') line.pop_back();
    return line;
  }

 private:
  int terminal_;
  int waiting_ = -1;
  sigset_t formerSignals_{};
  termios formerMode_{};
};

}  // namespace

std::wstring AskPassword(const std::string& question) {
  const int terminal = open("/dev/tty", O_RDWR | O_CLOEXEC);
  if (terminal < 0) throw UsageError(kNoTerminal);
  std::optional<std::string> typed;
  {
    const SilentTerminal silent(terminal);
    silent.Write(question);
    typed = silent.Line();
    // The terminal did not show the end of the line either.
    silent.Write("\n");
  }
  if (!typed) throw UsageError(kNoPassword);
  return values::FromUtf8(*typed);
}

#endif

}  // namespace kodra::console
