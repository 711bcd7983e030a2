#include "tools/Texts.h"

#include <cerrno>
#include <cstring>
#include <optional>
#include <ostream>

#include <QString>

#include "tools/Phrases.h"

namespace suisui {

namespace {

using namespace Qt::Literals::StringLiterals;

int languageSlot()
{
    static const int slot = std::ios_base::xalloc();
    return slot;
}

constexpr struct
{
    int code;
    const Phrase& phrase;
} reasons[] = {
    {ENOSPC, phrases::noRoom},       {EDQUOT, phrases::noRoom},         {EFBIG, phrases::noRoom},
    {EACCES, phrases::noPermission}, {EPERM, phrases::noPermission},    {EROFS, phrases::readOnlyDisk},
    {ENOENT, phrases::noSuchFile},   {ENOTDIR, phrases::notAFolder},    {EEXIST, phrases::existsAlready},
    {EIO, phrases::deviceNotReady},  {ENODEV, phrases::deviceNotReady}, {ENXIO, phrases::deviceNotReady},
    {EISDIR, phrases::isAFolder},
};

/// The parts of \a english when it matches \a pattern; none when it does not.
std::optional<std::vector<Message>> partsOf(std::string_view pattern, std::string_view english)
{
    constexpr std::size_t placeLength = 3; // "{1}"
    std::vector<Message> parts;
    while (true) {
        const std::size_t open = std::min(pattern.find('{'), pattern.size());
        if (!english.starts_with(pattern.substr(0, open)))
            return std::nullopt;
        english.remove_prefix(open);
        if (open == pattern.size())
            return english.empty() ? std::optional(std::move(parts)) : std::nullopt;
        pattern.remove_prefix(open + placeLength);
        const std::string_view next = pattern.substr(0, pattern.find('{'));
        const std::size_t end = next.empty() ? english.size() : english.find(next);
        if (end == std::string_view::npos)
            return std::nullopt;
        parts.push_back(recognised(phrases::kinds, english.substr(0, end)));
        english.remove_prefix(end);
    }
}

} // namespace

Language languageOfSession()
{
    QString locale;
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (locale.isEmpty())
            locale = qEnvironmentVariable(name);
    const QString encoding = locale.section(u'.', 1).section(u'@', 0, 0).remove(u'-').toLower();
    const QString region = locale.section(u'.', 0, 0).section(u'@', 0, 0);
    const bool japanese = region == u"ja"_s || region.startsWith(u"ja_"_s);
    return japanese && (encoding.isEmpty() || encoding == u"utf8"_s) ? Language::Japanese : Language::English;
}

std::string Message::in(Language language) const
{
    if (m_phrase == nullptr)
        return m_text;
    const std::string_view text = language == Language::Japanese ? m_phrase->japanese : m_phrase->english;
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::size_t part =
            at + 2 < text.size() && text[at] == '{' && text[at + 2] == '}'
                ? static_cast<std::size_t>(static_cast<unsigned char>(text[at + 1] - '1'))
                : m_parts.size();
        if (part >= m_parts.size()) {
            result += text[at];
            continue;
        }
        result += m_parts[part].in(language);
        at += 2;
    }
    return result;
}

void speak(std::ostream& stream, Language language)
{
    stream.iword(languageSlot()) = static_cast<long>(language);
}

Language languageOf(std::ostream& stream)
{
    return static_cast<Language>(stream.iword(languageSlot()));
}

std::ostream& operator<<(std::ostream& stream, const Message& message)
{
    return stream << message.in(languageOf(stream));
}

Message systemReason(int code)
{
    for (const auto& reason : reasons)
        if (reason.code == code)
            return reason.phrase;
    return std::strerror(code);
}

Message recognised(std::span<const Phrase> table, std::string_view english)
{
    for (const Phrase& phrase : table)
        if (auto parts = partsOf(phrase.english, english))
            return {phrase, std::move(*parts)};
    return english;
}

} // namespace suisui
