#include "platform/core/CodePage.h"

#include <algorithm>
#include <array>
#include <cerrno>

#include <iconv.h>

namespace suisui {

namespace {

/// A conversion of the C library, closed when it goes out of scope.
class Converter
{
public:
    // "CP932" and not "SJIS": the latter lacks characters that every Japanese shop uses.
    Converter(const char* to, const char* from) : m_handle(iconv_open(to, from)) {}
    ~Converter() { iconv_close(m_handle); }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    /// Converts as much of \a input as is valid, appends it to \a output and takes it off \a input.
    /// True when everything was converted.
    bool convert(std::string_view& input, std::string& output)
    {
        while (!input.empty()) {
            char* from = const_cast<char*>(input.data()); // iconv's signature; it does not write there
            std::size_t fromLeft = input.size();
            char* to = m_buffer.data();
            std::size_t toLeft = m_buffer.size();
            const std::size_t result = iconv(m_handle, &from, &fromLeft, &to, &toLeft);
            const int error = errno;
            output.append(m_buffer.data(), m_buffer.size() - toLeft);
            input.remove_prefix(input.size() - fromLeft);
            if (result == static_cast<std::size_t>(-1) && error != E2BIG)
                return false;
        }
        return true;
    }

private:
    iconv_t m_handle;
    std::array<char, 4096> m_buffer{};
};

/// Texts of these characters alone, as nearly all codes are, have the same bytes in both.
bool isAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

std::string fromCp932(std::string_view bytes)
{
    if (isAscii(bytes))
        return std::string(bytes);
    Converter converter("UTF-8", "CP932");
    std::string text;
    text.reserve(bytes.size());
    while (!converter.convert(bytes, text)) {
        text += "\xEF\xBF\xBD";
        bytes.remove_prefix(1);
    }
    return text;
}

std::optional<std::string> toCp932(std::string_view utf8)
{
    if (isAscii(utf8))
        return std::string(utf8);
    Converter converter("CP932", "UTF-8");
    std::string bytes;
    if (!converter.convert(utf8, bytes))
        return std::nullopt;
    return bytes;
}

std::string toCp932(std::string_view utf8, char instead)
{
    if (isAscii(utf8))
        return std::string(utf8);
    Converter converter("CP932", "UTF-8");
    std::string bytes;
    bytes.reserve(utf8.size());
    while (!converter.convert(utf8, bytes)) {
        bytes += instead;
        do // the whole character, or as much of one as is there
            utf8.remove_prefix(1);
        while (!utf8.empty() && (static_cast<unsigned char>(utf8.front()) & 0xC0U) == 0x80U);
    }
    return bytes;
}

} // namespace suisui
