// Little-endian integers laid end to end, with no padding: the layout of the profile file.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
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

// Little-endian integers at a place known to hold them (the caller has checked the length).
inline uint32_t LoadU32(const char* p) {
  uint32_t v = 0;
  if constexpr (std::endian::native == std::endian::little) {
    std::memcpy(&v, p, 4);
  } else {
    for (int k = 0; k < 4; ++k) v |= static_cast<uint32_t>(static_cast<unsigned char>(p[k])) << (8 * k);
  }
  return v;
}
inline int32_t LoadI32(const char* p) {
  return static_cast<int32_t>(LoadU32(p));
}
inline int16_t LoadI16(const char* p) {
  return static_cast<int16_t>(
      static_cast<uint16_t>(static_cast<unsigned char>(p[0]) | (static_cast<unsigned char>(p[1]) << 8)));
}

inline void StoreI32(char* p, int32_t v) {
  const auto u = static_cast<uint32_t>(v);
  if constexpr (std::endian::native == std::endian::little) {
    std::memcpy(p, &u, 4);
  } else {
    for (int k = 0; k < 4; ++k) p[k] = static_cast<char>((u >> (8 * k)) & 0xFF);
  }
}
inline void StoreI16(char* p, int16_t v) {
  const auto u = static_cast<uint16_t>(v);
  p[0] = static_cast<char>(u & 0xFF);
  p[1] = static_cast<char>(u >> 8);
}

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
    if constexpr (std::endian::native == std::endian::little) {
      // A whole profile is some 17,000 reads; one copy per field keeps that quick even unoptimised.
      if (width == 4) {
        std::memcpy(&v, data_.data() + pos_, 4);
      } else {
        uint16_t half = 0;
        std::memcpy(&half, data_.data() + pos_, 2);
        v = half;
      }
    } else {
      v = 0;
      for (int k = 0; k < width; ++k)
        v |= static_cast<uint32_t>(static_cast<unsigned char>(data_[pos_ + k])) << (8 * k);
    }
    pos_ += width;
    return true;
  }
  std::string_view data_;
  std::size_t pos_ = 0;
};

}  // namespace quillet
