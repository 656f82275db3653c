// Runs the tests on a thread that has entered a single-threaded apartment.
#include <gtest/gtest.h>
#include <objbase.h>

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  const HRESULT entered = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  if (FAILED(entered)) return 1;
  const int result = RUN_ALL_TESTS();
  CoUninitialize();
  return result;
}
