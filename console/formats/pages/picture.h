// A picture for printed pages, such as an organisation's logo, from a PNG file.
#pragma once

#include <string>
#include <vector>

namespace kodra::console::pages {

struct Picture {
  int width, height;               // in dots
  std::vector<unsigned char> rgb;  // three bytes per dot, row by row; what is transparent lies on white
  std::string png;                 // the file's bytes
};

// The greatest width and height, in dots, and the greatest file, in bytes.
inline constexpr int kMostDots = 4000;
inline constexpr int kMostPictureBytes = 4 << 20;

// Reads a file. Raises UsageError, with the file's name and the reason, if it cannot be read, is too large or is not a
// PNG picture.
Picture ReadPicture(const std::wstring& path);

}  // namespace kodra::console::pages
