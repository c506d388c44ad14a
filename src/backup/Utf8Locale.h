#pragma once

#include <clocale>
#include <locale.h>

namespace repvolta {

/// While this object exists, names are UTF-8 for the C library in this thread, whatever the user's
/// locale is: the ZIP library converts them.
class Utf8Locale {
 public:
  Utf8Locale() : utf8_(newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr)) {
    if (utf8_ != nullptr) before_ = uselocale(utf8_);
  }
  ~Utf8Locale() {
    if (utf8_ == nullptr) return;
    uselocale(before_);
    freelocale(utf8_);
  }
  Utf8Locale(const Utf8Locale&) = delete;
  Utf8Locale& operator=(const Utf8Locale&) = delete;

 private:
  locale_t utf8_;
  locale_t before_ = nullptr;
};

}  // namespace repvolta
