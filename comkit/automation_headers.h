// Windows' COM and automation declarations, in the order that they need.
#pragma once

// clang-format off
#include <windows.h>
#include <ocidl.h>
#include <oleauto.h>
#include <olectl.h>
// clang-format on
