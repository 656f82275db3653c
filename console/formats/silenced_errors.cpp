#include "console/formats/silenced_errors.h"

#include <cstdio>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace kodra::console {
namespace {

constexpr int kStandardError = 2;

#ifdef _WIN32
int Duplicate(int file) { return _dup(file); }
int OpenNowhere() { return _open("NUL", _O_WRONLY | _O_NOINHERIT); }
void Replace(int file, int by) { _dup2(by, file); }
void Close(int file) { _close(file); }
#else
int Duplicate(int file) { return fcntl(file, F_DUPFD_CLOEXEC, 0); }
int OpenNowhere() { return open("/dev/null", O_WRONLY | O_CLOEXEC); }
void Replace(int file, int by) { dup2(by, file); }
void Close(int file) { close(file); }
#endif

}  // namespace

SilencedErrors::SilencedErrors() : former_(Duplicate(kStandardError)) {
  const int nowhere = OpenNowhere();
  if (former_ < 0 || nowhere < 0) return;
  std::fflush(stderr);
  Replace(kStandardError, nowhere);
  Close(nowhere);
}

SilencedErrors::~SilencedErrors() {
  if (former_ < 0) return;
  std::fflush(stderr);
  Replace(kStandardError, former_);
  Close(former_);
}

}  // namespace kodra::console
