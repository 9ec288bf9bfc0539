#pragma once

#include <array>
#include <streambuf>

#include "tools/zntopo/Answer.h"

namespace zntopo::tools {

/// Lets a stream write to standard output, in large pieces, as they stand.
class AnswerBuffer : public std::streambuf {
 public:
  explicit AnswerBuffer(AnswerStream& answers) : answers_(answers) {
    setp(buffer_.data(), buffer_.data() + buffer_.size());
  }

 protected:
  int overflow(int c) override {
    if (sync() != 0) return traits_type::eof();
    if (!traits_type::eq_int_type(c, traits_type::eof())) sputc(traits_type::to_char_type(c));
    return traits_type::not_eof(c);
  }
  int sync() override {
    const bool isDone = answers_.write({pbase(), static_cast<std::size_t>(pptr() - pbase())});
    setp(buffer_.data(), buffer_.data() + buffer_.size());
    return isDone ? 0 : -1;
  }

 private:
  AnswerStream& answers_;
  std::array<char, 65536> buffer_;
};

}  // namespace zntopo::tools
