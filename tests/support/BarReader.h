// A bar-code reader for what is printed: zbar, looking for Code 128 alone.
#pragma once

#include <string>

#include <QImage>

namespace suisui::test {

/// Texts of the Code 128 symbols on \a picture, each once, sorted, with a blank between.
[[nodiscard]] std::string readBarCodes(const QImage& picture);

} // namespace suisui::test
