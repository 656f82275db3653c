// What happens when a checked function of the C++ library is used wrongly. The library's own function for it needs the
// library's implementation of threads, which KodraRpt.dll replaces (src/com/library_threads.cpp).
#include <cstdio>
#include <vector>

namespace std {

void __glibcxx_assert_fail(const char* file, int line, const char* function, const char* condition) noexcept {
  std::fprintf(stderr, "%s:%d: %s: %s\n", file, line, function, condition);
  __builtin_trap();
}

}  // namespace std
