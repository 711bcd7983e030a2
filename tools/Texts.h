// What the data tool says, in the language of its reader. A message consists of a phrase, which has both
// languages, and its parts; the stream that it is written to decides on the language. So the code that finds
// a fault need not know who asked.
#pragma once

#include <iosfwd>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace suisui {

enum class Language { English, Japanese };

/// The language of the messages for the locale that LC_ALL, LC_MESSAGES or LANG names, in this order:
/// Japanese for ja, ja_JP, ja_JP.UTF-8 and the like; English where another encoding could not show it.
[[nodiscard]] Language languageOfSession();

/// One text in both languages, with "{1}", "{2}" ... for its parts.
struct Phrase
{
    std::string_view english;
    std::string_view japanese;
};

class Message
{
public:
    Message() = default;
    /// A name, a number, somebody else's words: the same in both languages.
    Message(std::string text) : m_text(std::move(text)) {}
    Message(std::string_view text) : m_text(text) {}
    Message(const char* text) : m_text(text) {}
    Message(const Phrase& phrase, std::vector<Message> parts = {}) // a phrase outlives what is made of it
        : m_phrase(&phrase), m_parts(std::move(parts))
    {
    }

    [[nodiscard]] bool empty() const { return m_phrase == nullptr && m_text.empty(); }
    [[nodiscard]] std::string in(Language language) const;

private:
    const Phrase* m_phrase = nullptr;
    std::string m_text;
    std::vector<Message> m_parts;
};

/// Messages written to \a stream are in \a language from now on; until then they are in English.
void speak(std::ostream& stream, Language language);
[[nodiscard]] Language languageOf(std::ostream& stream);
std::ostream& operator<<(std::ostream& stream, const Message& message);

/// The system's reason \a code (an errno).
[[nodiscard]] Message systemReason(int code);

/// The message whose phrase in \a table reads \a english; when there is none, \a english itself. For words
/// from rooms and processes that know one language only.
[[nodiscard]] Message recognised(std::span<const Phrase> table, std::string_view english);

} // namespace suisui
