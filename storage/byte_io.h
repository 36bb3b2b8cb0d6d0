// Little-endian integers laid end to end, with no padding: the layout of the profile file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quillet {

class ByteWriter {
 public:
  explicit ByteWriter(std::string& out) : out_(out) {}
  void I16(int16_t v) { Unsigned(static_cast<uint16_t>(v), 2); }
  void I32(int32_t v) { Unsigned(static_cast<uint32_t>(v), 4); }
  void Bytes(std::string_view bytes) { out_.append(bytes); }

 private:
  void Unsigned(uint32_t v, int width) {
    for (int k = 0; k < width; ++k) out_.push_back(static_cast<char>((v >> (8 * k)) & 0xFF));
  }
  std::string& out_;
};

// Reads from a byte view; every read checks that the bytes are there and, when they are not, changes
// nothing and returns false.
class ByteReader {
 public:
  explicit ByteReader(std::string_view data) : data_(data) {}
  bool I16(int16_t& v) {
    uint32_t u = 0;
    if (!Unsigned(u, 2)) return false;
    v = static_cast<int16_t>(static_cast<uint16_t>(u));
    return true;
  }
  bool I32(int32_t& v) {
    uint32_t u = 0;
    if (!Unsigned(u, 4)) return false;
    v = static_cast<int32_t>(u);
    return true;
  }
  bool Bytes(std::size_t n, std::string_view& bytes) {
    if (remaining() < n) return false;
    bytes = data_.substr(pos_, n);
    pos_ += n;
    return true;
  }
  std::size_t offset() const { return pos_; }
  std::size_t remaining() const { return data_.size() - pos_; }

 private:
  bool Unsigned(uint32_t& v, int width) {
    if (remaining() < static_cast<std::size_t>(width)) return false;
    v = 0;
    for (int k = 0; k < width; ++k) v |= static_cast<uint32_t>(static_cast<unsigned char>(data_[pos_ + k])) << (8 * k);
    pos_ += width;
    return true;
  }
  std::string_view data_;
  std::size_t pos_ = 0;
};

}  // namespace quillet
