#include "zntopo/platform/tv/MS_Uuid.h"

namespace {

constexpr std::size_t kTextLength = MS_Uuid::kTextSize - 1;

constexpr bool isDash(std::size_t position) {
  return position == 8 || position == 13 || position == 18 || position == 23;
}

constexpr unsigned digitOf(char c) {
  if (c >= '0' && c <= '9') return static_cast<unsigned>(c - '0');
  if (c >= 'a' && c <= 'f') return static_cast<unsigned>(c - 'a') + 10;
  if (c >= 'A' && c <= 'F') return static_cast<unsigned>(c - 'A') + 10;
  return 0;
}

}  // namespace

MS_Uuid::MS_Uuid(const char* text) {
  int digits = 0;
  // A text that ends early has no more digits.
  for (std::size_t i = 0; text && i < kTextLength && text[i] != '\0'; ++i) {
    if (isDash(i)) continue;
    std::uint64_t& half = digits < 16 ? high_ : low_;
    half |= std::uint64_t{digitOf(text[i])} << (60 - 4 * (digits % 16));
    ++digits;
  }
}

char* MS_Uuid::as_asciiz(char* buffer) const {
  static constexpr char kDigits[] = "0123456789abcdef";
  int digits = 0;
  for (std::size_t i = 0; i < kTextLength; ++i) {
    if (isDash(i)) {
      buffer[i] = '-';
      continue;
    }
    const std::uint64_t half = digits < 16 ? high_ : low_;
    buffer[i] = kDigits[(half >> (60 - 4 * (digits % 16))) & 0xF];
    ++digits;
  }
  buffer[kTextLength] = '\0';
  return buffer;
}

unsigned long MS_Uuid::hash() const {
  // Mixes both halves, so that identifiers that differ in one place only spread all the same.
  std::uint64_t mixed = high_ ^ (low_ * 0x9E3779B97F4A7C15U);
  mixed ^= mixed >> 32;
  mixed *= 0xD6E8FEB86659FD93U;
  mixed ^= mixed >> 32;
  return static_cast<unsigned long>(mixed);
}
