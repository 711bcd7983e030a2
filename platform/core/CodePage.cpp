#include "platform/core/CodePage.h"

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
        std::array<char, 4096> buffer{};
        while (!input.empty()) {
            char* from = const_cast<char*>(input.data()); // iconv's signature; it does not write there
            std::size_t fromLeft = input.size();
            char* to = buffer.data();
            std::size_t toLeft = buffer.size();
            const std::size_t result = iconv(m_handle, &from, &fromLeft, &to, &toLeft);
            const int error = errno;
            output.append(buffer.data(), buffer.size() - toLeft);
            input.remove_prefix(input.size() - fromLeft);
            if (result == static_cast<std::size_t>(-1) && error != E2BIG)
                return false;
        }
        return true;
    }

private:
    iconv_t m_handle;
};

} // namespace

std::string fromCp932(std::string_view bytes)
{
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
    Converter converter("CP932", "UTF-8");
    std::string bytes;
    if (!converter.convert(utf8, bytes))
        return std::nullopt;
    return bytes;
}

} // namespace suisui
