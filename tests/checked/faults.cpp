// Commits one fault, as a proof that the checks of the preset win32-checked end the process that commits it: the
// program is compiled as KodraRpt.dll is, and has its memory. Without a fault it ends with 0.
//
//   kodra_checked_faults overread
#include <windows.h>

#include <climits>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace {

// What the compiler does not know.
volatile int one = 1;

int Overread() {
  const std::wstring text(40, L'x');
  return text.data()[text.size() + one];
}

int Overwrite() {
  const auto bytes = std::make_unique<char[]>(10);
  bytes.get()[9 + one] = 'x';
  return 0;
}

int Underwrite() {
  const auto bytes = std::make_unique<char[]>(10);
  bytes.get()[-one] = 'x';
  return 0;
}

int UseAfterFree() {
  auto number = std::make_unique<int>(7);
  const int* const freed = number.get();
  number.reset();
  // Blocks that are made later do not get its place.
  for (int i = 0; i < 1000; ++i) std::make_unique<int>(i);
  return *freed;
}

int DoubleFree() {
  const auto number = std::make_unique<int>(7);
  delete number.get();
  return 0;
}

int WrongSize() {
  struct Small {
    int number;
  };
  struct Large : Small {
    int more;
  };
  const std::unique_ptr<Small> object = std::make_unique<Large>();
  return 0;
}

int Overflow() { return INT_MAX + one; }

int NullReference() {
  std::wstring* text = nullptr;
  if (one == 0) text = new std::wstring;
  return static_cast<int>(text->size());
}

int WrongIndex() {
  const std::vector<int> numbers(3, 7);
  return numbers[static_cast<std::size_t>(2 + one)];
}

// Blocks of all sizes, used to their ends.
int None() {
  for (std::size_t size = 0; size < 20'000; size += 7) {
    const std::vector<char> small(size, 'x');
    const std::wstring text(size, L'x');
    if (small.size() != text.size()) return 1;
  }
  const std::vector<char> large(20'000'000, 'x');
  return large.back() == 'x' ? 0 : 1;
}

struct Fault {
  const char* name;
  int (*commit)();
};

constexpr Fault kFaults[] = {
    {"none", &None},
    {"overread", &Overread},
    {"overwrite", &Overwrite},
    {"underwrite", &Underwrite},
    {"use_after_free", &UseAfterFree},
    {"double_free", &DoubleFree},
    {"wrong_size", &WrongSize},
    {"overflow", &Overflow},
    {"null_reference", &NullReference},
    {"wrong_index", &WrongIndex},
};

// Windows ends the process with the number of its exception, and starts no debugger.
LONG WINAPI EndProcess(EXCEPTION_POINTERS*) { return EXCEPTION_EXECUTE_HANDLER; }

}  // namespace

int main(int argc, char** argv) {
  SetUnhandledExceptionFilter(&EndProcess);
  for (const Fault& fault : kFaults)
    if (argc == 2 && std::strcmp(argv[1], fault.name) == 0) return fault.commit() == 0 ? 0 : 1;
  return 2;
}
