#include "zntopo/platform/tv/MS_Uuid.h"

namespace {

constexpr std::size_t kTextLength = MS_Uuid::kTextSize - 1;

constexpr bool isDash(std::size_t position) {
  return position == 8 || position == 13 || position == 18 || position == 23;
}

/// The value of each character as a hexadecimal digit; 0 for those that are none.
struct DigitValues {
  constexpr DigitValues() {
    for (int i = 0; i < 10; ++i) of['0' + i] = static_cast<std::uint8_t>(i);
    for (int i = 0; i < 6; ++i) {
      of['a' + i] = of['A' + i] = static_cast<std::uint8_t>(10 + i);
    }
  }
  std::uint8_t of[256] = {};
};

constexpr DigitValues kDigitValues;

/// Appends so many digits of a text to a number, and moves the text behind them. A text that has
/// ended goes on with zeros.
std::uint64_t withDigits(std::uint64_t number, const char*& text, int digits) {
  for (; digits > 0; --digits) {
    number = number << 4 | kDigitValues.of[static_cast<unsigned char>(*text)];
    text += *text != '\0';
  }
  return number;
}

void passDash(const char*& text) { text += *text != '\0'; }

}  // namespace

MS_Uuid::MS_Uuid(const char* text) {
  if (!text) return;
  high_ = withDigits(0, text, 8);
  for (int i = 0; i < 2; ++i) {
    passDash(text);
    high_ = withDigits(high_, text, 4);
  }
  passDash(text);
  low_ = withDigits(0, text, 4);
  passDash(text);
  low_ = withDigits(low_, text, 12);
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
