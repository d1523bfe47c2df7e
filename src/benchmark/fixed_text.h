// A text field of fixed width: what is stored stands at the left, blanks fill the rest, and
// longer text is cut. Reading always gives the whole width.
#pragma once

#include <cstddef>
#include <string>

namespace mdlBenchmark {

template <std::size_t Width>
class FixedText {
 public:
  FixedText() : text_(Width, ' ') {}
  FixedText(const std::string& text) { *this = text; }  // NOLINT: stores like an assignment
  FixedText& operator=(const std::string& text) {
    text_ = text.substr(0, Width);
    text_.resize(Width, ' ');
    return *this;
  }
  const std::string& str() const { return text_; }
  bool operator==(const std::string& other) const { return text_ == other; }

 private:
  std::string text_;
};

}  // namespace mdlBenchmark
