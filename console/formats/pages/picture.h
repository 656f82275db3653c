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

// The picture of a file's bytes. Raises UsageError, with the file's name and the reason, if it is too large or is not a
// PNG picture.
Picture PictureOf(std::string png, const std::string& name);
// Reads a file. Raises FileError if it cannot be read, and as PictureOf.
Picture ReadPicture(const std::wstring& path);

}  // namespace kodra::console::pages
