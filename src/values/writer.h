// Texts that are built from their start to their end, piece by piece, and read where they stand.
//
//   LocalText<200> condition;
//   condition.Append(L"d.COD_DEPTO = '", code, L"' AND d.DT_ARMAZ = ", sql::SQLDataAtual());
//   Use(condition);  // as a std::wstring_view
//
// They may be built when the program is compiled, too.
#pragma once

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace kodra::values {

class Writer;

// What writes itself where it is wanted, instead of making a text that is copied there.
template <class T>
concept Fragment = requires(const T& fragment, Writer& out) {
  fragment.WriteTo(out);
};

class Writer {
 public:
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;

  constexpr std::wstring_view View() const { return {characters_, size_}; }
  constexpr operator std::wstring_view() const { return View(); }
  constexpr std::size_t size() const { return size_; }
  constexpr bool empty() const { return size_ == 0; }

  // Appends literals, texts and fragments one after the other. None may look into this text.
  template <class... Pieces>
  constexpr void Append(const Pieces&... pieces) {
    (AppendPiece(pieces), ...);
  }

  // Lets `write` write up to `most` characters at the place that it is given; it gives their end.
  template <class Write>
  constexpr void AppendUpTo(std::size_t most, Write write) {
    MakeRoom(most);
    size_ = static_cast<std::size_t>(write(characters_ + size_) - characters_);
  }

  // Takes away what stands behind the first `size` characters. REQUIRES: size <= size().
  constexpr void Truncate(std::size_t size) { size_ = size; }

  // Takes away `length` characters at a position. REQUIRES: they are there.
  void Erase(std::size_t position, std::size_t length);
  // Puts what stands behind the first `start` characters at a position among these. REQUIRES: position <= start.
  void MoveEnd(std::size_t start, std::size_t position);

 protected:
  // REQUIRES: room for `capacity` characters that lives as long as this.
  constexpr Writer(wchar_t* room, std::size_t capacity) : characters_(room), capacity_(capacity) {}
  constexpr ~Writer() { delete[] heap_; }

 private:
  // The length of a literal is known when it is compiled.
  template <std::size_t kSize>
  constexpr void AppendPiece(const wchar_t (&literal)[kSize]) {
    AppendCharacters(literal, kSize - 1);
  }
  constexpr void AppendPiece(std::wstring_view text) { AppendCharacters(text.data(), text.size()); }
  constexpr void AppendPiece(const Fragment auto& fragment) { fragment.WriteTo(*this); }

  constexpr void AppendCharacters(const wchar_t* from, std::size_t count) {
    MakeRoom(count);
    Copy(from, count, characters_ + size_);
    size_ += count;
  }
  static constexpr void Copy(const wchar_t* from, std::size_t count, wchar_t* to) {
    if (std::is_constant_evaluated())
      std::copy_n(from, count, to);
    else if (count != 0)  // an empty text may stand nowhere
      std::memcpy(to, from, count * sizeof(wchar_t));
  }
  constexpr void MakeRoom(std::size_t more) {
    if (more > capacity_ - size_) [[unlikely]]
      Grow(more);
  }
  constexpr void Grow(std::size_t more) {
    const std::size_t capacity = 2 * (size_ + more);
    auto* const larger = new wchar_t[capacity];
    Copy(characters_, size_, larger);
    delete[] heap_;
    heap_ = characters_ = larger;
    capacity_ = capacity;
  }

  wchar_t* characters_;
  std::size_t size_ = 0;
  std::size_t capacity_;
  // Where the characters stand once they have outgrown the room.
  wchar_t* heap_ = nullptr;
};

// A text that takes no memory but its own as long as it has at most kRoom characters.
template <std::size_t kRoom>
class LocalText final : public Writer {
 public:
  template <class... Pieces>
  constexpr explicit LocalText(const Pieces&... pieces) : Writer(room_, kRoom) {
    Append(pieces...);
  }
  constexpr LocalText(const LocalText& other) : LocalText(other.View()) {}

 private:
  wchar_t room_[kRoom];
};

// A fragment that a function of a Writer& writes.
template <class Write>
class Written {
 public:
  constexpr explicit Written(Write write) : write_(std::move(write)) {}
  constexpr void WriteTo(Writer& out) const { write_(out); }

 private:
  Write write_;
};

// A fragment as a text of its own.
std::wstring ToString(const Fragment auto& fragment) {
  const LocalText<200> text(fragment);
  return std::wstring(text.View());
}

}  // namespace kodra::values
